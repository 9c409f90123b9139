"""Plants the faults that faults.toml beside this program describes, one at a time, and has the checks find them.

Usage: check.py [KIND...]. Every [[fault]] has

    kind      what checks it
    file      the file that gets the fault
    old, new  a text that the file has exactly once (nothing: its end), and what takes its place
    command   the check, run in the copy: without the fault it has to pass, and with it to fail
    finds     what the check has to say then
"""

import os
import shutil
import subprocess
import sys
import time
import tomllib
from pathlib import Path

HERE = Path(__file__).resolve().parent
ROOT = HERE.parents[1]
TREE = ROOT / "build" / "planted" / "tree"


def copy_tree():
    """The files of this checkout as they are, in a repository of their own, because checks ask for its files."""
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=ROOT,
                            check=True, stdout=subprocess.PIPE).stdout.decode()
    wanted = {name for name in listed.split("\0") if name and (ROOT / name).is_file()}
    for name in wanted:
        source, copy = ROOT / name, TREE / name
        if not copy.exists() or copy.read_bytes() != source.read_bytes():
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, copy)
            os.utime(copy)
    for copy in TREE.rglob("*"):
        name = str(copy.relative_to(TREE))
        if copy.is_file() and name not in wanted and not name.startswith((".git/", "build/")):
            copy.unlink()
    subprocess.run(["git", "init", "--quiet"], cwd=TREE, check=True)
    subprocess.run(["git", "add", "--all"], cwd=TREE, check=True)


def run(command):
    """Whether the command passes, and what it says."""
    done = subprocess.run(["/bin/sh", "-ec", command], cwd=TREE, check=False, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT)
    return done.returncode == 0, done.stdout.decode("utf-8", "replace")


def verdict(fault, passed):
    """Nothing when the check finds the fault, else why not. `passed` holds the commands that passed without one."""
    file = TREE / fault["file"]
    original = file.read_text("utf-8")
    if fault["old"] and original.count(fault["old"]) != 1:
        return f"{fault['file']} has the text {original.count(fault['old'])} times"
    if fault["command"] not in passed:
        passes, said = run(fault["command"])
        if not passes:
            return f"the check fails without the fault:\n{said[-3000:]}"
        passed.add(fault["command"])
    file.write_text(original.replace(fault["old"], fault["new"]) if fault["old"] else original + fault["new"], "utf-8")
    try:
        passes, said = run(fault["command"])
    finally:
        file.write_text(original, "utf-8")
    if passes:
        return "NOT FOUND: the check passes"
    if fault["finds"] not in said:
        return f"it fails, but does not say '{fault['finds']}':\n{said[-3000:]}"
    return ""


def main():
    faults = tomllib.loads((HERE / "faults.toml").read_text("utf-8"))["fault"]
    kinds = sys.argv[1:]
    unknown = set(kinds) - {fault["kind"] for fault in faults}
    if unknown:
        sys.exit(f"check-planted: no kind {', '.join(sorted(unknown))}")
    TREE.mkdir(parents=True, exist_ok=True)
    copy_tree()
    passed = set()
    missed = 0
    wanted = [fault for fault in faults if not kinds or fault["kind"] in kinds]
    for fault in wanted:
        began = time.monotonic()
        reason = verdict(fault, passed)
        missed += bool(reason)
        print(f"{fault['kind']}: {reason or 'found'} ({time.monotonic() - began:.0f} s)", flush=True)
    print(f"{len(wanted) - missed} of {len(wanted)} planted faults found")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
