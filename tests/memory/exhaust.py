#!/usr/bin/python3
"""Lets every allocation of rasterplan and of a host of the library fail, one run for each.

For each number N from 1 on a program runs twice: with its Nth allocation failing, and with all from the Nth on. No run
may crash, leak, leave a file behind, lose the drawing or page that was there, or say anything but that the memory ran
out; it may succeed only with the right one.
"""

import argparse
import itertools
import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

MEMORY_RAN_OUT = b"rasterplan: error: the memory ran out; close other programs or export fewer images at once\n"
OLD_OUTPUT = b"good drawing or page"
SITE = """{"images": [
{"path": "grey-17x9.png", "leftTop": [0, 0, 0.09], "leftBottom": [0, 0, 0], "rightBottom": [0.17, 0, 0],
 "pixelsPerUnit": 100},
{"path": "grey-17x9.jpg", "leftTop": [1, 0.5, 0.09], "leftBottom": [1, 0.5, 0], "rightBottom": [1.17, 0.5, 0],
 "pixelsPerUnit": 100, "unit": "Meters"}
]}
"""

# A drawing of one image, in which nothing is wrong.
CHECKED = """0 SECTION/2 ENTITIES/0 IMAGE/5 8A/11 1/21 0/12 0/22 1/13 17/23 9/340 8B/360 8C/70 7/0 ENDSEC
0 SECTION/2 OBJECTS/0 DICTIONARY/5 C/3 ACAD_IMAGE_DICT/350 5A/0 DICTIONARY/5 5A/3 grey/350 8B
0 IMAGEDEF/5 8B/102 {ACAD_REACTORS/330 8C/102 }/1 grey-17x9.png/10 17/20 9
0 IMAGEDEF_REACTOR/5 8C/330 8A/0 ENDSEC/0 EOF
""".replace("/", "\n").replace(" ", "\n")

WAYS = """{"images": [
{"path": "grey-17x9.png", "leftBottom": [0, 0, 0], "right": [1, 0, 0], "up": [0, 0, 1], "pixelsPerUnit": 100},
{"path": "map-17x9.tif", "name": "plan"},
{"path": "grey-17x9.jpg", "worldFile": "map-17x9.tfw", "elevation": 3}
]}
"""

# As many images as several threads read at once.
MANY = '{"images": [' + ",\n".join(
    f'{{"path": "{x}.png", "leftTop": [{x}, 0, 0.09], "leftBottom": [{x}, 0, 0], '
    f'"rightBottom": [{x}.17, 0, 0], "pixelsPerUnit": 100}}' for x in range(40)) + "]}"

# Results of the library that may stand for a lack of memory: a file cannot be opened without, and the others.
LIBRARY_RESULTS = {3, 4, 6, 10}


class Case:
    """A program and its arguments, run in a folder of its own beside which nothing may appear."""

    def __init__(self, options, name, command, arguments, work):
        self.name = name
        self.is_tool = command == options.tool
        self.command = [str(command), *arguments]
        self.injector = options.injector
        self.folder = work / name.replace(" ", "-")
        self.folder.mkdir()
        self.report = work / "report"
        self.texts = [work / "out", work / "err"]
        self.output = self.folder / "out"
        for picture in ("grey-17x9.png", "grey-17x9.jpg", "map-17x9.tif", "map-17x9.tfw"):
            shutil.copy(options.pictures / picture, self.folder)
        for x in range(40):
            shutil.copy(options.pictures / "grey-17x9.png", self.folder / f"{x}.png")
        (self.folder / "SITE.json").write_text(SITE)
        (self.folder / "checked.dxf").write_text(CHECKED)
        (self.folder / "WAYS.json").write_text(WAYS)
        (self.folder / "MANY.json").write_text(MANY)
        subprocess.run([options.tool, "3d", self.folder / "SITE.json", self.folder / "viewed.dxf"], check=True,
                       stdout=subprocess.DEVNULL)
        self.output.write_bytes(OLD_OUTPUT)
        self.names = sorted(os.listdir(self.folder))
        self.status, self.asked, self.left = self.run(0, False)
        self.good = self.read()
        if self.status != 0 or self.asked < 10:
            sys.exit(f"{name}: status {self.status}, {self.asked} allocations without a failure: {self.good}")
        self.good_left = self.left

    def run(self, number, fails_all):
        """Exit status (negative for a signal), allocations asked for and blocks left; None without a report."""
        environment = {"LD_PRELOAD": str(self.injector), "RASTERPLAN_FAIL_NUMBER": str(number),
                       "RASTERPLAN_FAIL_REPORT": str(self.report), "LC_ALL": "C"}
        if fails_all:
            environment["RASTERPLAN_FAIL_ALL"] = "1"
        self.report.unlink(missing_ok=True)
        mode = os.O_WRONLY | os.O_CREAT | os.O_TRUNC
        streams = [(os.POSIX_SPAWN_OPEN, descriptor, str(text), mode, 0o600)
                   for descriptor, text in zip((1, 2), self.texts)]
        process = os.posix_spawn(self.command[0], self.command, environment, file_actions=streams)
        status = os.waitstatus_to_exitcode(os.waitpid(process, 0)[1])
        if not self.report.exists():
            return status, None, None
        return status, *map(int, self.report.read_text().split())

    def read(self):
        """What the last run left: its two texts and its output."""
        return [text.read_bytes() for text in self.texts] + [self.output.read_bytes()]

    def complaint(self, number, fails_all):
        """What is wrong with a run in which allocations fail; None where nothing is. The second value tells whether
        so many allocations were asked for."""
        self.output.write_bytes(OLD_OUTPUT)
        status, asked, left = self.run(number, fails_all)
        out, err, output = self.read()
        if asked is None:
            return f"ended with status {status} in the midst: {err}", True
        if sorted(os.listdir(self.folder)) != self.names:
            return f"left {sorted(set(os.listdir(self.folder)) - set(self.names))} behind", True
        if left > self.good_left:
            return f"leaks {left - self.good_left} blocks", True
        if status == 0:
            return (None if [out, err, output] == self.good else f"status 0, but not as it should: {err}"), asked >= number
        if asked < number:
            return f"status {status} although nothing failed: {err}", False
        if not self.is_tool:
            return None if status in LIBRARY_RESULTS else f"result {status}", True
        if status != 1 or err != MEMORY_RAN_OUT or out != b"":
            return f"status {status}: {out} {err}", True
        return (None if output == OLD_OUTPUT else "the old output is gone"), True


def cases(options, work):
    def tool(name, *arguments):
        folder = work / name.replace(" ", "-")
        return Case(options, name, options.tool, [a.replace("@", str(folder)) for a in arguments], work)

    yield tool("3d", "3d", "@/SITE.json", "@/out")
    yield tool("2d", "2d", "@/SITE.json", "@/out", "--paths=relative", "--angle-tolerance=5",
               "--distance-tolerance=1")
    yield tool("2d plane", "2d", "@/SITE.json", "@/out", "--paths=as-given", "--origin=0,0.25,0", "--x-axis=1,0,0",
               "--y-axis=0,0,1", "--distance-tolerance=1")
    yield tool("plane", "plane", "@/SITE.json")
    yield tool("plane json", "plane", "@/SITE.json", "--json")
    yield tool("check", "check", "@/checked.dxf")
    yield tool("check json", "check", "@/checked.dxf", "--json")
    yield tool("3d every way", "3d", "@/WAYS.json", "@/out")
    yield tool("corners", "corners", "@/WAYS.json")
    yield tool("view", "view", "@/viewed.dxf", "@/out")
    yield tool("view embed", "view", "@/viewed.dxf", "@/out", "--embed")
    yield tool("help", "--help")
    yield tool("3d threads", "3d", "@/MANY.json", "@/out")
    for host, form in itertools.product(options.host, ("3d", "2d")):
        folder = work / f"{host.name}-{form}"
        yield Case(options, f"{host.name} {form}", host, [form, str(folder / "out")], work)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--injector", type=Path, required=True, help="the library that lets allocations fail")
    parser.add_argument("--tool", type=Path, required=True, help="rasterplan")
    parser.add_argument("--host", type=Path, required=True, action="append", help="library_host; may be repeated")
    parser.add_argument("--pictures", type=Path, required=True, help="the folder of the test pictures")
    parser.add_argument("--step", type=int, default=1, help="only every such allocation (default: every one)")
    options = parser.parse_args()

    complaints = 0
    with tempfile.TemporaryDirectory() as folder:
        for index, case in enumerate(cases(options, Path(folder).resolve())):
            runs = 0
            for fails_all in (False, True):
                # Both ways and all cases begin elsewhere, so that few allocations stay untried by every one.
                first = 1 + (2 * index + fails_all) % options.step
                for number in itertools.count(first, options.step):
                    complaint, reached = case.complaint(number, fails_all)
                    runs += 1
                    if complaint:
                        complaints += 1
                        way = "and all behind" if fails_all else "alone"
                        print(f"{case.name}: allocation {number} {way}: {complaint}")
                    if not reached:
                        break
            print(f"{case.name}: {case.asked} allocations, {runs} runs", flush=True)
    if complaints:
        sys.exit(f"{complaints} runs went wrong")


if __name__ == "__main__":
    main()
