#!/usr/bin/python3
"""Draws a flattened DXF drawing with raster images as a PNG, with its x and y along the edges.

Everything comes from the drawing itself, read with ezdxf: an IMAGE entity's insertion point, its two pixel vectors
and its size in pixels say where the picture lies, its definition names the file, and LINE entities are drawn as they
are. So a picture that the drawing puts at a wrong place, turned or mirrored, is drawn so.
"""

import math
import sys
from dataclasses import dataclass
from pathlib import Path, PureWindowsPath

import ezdxf
import ezdxf.units
import numpy as np
from PIL import Image, ImageDraw, ImageFont

# Everything is drawn this much larger and then reduced, which smooths all edges alike.
FINE = 3

WIDTH = 1400
PAPER = (255, 255, 255)
INK = (24, 30, 44)
FAINT = (222, 226, 232)
LINE = (0, 92, 214)
COLOURS = 192


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
            u, v = (np.array(vector)[:2] * size for vector, size in zip((dxf.u_pixel, dxf.v_pixel), dxf.image_size))
            images.append(Placed(file, np.array(dxf.insert)[:2], u, v))
        elif entity.dxftype() == "LINE":
            lines.append((np.array(dxf.start)[:2], np.array(dxf.end)[:2]))
    if not images:
        raise SystemExit(f"{path} holds no picture")
    return Drawing(images, lines, ezdxf.units.decode(document.units) or "")


# ---- the sheet


class Canvas:
    """A sheet of paper on which the points of a drawing find room between margins: left, top, right, bottom.

    All sizes are those of the finished picture, in pixels.
    """

    def __init__(self, points, width, margins):
        left, top, right, bottom = margins
        self.low, self.high = points.min(axis=0), points.max(axis=0)
        extent = self.high - self.low
        self.scale = (width - left - right) / extent[0]
        self.left, self.top = left, top
        self.size = width, round(self.scale * extent[1]) + top + bottom
        self.sheet = Image.new("RGB", [FINE * n for n in self.size], PAPER)

    def at(self, point):
        return np.array([self.left + self.scale * (point[0] - self.low[0]),
                         self.top + self.scale * (self.high[1] - point[1])])

    def paste(self, placed):
        """Lays a picture down: its left-bottom corner on the insertion point, its edges on u and v."""
        picture = Image.open(placed.path).convert("RGBA")
        corner, alongU, alongV = (FINE * self.at(p) for p in
                                  (placed.corner, placed.corner + placed.u, placed.corner + placed.v))
        columns, rows = picture.size
        toPicture = np.diag([columns, -rows]) @ np.linalg.inv(np.stack([alongU - corner, alongV - corner], axis=1))
        start = np.array([0, rows]) - toPicture @ corner
        rowsOfMatrix = [value for row, offset in zip(toPicture, start) for value in (*row, offset)]
        laid = picture.transform(self.sheet.size, Image.Transform.AFFINE, rowsOfMatrix, Image.Resampling.BILINEAR)
        self.sheet.paste(laid, mask=laid)

    def line(self, start, end, colour, width):
        ends = [tuple(FINE * self.at(point)) for point in (start, end)]
        ImageDraw.Draw(self.sheet).line(ends, fill=colour, width=round(FINE * width))

    def finished(self):
        return self.sheet.reduce(FINE)


def font(size, bold=False):
    return ImageFont.truetype("DejaVuSans-Bold.ttf" if bold else "DejaVuSans.ttf", size)


def render(drawing, width):
    face, left, below = font(16), 110, 62
    canvas = Canvas(drawing.points(), width, (left, 14, 30, below))
    low, high = canvas.low, canvas.high
    across = ticks(low[0], high[0], (width - left) / 110)
    upwards = ticks(low[1], high[1], (canvas.size[1] - below) / 42)
    for x in across:
        canvas.line((x, low[1]), (x, high[1]), FAINT, 1)
    for y in upwards:
        canvas.line((low[0], y), (high[0], y), FAINT, 1)
    for image in drawing.images:
        canvas.paste(image)
    for start, end in drawing.lines:
        canvas.line(start, end, LINE, 1.7)

    image = canvas.finished()
    draw = ImageDraw.Draw(image)
    for x in across:
        column, bottom = canvas.at((x, low[1]))[0], image.height - below + 12
        draw.line((column, bottom - 6, column, bottom), fill=INK, width=2)
        draw.text((column, bottom + 5), f"{x:.12g}", font=face, fill=INK, anchor="mt")
    for y in upwards:
        row = canvas.at((low[0], y))[1]
        draw.line((left - 18, row, left - 12, row), fill=INK, width=2)
        draw.text((left - 24, row), f"{y:.12g}", font=face, fill=INK, anchor="rm")
    bold = font(16, True)
    draw.text((image.width - 30, image.height - 26), f"x [{drawing.unit}]", font=bold, fill=INK, anchor="rt")
    draw.text((14, 8), f"y [{drawing.unit}]", font=bold, fill=INK, anchor="lt")
    return image


def ticks(low, high, most):
    """The round numbers between the bounds whose step gives at most so many."""
    rough = (high - low) / most
    power = 10.0 ** math.floor(math.log10(rough))
    step = next(m * power for m in (1, 2, 5, 10) if m * power >= rough)
    first, last = math.ceil(low / step - 1e-9), math.floor(high / step + 1e-9)
    return [round(i * step, 9) for i in range(first, last + 1)]


def save(image, path):
    """Writes a palette PNG; the colour nearest to the paper's becomes exactly that again."""
    indexed = image.quantize(COLOURS, method=Image.Quantize.MAXCOVERAGE, kmeans=2, dither=Image.Dither.NONE)
    palette = np.array(indexed.getpalette(), int).reshape(-1, 3)
    palette[np.abs(palette - PAPER).sum(axis=1).argmin()] = PAPER
    indexed.putpalette(palette.astype(np.uint8).tobytes())
    indexed.save(path, optimize=True)


if __name__ == "__main__":
    save(render(read(Path(sys.argv[1])), WIDTH), sys.argv[2])
