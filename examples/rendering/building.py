"""A building that was never built, as the surfaces a laser scanner would have seen."""

from dataclasses import dataclass
from typing import Callable, Optional

import numpy as np

from materials import (BATH_TILE, BRICK, CHEQUER, GRAVEL, LEAD, OAK, PAVING, REVEAL, ROOF_TILE, STONE, TARGET_SIZE,
                       TIMBER, TRIM, WHITEWASH, checkered, courses, facade, glazing, panelled, panes, plain, roofTiles)
from shapes import GROUND, U, UP, V, Leaves, Surface, block, box

LENGTH, WIDTH = 17.5, 11.25
EAVES = 6.2
ROOF_SLOPE = 0.76
ROOF_THICKNESS = 0.25
OUTER, SPINE, INNER = 0.45, 0.24, 0.20
STOREYS = ((0.0, 2.75), (3.1, 5.75))
ATTIC_FLOOR = 6.05
TARGET_HEIGHT = 2.0


@dataclass
class Opening:
    """A window, door or gate: its middle along the wall, its sill height, its size and what fills it."""

    middle: float
    sill: float
    width: float
    height: float
    leaf: Optional[Callable] = glazing

    @property
    def left(self):
        return self.middle - self.width / 2

    @property
    def top(self):
        return self.sill + self.height


def doorLeaf(width, height):
    return panelled((58, 92, 74), width, height, 2, 3)


def gateLeaf(width, height):
    return panelled((124, 84, 54), width, height, 6, 1)


@dataclass
class OuterWall:
    """One side of the building; s runs to the right for someone who faces the wall from outside."""

    start: np.ndarray
    along: np.ndarray
    outward: np.ndarray
    length: float
    facing: float
    openings: list
    targets: tuple

    def target(self, s):
        """The centre of the target at s."""
        return self.start + s * self.along + TARGET_HEIGHT * UP


SOUTH = OuterWall(np.zeros(3), U, -V, LENGTH, 1.0, [
    Opening(2.1, 0.9, 1.2, 1.55), Opening(5.0, 0.9, 1.2, 1.55), Opening(8.75, 0.0, 1.4, 2.45, doorLeaf),
    Opening(12.5, 0.9, 1.2, 1.55), Opening(15.2, 0.75, 2.0, 1.70),
    Opening(2.1, 4.0, 1.2, 1.5), Opening(5.0, 4.0, 1.2, 1.5), Opening(8.75, 4.0, 1.2, 1.5),
    Opening(12.5, 4.0, 1.2, 1.5), Opening(15.4, 4.0, 1.2, 1.5)], (3.75, 10.625))
EAST = OuterWall(LENGTH * U, V, U, WIDTH, 0.96, [
    Opening(2.3, 0.9, 1.2, 1.55), Opening(4.2, 1.4, 0.7, 1.05), Opening(8.55, 0.9, 1.2, 1.55),
    Opening(2.3, 4.0, 1.2, 1.5), Opening(8.55, 4.0, 1.2, 1.5),
    Opening(4.825, 6.9, 0.8, 1.2), Opening(6.425, 6.9, 0.8, 1.2)], (6.25,))
NORTH = OuterWall(LENGTH * U + WIDTH * V, -U, V, LENGTH, 0.86, [
    Opening(2.4, 1.5, 0.9, 0.95), Opening(7.3, 1.1, 0.9, 1.35), Opening(8.9, 0.0, 1.1, 2.2, doorLeaf),
    Opening(14.0, 0.9, 1.2, 1.55), Opening(2.4, 4.0, 1.2, 1.5), Opening(8.9, 4.0, 1.2, 1.5),
    Opening(14.0, 4.0, 1.2, 1.5), Opening(16.2, 4.6, 0.6, 0.9)], (11.25,))
WEST = OuterWall(WIDTH * V, -V, -U, WIDTH, 0.92, [
    Opening(3.2, 0.0, 2.8, 2.45, gateLeaf), Opening(8.5, 0.9, 1.2, 1.55),
    Opening(3.2, 4.0, 1.2, 1.5), Opening(8.5, 4.0, 1.2, 1.5), Opening(5.625, 7.0, 1.0, 1.3)], (6.25,))
OUTER_WALLS = (SOUTH, EAST, NORTH, WEST)


def roofUnderside(v):
    return EAVES + ROOF_SLOPE * (WIDTH / 2 - np.abs(v - WIDTH / 2))


def around(openings, bottom):
    """What remains of a wall face whose t starts at the height `bottom`."""

    def keep(s, t):
        wall = np.ones(len(s), bool)
        for opening in openings:
            z = t + bottom
            wall &= (np.abs(s - opening.middle) > opening.width / 2) | (z < opening.sill) | (z > opening.top)
        return wall

    return keep


def reveals(foot, along, through, opening, material):
    """The four sides of an opening; `foot` is the wall's start on the height 0."""
    corner = foot + opening.left * along + opening.sill * UP
    across, up = opening.width * along, opening.height * UP
    for start, edge in ((corner, across), (corner + up, across), (corner, up), (corner + across, up)):
        yield Surface(start, edge, through, material)


def outerWall(wall):
    gable = wall.length == WIDTH
    bottom, top = GROUND - 0.1, EAVES + (ROOF_SLOPE * WIDTH / 2 if gable else 0.0)
    openings = wall.openings
    solid = around(openings, bottom)

    def keep(s, t):
        return solid(s, t) & (t + bottom < roofUnderside(s)) if gable else solid(s, t)

    skin = facade(wall.length, bottom, openings, wall.facing, gable)
    yield Surface(wall.start + bottom * UP, wall.length * wall.along, (top - bottom) * UP, skin, keep)
    for opening in openings:
        corner = wall.start + opening.left * wall.along + opening.sill * UP
        yield from reveals(wall.start, wall.along, -OUTER * wall.outward, opening, REVEAL)
        glass = opening.leaf is glazing
        echo = panes(opening.width, opening.height, (opening.middle, opening.sill)) if glass else None
        yield Surface(corner - 0.2 * wall.outward, opening.width * wall.along, opening.height * UP,
                      opening.leaf(opening.width, opening.height), echo=echo)
        sillCorner = corner - 0.12 * wall.along - 0.10 * UP
        yield from box(sillCorner, (opening.width + 0.24) * wall.along, 0.10 * UP, 0.09 * wall.outward, TRIM)

    for s in wall.targets:
        corner = wall.target(s) - TARGET_SIZE / 2 * (wall.along + UP) + 0.01 * wall.outward
        yield Surface(corner, TARGET_SIZE * wall.along, TARGET_SIZE * UP, checkered)

    def band(low, high, reach, material):
        """A course that runs round the building, open where a door cuts it."""
        cuts = sorted((o.left, o.left + o.width) for o in openings if o.sill < high and o.top > low)
        stops = [-reach] + [stop for cut in cuts for stop in cut] + [wall.length + reach]
        for left, right in zip(stops[::2], stops[1::2]):
            yield from box(wall.start + left * wall.along + low * UP, (right - left) * wall.along,
                           (high - low) * UP, reach * wall.outward, material)

    yield from band(GROUND - 0.1, 0.35, 0.07, STONE)
    yield from band(2.88, 3.06, 0.06, TRIM)
    if not gable:
        yield from band(5.65, 5.80, 0.12, TRIM)
        yield from band(5.80, 5.95, 0.22, TRIM)
    for low, high in STOREYS + ((ATTIC_FLOOR, top - 0.3),) if gable else STOREYS:
        inner = around([Opening(o.middle - OUTER, o.sill, o.width, o.height) for o in openings], low)
        underRoof = (lambda s, t, inner=inner, low=low:
                     inner(s, t) & (t + low < roofUnderside(s + OUTER))) if gable else inner
        yield Surface(wall.start + OUTER * (wall.along - wall.outward) + low * UP,
                      (wall.length - 2 * OUTER) * wall.along, (high - low) * UP, WHITEWASH, underRoof)


def partition(start, along, across, length, doors, crossings, storey):
    """An inner wall from two faces, its door openings and the places where another wall runs through."""
    low, high = storey
    openings = [Opening(middle, low, width, 2.1) for middle, width in doors]
    keep = around(openings + [Opening(middle, low, width, high - low) for middle, width in crossings], low)
    for foot in (start, start + across):
        yield Surface(foot + low * UP, length * along, (high - low) * UP, WHITEWASH, keep)
    for opening in openings:
        yield from reveals(start, along, across, opening, TRIM)


STAIR_U, STAIR_V = (6.3, 7.5), (5.75, 10.07)


def outsideStairwell(s, t):
    u, v = s + OUTER, t + OUTER
    return (u < STAIR_U[0] - 0.1) | (u > STAIR_U[1] + 0.1) | (v < STAIR_V[0] - 0.1) | (v > 9.3)


def interior():
    for storey in STOREYS:
        along, across = LENGTH - 2 * OUTER, WIDTH - 2 * OUTER
        spine = [(5.42 - OUTER, SPINE)]
        sides = [(6.1 - OUTER, INNER), (11.7 - OUTER, INNER)]
        spineDoors = [(2.6, 0.95), (8.4, 1.7), (13.9, 0.95)]
        yield from partition(OUTER * U + 5.3 * V, U, SPINE * V, along, spineDoors, sides, storey)
        yield from partition(6.2 * U + OUTER * V, V, -INNER * U, across, [(2.4, 0.95)], spine, storey)
        doors = [(2.9, 0.95), (8.0, 0.95)]
        yield from partition(11.6 * U + OUTER * V, V, INNER * U, across, doors, spine, storey)

    rooms = (((OUTER, 6.0), (OUTER, 5.3), OAK), ((6.2, 11.6), (OUTER, 5.3), CHEQUER),
             ((11.8, 17.05), (OUTER, 5.3), OAK), ((OUTER, 6.0), (5.54, 10.8), PAVING),
             ((6.2, 11.6), (5.54, 10.8), CHEQUER), ((11.8, 17.05), (5.54, 10.8), BATH_TILE))
    for u, v, material in rooms:
        yield Surface(np.array([u[0], v[0], 0.0]), (u[1] - u[0]) * U, (v[1] - v[0]) * V, material)
    across, along = (LENGTH - 2 * OUTER) * U, (WIDTH - 2 * OUTER) * V
    inside = OUTER * (U + V)
    yield Surface(inside + STOREYS[0][1] * UP, across, along, WHITEWASH, outsideStairwell)
    yield Surface(inside + STOREYS[1][0] * UP, across, along, OAK, outsideStairwell)
    yield Surface(inside + STOREYS[1][1] * UP, across, along, WHITEWASH)
    yield Surface(inside + ATTIC_FLOOR * UP, across, along, TIMBER)

    steps = 16
    rise, tread = STOREYS[1][0] / steps, (STAIR_V[1] - STAIR_V[0]) / steps
    for step in range(steps):
        front = STAIR_V[1] - step * tread
        heights = max(0.0, (step - 1) * rise), (step + 1) * rise
        yield from block(STAIR_U, (front - tread, front), heights, OAK)

    pine, cloth, enamel = plain((170, 126, 82)), plain((104, 72, 78)), plain((244, 246, 246), 0.02)
    furniture = (
        ((0.5, 1.1), (0.9, 4.6), (0.0, 0.9), plain((206, 200, 186))),
        ((2.7, 4.7), (2.2, 3.2), (0.70, 0.76), pine),
        ((12.2, 13.1), (1.0, 3.3), (0.0, 0.45), cloth), ((12.2, 12.4), (1.0, 3.3), (0.45, 0.85), cloth),
        ((14.2, 15.3), (1.6, 2.6), (0.38, 0.42), pine), ((16.5, 17.0), (3.0, 5.1), (0.0, 1.1), pine),
        ((16.2, 17.0), (8.6, 10.4), (0.0, 0.55), enamel), ((12.0, 12.6), (9.6, 10.4), (0.0, 0.8), enamel),
        ((1.0, 5.0), (7.2, 9.0), (0.3, 1.1), plain((70, 92, 132))),
        ((0.6, 1.4), (9.9, 10.5), (0.0, 0.9), pine))
    for u, v, z, material in furniture:
        yield from block(u, v, z, material)
    for u in (2.9, 3.5, 4.1):
        for v in (1.7, 3.3):
            yield from block((u, u + 0.42), (v, v + 0.42), (0.43, 0.46), pine)


def roof():
    verge, overhang = 0.3, 0.45
    width, half = LENGTH + 2 * verge, WIDTH / 2 + overhang
    rise = half * ROOF_SLOPE
    low = EAVES - overhang * ROOF_SLOPE
    chimney = (12.4, 13.2), (6.2, 6.9)
    for side, towards in ((-overhang, V), (WIDTH + overhang, -V)):
        slope = half * towards + rise * UP
        underside = np.array([-verge, side, low])
        yield Surface(underside + ROOF_THICKNESS * UP, width * U, slope, roofTiles)
        yield Surface(underside, width * U, slope, TIMBER)
        yield Surface(underside, width * U, ROOF_THICKNESS * UP, TIMBER)
        for end in (np.zeros(3), width * U):
            yield Surface(underside + end, slope, ROOF_THICKNESS * UP, TIMBER)
        yield from box(underside + 0.10 * UP, width * U, -0.13 * towards, 0.11 * UP, LEAD)
    ridge = low + rise + ROOF_THICKNESS
    yield from block((-verge, LENGTH + verge), (WIDTH / 2 - 0.14, WIDTH / 2 + 0.14),
                     (ridge - 0.12, ridge + 0.06), courses(ROOF_TILE, (110, 58, 42), 0.4, 5.0, joints=0.03))
    yield from block(*chimney, (8.6, 11.25), BRICK)
    yield from block((12.3, 13.3), (6.1, 7.0), (11.15, 11.27), TRIM)
    for u in (3.9, 7.4, 10.9, 14.4):
        collar = 8.4
        inset = (collar - EAVES) / ROOF_SLOPE
        yield from block((u, u + 0.16), (inset, WIDTH - inset), (collar - 0.2, collar), TIMBER)
        for v in (inset + 0.15, WIDTH - inset - 0.31):
            yield from block((u, u + 0.16), (v, v + 0.16), (ATTIC_FLOOR, collar - 0.2), TIMBER)


def courtyard():
    """Paving and gravel that fall away from the walls, steps before the doors, and bushes."""
    far, fall = 3.5, -0.07
    for start, along, outward, length, material in (
            (-far * U, U, -V, LENGTH + 2 * far, PAVING),
            (-far * U + WIDTH * V, U, V, LENGTH + 2 * far, GRAVEL),
            (np.zeros(3), V, -U, WIDTH, PAVING), (LENGTH * U, V, U, WIDTH, GRAVEL)):
        yield Surface(start + GROUND * UP, length * along, far * outward + fall * UP, material)
    for step, reach in ((0.15, 0.75), (0.30, 0.40)):
        yield from block((7.85, 9.65), (-reach, 0.0), (GROUND - 0.1, GROUND + step), STONE)
        yield from block((7.8, 9.4), (WIDTH, WIDTH + reach), (GROUND - 0.1, GROUND + step), STONE)
    yield from block((-0.5, 0.0), (6.5, 9.6), (GROUND - 0.1, -0.1), STONE)
    bushes = (18.4, 0.9, 0.55), (18.25, 5.9, 0.62), (18.3, 7.0, 0.5), (3.5, 12.05, 0.55), (-0.8, 0.9, 0.5)
    for u, v, radius in bushes:
        yield Leaves(np.array([u, v, GROUND + 0.7 * radius]), radius)
