#!/usr/bin/python3
"""Runs clang-tidy over many sources in little time.

    tidy.py [--long] BUILD FILE...     BUILD holds compile_commands.json

Most of the time goes into headers, which clang-tidy reads and checks anew for each source. So sources that are compiled
alike are checked as one text. Where something is found in it, or where the sources do not go together, its halves are
checked, in the end each source by itself: only what is found there counts. With --long each is by itself from the start,
and by the rules of this project's root even where a folder has milder ones of its own."""

import argparse
import concurrent.futures
import json
import os
import shlex
import subprocess
import sys
import tempfile
from pathlib import Path

TOGETHER = 12  # more cost memory and bring little


def command_of(entry):
    """The arguments of the compiler without those that name its files."""
    words = iter(shlex.split(entry["command"])[1:])
    kept = []
    for word in words:
        if word in ("-o", "-c"):
            next(words)
        else:
            kept.append(word)
    return tuple(kept)


def rules_for(source):
    """The nearest file of rules above a source."""
    return next(folder / ".clang-tidy" for folder in source.parents if (folder / ".clang-tidy").exists())


def run_tidy(*arguments):
    """What clang-tidy says if it finds something, or nothing."""
    done = subprocess.run(["clang-tidy", "--quiet", *arguments], check=False, capture_output=True, text=True)
    if done.returncode == 0:
        return ""
    return done.stdout + done.stderr or f"clang-tidy ends with {done.returncode} and says nothing\n"


class BuildTree:
    """The sources of a build tree, and how they are compiled."""

    def __init__(self, build, rules):
        self.build = Path(build)
        self.rules = rules
        self.commands = {}
        for entry in json.loads((self.build / "compile_commands.json").read_text(encoding="utf-8")):
            self.commands.setdefault(Path(entry["file"]), command_of(entry))

    def batches(self, sources):
        """The sources in lists of those that share a compiler's arguments and rules."""
        alike = {}
        for source in sources:
            alike.setdefault((self.commands[source], rules_for(source)), []).append(source)
        for members in alike.values():
            count = -(-len(members) // TOGETHER)
            yield from (members[start::count] for start in range(count))

    def findings(self, sources):
        """What clang-tidy says of the sources, or nothing."""
        if len(sources) == 1:
            return run_tidy(*self.rules, "-p", self.build, sources[0])
        beside = [f"-iquote{folder}" for folder in sorted({source.parent for source in sources})]
        with tempfile.NamedTemporaryFile("w", suffix=".cpp", dir=self.build, encoding="utf-8") as text:
            for number, source in enumerate(sources):
                # A macro makes the check of repeated includes begin anew.
                text.write(f"#define SOURCE_{number}\n{source.read_text(encoding='utf-8')}\n")
            text.flush()
            found = run_tidy(f"--config-file={rules_for(sources[0])}", text.name, "--", *self.commands[sources[0]], *beside,
                             "-w")
        middle = len(sources) // 2
        return found and self.findings(sources[:middle]) + self.findings(sources[middle:])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--long", action="store_true")
    parser.add_argument("build")
    parser.add_argument("files", nargs="+")
    given = parser.parse_args()
    sources = [Path(os.path.abspath(file)) for file in given.files]
    tree = BuildTree(given.build, ["--config-file=.clang-tidy"] if given.long else [])
    if unknown := [str(source) for source in sources if source not in tree.commands]:
        parser.error(f"nothing in {given.build} is compiled of {', '.join(unknown)}")
    lists = [[source] for source in sources] if given.long else sorted(tree.batches(sources), key=len, reverse=True)
    with concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as runs:
        found = "".join(runs.map(tree.findings, lists))
    sys.stderr.write(found)
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
