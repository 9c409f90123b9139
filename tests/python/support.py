"""What the tests share."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

import rasterplanwriter as rpw

REPOSITORY = pathlib.Path(__file__).resolve().parents[2]
GOLDEN = REPOSITORY / "tests/acceptance/golden"
NATIVE = sys.modules["rasterplanwriter._native"]
PACKAGE = pathlib.Path(rpw.__file__).parent
TEMPLATE = "PrepImageAbschnitte_2010.template"

# A picture of 1000 x 600 pixels that stands upright.
WALL = {"left_top": (0, 0, 3), "left_bottom": (0, 0, 0), "right_bottom": (5, 0, 0), "pixels_per_unit": 200}
UPRIGHT = rpw.Plane((0, 0, 0), (1, 0, 0), (0, 0, 1))


class FolderTest(unittest.TestCase):
    """Runs each test in an empty folder of its own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.addCleanup(os.chdir, os.getcwd())
        os.chdir(folder.name)


def wall(path="drawing.dxf"):
    """A drawing with one image."""
    drawing = rpw.Drawing(path)
    drawing.add("wall.png", **WALL)
    return drawing


def read(path):
    return pathlib.Path(path).read_bytes()


def run(program, *arguments, package=None, flags=(), **environment):
    """Runs a program text in a Python of its own, with a copy of the package where one is given."""
    command = [sys.executable, "-B", *flags, "-c", program, *arguments]
    environment = {**os.environ, "PYTHONPATH": str(package or ""), **environment}
    done = subprocess.run(command, env=environment, check=False, capture_output=True, text=True, timeout=120)
    if done.returncode:
        raise AssertionError(f"status {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout


def package_copy(folder, template):
    """A copy of the package in `folder`, with another template, or none."""
    copy = pathlib.Path(folder).resolve() / "copied"
    shutil.copytree(PACKAGE, copy / PACKAGE.name)
    os.remove(copy / PACKAGE.name / TEMPLATE)
    if template:
        shutil.copy(template, copy / PACKAGE.name / TEMPLATE)
    return copy
