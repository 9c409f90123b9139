"""Ortho pictures of a scan: points of a slab projected into a plane, labelled, described in a SITE.json."""

import json
from dataclasses import dataclass
from pathlib import Path

import numpy as np
from PIL import Image, ImageDraw, ImageFont

import building

PAPER = (250, 250, 247)
INK = (24, 30, 44)
CUT = (178, 24, 38)
COLOURS = 64


@dataclass
class Picture:
    """An ortho picture: its left-bottom corner and axes in building coordinates, its size and its slab.

    `width` and `height` are metres and whole multiples of a pixel. The slab reaches from `front` metres
    before the picture's plane (towards the viewer) to `back` metres behind it. `cut` marks the points of the
    plane itself.
    """

    name: str
    title: str
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
        counts = tuple(round(count) for count in exact)
        if max(abs(a - b) for a, b in zip(exact, counts)) > 1e-6:
            raise ValueError(f"{self.name}: {exact[0]} x {exact[1]} is no whole number of pixels")
        return counts

    def at(self, alongU, alongV):
        """The survey coordinates of a place of the picture, given in metres from its left-bottom corner."""
        return building.toSurvey(*(np.array(self.corner) + alongU * self.right + alongV * self.up))

    @property
    def leftBottom(self):
        return self.at(0.0, 0.0)

    @property
    def leftTop(self):
        return self.at(0.0, self.height)

    @property
    def rightBottom(self):
        return self.at(self.width, 0.0)

    def axes(self):
        """U, V and the direction towards the viewer, from the corners as the manifest gives them."""
        u = (self.rightBottom - self.leftBottom) / self.width
        v = (self.leftTop - self.leftBottom) / self.height
        return u, v, np.cross(u, v)


def render(picture, scene):
    """Projects the scan of `scene` into the picture; of the points in a pixel the nearest one shows."""
    columns, rows = picture.size
    u, v, towards = picture.axes()
    origin = picture.leftBottom - building.ANCHOR
    colours = np.tile(np.array(PAPER, np.uint8), (rows * columns, 1))
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

        points, tones = part.scan(seed, inside)
        if not len(points):
            continue
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

    colours = closeGaps(colours.reshape(rows, columns, 3), nearest.reshape(rows, columns))
    if picture.cut:
        colours[widened(onCut.reshape(rows, columns))] = CUT
    return Image.fromarray(colours)


def slabBounds(picture):
    _, _, towards = picture.axes()
    corners = [picture.at(a * picture.width, b * picture.height) + offset * towards - building.ANCHOR
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
    return np.where(gap[..., None], filled, colours)


def widened(mask):
    return mask | np.any(neighbours(mask), axis=0)


# ---- labels


def font(size, bold=False):
    return ImageFont.truetype("DejaVuSans-Bold.ttf" if bold else "DejaVuSans.ttf", size)


def panel(image, left, top, width, height):
    """A bright field for a text, through which the picture still shows."""
    area = (left, top, left + width, top + height)
    field = Image.new("RGB", (width, height), PAPER)
    image.paste(Image.blend(image.crop(area), field, 0.84), area)


def textBlock(image, lines, anchor, size=15):
    """Writes lines, the first one bold, in a panel at `anchor`: left, middle or right, and top or bottom."""
    fonts = [font(size + 5, True)] + [font(size)] * (len(lines) - 1)
    widths = [int(np.ceil(face.getlength(line))) for face, line in zip(fonts, lines)]
    heights = [round(face.size * 1.28) for face in fonts]
    width, height = max(widths) + 14, sum(heights) + 8
    edge = 8
    share = {"left": 0.0, "middle": 0.5, "right": 1.0}[anchor[0]]
    left = edge + int(share * (image.width - width - 2 * edge))
    top = {"top": edge, "bottom": image.height - height - edge}[anchor[1]]
    panel(image, left, top, width, height)
    draw = ImageDraw.Draw(image)
    y = top + 4
    for face, line, lineWidth, lineHeight in zip(fonts, lines, widths, heights):
        draw.text((left + 7 + int(share * (width - 14 - lineWidth)), y), line, font=face, fill=INK)
        y += lineHeight
    return left, top, width, height


def arrow(draw, start, direction, length, label):
    """An arrow with a bright edge; `direction` counts upwards, the picture's rows downwards."""
    x, y = np.array(direction, float) / np.hypot(*direction)

    def at(forwards, leftwards=0.0):
        return start[0] + forwards * x - leftwards * y, start[1] - forwards * y - leftwards * x

    for colour, edge in ((PAPER, 4), (CUT, 0)):
        draw.line((*at(-edge), *at(length)), fill=colour, width=4 + 2 * edge)
        tip, foot = length + 14 + 2 * edge, length - edge
        draw.polygon((at(tip), at(foot, 7 + edge), at(foot, -7 - edge)), fill=colour)
    draw.text(at(length + 30), label, font=font(18, True), fill=CUT, anchor="mm",
              stroke_width=4, stroke_fill=PAPER)


def heightScale(image, picture, top, bottom):
    """Ticks on the right edge at every whole metre above sea level, between two rows of the picture."""
    draw = ImageDraw.Draw(image)
    lowest, highest = picture.leftBottom[2], picture.leftTop[2]
    face = font(15)
    for metres in range(int(np.ceil(lowest)), int(np.floor(highest)) + 1):
        y = round((highest - metres) * picture.pixelsPerUnit)
        if top < y < bottom:
            text = f"{metres:.2f} m"
            width = int(np.ceil(face.getlength(text)))
            panel(image, image.width - width - 34, y - 10, width + 8, 20)
            draw.text((image.width - 30, y), text, font=face, fill=INK, anchor="rm")
            draw.line((image.width - 24, y, image.width, y), fill=INK, width=2)


def label(image, picture):
    """Draws name, scale, corners and axes into the picture."""
    columns, rows = picture.size

    def corner(name, point):
        return [name] + [f"{letter} {value:.3f}" for letter, value in zip("ENH", point)]

    draw = ImageDraw.Draw(image)
    millimetres = 1000.0 / picture.pixelsPerUnit
    _, top, _, _ = textBlock(image, corner("LB", picture.leftBottom), ("left", "bottom"))
    textBlock(image, corner("LT", picture.leftTop), ("left", "top"))
    _, rightTop, _, _ = textBlock(image, corner("RB", picture.rightBottom), ("right", "bottom"))
    scale = f"{picture.pixelsPerUnit:g} px/m, 1 px = {millimetres:g} mm"
    size = f"{columns} \u00d7 {rows} px"
    textBlock(image, [picture.name, picture.title, scale, size], ("middle", "bottom"))

    foot = 34, top - 26
    arrow(draw, foot, (0, 1), 54, "V")
    arrow(draw, foot, (1, 0), 54, "U")

    metres = 2
    length = round(metres * picture.pixelsPerUnit)
    besideCorner = columns > 900
    left, y = (columns - length - 200, rows - 24) if besideCorner else (columns - length - 34, rightTop - 12)
    half = length // 2
    panel(image, left - 8, y - 26, length + 16, 38)
    draw.rectangle((left, y, left + half, y + 7), fill=INK, outline=INK)
    draw.rectangle((left + half, y, left + length, y + 7), fill=PAPER, outline=INK)
    draw.text((left + half, y - 5), f"{metres} m", font=font(15), fill=INK, anchor="mb")

    u, v, _ = picture.axes()
    if abs(v[2]) > 0.5:
        heightScale(image, picture, 20, rightTop - 14 if besideCorner else y - 36)
    else:
        arrow(draw, (columns - 90, 110), (u[1], v[1]), 50, "N")

    draw.rectangle((0, 0, columns - 1, rows - 1), outline=INK, width=2)
    return image


def save(image, path):
    """Writes a palette PNG; without dithering, which would only add noise to the noise."""
    indexed = image.quantize(COLOURS, method=Image.Quantize.MAXCOVERAGE, kmeans=2, dither=Image.Dither.NONE)
    indexed.save(path, optimize=True)


def writeManifest(pictures, path):
    """Writes the SITE.json; numbers in the shortest text that reads back as the same double."""
    entries = []
    for picture in pictures:
        fields = [("path", picture.name), ("leftTop", list(picture.leftTop)),
                  ("leftBottom", list(picture.leftBottom)), ("rightBottom", list(picture.rightBottom)),
                  ("pixelsPerUnit", picture.pixelsPerUnit)]
        lines = [f"      {json.dumps(key)}: {json.dumps(value, ensure_ascii=False)}" for key, value in fields]
        entries.append("    {\n" + ",\n".join(lines) + "\n    }")
    text = '{\n  "unit": "Meters",\n  "images": [\n' + ",\n".join(entries) + "\n  ]\n}\n"
    Path(path).write_text(text, encoding="utf-8", newline="\n")


def produce(pictures, folder):
    """Renders the pictures into the folder and writes their SITE.json beside them."""
    scene = building.surfaces()
    for picture in pictures:
        save(label(render(picture, scene), picture), Path(folder) / picture.name)
        print(f"{picture.name}: {picture.size[0]} x {picture.size[1]} px")
    writeManifest(pictures, Path(folder) / "SITE.json")
