#!/usr/bin/python3
"""Renders the south facade as five pictures of one plane, three below and two above, and writes SITE.json."""

import sys
from pathlib import Path

FOLDER = Path(__file__).resolve().parent
sys.path.insert(0, str(FOLDER.parent / "rendering"))

from ortho import Picture, produce  # noqa: E402
from scanner import outside  # noqa: E402
from shapes import U, UP  # noqa: E402

LOWER, SEAM, UPPER = -1.25, 3.25, 12.5


def tile(name, left, right, bottom, top, pixelsPerUnit):
    return Picture(name, (left, 0.0, bottom), U, UP, right - left, top - bottom, pixelsPerUnit, front=2.5, back=5.75)


if __name__ == "__main__":
    # The upper row starts further right, so that the lower left picture alone has the leftmost corner.
    tiles = [
        tile("unten-links.png", -2.5, 5.0, LOWER, SEAM, 100.0),
        tile("unten-mitte.png", 5.0, 12.5, LOWER, SEAM, 100.0),
        tile("unten-rechts.png", 12.5, 20.0, LOWER, SEAM, 100.0),
        tile("oben-links.png", -1.25, 8.75, SEAM, UPPER, 80.0),
        tile("oben-rechts.png", 8.75, 18.75, SEAM, UPPER, 80.0),
    ]
    around = outside()
    produce([(each, around) for each in tiles], FOLDER)
