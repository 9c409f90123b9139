"""Runs the blocks of code of a document, one after the other in one folder, by their language:

sh       as one script, stopped at its first failure; rasterplan is found
console  as sh, line by line; what is printed must be what the document shows
cpp      compiled as C++11 and run; it must write a drawing
cmake    configured, built, installed where it has rules for that, and run: with the example that it is the same as, or
         with the last program of the page
json     read; a site is judged by the schema and kept as my.json
python   left to the tests of the package, which run the programs of documents with it

blocks.toml names the blocks that are run with something else in the place of a word, and those that are not run here, with
the tests which run them or the reason why nothing does. A block below "the same as FILE" must be that file.

Usage: blocks.py PAGE with the options below."""
import argparse
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tomllib

import jsonschema
from PIL import Image

SOURCES = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(SOURCES / "docs/doxygen"))
import markdown  # noqa: E402 pylint: disable=wrong-import-position

SAME_AS = re.compile(r"<!-- the same as (.+) -->")

parser = argparse.ArgumentParser()
parser.add_argument("page")
parser.add_argument("--work", required=True, help="a folder for this page")
parser.add_argument("--prefix", required=True, help="where the package is installed")
parser.add_argument("--build", required=True, help="the build's folder")
parser.add_argument("--compiler", required=True)
given = parser.parse_args()
work = pathlib.Path(given.work).resolve()
words = {"sources": SOURCES, "work": work, "prefix": given.prefix, "build": given.build}
environment = dict(os.environ, PATH=f"{given.prefix}/bin:{os.environ['PATH']}", CXX=given.compiler, LC_ALL="C.UTF-8")


class Failure(Exception):
    """What is wrong with a block."""


def run(*command, folder=None):
    """What a command prints; its failure ends the block."""
    done = subprocess.run(command, cwd=folder or work, env=environment, text=True, check=False,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if done.returncode:
        raise Failure(f"{' '.join(map(str, command))}: exit status {done.returncode}\n{done.stdout}")
    return done.stdout


def see_drawing():
    """The program has written a whole drawing."""
    drawing = work / "south.dxf"
    if not drawing.read_bytes().rstrip().endswith(b"EOF"):
        raise Failure(f"{drawing} is no whole drawing")
    drawing.unlink()


def run_sh(text):
    """A script, stopped at its first failure."""
    run("sh", "-e", "-c", text)


def run_console(text):
    """Commands behind "$ ", each with what it prints."""
    for part in re.split(r"^\$ ", text, flags=re.MULTILINE)[1:]:
        command, _, wanted = part.partition("\n")
        found = run("sh", "-c", f"{command} || true")
        if found != wanted:
            raise Failure(f"{command} prints\n{found}and not\n{wanted}")


def run_cpp(text):
    """A whole program."""
    (work / "main.cpp").write_text(text, encoding="utf-8")
    run(given.compiler, "-std=c++11", "-Wall", "-Wextra", "-Werror", "main.cpp", "-o", "program", f"-I{given.prefix}/include",
        f"-L{given.prefix}/lib", "-lRasterPlanWriter", f"-Wl,-rpath,{given.prefix}/lib")
    run("./program")
    see_drawing()


def run_cmake(text, only_configure=False, example=None):
    """A whole project, with the example's files or the last program of the page."""
    project = work / "project"
    shutil.rmtree(project, ignore_errors=True)
    if example:
        shutil.copytree(example, project)
    else:
        project.mkdir()
        shutil.copy(work / "main.cpp", project)
    (project / "CMakeLists.txt").write_text(text, encoding="utf-8")
    (project / "rasterplanwriter").symlink_to(SOURCES)
    said = run("cmake", "-G", "Ninja", "-B", "build", "-DCMAKE_BUILD_TYPE=Debug", "--no-warn-unused-cli",
               f"-DCMAKE_PREFIX_PATH={given.prefix}", f"-DFETCHCONTENT_SOURCE_DIR_RASTERPLANWRITER={SOURCES}", folder=project)
    if "CMake Warning" in said:
        raise Failure(said)
    if only_configure:
        return
    run("cmake", "--build", "build", "--parallel", "2", folder=project)
    program = project / "build/consumer"
    if "install(" in text:
        run("cmake", "--install", "build", "--prefix", project / "installed", folder=project)
        shutil.rmtree(project / "build")
        program = project / "installed/bin/consumer"
    run(program)
    see_drawing()


def run_json(text):
    """A text that parses, and a site that the schema lets pass."""
    value = json.loads(text)
    if "images" in value:
        schema = json.loads((SOURCES / "resources/site.schema.json").read_text(encoding="utf-8"))
        jsonschema.validate(value, schema)
        (work / "my.json").write_text(text, encoding="utf-8")


ELSEWHERE = {"python": "tests/python/package_test.py"}
RUNNERS = {"sh": run_sh, "console": run_console, "cpp": run_cpp, "cmake": run_cmake, "json": run_json}


def exists(name):
    """Whether there is a test or script of a name."""
    if name.startswith(("scripts/", "tests/")):
        return (SOURCES / name).is_file()
    return re.search(rf": {re.escape(name)}$", run("ctest", "--test-dir", given.build, "-N"), re.MULTILINE)


def handle(block, entry):
    """Runs a block, or sees that it is named as one that is not run here."""
    same = SAME_AS.search(block.before)
    if same and block.text != (SOURCES / same.group(1)).read_text(encoding="utf-8"):
        raise Failure(f"it is not the same as {same.group(1)}")
    tests = [ELSEWHERE[block.language]] if block.language in ELSEWHERE else entry.get("tests", [])
    missing = [name for name in tests if not exists(name)]
    if missing:
        raise Failure(f"there are no such tests: {', '.join(missing)}")
    if tests:
        return "run by " + ", ".join(tests)
    if "reason" in entry:
        return entry["reason"]
    text = block.text
    for old, new in entry.get("replace", {}).items():
        if old not in text:
            raise Failure(f"blocks.toml replaces '{old}', which is not there")
        text = text.replace(old, new.format(**words))
    if block.language not in RUNNERS:
        if same:
            return "the same as its file"
        raise Failure(f"nothing runs a block of the language '{block.language}'; blocks.toml is to say why, or what does")
    if "before" in entry:
        run_sh(entry["before"].format(**words))
    if block.language == "cmake":
        run_cmake(text, entry.get("only_configure", False), (SOURCES / same.group(1)).parent if same else None)
    else:
        RUNNERS[block.language](text)
    return "run"


def main():
    """Handles all blocks of the page."""
    text = (SOURCES / given.page).read_text(encoding="utf-8")
    with open(SOURCES / "tests/docs/blocks.toml", "rb") as file:
        entries = [entry for entry in tomllib.load(file)["block"] if entry["page"] == given.page]
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir(parents=True)
    Image.new("RGB", (1000, 600)).save(work / "south.png")
    shutil.copy(SOURCES / "examples/consumer/main.cpp", work)

    failures = 0
    for block in markdown.blocks(text):
        first = block.text.partition("\n")[0]
        own = [entry for entry in entries if block.text.startswith(entry["begins"])]
        try:
            if len(own) > 1:
                raise Failure("several entries of blocks.toml fit it")
            outcome = handle(block, own[0] if own else {})
        except (Failure, ValueError, OSError, jsonschema.ValidationError) as failure:
            failures += 1
            outcome = f"FAILS: {failure}"
        entries = [entry for entry in entries if entry not in own]
        print(f"{given.page}:{block.line}: {first}: {outcome}")
    for entry in entries:
        failures += 1
        print(f"{given.page}: blocks.toml has an entry for a block that is not there: {entry['begins']}")
    if re.search(r"\n\n {4,}[^\s*-]", markdown.FENCE.sub(markdown.blank, text)):
        failures += 1
        print(f"{given.page}: code that only stands further to the right is not seen here; fence it")
    sys.exit(1 if failures else 0)


main()
