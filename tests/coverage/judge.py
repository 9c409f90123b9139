"""Judges which lines the tests ran.

Usage: judge.py LCOV_FILE LEFT_TOML

Fails when a part of the sources misses its bar, when a line that never ran is not named in LEFT_TOML, or when that file
names lines that are not in the sources any more, or that run by now. Branches are reported only: half of them are the
compiler's. What the compiler alone runs, consteval functions, does not count.
"""

import collections
import pathlib
import re
import sys
import tomllib

BARS = {"library": (("src/", "include/"), 99.5), "tool": (("tools/",), 97.0)}


def read_counts(lcov, root):
    """How often each line ran and each branch was taken, by (file, line) and (file, branch)."""
    lines = collections.Counter()
    branches = collections.Counter()
    file = None
    for text in lcov.read_text(encoding="utf-8").splitlines():
        kind, _, value = text.partition(":")
        if kind == "SF":
            path = pathlib.Path(value)
            file = str(path.relative_to(root)) if path.is_relative_to(root) else None
        elif file is None:
            continue
        elif kind == "DA":
            number, count = value.split(",")[:2]
            lines[file, int(number)] += int(count)
        elif kind == "BRDA":
            *branch, count = value.split(",")
            branches[file, tuple(branch)] += 0 if count == "-" else int(count)
    return lines, branches


def consteval_lines(text):
    """The numbers of the lines of all consteval functions."""
    inside = set()
    depth = None
    for number, line in enumerate(text, 1):
        code = re.sub(r'"(\\.|[^"\\])*"|//.*', "", line)
        if depth is None and re.search(r"\bconsteval\b", code):
            depth = 0
            begun = False
        if depth is None:
            continue
        inside.add(number)
        depth += code.count("{") - code.count("}")
        begun = begun or "{" in code
        if begun and depth == 0:
            depth = None
    return inside


def share(counts, folders):
    """The number of all entries of the folders, and of those that ran."""
    own = [count for (file, _), count in counts.items() if file.startswith(folders)]
    return len(own), sum(count > 0 for count in own)


def main():
    lcov, left_file = map(pathlib.Path, sys.argv[1:])
    root = pathlib.Path.cwd()
    lines, branches = read_counts(lcov, root)
    sources = {}
    for file, _ in lines:
        if file not in sources:
            sources[file] = (root / file).read_text(encoding="utf-8").splitlines()
    for file, text in sources.items():
        for number in consteval_lines(text):
            lines.pop((file, number), None)
    faults = []

    for name, (folders, bar) in BARS.items():
        total, ran = share(lines, folders)
        all_branches, taken = share(branches, folders)
        if total == 0:
            faults.append(f"{name}: no line was counted")
            continue
        percent = 100 * ran / total
        print(f"{name}: {ran} of {total} lines ran, {percent:.2f} % (bar {bar} %); "
              f"{taken} of {all_branches} branches, {100 * taken / max(1, all_branches):.1f} %")
        if percent < bar:
            faults.append(f"{name}: {percent:.2f} % is below {bar} %")

    named = set()
    with open(left_file, "rb") as stream:
        entries = tomllib.load(stream).get("left", [])
    for entry in entries:
        text = [line.strip() for line in sources.get(entry["file"], [])]
        if not entry["reason"].strip():
            faults.append(f"{left_file}: no reason for a line of {entry['file']}")
        for line in entry["lines"].strip().splitlines():
            places = [number for number, found in enumerate(text, 1) if found == line.strip()]
            if not places:
                faults.append(f"{left_file}: {entry['file']} has no line '{line.strip()}' any more")
            elif all(lines[entry["file"], number] > 0 for number in places):
                faults.append(f"{left_file}: the line '{line.strip()}' of {entry['file']} runs by now")
            named.add((entry["file"], line.strip()))

    every_folder = tuple(folder for folders, _ in BARS.values() for folder in folders)
    for (file, number), count in sorted(lines.items()):
        if count > 0 or not file.startswith(every_folder):
            continue
        text = sources[file][number - 1].strip()
        if text not in ("", "}", "{", "} else {") and (file, text) not in named:
            faults.append(f"{file}:{number} never ran and is not named in {left_file}: {text}")

    for fault in faults:
        print(fault, file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
