"""Ortho pictures of a scan: points of a slab projected into a plane, transparent where none fell, and a SITE.json."""

import json
from dataclasses import dataclass
from pathlib import Path

import numpy as np
from PIL import Image

import scanner
from shapes import ANCHOR, toSurvey, turned
from surroundings import surfaces

# What programs without transparency show where nothing was measured.
PAPER = (250, 250, 247)
CUT = (178, 24, 38)
COLOURS = 56
# Edges fade in this many steps; their few pixels need few colours.
SOFT, SOFT_COLOURS = (85, 170), 12


@dataclass
class Picture:
    """An ortho picture: its left-bottom corner and axes in building coordinates, its size and its slab.

    `width` and `height` are metres and whole multiples of a pixel. The slab reaches from `front` metres
    before the picture's plane (towards the viewer) to `back` metres behind it. `cut` marks the points of the
    plane itself.
    """

    name: str
    corner: tuple
    right: np.ndarray
    up: np.ndarray
    width: float
    height: float
    pixelsPerUnit: float
    front: float
    back: float
    cut: bool = False

    @property
    def size(self):
        """Columns and rows."""
        exact = self.width * self.pixelsPerUnit, self.height * self.pixelsPerUnit
        if any(count % 1 for count in exact):
            raise ValueError(f"{self.name}: {exact[0]} x {exact[1]} is no whole number of pixels")
        return tuple(int(count) for count in exact)

    def at(self, alongU, alongV):
        """The survey coordinates of a place of the picture, given in metres from its left-bottom corner."""
        return toSurvey(*(np.array(self.corner) + alongU * self.right + alongV * self.up))

    def corners(self):
        """Left top, left bottom and right bottom, in eighths of a metre: binary numbers hold them exactly."""
        corners = {"leftTop": self.at(0, self.height), "leftBottom": self.at(0, 0),
                   "rightBottom": self.at(self.width, 0)}
        for name, corner in corners.items():
            if (corner * 8 % 1).any():
                raise ValueError(f"{self.name}: {name} {corner} is no multiple of 1/8")
        return corners

    def axes(self):
        """U, V and the direction towards the viewer."""
        u, v = turned(self.right), turned(self.up)
        return u, v, np.cross(u, v)


def render(picture, scene, stations):
    """Projects what the stations measured into the picture; of the points in a pixel the nearest one shows."""
    columns, rows = picture.size
    u, v, towards = picture.axes()
    origin = turned(picture.corner)
    colours = np.zeros((rows * columns, 3), np.uint8)
    nearest = np.full(rows * columns, -np.inf, np.float32)
    onCut = np.zeros(rows * columns, bool)
    low, high = slabBounds(picture)

    def inside(points):
        along, upwards, depth = (points @ axis.astype(np.float32) - np.float32(origin @ axis)
                                 for axis in (u, v, towards))
        return ((along >= 0) & (along < picture.width) & (upwards >= 0) & (upwards < picture.height)
                & (depth <= picture.front) & (depth >= -picture.back))

    for seed, part in enumerate(scene):
        partLow, partHigh = part.bounds()
        if (partLow > high).any() or (partHigh < low).any():
            continue
        points, tones = scanner.measured(part, stations, seed, inside)
        relative = points.astype(np.float64) - origin
        column = np.minimum((relative @ u * picture.pixelsPerUnit).astype(np.int64), columns - 1)
        row = rows - 1 - np.minimum((relative @ v * picture.pixelsPerUnit).astype(np.int64), rows - 1)
        pixel, depth = row * columns + column, (relative @ towards).astype(np.float32)
        farthestFirst = np.argsort(depth, kind="stable")
        pixel, depth, tones = pixel[farthestFirst], depth[farthestFirst], tones[farthestFirst]
        shown = depth > nearest[pixel]
        nearest[pixel[shown]] = depth[shown]
        colours[pixel[shown]] = tones[shown]
        if picture.cut:
            onCut[pixel[np.abs(depth) < 0.02]] = True

    nearest = nearest.reshape(rows, columns)
    colours = closeGaps(colours.reshape((rows, columns, 3)), nearest)
    colours, alpha = softened(colours, np.isfinite(nearest))
    if picture.cut:
        line = widened(onCut.reshape(rows, columns))
        colours[line], alpha[line] = CUT, 255
    return colours, alpha


def slabBounds(picture):
    _, _, towards = picture.axes()
    corners = [picture.at(a * picture.width, b * picture.height) + offset * towards - ANCHOR
               for a in (0, 1) for b in (0, 1) for offset in (picture.front, -picture.back)]
    return np.min(corners, axis=0), np.max(corners, axis=0)


def neighbours(field):
    """The field moved by one pixel to each side, edges repeated."""
    padded = np.pad(field, [(1, 1), (1, 1)] + [(0, 0)] * (field.ndim - 2), mode="edge")
    rows, columns = field.shape[:2]
    return [padded[1 + down:1 + down + rows, 1 + right:1 + right + columns]
            for down, right in ((0, -1), (0, 1), (-1, 0), (1, 0))]


def closeGaps(colours, nearest):
    """Fills a pixel that no point of a surface hit while at least three sides of it show that surface."""
    before = np.stack(neighbours(nearest))
    gap = (before > nearest + 0.05).sum(axis=0) >= 3
    front = before.argmax(axis=0)
    filled = np.choose(front[..., None], neighbours(colours))
    nearest[gap] = before.max(axis=0)[gap]
    return np.where(gap[..., None], filled, colours)


def widened(mask):
    return mask | np.any(neighbours(mask), axis=0)


def blurred(field, weights):
    """The field under a small bell of weights along both axes, edges repeated."""
    reach = len(weights) // 2
    for axis in (0, 1):
        padded = np.pad(field, [(reach, reach) if i == axis else (0, 0) for i in range(field.ndim)], mode="edge")
        field = sum(weight * np.take(padded, np.arange(i, i + field.shape[axis]), axis)
                    for i, weight in enumerate(np.float32(weights)))
    return field


def softened(colours, hit):
    """The blur of a photograph, pixels between points filled, and edges that fade."""
    weighted = colours.astype(np.float32) * hit[..., None]
    hits = hit.astype(np.float32)
    narrow, wide = (0.2, 0.6, 0.2), (0.1, 0.24, 0.32, 0.24, 0.1)
    near, far = blurred(hits, narrow), blurred(hits, wide)
    tones = np.where((near > 0.3)[..., None], blurred(weighted, narrow) / np.maximum(near, 1e-6)[..., None],
                     blurred(weighted, wide) / np.maximum(far, 1e-6)[..., None])
    return np.clip(tones, 0, 255).astype(np.uint8), np.clip((far - 0.2) / 0.4 * 255, 0, 255).astype(np.uint8)


def indexed(colours, count):
    """Indices of a list of colours into a palette of at most `count`, and the palette."""
    sheet = Image.fromarray(colours.reshape(1, -1, 3))
    # Without dithering, which would only add noise to the noise.
    sheet = sheet.quantize(count, method=Image.Quantize.MAXCOVERAGE, kmeans=2, dither=Image.Dither.NONE)
    palette = np.array(sheet.getpalette()[:3 * count], np.uint8).reshape(-1, 3)
    return np.asarray(sheet)[0], palette


def save(colours, alpha, path):
    """Writes a palette PNG whose palette carries the transparency too."""
    indices = np.zeros(alpha.shape, np.uint8)
    palette, opacity = [np.array([PAPER], np.uint8)], [0]
    level = np.digitize(alpha, (64, 128, 192))
    for step, (value, count) in enumerate(zip(SOFT + (255,), (SOFT_COLOURS,) * 2 + (COLOURS,)), 1):
        chosen = level == step
        if chosen.any():
            places, tones = indexed(colours[chosen], count)
            indices[chosen] = places + len(opacity)
            palette.append(tones)
            opacity += [value] * len(tones)
    image = Image.fromarray(indices, "P")
    image.putpalette(np.concatenate(palette).tobytes())
    image.save(path, optimize=True, transparency=bytes(opacity))


def writeManifest(pictures, path):
    """Writes the SITE.json; numbers in the shortest text that reads back as the same double."""
    entries = []
    for picture in pictures:
        fields = [("path", picture.name)] + [(name, list(corner)) for name, corner in picture.corners().items()]
        fields.append(("pixelsPerUnit", picture.pixelsPerUnit))
        lines = [f"      {json.dumps(key)}: {json.dumps(value, ensure_ascii=False)}" for key, value in fields]
        entries.append("    {\n" + ",\n".join(lines) + "\n    }")
    text = '{\n  "unit": "Meters",\n  "images": [\n' + ",\n".join(entries) + "\n  ]\n}\n"
    Path(path).write_text(text, encoding="utf-8", newline="\n")


def produce(shots, folder):
    """Renders pictures, each given with the stations that are used for it, and writes their SITE.json beside them."""
    scene = surfaces()
    for picture, stations in shots:
        for station in stations:
            station.look(scene)
        save(*render(picture, scene, stations), Path(folder) / picture.name)
        print(f"{picture.name}: {picture.size[0]} x {picture.size[1]} px", flush=True)
    writeManifest([picture for picture, _ in shots], Path(folder) / "SITE.json")
