"""The building, and what stands in front of a house on the day of the scan."""

import numpy as np

from building import OUTER_WALLS, WIDTH, courtyard, interior, outerWall, roof
from materials import LEAD, TIMBER, courses, plain
from shapes import GROUND, Leaves, block


def clutter():
    """A tree, bins, a car, a scaffold, downpipes."""
    bark = courses((104, 88, 70), (70, 58, 46), 0.2, 0.5, joints=0.02)
    yield from block((13.75, 13.93), (-1.4, -1.22), (GROUND - 0.2, 2.6), bark)
    crown = ((13.8, -1.3, 3.2, 0.85), (13.2, -1.2, 3.9, 0.7), (14.4, -1.3, 4.0, 0.8), (13.8, -1.1, 4.7, 0.7),
             (14.5, -1.6, 3.2, 0.6))
    for u, v, z, radius in crown:
        yield Leaves(np.array([u, v, z]), radius)

    black, yellow = plain((62, 64, 66), 0.03), plain((206, 178, 60), 0.03)
    for u, lid in ((3.15, yellow), (3.85, black), (6.1, black)):
        yield from block((u, u + 0.55), (-0.95, -0.3), (GROUND, 0.55), black)
        yield from block((u - 0.02, u + 0.57), (-1.0, -0.25), (0.55, 0.62), lid)

    red, dark = plain((158, 42, 38), 0.03), plain((44, 46, 50), 0.03)
    yield from block((-4.7, -3.0), (1.3, 5.4), (GROUND + 0.25, 0.42), red)
    yield from block((-4.6, -3.1), (2.2, 4.8), (0.42, 0.98), dark)
    yield from block((-4.55, -3.15), (2.4, 4.6), (0.98, 1.02), red)
    for v in (1.7, 4.4):
        yield from block((-4.7, -2.95), (v, v + 0.62), (GROUND, GROUND + 0.6), dark)

    steel = plain((150, 154, 158), 0.04)
    for u in (10.2, 12.2, 14.2, 16.2):
        for v in (WIDTH + 0.35, WIDTH + 1.05):
            yield from block((u, u + 0.05), (v, v + 0.05), (GROUND, 6.0), steel)
    for z in (1.75, 3.75):
        yield from block((10.2, 16.25), (WIDTH + 0.35, WIDTH + 1.1), (z, z + 0.05), TIMBER)
        for rail in (0.5, 1.0):
            yield from block((10.2, 16.25), (WIDTH + 1.05, WIDTH + 1.09), (z + rail, z + rail + 0.05), steel)
    for u, v in ((0.62, -0.1), (16.8, -0.1), (0.62, WIDTH), (16.8, WIDTH)):
        yield from block((u, u + 0.1), (v, v + 0.1), (GROUND, 5.6), LEAD)


def surfaces():
    """Everything that a scanner can see, in a fixed order; the place in the list is the seed of the scan."""
    parts = [part for wall in OUTER_WALLS for part in outerWall(wall)]
    return parts + [part for group in (interior(), roof(), courtyard(), clutter()) for part in group]
