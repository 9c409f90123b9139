"""What a laser scanner can see: rectangles and balls of leaves, in the directions of a building in a survey.

Building coordinates: u along the long walls, v across, z up, metres, (0, 0, 0) at the south-west corner on
the finished ground floor. The long walls run 4 east and 3 north, so that a length of 5 (or 1.25) turns into
whole numbers (or quarters). Scans come in survey directions relative to `ANCHOR`, so that single precision
suffices for their points; `toSurvey` gives the full coordinates.
"""

from dataclasses import dataclass
from typing import Callable, Optional

import numpy as np

ANCHOR = np.array([4468217.375, 5333642.875, 512.25])
GROUND = -0.45

POINT_SPACING = 0.007
RANGE_NOISE = 0.0015

U = np.array([1.0, 0.0, 0.0])
V = np.array([0.0, 1.0, 0.0])
UP = np.array([0.0, 0.0, 1.0])


def turned(vector):
    """Turns a direction of the building into survey directions (east, north, up)."""
    u, v, z = vector
    return np.array([(4 * u - 3 * v) / 5, (3 * u + 4 * v) / 5, z])


def toSurvey(u, v, z):
    """The survey coordinates of a point of the building."""
    return ANCHOR + turned((u, v, z))


@dataclass
class Surface:
    """A rectangle, or the part of it that `keep` leaves, scanned with one material.

    Materials, `keep` and `echo` get s and t: metres along the first and the second edge. `echo` is the share of
    pulses that come back; where it is small, as of glass, the scan has holes.
    """

    corner: np.ndarray
    first: np.ndarray
    second: np.ndarray
    material: Callable
    keep: Optional[Callable] = None
    echo: Optional[Callable] = None

    @property
    def normal(self):
        """A unit vector in survey directions; which of the two sides it is on does not matter."""
        across = np.cross(turned(self.first), turned(self.second))
        return across / np.linalg.norm(across)

    def bounds(self):
        """The lowest and the highest coordinates, relative to the anchor."""
        corners = [turned(self.corner + a * self.first + b * self.second) for a in (0, 1) for b in (0, 1)]
        return np.min(corners, axis=0) - 0.02, np.max(corners, axis=0) + 0.02

    def raster(self, spacing, jitter=None):
        """Points in rows of `spacing` metres, relative to the anchor, and their s and t."""
        lengths = np.linalg.norm(self.first), np.linalg.norm(self.second)
        counts = [max(1, int(np.ceil(length / spacing))) for length in lengths]
        row, column = np.divmod(np.arange(counts[0] * counts[1], dtype=np.int32), np.int32(counts[0]))
        shift = (0.5, 0.5) if jitter is None else jitter.random((2, len(row)), dtype=np.float32) * 0.7 + 0.15
        a = (column + shift[0]).astype(np.float32) / counts[0]
        b = (row + shift[1]).astype(np.float32) / counts[1]
        points = np.empty((len(row), 3), np.float32)
        for axis, ends in enumerate(zip(turned(self.corner), turned(self.first), turned(self.second))):
            points[:, axis] = ends[0] + a * ends[1] + b * ends[2]
        return points, a * lengths[0], b * lengths[1]

    def tiles(self):
        """The rectangle in pieces of at most 2 x 2 metres, each with its own s and t of the corner."""
        sides = [(edge, np.linalg.norm(edge)) for edge in (self.first, self.second)]
        stops = [np.linspace(0, length, 1 + int(np.ceil(length / 2.0))) for _, length in sides]
        (first, long), (second, high) = sides
        for s, nextS in zip(stops[0], stops[0][1:]):
            for t, nextT in zip(stops[1], stops[1][1:]):
                corner = self.corner + s / long * first + t / high * second
                yield Surface(corner, (nextS - s) / long * first, (nextT - t) / high * second, self.material), s, t

    def distance(self, eye):
        nearest = turned(self.corner)
        for edge in (turned(self.first), turned(self.second)):
            nearest = nearest + np.clip((eye - nearest) @ edge / (edge @ edge), 0, 1) * edge
        return np.linalg.norm(eye - nearest)

    def obstacles(self, eye, reach, angle):
        """Points within `reach` of `eye`, so dense that a beam of `angle` radians does not slip between them."""
        found = [np.empty((0, 3), np.float32)]
        for tile, cornerS, cornerT in self.tiles():
            distance = tile.distance(eye)
            if distance < reach:
                points, s, t = tile.raster(0.7 * angle * max(distance, 0.5))
                found.append(points if self.keep is None else points[self.keep(s + cornerS, t + cornerT)])
        return np.concatenate(found)

    def scan(self, seed, wanted):
        """The points and colours of the scan for which `wanted(points)` holds; one seed gives one scan."""
        rng = np.random.default_rng(seed)
        points, s, t = self.raster(POINT_SPACING, rng)
        points += ((rng.random(len(points), dtype=np.float32) - 0.5) * 2 * RANGE_NOISE)[:, None] * self.normal
        chosen = wanted(points)
        if self.keep is not None:
            chosen &= self.keep(s, t)
        if self.echo is not None:
            chosen &= rng.random(len(points), dtype=np.float32) < self.echo(s, t)
        grain = rng.standard_normal(len(points), dtype=np.float32)[chosen]
        colours = self.material(s[chosen], t[chosen])
        return points[chosen], colours * (1 + 0.03 * grain[:, None])


@dataclass
class Leaves:
    """A ball of leaves, of a bush or in a tree."""

    centre: np.ndarray
    radius: float
    normal = None

    def bounds(self):
        middle = turned(self.centre)
        return middle - self.radius, middle + self.radius

    def all(self, seed):
        rng = np.random.default_rng(seed)
        directions = rng.standard_normal((int(150000 * self.radius ** 2), 3))
        directions /= np.linalg.norm(directions, axis=1)[:, None]
        waves = np.sin(directions @ np.array([[9.0, 4.0], [5.0, 11.0], [7.0, 6.0]]))
        reach = self.radius * (0.82 + 0.18 * waves[:, 0] * waves[:, 1])
        reach *= rng.uniform(0.7, 1.0, len(directions))
        points = (turned(self.centre) + directions * reach[:, None]).astype(np.float32)
        light = 0.55 + 0.3 * directions[:, 2] + 0.35 * rng.random(len(directions))
        return points, light[:, None].astype(np.float32) * np.array([100, 124, 62], np.float32)

    def obstacles(self, _eye, _reach, _angle):
        return self.all(0)[0][::3]

    def scan(self, seed, wanted):
        points, colours = self.all(seed)
        chosen = wanted(points) & (points[:, 2] > GROUND - 0.03)
        return points[chosen], colours[chosen]


def box(corner, first, second, third, material):
    corner, first, second, third = (np.asarray(v, float) for v in (corner, first, second, third))
    for a, b, c in ((first, second, third), (first, third, second), (second, third, first)):
        yield Surface(corner, a, b, material)
        yield Surface(corner + c, a, b, material)


def block(u, v, z, material):
    """A box from three (from, to) pairs."""
    return box((u[0], v[0], z[0]), (u[1] - u[0]) * U, (v[1] - v[0]) * V, (z[1] - z[0]) * UP, material)
