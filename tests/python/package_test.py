"""The installed package: what is in it, what it shows of itself, and what the documentation shows of it."""

import importlib.metadata
import inspect
import pathlib
import pydoc
import re
import subprocess
import sys
import unittest

import rasterplanwriter as rpw
from support import NATIVE, PACKAGE, REPOSITORY, TEMPLATE, FolderTest, read, run


def public_members():
    """Name and value of everything that help() shows a user."""
    for name in rpw.__all__:
        value = getattr(rpw, name)
        if inspect.isclass(value):
            yield name, value
            for member, function in vars(value).items():
                if not member.startswith("_") and (inspect.isroutine(function) or isinstance(function, property)):
                    yield f"{name}.{member}", function


def snippets(document):
    """The Python programs that a document shows."""
    return re.findall(r"^```python\n(.*?)^```", (REPOSITORY / document).read_text(encoding="utf-8"), re.M | re.S)


class Package(FolderTest):
    def test_is_the_installed_one(self):
        self.assertTrue(PACKAGE.is_relative_to(sys.prefix), PACKAGE)
        self.assertEqual(sorted(path.name for path in PACKAGE.iterdir() if path.name != "__pycache__"),
                         sorted([TEMPLATE, "__init__.py", "_arguments.py", "_drawing.py", "_errors.py", "_image.py",
                                 pathlib.Path(NATIVE.__file__).name, "_native.pyi", "_plane.py", "_unit.py",
                                 "py.typed"]))

    def test_needs_no_other_package(self):
        self.assertIsNone(importlib.metadata.requires("rasterplanwriter"))
        run("import rasterplanwriter", flags=["-S"], package=PACKAGE.parent)

    def test_has_the_version_of_the_library(self):
        changes = (REPOSITORY / "CHANGELOG.md").read_text(encoding="utf-8")
        version, day = re.search(r"^## \[(.+)\] - (.+)$", changes, re.M).groups()
        version += ".dev0" if day == "unreleased" else ""
        self.assertEqual((rpw.__version__, importlib.metadata.version("rasterplanwriter")), (version, version))

    def test_units_are_those_of_the_library(self):
        header = (REPOSITORY / "include/RasterPlanWriter/DrawingUnit.h").read_text(encoding="utf-8")
        units = {name: int(code) for name, code in re.findall(r"^    (\w+) = (\d+)", header, re.M)}
        self.assertEqual({unit.name: unit.value for unit in rpw.DrawingUnit}, units)

    def test_everything_public_is_documented(self):
        members = dict(public_members())
        self.assertIn("Drawing.write_2d", members)
        for name, member in members.items():
            with self.subTest(name):
                self.assertTrue(inspect.getdoc(member))

    def test_names_are_those_that_a_program_uses(self):
        for name in rpw.__all__:
            if inspect.isclass(getattr(rpw, name)):
                self.assertEqual(getattr(rpw, name).__module__, "rasterplanwriter")
        text = pydoc.render_doc(rpw, renderer=pydoc.plaintext)
        self.assertIn("write_2d(self, plane: 'Plane', path: 'StrPath | None' = None) -> 'None'", text)
        self.assertNotIn("rasterplanwriter._", text)

    def test_module_offers_its_entry_alone(self):
        symbols = subprocess.run(["nm", "-D", "--defined-only", NATIVE.__file__], check=True, capture_output=True,
                                 text=True).stdout
        self.assertEqual([line.split()[-1] for line in symbols.splitlines()], ["PyInit__native"])

    def test_module_is_hardened(self):
        segments = subprocess.run(["readelf", "-lWd", NATIVE.__file__], check=True, capture_output=True,
                                  text=True).stdout
        for words in (r"GNU_STACK.* RW  ?0", "GNU_RELRO", "FLAGS_1.* NOW"):
            self.assertRegex(segments, words)
        symbols = subprocess.run(["nm", "-D", NATIVE.__file__], check=True, capture_output=True, text=True).stdout
        self.assertIn("__stack_chk_fail", symbols)

    def test_documentation_shows_programs_that_run(self):
        for document, count in (("README.md", 1), ("docs/python.md", 3)):
            programs = snippets(document)
            self.assertEqual(len(programs), count, document)
            run("\n".join(programs))
        for name in ("south.dxf", "south-2d.dxf"):
            self.assertTrue(read(name).endswith(b"EOF\r\n"))

    def test_help_shows_a_program_that_runs(self):
        program = re.search(r"^    import .*?\n\n(?! )", rpw.__doc__, re.M | re.S).group()
        run(inspect.cleandoc(program))
        self.assertTrue(read("south-2d.dxf").endswith(b"EOF\r\n"))


if __name__ == "__main__":
    unittest.main()
