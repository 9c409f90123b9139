"""The types that the package declares, as mypy reads them."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

import rasterplanwriter as rpw

PACKAGE = pathlib.Path(rpw.__file__).parent


class Types(unittest.TestCase):
    def check(self, module, *arguments):
        with tempfile.TemporaryDirectory() as folder:
            done = subprocess.run([sys.executable, "-m", module, *arguments], check=False, capture_output=True,
                                  text=True, cwd=folder)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)

    def test_package_fits_its_types(self):
        # As a folder of sources, for the findings in an installed package are not shown.
        self.check("mypy", "--strict", "--no-namespace-packages", str(PACKAGE))

    def test_module_has_what_its_stub_declares(self):
        self.check("mypy.stubtest", "rasterplanwriter._native")

    def test_programs_are_judged_as_marked(self):
        self.check("mypy", "--strict", str(pathlib.Path(__file__).with_name("usage.py")))


if __name__ == "__main__":
    unittest.main()
