"""Plays scenes (tests/acceptance/host/Scene.h) with the Python package.

As a program: plays the scene whose file it is given.
"""

import pathlib
import sys

import rasterplanwriter as rpw


def _triples(words):
    numbers = [float(word) for word in words]
    return [tuple(numbers[start:start + 3]) for start in range(0, len(numbers), 3)]


def _add(drawing, rest):
    words = rest.split()
    left_top, left_bottom, right_bottom = _triples(words[2:11])
    drawing.add(rest.split(None, 11)[11] if len(words) > 11 else "", left_top=left_top, left_bottom=left_bottom,
                right_bottom=right_bottom, pixels_per_unit=float(words[1]), unit=int(words[0]))


def play(text):
    """The results of the writes. A host goes on after what is refused, and so does this one."""
    drawing = plane = None
    results = []
    for line in text.splitlines():
        command, _, rest = line.partition(" ")
        try:
            if command == "drawing":
                drawing = rpw.Drawing(rest or "drawing.dxf")
            elif command == "image":
                _add(drawing, rest)
            elif line == "plane proposed":
                plane = drawing.reference_plane()
            elif command == "plane":
                plane = rpw.Plane(*_triples(rest.split()))
            elif command == "write3d":
                drawing.write_3d()
                results.append("Success")
            elif command == "write2d":
                drawing.write_2d(plane)
                results.append("Success")
            elif command not in ("", "#"):
                raise AssertionError(f"no command: {line}")
        except rpw.Error as error:
            if command.startswith("write"):
                results.append(type(error).__name__)
    return results


def with_one_write(text):
    """The scene as often as it writes, each time without the other writes."""
    lines = text.splitlines()
    for place, line in enumerate(lines):
        if line.startswith("write"):
            yield "\n".join([other for other in lines[:place] if not other.startswith("write")] + [line])


if __name__ == "__main__":
    play(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))
