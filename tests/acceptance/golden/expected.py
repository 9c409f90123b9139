#!/usr/bin/python3
"""The golden drawings, computed without the library.

A scene (*.scene, see ../host/Scene.h) is played here a second time, with Python's floats and its exact "%.17f",
by code that shares nothing with the library (../computed). The drawings beside the scenes come from this program
alone; the library is held to them byte for byte.

    expected.py TEMPLATE            compares every golden drawing with what is computed now
    expected.py TEMPLATE --write    writes the golden drawings anew, for instance after a change of the template
    expected.py TEMPLATE SCENE      prints what readers should find in the scene's last drawing

A scene with a template of its own has it beside it under the same name (*.template).
"""

import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "computed"))
sys.dont_write_bytecode = True
from scenes import described, played  # noqa: E402


def first_difference(golden, computed):
    a, b = golden.split(b"\r\n"), computed.split(b"\r\n")
    for number, (left, right) in enumerate(zip(a, b), 1):
        if left != right:
            return f"line {number}: {left!r} is computed as {right!r}"
    return f"{len(a)} lines are computed as {len(b)}"


def main(template, *arguments):
    template = Path(template)
    if arguments and arguments[0] != "--write":
        for text in described(played(Path(arguments[0]), template).last):
            sys.stdout.buffer.write(text.encode("utf-8") + b"\n")
        return 0
    failures = 0
    scenes = sorted(Path(__file__).parent.glob("*.scene"))
    for scene in scenes:
        computed = played(scene, template).bytes
        golden = scene.with_suffix(".dxf")
        if arguments:
            golden.write_bytes(computed)
        elif golden.read_bytes() != computed:
            failures += 1
            print(f"{golden.name}, {first_difference(golden.read_bytes(), computed)}")
    print(f"{len(scenes)} scenes, {failures} differences")
    return 1 if failures or not scenes else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
