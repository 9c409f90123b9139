#!/usr/bin/python3
"""Lets the host play scenes that nobody thought of, and compares everything that it answers with what is computed.

    random_scenes.py HOST [--library FILE] [--template FILE] [--count COUNT] [--seed SEED] [--emulator [WORD...]]
    random_scenes.py --scene NUMBER [--template FILE]

Results, getters, proposed planes and the bytes of every drawing must be the same. Scenes are numbered from SEED; the
first one that differs is printed. With --scene the text of one and its answers are printed, to play it by hand.
HOST is the program of ../host, copied together with the library and the template. With --exceptions-in-any-words an
exception may say something else than what is computed.
"""

import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "computed"))
sys.dont_write_bytecode = True
from invention import invented  # noqa: E402
from scenes import Player, in_code_points, in_code_units  # noqa: E402

TEMPLATE_NAME = "PrepImageAbschnitte_2010.template"
BATCH = 250
DIFFERENCES_SHOWN = 3


def begin(number):
    return f"say scene {number}\n"


def computed(number, template, encoded):
    """What is to be answered."""
    return Player(template, encoded).play(begin(number) + "report\n" + invented(number)).answers()


class Host:
    """A folder with the program, the library and a template, as hosts are installed."""

    def __init__(self, folder, options, template):
        self.folder = Path(folder)
        self.program = Path(shutil.copy(options.host, folder))
        if options.library:
            shutil.copy(options.library, folder)
        (self.folder / TEMPLATE_NAME).write_bytes(template)
        self.emulator = options.emulator
        self.any_words = options.exceptions_in_any_words
        self.is_windows = self.program.suffix == ".exe"
        locale = os.environ.get("RASTERPLAN_TEST_LOCALE")
        self.first = (f"locale {locale}\n" if locale else "") + "report\n"

    def played(self, numbers):
        """Whether the program ends well, and what it answers."""
        text = self.first + "".join(begin(n) + invented(n) for n in numbers)
        (self.folder / "scenes.txt").write_bytes(text.encode("utf-8"))
        done = subprocess.run([*self.emulator, str(self.program), "scenes.txt"], cwd=self.folder, check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        out = done.stdout.replace(b"\r\n", b"\n") if self.is_windows else done.stdout
        if done.returncode != 0:
            print(f"the host ends with {done.returncode}: {done.stderr.decode('utf-8', 'replace')}")
        return done.returncode == 0, self.comparable(out)

    def comparable(self, answers):
        """The answers, without the words of exceptions where these may be any."""
        return re.sub(rb"(?m)^(\w+ exception ).+$", rb"\1", answers) if self.any_words else answers


def show_difference(number, wanted, found):
    print(f"scene {number} differs:")
    print(invented(number), end="")
    wanted, found = wanted.split(b"\n"), found.split(b"\n")
    shown = 0
    for line, (a, b) in enumerate(zip(wanted, found), 1):
        if a != b and shown < DIFFERENCES_SHOWN:
            shown += 1
            print(f"answer, line {line}: {b.decode('utf-8', 'replace')!r}")
            print(f"     instead of: {a.decode('utf-8', 'replace')!r}")
    if len(wanted) != len(found):
        print(f"{len(found)} lines instead of {len(wanted)}")


def answers_by_scene(found, numbers):
    """The answers to each scene; empty where the host did not come so far."""
    result = []
    for number in numbers:
        begins = found.find(b"scene %d\n" % number)
        ends = found.find(b"\nscene %d\n" % (number + 1), begins)
        result.append(b"" if begins < 0 else found[begins:] if ends < 0 else found[begins:ends + 1])
    return result


def compare(host, template, first, count):
    """Whether the host answers every scene as computed. Ends with the first batch in which it does not."""
    encoded = in_code_units if host.is_windows else in_code_points
    for start in range(first, first + count, BATCH):
        numbers = range(start, min(start + BATCH, first + count))
        ended_well, found = host.played(numbers)
        wanted = [host.comparable(computed(number, template, encoded)) for number in numbers]
        if ended_well and found == b"".join(wanted):
            continue
        differing = [triple for triple in zip(numbers, wanted, answers_by_scene(found, numbers))
                     if triple[1] != triple[2]]
        if differing:
            show_difference(*differing[0])
        print(f"{len(differing)} of the scenes {numbers.start} to {numbers.stop - 1} differ")
        return False
    return True


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("host", nargs="?", type=Path)
    parser.add_argument("--library", type=Path)
    parser.add_argument("--template", type=Path, default=HERE / "placeholders.template")
    parser.add_argument("--count", type=int, default=1000)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--emulator", nargs="*", default=[], help="what runs the host, and its arguments")
    parser.add_argument("--exceptions-in-any-words", action="store_true")
    parser.add_argument("--scene", type=int)
    options = parser.parse_args()
    template = options.template.read_bytes()
    if options.scene is not None:
        print(invented(options.scene), flush=True)
        sys.stdout.buffer.write(computed(options.scene, template, in_code_points))
        return 0

    began = time.monotonic()
    with tempfile.TemporaryDirectory() as folder:
        if not compare(Host(folder, options, template), template, options.seed, options.count):
            return 1
    last = options.seed + options.count - 1
    print(f"scenes {options.seed} to {last}: no difference, {time.monotonic() - began:.1f} s")
    return 0


if __name__ == "__main__":
    sys.exit(main())
