#!/usr/bin/python3
"""Renders the example site, four facades, a floor plan and a section, and writes its SITE.json."""

import sys
from pathlib import Path

FOLDER = Path(__file__).resolve().parent
sys.path.insert(0, str(FOLDER.parent / "rendering"))

from building import EAST, LENGTH, NORTH, SOUTH, WEST, WIDTH  # noqa: E402
from ortho import Picture, produce  # noqa: E402
from scanner import inside, outside  # noqa: E402
from shapes import U, UP, V  # noqa: E402

MARGIN = 2.5
BOTTOM, TOP = -1.25, 12.5
PLAN_HEIGHT = 1.25
SECTION_U = 8.75


def facade(name, wall):
    """The wall seen from outside, with what stands before it and the roof behind it up to the ridge."""
    corner = wall.start - MARGIN * wall.along + BOTTOM * UP
    return Picture(name, tuple(corner), wall.along, UP, wall.length + 2 * MARGIN, TOP - BOTTOM, 80.0,
                   front=2.5, back=5.75)


if __name__ == "__main__":
    facades = [facade("südfassade.png", SOUTH), facade("ostfassade.png", EAST), facade("nordfassade.png", NORTH),
               facade("westfassade.png", WEST)]
    plan = Picture("grundriss-eg.png", (-MARGIN, -MARGIN, PLAN_HEIGHT), U, V, LENGTH + 2 * MARGIN, WIDTH + 2 * MARGIN,
                   80.0, front=0.02, back=2.0, cut=True)
    section = Picture("schnitt-a.png", (SECTION_U, -MARGIN, BOTTOM), V, UP, WIDTH + 2 * MARGIN, TOP - BOTTOM, 80.0,
                      front=0.02, back=2.9, cut=True)
    around, within = outside(), inside()
    produce([(each, around) for each in facades] + [(each, around + within) for each in (plan, section)], FOLDER)
