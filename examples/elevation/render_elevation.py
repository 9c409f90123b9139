#!/usr/bin/python3
"""Renders the south facade as five pictures of one plane, three below and two above, and writes SITE.json."""

import sys
from pathlib import Path

FOLDER = Path(__file__).resolve().parent
sys.path.insert(0, str(FOLDER.parent / "rendering"))

from building import U, UP  # noqa: E402
from ortho import Picture, produce  # noqa: E402

LOWER, SEAM, UPPER = -2.0, 3.2, 12.0


def tile(name, title, left, right, bottom, top, pixelsPerUnit):
    return Picture(name, title, (left, 0.0, bottom), U, UP, right - left, top - bottom, pixelsPerUnit,
                   front=1.4, back=7.0)


# The upper row starts further right, so that the lower left picture alone has the leftmost corner.
PICTURES = [
    tile("unten-links.png", "Südfassade unten links", -1.75, 5.6, LOWER, SEAM, 100.0),
    tile("unten-mitte.png", "Südfassade unten Mitte", 5.6, 12.4, LOWER, SEAM, 100.0),
    tile("unten-rechts.png", "Südfassade unten rechts", 12.4, 19.75, LOWER, SEAM, 100.0),
    tile("oben-links.png", "Südfassade oben links", -1.0, 9.0, SEAM, UPPER, 80.0),
    tile("oben-rechts.png", "Südfassade oben rechts", 9.0, 19.0, SEAM, UPPER, 80.0),
]

if __name__ == "__main__":
    produce(PICTURES, FOLDER)
