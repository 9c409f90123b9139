"""The stations of a laser scanner: what each one sees of the building, how densely, and how bright its camera was."""

from dataclasses import dataclass, field
from typing import Optional

import numpy as np

from building import STOREYS
from shapes import turned

# The share of the points of a surface that one station measures, straight on and times the squared range in metres.
DENSITY = 130.0
# A point so many metres behind the nearest obstacle still counts as seen: ranges are no better than that.
SLACK = 0.03


@dataclass
class Station:
    """A place of the scanner, with a map of the nearest obstacle in every direction.

    `position` is in building coordinates, `cell` the resolution of the map in degrees. Nothing farther than
    `reach` metres is measured. `exposure` are the factors of red, green and blue in its photographs.
    """

    position: tuple
    reach: float
    cell: float
    exposure: tuple
    nearest: Optional[np.ndarray] = field(init=False, default=None)

    @property
    def eye(self):
        """The position in survey directions, relative to the anchor."""
        return turned(self.position).astype(np.float32)

    def directions(self, points):
        """Ranges, and the cells of the map that the points lie in."""
        rays = points - self.eye
        ranges = np.sqrt(np.einsum("ij,ij->i", rays, rays))
        azimuth = np.degrees(np.arctan2(rays[:, 1], rays[:, 0])) + 180.0
        altitude = np.degrees(np.arcsin(np.clip(rays[:, 2] / ranges, -1, 1))) + 90.0
        rows, columns = self.nearest.shape
        row = np.minimum((altitude / self.cell).astype(np.int32), rows - 1)
        column = np.minimum((azimuth / self.cell).astype(np.int32), columns - 1)
        return rays, ranges, row * columns + column

    def reaches(self, part):
        low, high = part.bounds()
        return np.linalg.norm(np.clip(self.eye, low, high) - self.eye) < self.reach

    def look(self, parts):
        """Fills the map, once."""
        if self.nearest is not None:
            return
        self.nearest = np.full((round(180 / self.cell), round(360 / self.cell)), np.inf, np.float32)
        for part in filter(self.reaches, parts):
            _, ranges, cells = self.directions(part.obstacles(self.eye, self.reach, np.radians(self.cell)))
            farthestFirst = np.argsort(-ranges)
            cells, ranges = cells[farthestFirst], ranges[farthestFirst]
            closer = ranges < self.nearest.ravel()[cells]
            self.nearest.ravel()[cells[closer]] = ranges[closer]

    def density(self, points, normal):
        """The share of the points that this station measured; 0 where something is in the way."""
        rays, ranges, cells = self.directions(points)
        facing = np.ones_like(ranges) if normal is None else np.abs(rays @ normal.astype(np.float32)) / ranges
        # A cell of the map is wide, so on an oblique surface its far rim lies behind its near one.
        slack = SLACK + np.radians(self.cell) * ranges / np.maximum(facing, 0.03)
        free = (ranges < self.reach) & (ranges <= self.nearest.ravel()[cells] + slack)
        return np.where(free, DENSITY * facing / ranges ** 2, 0.0).astype(np.float32)


def measured(part, stations, seed, wanted):
    """The points and colours that the stations bring home of a part, each point from the station that saw it best."""
    points, colours = part.scan(seed, wanted)
    if len(points) == 0:
        return points, colours
    rng = np.random.default_rng(10000 + seed)
    probe = points[rng.integers(0, len(points), 400)]
    best = np.zeros(len(points), np.float32)
    exposure = np.ones((len(points), 3), np.float32)
    for station in stations:
        if not station.reaches(part) or not station.density(probe, part.normal).any():
            continue
        density = station.density(points, part.normal)
        better = density * rng.uniform(0.8, 1.0, len(points)) > best
        best[better] = density[better]
        exposure[better] = station.exposure
    kept = rng.random(len(points), dtype=np.float32) < best
    return points[kept], np.clip(colours[kept] * exposure[kept], 0, 255).astype(np.uint8)


def outside():
    """Around the house at the height of a tripod, and once on either side from a window across the street."""
    stations = (
        ((1.5, -8.5, 1.3), (1.06, 1.02, 0.95)),
        ((11.0, -7.5, 1.3), (0.93, 0.94, 0.96)),
        ((21.5, -7.0, 1.3), (0.84, 0.87, 0.93)),
        ((5.0, -15.0, 6.5), (1.00, 0.99, 0.97)),
        ((26.0, 4.0, 1.3), (0.93, 0.95, 1.00)),
        ((23.5, 16.0, 1.3), (1.08, 1.06, 1.02)),
        ((12.0, 20.0, 1.3), (0.86, 0.90, 0.97)),
        ((11.0, 25.0, 5.0), (0.94, 0.94, 0.92)),
        ((3.0, 18.0, 1.3), (1.00, 1.02, 1.06)),
        ((-6.0, 16.5, 1.3), (0.88, 0.91, 0.96)),
        ((-9.5, 5.0, 1.3), (1.05, 1.01, 0.95)))
    return [Station(place, 32.0, 0.15, exposure) for place, exposure in stations]


def inside():
    """In every room of both storeys, and twice below the roof."""
    rooms = ((3.4, 1.6), (8.9, 2.6), (14.0, 3.6), (5.5, 6.3), (9.4, 7.9), (14.0, 7.4))
    places = [(u, v, floor + 1.6) for floor, _ in STOREYS for u, v in rooms]
    places += [(5.6, 5.6, 7.7), (12.6, 5.6, 7.7)]
    tones = (1.0, 0.88, 1.06, 0.82, 0.94, 1.03, 0.9)
    return [Station(place, 9.0, 0.3, (tones[i % 7], tones[i % 7], tones[i % 7] * (0.92 if i % 2 else 1.0)))
            for i, place in enumerate(places)]
