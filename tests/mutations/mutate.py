#!/usr/bin/python3
"""Makes the mistakes that the lists beside this program describe, one at a time, and has the tests find them.

    mutate.py [--list] [--fresh] [NAME...]

A list (*.toml, one for each folder of src) has an entry [[change]] for every mistake:

    name        what is wrong then; NAME selects entries whose names begin so
    file        the source file
    old, new    a text that the file has exactly once, and what takes its place
    survives    why no drawing and no answer can tell, for a change that need not be found
    needs       "wine" where only the Windows build can tell

The sources are copied to build/mutations. The judges take turns, the cheapest first, until one finds the mistake:
the golden and the invented scenes, the unit tests, the other programs of tests. A change that survives without a
reason, or is found although it has one, is a failure; so is one that does not compile.
"""

import argparse
import os
import shutil
import signal
import subprocess
import sys
import time
import tomllib
from pathlib import Path

HERE = Path(__file__).resolve().parent
ROOT = HERE.parents[1]
WORK = ROOT / "build" / "mutations"
TREE = WORK / "tree"
sys.path[:0] = [str(ROOT / "tests" / "acceptance" / folder) for folder in ("computed", "random")]
sys.dont_write_bytecode = True
from invention import invented  # noqa: E402
from scenes import Player  # noqa: E402

SCENES = 3000
BATCH = 500
TIME_LIMIT = 300
SMALL_TEMPLATE = ROOT / "tests" / "acceptance" / "random" / "placeholders.template"
TEMPLATE_NAME = "PrepImageAbschnitte_2010.template"


class Failure(Exception):
    """Something that a mutation must not do, or that the lists must not say."""


def output_of(*command, folder=ROOT):
    return subprocess.run(command, cwd=folder, check=True, stdout=subprocess.PIPE).stdout


# ---- The changes.

def all_changes():
    changes = []
    for file in sorted(HERE.glob("*.toml")):
        for change in tomllib.loads(file.read_text("utf-8"))["change"]:
            unknown = set(change) - {"name", "file", "old", "new", "survives", "needs"}
            missing = {"name", "file", "old", "new"} - set(change)
            if unknown or missing:
                raise Failure(f"{file.name}: {change.get('name')}: unknown {unknown}, missing {missing}")
            changes.append(change)
    names = [change["name"] for change in changes]
    twice = {name for name in names if names.count(name) > 1}
    if twice:
        raise Failure(f"two changes have the name {twice}")
    for change in changes:
        count = (ROOT / change["file"]).read_text("utf-8").count(change["old"])
        if count != 1:
            raise Failure(f"{change['name']}: {change['file']} has its text {count} times")
    return changes


def selected(changes, names):
    if not names:
        return changes
    for name in names:
        if not any(change["name"].startswith(name) for change in changes):
            raise Failure(f"no change has the name {name}")
    return [change for change in changes if change["name"].startswith(tuple(names))]


# ---- The copy.

def refresh_tree():
    listed = output_of("git", "ls-files", "-z", "--cached", "--others", "--exclude-standard").decode().split("\0")
    wanted = {name for name in listed if name and (ROOT / name).is_file()}
    for name in wanted:
        source, copy = ROOT / name, TREE / name
        if not copy.exists() or copy.read_bytes() != source.read_bytes():
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, copy)
            os.utime(copy)  # newer than all that was built of the last change
    for copy in TREE.rglob("*"):
        if copy.is_file() and str(copy.relative_to(TREE)) not in wanted:
            copy.unlink()


class Build:
    """One build of the copy."""

    def __init__(self, name, *options):
        self.folder = WORK / name
        self.log = WORK / f"{name}.log"
        launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
        self.configured = False
        self.options = [*options, *launcher]

    def make(self, *targets):
        """Whether the targets build."""
        with open(self.log, "ab") as log:
            if not self.configured:
                subprocess.run(["cmake", "-G", "Ninja", "-S", TREE, "-B", self.folder, *self.options], check=True,
                               stdout=log, stderr=log)
                self.configured = True
            return subprocess.run(["cmake", "--build", self.folder, "--target", *targets], check=False, stdout=log,
                                  stderr=log).returncode == 0


# ---- The judges: each says what finds the mistake, or nothing.

class SceneJudge:
    """The host plays scenes, whose answers are computed once."""

    def __init__(self, build):
        self.build = build
        self.folder = WORK / "host"
        self.batches = []

    def prepare(self):
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir()
        template = SMALL_TEMPLATE.read_bytes()
        (self.folder / TEMPLATE_NAME).write_bytes(template)
        golden = [(f"golden {file.stem}", file.read_text("utf-8"))
                  for file in sorted((ROOT / "tests/acceptance/golden").glob("*.scene"))]
        scenes = golden + [(f"scene {number}", invented(number)) for number in range(1, SCENES + 1)]
        for start in range(0, len(scenes), BATCH):
            batch = [(name, text, Player(template).play(f"say {name}\nreport\n{text}").answers())
                     for name, text in scenes[start:start + BATCH]]
            self.batches.append(batch)

    def targets(self):
        return ["export_host"]

    def judge(self):
        shutil.copy(self.build.folder / "bin" / "export_host", self.folder)
        shutil.copy(self.build.folder / "bin" / "libRasterPlanWriter.so.1", self.folder)
        for batch in self.batches:
            text = "report\n" + "".join(f"say {name}\n{scene}\n" for name, scene, _ in batch)
            (self.folder / "scenes.txt").write_bytes(text.encode("utf-8"))
            try:
                done = subprocess.run(["./export_host", "scenes.txt"], cwd=self.folder, check=False,
                                      timeout=TIME_LIMIT, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            except subprocess.TimeoutExpired:
                return "scenes: no end"
            position = 0
            for name, _, answers in batch:
                if not done.stdout.startswith(answers, position):
                    return name
                position += len(answers)
            if position != len(done.stdout) or done.returncode != 0:
                return f"the host's status {done.returncode}"
        return None


class ProgramJudge:
    """A program of tests."""

    def __init__(self, build, target, through=()):
        self.build, self.target, self.through = build, target, through

    def prepare(self):
        pass

    def targets(self):
        return [self.target]

    def judge(self):
        # By a relative name: a program's own path is then harder to find.
        program = next(self.build.folder.glob(f"bin/{self.target}*"))
        command = [*self.through, f"./{program.name}", "--gtest_fail_fast", "--gtest_brief=1"]
        try:
            done = subprocess.run(command, check=False, timeout=TIME_LIMIT, stdout=subprocess.PIPE,
                                  stderr=subprocess.PIPE, cwd=program.parent)
        except subprocess.TimeoutExpired:
            return f"{self.target}: no end"
        if done.returncode == 0:
            return None
        failed = [line for line in done.stdout.decode("utf-8", "replace").splitlines() if "[  FAILED  ]" in line]
        return failed[0].split("]", 1)[1].split("(")[0].split(",")[0].strip() if failed else (
            f"{self.target} ends with {done.returncode}")


def linux_judges():
    build = Build("build", "-DCMAKE_BUILD_TYPE=Debug", "-DRASTERPLANWRITER_BUILD_TOOL=OFF",
                  "-DRASTERPLANWRITER_INSTALL=OFF")
    return [SceneJudge(build), ProgramJudge(build, "unit_tests"), ProgramJudge(build, "acceptance_tests"),
            ProgramJudge(build, "fault_tests")]


def windows_judges():
    subprocess.run([ROOT / "scripts" / "install-deps", "windows"], check=True)
    build = Build("windows", "-DCMAKE_BUILD_TYPE=Release",
                  f"-DCMAKE_TOOLCHAIN_FILE={TREE / 'cmake/toolchains/mingw-w64.cmake'}")
    wine = (TREE / "cmake/toolchains/run-under-wine", build.folder / "wine")
    return [ProgramJudge(build, target, through=wine)
            for target in ("linked_host_tests", "loading_host_tests", "unit_tests")]


def prepare(judges):
    """Without a change nothing may be found."""
    for judge in judges:
        if not judge.build.make(*judge.targets()):
            raise Failure(f"the unchanged sources do not build: {judge.build.log}")
        judge.prepare()
        found = judge.judge()
        if found:
            raise Failure(f"the unchanged sources fail: {found}")


def verdict(change, judges):
    """What finds the change, or nothing."""
    file = TREE / change["file"]
    original = (ROOT / change["file"]).read_text("utf-8")
    file.write_text(original.replace(change["old"], change["new"]), "utf-8")
    try:
        for number, judge in enumerate(judges):
            if not judge.build.make(*judge.targets()):
                if number == 0:
                    raise Failure(f"it does not compile, see {judge.build.log}")
                return f"{judge.target} does not compile"
            found = judge.judge()
            if found:
                return found
        return None
    finally:
        file.write_text(original, "utf-8")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("names", nargs="*", metavar="NAME")
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--fresh", action="store_true")
    options = parser.parse_args()
    changes = selected(all_changes(), options.names)
    if options.list:
        for change in changes:
            print(f"{change['name']}: {change['file']}")
        return 0
    if options.fresh:
        shutil.rmtree(WORK, ignore_errors=True)
    TREE.mkdir(parents=True, exist_ok=True)
    refresh_tree()
    began = time.monotonic()
    counts = dict.fromkeys(("killed", "survived with a reason", "wrong"), 0)
    for needs, judges_for in (("", linux_judges), ("wine", windows_judges)):
        group = [change for change in changes if change.get("needs", "") == needs]
        if not group:
            continue
        judges = judges_for()
        prepare(judges)
        for change in group:
            start = time.monotonic()
            try:
                found = verdict(change, judges)
            except Failure as failure:
                outcome, text = "wrong", str(failure)
            else:
                reason = change.get("survives")
                if found and not reason:
                    outcome, text = "killed", f"killed by {found}"
                elif found:
                    outcome, text = "wrong", f"KILLED by {found}, although the list says: {reason}"
                elif reason:
                    outcome, text = "survived with a reason", f"survives: {reason}"
                else:
                    outcome, text = "wrong", "SURVIVED"
            counts[outcome] += 1
            print(f"{change['name']}: {text} ({time.monotonic() - start:.0f} s)", flush=True)
    print(", ".join(f"{number} {outcome}" for outcome, number in counts.items())
          + f", {time.monotonic() - began:.0f} s")
    return 1 if counts["wrong"] else 0


if __name__ == "__main__":
    signal.signal(signal.SIGTERM, signal.default_int_handler)  # so that the copy is mended and its build ended
    try:
        sys.exit(main())
    except Failure as failure:
        sys.exit(f"mutate: {failure}")
