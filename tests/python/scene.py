"""Plays the scenes of the golden drawings (tests/acceptance/host/Scene.h) with the Python package.

As a program: plays the scene whose file it is given, into drawing.dxf.
"""

import contextlib
import pathlib
import sys

import rasterplanwriter as rpw


def _triples(words):
    numbers = [float(word) for word in words]
    return [tuple(numbers[start:start + 3]) for start in range(0, len(numbers), 3)]


def play(scene, output):
    """Yields after each write."""
    drawing = plane = None
    for line in pathlib.Path(scene).read_text(encoding="utf-8").splitlines():
        command, _, rest = line.partition(" ")
        words = rest.split()
        if command == "drawing":
            drawing = rpw.Drawing(output)
        elif command == "image":
            corners = dict(zip(("left_top", "left_bottom", "right_bottom"), _triples(words[2:11])))
            path = rest.split(None, 11)[11] if len(words) > 11 else ""
            with contextlib.suppress(rpw.InvalidGeometry): # a host goes on without the image
                drawing.add(path, pixels_per_unit=float(words[1]), unit=rpw.DrawingUnit(int(words[0])), **corners)
        elif line == "plane proposed":
            plane = drawing.reference_plane()
        elif command == "plane":
            plane = rpw.Plane(*_triples(words))
        elif command == "write3d":
            yield drawing.write_3d()
        elif command == "write2d":
            yield drawing.write_2d(plane)
        elif command not in ("", "#"):
            raise ValueError(f"no command: {line}")


if __name__ == "__main__":
    for _ in play(sys.argv[1], "drawing.dxf"):
        pass
