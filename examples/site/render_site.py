#!/usr/bin/python3
"""Renders the example site, four facades, a floor plan and a section, and writes its SITE.json."""

import sys
from pathlib import Path

FOLDER = Path(__file__).resolve().parent
sys.path.insert(0, str(FOLDER.parent / "rendering"))

from building import EAST, LENGTH, NORTH, SOUTH, U, UP, V, WEST, WIDTH  # noqa: E402
from ortho import Picture, produce  # noqa: E402

MARGIN = 1.75
BOTTOM, TOP = -2.0, 12.0
PLAN_HEIGHT = 1.2
SECTION_U = 8.85


def facade(name, title, wall):
    """The wall seen from outside, with the roof behind it up to the ridge."""
    corner = wall.start - MARGIN * wall.along + BOTTOM * UP
    return Picture(name, title, tuple(corner), wall.along, UP, wall.length + 2 * MARGIN, TOP - BOTTOM, 80.0,
                   front=1.4, back=7.0)


PICTURES = [
    facade("südfassade.png", "Südfassade", SOUTH),
    facade("ostfassade.png", "Ostfassade", EAST),
    facade("nordfassade.png", "Nordfassade", NORTH),
    facade("westfassade.png", "Westfassade", WEST),
    Picture("grundriss-eg.png", "Grundriss Erdgeschoss, Schnitthöhe +1,20 m",
            (-MARGIN, -2.0, PLAN_HEIGHT), U, V, LENGTH + 2 * MARGIN, WIDTH + 4.0, 80.0,
            front=0.02, back=2.0, cut=True),
    Picture("schnitt-a.png", "Schnitt A, Blick nach Westen", (SECTION_U, -MARGIN, BOTTOM), V, UP,
            WIDTH + 2 * MARGIN, TOP - BOTTOM, 100.0, front=0.02, back=2.9, cut=True),
]

if __name__ == "__main__":
    produce(PICTURES, FOLDER)
