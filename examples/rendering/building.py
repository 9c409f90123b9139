"""A building that was never built, as the surfaces a laser scanner would have seen.

Building coordinates: u along the long walls, v across, z up, metres, (0, 0, 0) at the south-west corner on
the finished ground floor. Scans come in survey directions relative to `ANCHOR`, so that single precision
suffices for their points; `toSurvey` gives the full coordinates.
"""

from dataclasses import dataclass
from typing import Callable, Optional

import numpy as np

ANCHOR = np.array([4468217.358, 5333642.904, 512.340])
TURN = np.radians(30.0)

LENGTH, WIDTH = 18.0, 11.0
GROUND = -0.45
EAVES = 6.2
ROOF_SLOPE = 0.76
ROOF_THICKNESS = 0.25
OUTER, SPINE, INNER = 0.45, 0.24, 0.20
STOREYS = ((0.0, 2.75), (3.1, 5.75))
ATTIC_FLOOR = 6.05

POINT_SPACING = 0.007
RANGE_NOISE = 0.0015

U = np.array([1.0, 0.0, 0.0])
V = np.array([0.0, 1.0, 0.0])
UP = np.array([0.0, 0.0, 1.0])


def turned(vector):
    """Turns a direction of the building into survey directions (east, north, up)."""
    u, v, z = vector
    return np.array([u * np.cos(TURN) - v * np.sin(TURN), u * np.sin(TURN) + v * np.cos(TURN), z])


def toSurvey(u, v, z):
    """The survey coordinates of a point of the building, to the nanometre, where doubles of this size end."""
    return np.round(ANCHOR + turned((u, v, z)), 9)


@dataclass
class Surface:
    """A parallelogram, or the part of it that `keep` leaves, scanned with one material.

    Materials and `keep` get s and t: metres along the first and the second edge.
    """

    corner: np.ndarray
    first: np.ndarray
    second: np.ndarray
    material: Callable
    keep: Optional[Callable] = None

    def bounds(self):
        """The lowest and the highest coordinates, relative to the anchor."""
        corners = [turned(self.corner + a * self.first + b * self.second) for a in (0, 1) for b in (0, 1)]
        return np.min(corners, axis=0) - 0.02, np.max(corners, axis=0) + 0.02

    def scan(self, seed, wanted):
        """The points and colours of the scan for which `wanted(points)` holds; one seed gives one scan."""
        lengths = np.linalg.norm(self.first), np.linalg.norm(self.second)
        counts = [max(1, int(np.ceil(length / POINT_SPACING))) for length in lengths]
        rng = np.random.default_rng(seed)
        total = counts[0] * counts[1]
        jitter = rng.random((3, total), dtype=np.float32)
        row, column = np.divmod(np.arange(total, dtype=np.int32), np.int32(counts[0]))
        a = (column + 0.15 + 0.7 * jitter[0]).astype(np.float32) / counts[0]
        b = (row + 0.15 + 0.7 * jitter[1]).astype(np.float32) / counts[1]
        first, second = turned(self.first), turned(self.second)
        normal = np.cross(first, second)
        normal *= 2 * RANGE_NOISE / np.linalg.norm(normal)
        points = np.empty((total, 3), dtype=np.float32)
        for axis, start in enumerate(turned(self.corner)):
            points[:, axis] = start + a * first[axis] + b * second[axis] + (jitter[2] - 0.5) * normal[axis]
        chosen = wanted(points)
        s, t = a * lengths[0], b * lengths[1]
        if self.keep is not None:
            chosen &= self.keep(s, t)
        grain = rng.standard_normal(total, dtype=np.float32)[chosen]
        colours = self.material(s[chosen], t[chosen])
        return points[chosen], np.clip(colours * (1 + 0.035 * grain[:, None]), 0, 255).astype(np.uint8)


@dataclass
class Bush:
    """A ball of leaves."""

    centre: np.ndarray
    radius: float

    def bounds(self):
        middle = turned(self.centre)
        return middle - self.radius, middle + self.radius

    def scan(self, seed, wanted):
        rng = np.random.default_rng(seed)
        directions = rng.standard_normal((60000, 3))
        directions /= np.linalg.norm(directions, axis=1)[:, None]
        waves = np.sin(directions @ np.array([[9.0, 4.0], [5.0, 11.0], [7.0, 6.0]]))
        reach = self.radius * (0.82 + 0.18 * waves[:, 0] * waves[:, 1])
        reach *= rng.uniform(0.75, 1.0, len(directions))
        points = (turned(self.centre) + directions * reach[:, None]).astype(np.float32)
        light = 0.55 + 0.3 * directions[:, 2] + 0.3 * rng.random(len(directions))
        colours = np.clip(light[:, None] * np.array([104, 134, 66]), 0, 255).astype(np.uint8)
        chosen = wanted(points) & (points[:, 2] > GROUND - 0.03)
        return points[chosen], colours[chosen]


# ---- materials: functions of s and t that return colours

_TABLE = np.random.default_rng(1871).random(4096).astype(np.float32)


def chance(i, j=0):
    """A fixed random number of [0, 1) for every pair of whole numbers."""
    return _TABLE[(np.asarray(i, np.int64) * 733 + np.asarray(j, np.int64) * 1907) % 4096]


def mottled(s, t, cell):
    """Smooth noise of [-1, 1] whose spots are about `cell` metres wide."""
    x, y = s / cell + 7.3, t / cell + 3.1
    i, j = np.floor(x).astype(np.int32), np.floor(y).astype(np.int32)
    x, y = x - i, y - j
    x, y = x * x * (3 - 2 * x), y * y * (3 - 2 * y)
    low = chance(i, j) * (1 - x) + chance(i + 1, j) * x
    high = chance(i, j + 1) * (1 - x) + chance(i + 1, j + 1) * x
    return 2 * (low * (1 - y) + high * y) - 1


def tinted(colour, light):
    return np.asarray(colour, np.float32)[None, :] * np.asarray(light, np.float32)[:, None]


def plain(colour, spots=0.05):
    return lambda s, t: tinted(colour, 1 + spots * mottled(s, t, 0.4))


def courses(colour, joint, width, height, offset=0.5, joints=0.012, spread=0.12, alternate=None):
    """Bricks, slabs, boards or tiles: courses of `height` with joints and a tone for every piece."""

    def material(s, t):
        row = np.floor(t / height)
        across = s / width + offset * (row % 2)
        piece = np.floor(across)
        light = 1 + spread * (chance(piece, row) - 0.5) * 2 + 0.04 * mottled(s, t, 0.15)
        colours = tinted(colour, light)
        if alternate is not None:
            other = (piece + row) % 2 == 1
            colours[other] = tinted(alternate, light[other])
        inJoint = ((across - piece) * width < joints) | ((t / height - row) * height < joints)
        colours[inJoint] = np.asarray(joint, np.float32)
        return colours

    return material


ROOF_TILE = (176, 92, 66)


def roofTiles(s, t):
    """Plain tiles whose lower edges throw a shadow; t runs up the slope."""
    row = np.floor(t / 0.33)
    across = s / 0.24 + 0.5 * (row % 2)
    piece = np.floor(across)
    within = t / 0.33 - row
    light = 0.86 + 0.3 * chance(piece, row) + 0.07 * mottled(s, t, 1.7)
    light *= np.where(within < 0.16, 0.62, 0.92 + 0.12 * within)
    light *= np.where((across - piece) < 0.07, 0.8, 1.0)
    moss = np.clip(mottled(s + 40, t, 0.9) - 0.35, 0, 1) * np.clip(1.3 - t / 3, 0, 1)
    return tinted(ROOF_TILE, light) * (1 - moss[:, None]) + tinted((116, 112, 74), light) * moss[:, None]


def glazing(width, height):
    """A casement window: white frame, mullion, transom, sky mirrored in the panes, shadow of the reveal."""

    def material(s, t):
        light = 0.75 + 0.28 * t / height + 0.10 * mottled(s * 2 + t, t, 0.8)
        colours = tinted((92, 108, 122), light)
        streak = np.abs((s + 0.6 * t) % 1.3 - 0.5) < 0.10
        colours[streak] *= 1.22
        frame = np.minimum(np.minimum(s, width - s), np.minimum(t, height - t)) < 0.07
        frame |= (np.abs(s - width / 2) < 0.05) | (np.abs(t - height * 0.68) < 0.035)
        colours[frame] = tinted((236, 234, 226), 1 + 0.02 * mottled(s[frame], t[frame], 0.2))
        shade = 1 - 0.5 * np.exp(-(height - t) / 0.10) - 0.3 * np.exp(-s / 0.06)
        return colours * np.clip(shade, 0.3, 1)[:, None]

    return material


def panelled(colour, width, height, columns, rows):
    """A door or gate leaf of `columns` by `rows` panels."""

    def material(s, t):
        x, y = (s / width * columns) % 1, (t / height * rows) % 1
        edge = np.minimum(np.minimum(x, 1 - x) * width / columns, np.minimum(y, 1 - y) * height / rows)
        light = np.where(edge < 0.06, 1.0, np.where(edge < 0.085, 0.55, 0.86))
        light *= 1 + 0.06 * mottled(s * 6, t, 0.5)
        light *= 1 - 0.45 * np.exp(-(height - t) / 0.15)
        return tinted(colour, light)

    return material


def facade(length, bottom, openings, facing, gable):
    """Ochre plaster with stone quoins, surrounds of openings, rain streaks and shade below the cornice."""

    def material(s, t):
        z = t + bottom
        light = facing * (1 + 0.05 * mottled(s, z, 1.6) + 0.035 * mottled(s, z, 0.25))
        light *= 1 - 0.10 * np.exp(-(z - 0.35) / 0.5)
        if not gable:
            light *= 1 - 0.28 * np.exp(-np.abs(5.65 - z) / 0.22)
        light *= 1 - 0.22 * np.exp(-np.abs(2.88 - z) / 0.10) * (z < 2.89)
        for opening in openings:
            below = (np.abs(s - opening.middle) < opening.width / 2 + 0.1) & (z < opening.sill - 0.08)
            streak = below * np.exp(-(opening.sill - z) / 0.7) * (0.5 + 0.5 * mottled(s, z * 0.05, 0.09))
            light *= 1 - 0.20 * np.clip(streak, 0, 1)
        colours = tinted((226, 197, 146), light)
        stone = np.zeros(len(s), bool)
        for opening in openings:
            around = (np.abs(s - opening.middle) < opening.width / 2 + 0.14) & (z < opening.top + 0.18)
            stone |= around & (z > opening.sill - 0.02)
        course = np.floor((z + 0.05) / 0.4)
        reach = np.where(course % 2 == 0, 0.55, 0.36)
        fromCorner = np.minimum(s, length - s)
        quoin = (fromCorner < reach) & (z < 5.95)
        colours[stone] = tinted((222, 214, 196), light[stone])
        colours[quoin] = tinted((206, 196, 174), light[quoin] * (0.94 + 0.12 * chance(course[quoin])))
        joint = quoin & ((((z + 0.05) / 0.4 - course) < 0.05) | (np.abs(fromCorner - reach) < 0.015))
        colours[joint] *= 0.72
        return colours

    return material


STONE = courses((168, 160, 146), (120, 114, 104), 0.9, 0.29, joints=0.015)
TRIM = plain((214, 206, 188))
WHITEWASH = plain((233, 230, 221), 0.03)
REVEAL = plain((196, 186, 164))
TIMBER = courses((142, 104, 70), (92, 66, 44), 2.4, 0.18, joints=0.010)
OAK = courses((188, 146, 98), (140, 104, 66), 1.2, 0.14, joints=0.007)
CHEQUER = courses((222, 216, 204), (170, 162, 150), 0.4, 0.4, offset=0, joints=0.008, spread=0.04,
                  alternate=(118, 112, 108))
BATH_TILE = courses((196, 214, 220), (150, 166, 172), 0.3, 0.3, offset=0, spread=0.05)
PAVING = courses((172, 166, 154), (128, 124, 112), 0.42, 0.28, joints=0.02, spread=0.16)
GRAVEL = plain((176, 168, 150), 0.16)
BRICK = courses((168, 88, 66), (186, 176, 164), 0.25, 0.085, joints=0.012)
LEAD = plain((110, 112, 112), 0.08)


# ---- the parts of the building


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


SOUTH = OuterWall(np.zeros(3), U, -V, LENGTH, 1.0, [
    Opening(2.1, 0.9, 1.2, 1.55), Opening(5.0, 0.9, 1.2, 1.55), Opening(9.0, 0.0, 1.4, 2.45, doorLeaf),
    Opening(12.9, 0.9, 1.2, 1.55), Opening(15.7, 0.75, 2.2, 1.70),
    Opening(2.1, 4.0, 1.2, 1.5), Opening(5.0, 4.0, 1.2, 1.5), Opening(9.0, 4.0, 1.2, 1.5),
    Opening(12.9, 4.0, 1.2, 1.5), Opening(15.9, 4.0, 1.2, 1.5)])
EAST = OuterWall(LENGTH * U, V, U, WIDTH, 0.96, [
    Opening(2.3, 0.9, 1.2, 1.55), Opening(4.2, 1.4, 0.7, 1.05), Opening(8.3, 0.9, 1.2, 1.55),
    Opening(2.3, 4.0, 1.2, 1.5), Opening(8.3, 4.0, 1.2, 1.5),
    Opening(4.7, 6.9, 0.8, 1.2), Opening(6.3, 6.9, 0.8, 1.2)])
NORTH = OuterWall(LENGTH * U + WIDTH * V, -U, V, LENGTH, 0.86, [
    Opening(2.4, 1.5, 0.9, 0.95), Opening(7.3, 1.1, 0.9, 1.35), Opening(9.4, 0.0, 1.1, 2.2, doorLeaf),
    Opening(14.4, 0.9, 1.2, 1.55), Opening(2.4, 4.0, 1.2, 1.5), Opening(9.0, 4.0, 1.2, 1.5),
    Opening(14.4, 4.0, 1.2, 1.5), Opening(16.6, 4.6, 0.6, 0.9)])
WEST = OuterWall(WIDTH * V, -V, -U, WIDTH, 0.92, [
    Opening(3.2, 0.0, 2.8, 2.45, gateLeaf), Opening(8.5, 0.9, 1.2, 1.55),
    Opening(3.2, 4.0, 1.2, 1.5), Opening(8.5, 4.0, 1.2, 1.5), Opening(5.5, 7.0, 1.0, 1.3)])
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


def box(corner, first, second, third, material):
    corner, first, second, third = (np.asarray(v, float) for v in (corner, first, second, third))
    for a, b, c in ((first, second, third), (first, third, second), (second, third, first)):
        yield Surface(corner, a, b, material)
        yield Surface(corner + c, a, b, material)


def block(u, v, z, material):
    """A box from three (from, to) pairs."""
    return box((u[0], v[0], z[0]), (u[1] - u[0]) * U, (v[1] - v[0]) * V, (z[1] - z[0]) * UP, material)


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
        yield Surface(corner - 0.2 * wall.outward, opening.width * wall.along, opening.height * UP,
                      opening.leaf(opening.width, opening.height))
        sillCorner = corner - 0.12 * wall.along - 0.10 * UP
        yield from box(sillCorner, (opening.width + 0.24) * wall.along, 0.10 * UP, 0.09 * wall.outward, TRIM)

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
        spineDoors = [(2.6, 0.95), (8.8, 1.7), (14.2, 0.95)]
        yield from partition(OUTER * U + 5.3 * V, U, SPINE * V, along, spineDoors, sides, storey)
        yield from partition(6.2 * U + OUTER * V, V, -INNER * U, across, [(2.4, 0.95)], spine, storey)
        doors = [(2.9, 0.95), (8.0, 0.95)]
        yield from partition(11.6 * U + OUTER * V, V, INNER * U, across, doors, spine, storey)

    rooms = (((OUTER, 6.0), (OUTER, 5.3), OAK), ((6.2, 11.6), (OUTER, 5.3), CHEQUER),
             ((11.8, 17.55), (OUTER, 5.3), OAK), ((OUTER, 6.0), (5.54, 10.55), PAVING),
             ((6.2, 11.6), (5.54, 10.55), CHEQUER), ((11.8, 17.55), (5.54, 10.55), BATH_TILE))
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
        ((14.2, 15.3), (1.6, 2.6), (0.38, 0.42), pine), ((17.0, 17.5), (3.0, 5.1), (0.0, 1.1), pine),
        ((16.7, 17.5), (8.6, 10.4), (0.0, 0.55), enamel), ((12.0, 12.6), (9.6, 10.4), (0.0, 0.8), enamel),
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
    for u in (3.9, 7.6, 11.3, 15.0):
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
        yield from block((8.1, 9.9), (-reach, 0.0), (GROUND - 0.1, GROUND + step), STONE)
        yield from block((7.8, 9.4), (WIDTH, WIDTH + reach), (GROUND - 0.1, GROUND + step), STONE)
    yield from block((-0.5, 0.0), (6.25, 9.35), (GROUND - 0.1, -0.1), STONE)
    bushes = (18.9, 0.9, 0.55), (18.75, 5.9, 0.62), (18.8, 7.0, 0.5), (3.5, 11.8, 0.55), (-0.8, 0.9, 0.5)
    for u, v, radius in bushes:
        yield Bush(np.array([u, v, GROUND + 0.7 * radius]), radius)


def surfaces():
    """Everything the scanner saw, in a fixed order; the place in the list is the seed of the scan."""
    parts = [part for wall in OUTER_WALLS for part in outerWall(wall)]
    return parts + [part for group in (interior(), roof(), courtyard()) for part in group]
