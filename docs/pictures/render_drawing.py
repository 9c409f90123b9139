#!/usr/bin/python3
"""Draws a DXF drawing with raster images as a PNG.

Everything comes from the drawing itself, read with ezdxf: an IMAGE entity's insertion point, its two pixel vectors
and its size in pixels say where the picture lies, its definition names the file, and LINE entities are drawn as they
are. So a picture that the drawing puts at a wrong place, turned or mirrored, is drawn so.
"""

import argparse
import math
import re
from dataclasses import dataclass
from pathlib import Path, PureWindowsPath

import ezdxf
import ezdxf.units
import numpy as np
from PIL import Image, ImageDraw, ImageFont

# Everything is drawn this much larger and then reduced, which smooths all edges alike.
FINE = 3

PAPER = (255, 255, 255)
INK = (24, 30, 44)
FAINT = (222, 226, 232)
LINE = (0, 92, 214)
AXES = ((196, 40, 40), (34, 136, 60), (0, 92, 214))
COLOURS = 192

DIRECTIONS = {name: 45.0 * i for i, name in enumerate(
    ("north", "north-east", "east", "south-east", "south", "south-west", "west", "north-west"))}


# ---- the drawing


@dataclass
class Placed:
    """A picture as the drawing places it; u and v are the whole bottom and left edge."""

    path: Path
    corner: np.ndarray
    u: np.ndarray
    v: np.ndarray

    def corners(self):
        return [self.corner, self.corner + self.u, self.corner + self.u + self.v, self.corner + self.v]

    @property
    def normal(self):
        """Towards whoever sees the picture the right way round."""
        return np.cross(self.u, self.v)


@dataclass
class Drawing:
    images: list
    lines: list
    unit: str

    def points(self):
        return np.array([p for image in self.images for p in image.corners()]
                        + [p for line in self.lines for p in line])


def pictureFile(name, folder):
    """The file itself, or one of its name beside the drawing: as CAD programs look for it."""
    candidates = [folder / name, folder / PureWindowsPath(name).name]
    for candidate in candidates:
        if candidate.is_file():
            return candidate
    raise SystemExit(f"picture not found: {candidates[0]}")


def read(path):
    document = ezdxf.readfile(path)
    images, lines = [], []
    for entity in document.modelspace():
        dxf = entity.dxf
        if entity.dxftype() == "IMAGE":
            file = pictureFile(entity.image_def.dxf.filename, path.resolve().parent)
            u, v = (np.array(vector) * size for vector, size in zip((dxf.u_pixel, dxf.v_pixel), dxf.image_size))
            images.append(Placed(file, np.array(dxf.insert), u, v))
        elif entity.dxftype() == "LINE":
            lines.append((np.array(dxf.start), np.array(dxf.end)))
    if not images:
        raise SystemExit(f"{path} holds no picture")
    return Drawing(images, lines, ezdxf.units.decode(document.units) or "")


# ---- looking at it


@dataclass
class View:
    """A parallel projection: directions of the drawing that point to the right, up and towards the viewer."""

    right: np.ndarray
    up: np.ndarray
    towards: np.ndarray

    @staticmethod
    def fromAbove():
        return View(*np.eye(3))

    @staticmethod
    def fromSide(azimuth, altitude):
        """From a compass bearing (0 is +y, 90 is +x) and an angle above the horizon, in degrees."""
        a, h = math.radians(azimuth), math.radians(altitude)
        towards = np.array([math.sin(a) * math.cos(h), math.cos(a) * math.cos(h), math.sin(h)])
        right = np.array([-math.cos(a), math.sin(a), 0.0])
        return View(right, np.cross(towards, right), towards)

    def project(self, points):
        return np.asarray(points) @ np.array([self.right, self.up, self.towards]).T


class Canvas:
    """An image with the depth of every pixel, so that of two pictures that cross the nearer one shows."""

    def __init__(self, view, points, width, margins):
        """Fits the points between the margins (left, top, right, bottom); all sizes in final pixels."""
        self.view = view
        self.origin = np.mean(points, axis=0)
        flat = view.project(points - self.origin)
        self.low, self.high = flat.min(axis=0), flat.max(axis=0)
        left, top, right, bottom = margins
        extent = self.high - self.low
        self.scale = FINE * (width - left - right) / extent[0]
        self.size = width, round(self.scale * extent[1] / FINE) + top + bottom
        self.left, self.top = FINE * left, FINE * top
        columns, rows = (FINE * n for n in self.size)
        self.pixels = np.full((rows, columns, 3), PAPER, np.uint8)
        self.depth = np.full((rows, columns), -np.inf)
        # Lines lie in their pictures, where rounding alone decides which one is nearer.
        self.tolerance = 1e-3 * np.linalg.norm(extent)

    def at(self, points):
        """Columns, rows (fine) and depths of points of the drawing."""
        flat = self.view.project(np.asarray(points) - self.origin)
        x = self.left + self.scale * (flat[..., 0] - self.low[0])
        y = self.top + self.scale * (self.high[1] - flat[..., 1])
        return np.stack([x, y, flat[..., 2]], axis=-1)

    def paste(self, placed):
        """Lays a picture down: its left-bottom corner on the insertion point, its edges on u and v."""
        corner, alongU, alongV = self.at([placed.corner, placed.corner + placed.u, placed.corner + placed.v])
        edges = np.stack([alongU - corner, alongV - corner], axis=1)
        if abs(np.linalg.det(edges[:2])) < 1.0:
            return
        outline = self.at(placed.corners())
        limits = self.pixels.shape[1::-1]
        x0, y0 = np.maximum(np.floor(outline[:, :2].min(axis=0)).astype(int), 0)
        x1, y1 = np.minimum(np.ceil(outline[:, :2].max(axis=0)).astype(int) + 1, limits)
        x, y = np.meshgrid(np.arange(x0, x1) + 0.5 - corner[0], np.arange(y0, y1) + 0.5 - corner[1])
        inverse = np.linalg.inv(edges[:2])
        s, t = (row[0] * x + row[1] * y for row in inverse)
        depth = corner[2] + edges[2, 0] * s + edges[2, 1] * t
        nearest = self.depth[y0:y1, x0:x1]
        shown = (s >= 0) & (s < 1) & (t >= 0) & (t < 1) & (depth >= nearest - 1e-9)

        tones = sample(Image.open(placed.path).convert("RGB"), s[shown], t[shown], np.abs(inverse).max())
        if placed.normal @ self.view.towards < 0:
            tones = tones * 0.35 + np.array(PAPER) * 0.65
        self.pixels[y0:y1, x0:x1][shown] = np.round(tones)
        nearest[shown] = depth[shown]

    def line(self, start, end, colour, width):
        """Draws what no picture hides of a line."""
        ends = self.at([start, end])
        count = max(int(np.hypot(*(ends[1] - ends[0])[:2])), 1)
        steps = ends[0] + np.linspace(0.0, 1.0, count + 1)[:, None] * (ends[1] - ends[0])
        columns, rows = (np.clip(steps[:, i].astype(int), 0, self.pixels.shape[1 - i] - 1) for i in (0, 1))
        radius = FINE * width / 2
        visible = steps[:, 2] >= self.surrounding(rows, columns, math.ceil(radius)) - self.tolerance
        reach = np.arange(-math.ceil(radius), math.ceil(radius) + 1)
        for dx in reach:
            for dy in reach:
                if math.hypot(dx, dy) <= radius:
                    self.pixels[np.clip(rows[visible] + dy, 0, self.pixels.shape[0] - 1),
                                np.clip(columns[visible] + dx, 0, self.pixels.shape[1] - 1)] = colour

    def surrounding(self, rows, columns, reach):
        """The least depth around some places: a line on the rim of a picture counts as before it."""
        depths = [self.depth[np.clip(rows + dy, 0, self.depth.shape[0] - 1),
                             np.clip(columns + dx, 0, self.depth.shape[1] - 1)]
                  for dx in (-reach, 0, reach) for dy in (-reach, 0, reach)]
        return np.min(depths, axis=0)

    def finished(self):
        return Image.fromarray(self.pixels).resize(self.size, Image.Resampling.BOX)


def sample(picture, s, t, step):
    """Colours at shares s from the left and t from the bottom; bilinear, in a copy reduced to the step."""
    for _ in range(int(math.log2(max(step * max(picture.size), 1.0)))):
        picture = picture.reduce(2)
    pixels = np.asarray(picture, np.float32)
    rows, columns = pixels.shape[:2]
    x = np.clip(s * columns - 0.5, 0, columns - 1)
    y = np.clip((1.0 - t) * rows - 0.5, 0, rows - 1)
    x0, y0 = np.minimum(x.astype(int), columns - 2), np.minimum(y.astype(int), rows - 2)
    fx, fy = (x - x0)[:, None], (y - y0)[:, None]
    above = pixels[y0, x0] * (1 - fx) + pixels[y0, x0 + 1] * fx
    below = pixels[y0 + 1, x0] * (1 - fx) + pixels[y0 + 1, x0 + 1] * fx
    return above * (1 - fy) + below * fy


# ---- the pictures made of it


def font(size, bold=False):
    return ImageFont.truetype("DejaVuSans-Bold.ttf" if bold else "DejaVuSans.ttf", size)


def drawAll(canvas, drawing, leftOut=()):
    shown = [image for image in drawing.images if image.path.name not in leftOut]
    for image in shown:
        canvas.paste(image)
    for start, end in drawing.lines:
        canvas.line(start, end, LINE, 1.7)
    return canvas.finished()


def axonometric(drawing, azimuth, altitude, leftOut, width):
    view = View.fromSide(azimuth, altitude)
    canvas = Canvas(view, drawing.points(), width, (24, 66, 24, 24))
    image = drawAll(canvas, drawing, leftOut)
    draw = ImageDraw.Draw(image)
    title = f"from {compass(azimuth)}, {altitude:g}\u00b0 above"
    draw.text((24, 16), title, font=font(17, True), fill=INK)
    if leftOut:
        draw.text((24, 38), "without " + ", ".join(leftOut), font=font(14), fill=INK)
    foot = np.array([58.0, image.height - 58.0])
    for name, colour, axis in zip("xyz", AXES, np.eye(3)):
        right, up, _ = view.project(axis)
        tip = foot + 42 * np.array([right, -up])
        draw.line((*foot, *tip), fill=colour, width=3)
        draw.text(tuple(foot + 54 * np.array([right, -up])), name, font=font(15, True), fill=colour, anchor="mm")
    return image


def compass(azimuth):
    """The bearing in words, and in degrees where it lies between them."""
    name = min(DIRECTIONS, key=lambda name: abs((DIRECTIONS[name] - azimuth + 180.0) % 360.0 - 180.0))
    return f"the {name}" + ("" if DIRECTIONS[name] == azimuth else f" ({azimuth:g}\u00b0)")


def plan(drawing, width):
    """Seen from above, with the drawing's own x and y along the edges."""
    face, left, below = font(16), 110, 62
    canvas = Canvas(View.fromAbove(), drawing.points(), width, (left, 34, 30, below))
    low, high = canvas.low + canvas.origin, canvas.high + canvas.origin
    across = ticks(low[0], high[0], (width - left) / 110)
    upwards = ticks(low[1], high[1], (canvas.size[1] - below) / 42)
    for x in across:
        canvas.line((x, low[1], low[2]), (x, high[1], low[2]), FAINT, 1.0)
    for y in upwards:
        canvas.line((low[0], y, low[2]), (high[0], y, low[2]), FAINT, 1.0)
    image = drawAll(canvas, drawing)

    draw = ImageDraw.Draw(image)
    for x in across:
        column, bottom = canvas.at([x, low[1], 0.0])[0] / FINE, image.height - below + 12
        draw.line((column, bottom - 6, column, bottom), fill=INK, width=2)
        draw.text((column, bottom + 5), f"{x:.12g}", font=face, fill=INK, anchor="mt")
    for y in upwards:
        row = canvas.at([low[0], y, 0.0])[1] / FINE
        draw.line((left - 18, row, left - 12, row), fill=INK, width=2)
        draw.text((left - 24, row), f"{y:.12g}", font=face, fill=INK, anchor="rm")
    bold = font(16, True)
    draw.text((image.width - 30, image.height - 26), f"x [{drawing.unit}]", font=bold, fill=INK, anchor="rt")
    draw.text((left - 12, 8), f"y [{drawing.unit}]", font=bold, fill=INK, anchor="rt")
    draw.text((left + 6, 8), "seen along z", font=font(17, True), fill=INK)
    return image


def ticks(low, high, most):
    """The round numbers between the bounds whose step gives at most so many."""
    rough = (high - low) / most
    power = 10.0 ** math.floor(math.log10(rough))
    step = next(m * power for m in (1, 2, 5, 10) if m * power >= rough)
    first, last = math.ceil(low / step - 1e-9), math.floor(high / step + 1e-9)
    return [round(i * step, 9) for i in range(first, last + 1)]


def stacked(images, columns, width):
    """Images in rows of `columns`, each row as high as its highest."""
    rows = [images[i:i + columns] for i in range(0, len(images), columns)]
    heights = [max(image.height for image in row) for row in rows]
    sheet = Image.new("RGB", (width, sum(heights)), PAPER)
    top = 0
    for row, height in zip(rows, heights):
        for column, image in enumerate(row):
            sheet.paste(image, (column * width // columns, top + (height - image.height) // 2))
        top += height
    return sheet


def save(image, path):
    """Writes a palette PNG; the colour nearest to the paper's becomes exactly that again."""
    indexed = image.quantize(COLOURS, method=Image.Quantize.MAXCOVERAGE, kmeans=2, dither=Image.Dither.NONE)
    palette = np.array(indexed.getpalette(), int).reshape(-1, 3)
    palette[np.abs(palette - PAPER).sum(axis=1).argmin()] = PAPER
    indexed.putpalette(palette.astype(np.uint8).tobytes())
    indexed.save(path, optimize=True)


# ---- the command


def viewOf(text):
    """'plan', or a direction and perhaps a height and pictures to leave out: south-west@30:one.png,two.png."""
    match = re.fullmatch(r"([a-z-]+|\d+(?:\.\d+)?)(?:@(\d+(?:\.\d+)?))?(?::(.+))?", text)
    if text == "plan":
        return None
    if not match or (match[1] not in DIRECTIONS and not match[1][0].isdigit()):
        raise argparse.ArgumentTypeError(f"{text!r} is no view")
    azimuth = DIRECTIONS[match[1]] if match[1] in DIRECTIONS else float(match[1])
    return azimuth, float(match[2] or 30.0), tuple((match[3] or "").split(",")) if match[3] else ()


def main():
    parser = argparse.ArgumentParser(description="Draws a DXF drawing with raster images as a PNG.")
    parser.add_argument("drawing", type=Path, help="the DXF file")
    parser.add_argument("picture", type=Path, help="the PNG file to write")
    parser.add_argument("views", nargs="+", type=viewOf, metavar="VIEW",
                        help="'plan', or where one looks from: a compass direction or bearing, then perhaps '@' and "
                             "degrees above the horizon, then perhaps ':' and pictures to leave out")
    parser.add_argument("--columns", type=int, default=1, help="views side by side")
    parser.add_argument("--width", type=int, default=1400, help="of the whole picture, in pixels")
    options = parser.parse_args()

    drawing = read(options.drawing)
    each = options.width // options.columns
    names = {image.path.name for image in drawing.images}
    for unknown in sorted({name for view in options.views if view for name in view[2]} - names):
        parser.error(f"the drawing holds no picture {unknown}")
    images = [axonometric(drawing, *view, each) if view else plan(drawing, each) for view in options.views]
    sheet = stacked(images, options.columns, options.width)
    save(sheet, options.picture)


if __name__ == "__main__":
    main()
