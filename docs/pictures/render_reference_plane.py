#!/usr/bin/python3
"""Draws reference-plane.svg: the proposed plane, the flattened drawing, and what happens to images turned against it.

Nothing is drawn from memory: the planes come from `rasterplan plane`, the pictures and frames from the IMAGE and LINE
entities of drawings that `rasterplan 2d` writes for the few images below.
"""

import json
import subprocess
import sys
import tempfile
from dataclasses import dataclass
from pathlib import Path

import ezdxf
import numpy as np

EAST, NORTH, UP = np.eye(3)
PAPER, INK, GREY, FAINT = "#ffffff", "#181e2c", "#6a7280", "#dfe3e9"
PICTURE, PICTURE_EDGE, FRAME, PLANE = "#f3dfb4", "#b98f3a", "#005cd6", "#b21826"

# The letter F in a picture of size 1 by 1: it tells up from down and right from left.
LETTER = [(.32, .18), (.32, .82), (.72, .82), (.72, .7), (.44, .7), (.44, .56), (.64, .56), (.64, .44), (.44, .44),
          (.44, .18)]


def turned(axis, degrees):
    """The rotation about a unit axis."""
    angle = np.radians(degrees)
    x, y, z = axis
    across = np.array([[0, -z, y], [z, 0, -x], [-y, x, 0]])
    return np.eye(3) + np.sin(angle) * across + (1 - np.cos(angle)) * across @ across


@dataclass
class Image:
    corner: tuple
    width: float
    height: float
    rotation: np.ndarray = None

    def __post_init__(self):
        rotation = np.eye(3) if self.rotation is None else self.rotation
        self.corner, self.u, self.v = np.array(self.corner), rotation @ EAST, rotation @ UP

    @property
    def rightBottom(self):
        return self.corner + self.width * self.u


@dataclass
class Placed:
    """What a drawing holds of an image: the corners of picture and frame, from left-bottom on, and the marks."""

    picture: np.ndarray
    frame: np.ndarray
    marks: list


def run(tool, images, arguments, output=()):
    """Runs the tool on a manifest of the images and returns what it prints."""
    with tempfile.TemporaryDirectory() as folder:
        manifest = Path(folder) / "SITE.json"
        manifest.write_text(json.dumps({"images": [
            {"path": f"{number}.png", "leftTop": list(image.corner + image.height * image.v),
             "leftBottom": list(image.corner), "rightBottom": list(image.rightBottom), "pixelsPerUnit": 100.0}
            for number, image in enumerate(images)]}))
        command = [tool, arguments[0], manifest, *output, *arguments[1:]]
        return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def proposedPlane(tool, images):
    answer = json.loads(run(tool, images, ["plane", "--json"]))
    return tuple(np.array(answer[name]) for name in ("origin", "xAxis", "yAxis"))


def flattened(tool, images, plane):
    options = [f"--{name}={','.join(map(repr, map(float, value)))}"
               for name, value in zip(("origin", "x-axis", "y-axis"), plane)]
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder) / "flat.dxf"
        run(tool, images, ["2d", *options], [path])
        space = list(ezdxf.readfile(path).modelspace())
    lines = [(np.array(e.dxf.start), np.array(e.dxf.end)) for e in space if e.dxftype() == "LINE"]
    placed = []
    for number, entity in enumerate(e for e in space if e.dxftype() == "IMAGE"):
        corner = np.array(entity.dxf.insert)
        u, v = (np.array(pixel) * count for pixel, count in
                zip((entity.dxf.u_pixel, entity.dxf.v_pixel), entity.dxf.image_size))
        bottom, left, right, _, *marks = lines[6 * number:6 * number + 6]
        placed.append(Placed(np.array([corner, corner + u, corner + u + v, corner + v]),
                             np.array([bottom[0], bottom[1], right[1], left[1]]), marks))
    return placed


class Sheet:
    """SVG elements, and the place and scale at which the next ones are drawn."""

    def __init__(self, width, height):
        self.width, self.height, self.elements = width, height, []
        self.place(0, 0, 0, 0, 1)

    def place(self, left, bottom, x, y, scale):
        """From now on (x, y) lies at (left, bottom) of the sheet, y upwards, one unit `scale` long."""
        self.left, self.bottom, self.x, self.y, self.scale = left, bottom, x, y, scale

    def at(self, point):
        return (self.left + self.scale * (point[0] - self.x), self.bottom - self.scale * (point[1] - self.y))

    def path(self, points, fill="none", stroke="none", width=1.0, dash=None, closed=True, marker=None):
        text = " ".join(f"{x:.1f},{y:.1f}" for x, y in map(self.at, points))
        extra = (f' stroke-dasharray="{dash}"' if dash else "") + (f' marker-end="url(#{marker})"' if marker else "")
        self.elements.append(f'<{"polygon" if closed else "polyline"} points="{text}" fill="{fill}" '
                             f'stroke="{stroke}" stroke-width="{width}"{extra}/>')

    def line(self, start, end, stroke=INK, width=1.0, dash=None, marker=None):
        self.path([start, end], stroke=stroke, width=width, dash=dash, closed=False, marker=marker)

    def dot(self, point, fill, radius=4.5):
        x, y = self.at(point)
        self.elements.append(f'<circle cx="{x:.1f}" cy="{y:.1f}" r="{radius}" fill="{fill}"/>')

    def text(self, point, text, dx=0, dy=0, size=14, fill=INK, anchor="start", bold=False):
        x, y = self.at(point)
        weight = ' font-weight="bold"' if bold else ""
        self.elements.append(f'<text x="{x + dx:.1f}" y="{y + dy:.1f}" font-size="{size}" fill="{fill}" '
                             f'text-anchor="{anchor}"{weight}>{text}</text>')

    def heading(self, left, top, title, *lines):
        self.place(0, 0, 0, 0, 1)
        self.text((left, -top), title, size=18, bold=True)
        for number, line in enumerate(lines):
            self.text((left, -top - 22 - 18 * number), line, fill=GREY)

    def arrow(self, start, direction, length, label, colour, dx=0, dy=0):
        end = np.array(start[:2]) + length * np.array(direction[:2])
        self.line(start, end, colour, 2.2, marker="tip-" + colour[1:])
        self.text(end, label, dx, dy, fill=colour, bold=True)

    def placed(self, image):
        corner, rightBottom, _, leftTop = image.picture
        self.path(image.picture, PICTURE, PICTURE_EDGE, 1.2)
        self.path([corner + s * (rightBottom - corner) + t * (leftTop - corner) for s, t in LETTER], PICTURE_EDGE)
        self.path(image.frame, stroke=FRAME, width=2.0)
        for mark in image.marks:
            self.line(*mark, FRAME, 2.0)

    def svg(self):
        tips = "".join(f'<marker id="tip-{c[1:]}" viewBox="0 0 10 10" refX="7" refY="5" markerWidth="5" '
                       f'markerHeight="5" orient="auto"><path d="M0,0L10,5L0,10z" fill="{c}"/></marker>'
                       for c in (PLANE, INK))
        head = (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {self.width} {self.height}" '
                f'width="{self.width}" height="{self.height}" font-family="DejaVu Sans,Verdana,sans-serif">')
        paper = f'<rect width="{self.width}" height="{self.height}" fill="{PAPER}"/>'
        return "\n".join([head, f"<defs>{tips}</defs>", paper, *self.elements, "</svg>"]) + "\n"


def drawSite(sheet, images, plane):
    """The walls as seen from above: lines, because they are upright."""
    origin, x, y = plane
    reach = max((image.rightBottom - origin) @ x for image in images)
    sheet.line(origin - 0.7 * x, origin + (reach + 0.6) * x, PLANE, 1.6, dash="9 5")
    towards = np.cross(x, y)
    for number, image in enumerate(images, 1):
        foot = image.corner - ((image.corner - origin) @ towards) * towards
        sheet.line(image.corner, foot, GREY, 1.0, dash="2 3")
        sheet.line(image.corner, image.rightBottom, PICTURE_EDGE, 6)
        sheet.dot(image.corner, INK, 4)
        middle = (image.corner + image.rightBottom) / 2
        viewer = np.cross(image.u, image.v)
        sheet.arrow(middle, viewer, 0.75, "", INK)
        sheet.text(middle - 0.18 * viewer, f"image {number}", dy=-4, anchor="middle")
    sheet.dot(origin, PLANE, 6)
    sheet.text(origin, "origin", -2, 24, fill=PLANE, bold=True, anchor="middle")
    sheet.arrow(origin, x, 1.1, "x", PLANE, -4, 20)
    sheet.text(origin + (reach + 0.6) * x, "proposed plane", 0, -10, fill=PLANE, anchor="end", bold=True)
    sheet.arrow(images[2].corner + (5.4, -2.9, 0.0), NORTH, 0.8, "N", INK, -5, -10)


def drawElevation(sheet, placed, origin):
    points = np.concatenate([image.picture for image in placed])
    (left, low), (right, high) = points[:, :2].min(axis=0), points[:, :2].max(axis=0)
    for height in range(int(np.floor(low)), int(np.ceil(high)) + 1):
        sheet.line((left - 0.3, height), (right + 0.3, height), FAINT)
        sheet.text((left - 0.3, height), str(height), -8, 5, fill=GREY, anchor="end")
    for x in range(0, int(right) + 1, 2):
        sheet.text((x, np.floor(low)), str(x), 0, 20, fill=GREY, anchor="middle")
    sheet.text((right, np.floor(low)), "x", 20, 20, fill=PLANE, bold=True)
    sheet.text((left - 0.3, np.ceil(high)), "y = height", -34, -14, fill=PLANE, bold=True)
    for image in placed:
        sheet.placed(image)
    start = np.array([0.0, origin[2]])
    sheet.dot(start, PLANE, 6)
    sheet.text(start, "(0, origin.z)", 12, 20, fill=PLANE, bold=True)


def drawCase(sheet, tool, place, title, lines, image, plane):
    (placed,) = flattened(tool, [image], plane)
    left, top = place
    sheet.heading(left, top, title, *lines)
    sheet.place(left + 34, top + 262, 0.0, plane[0][2], 34)
    sheet.arrow((0, plane[0][2]), (1, 0), 6.6, "x", INK, 6, 5)
    sheet.arrow((0, plane[0][2]), (0, 1), 5.4, "y", INK, -4, -8)
    sheet.placed(placed)


def main():
    if len(sys.argv) != 3:
        raise SystemExit("usage: render_reference_plane.py RASTERPLAN OUT.svg")
    tool, target = sys.argv[1:]
    sheet = Sheet(1180, 1030)

    wing = turned(UP, 7)
    walls = [Image((0.0, 0.0, 510.4), 5.0, 3.6), Image((5.6, -0.9, 511.0), 3.0, 3.0),
             Image((-3.4, 0.45, 510.8), 2.9, 2.4, wing)]
    plane = proposedPlane(tool, walls)
    sheet.heading(30, 36, "1. Images and the proposed plane, from above",
                  "Arrows: towards the viewer of each image. The plane's x axis",
                  "is their mean U. The origin is the left-bottom corner furthest to",
                  "the left, moved into the plane; y points out of the paper, up.")
    sheet.place(84, 220, -3.4, 0.45, 38)
    drawSite(sheet, walls, plane)
    sheet.heading(620, 36, "2. The flattened drawing, in that plane",
                  "Coordinates become x and y of the drawing; origin.z is added",
                  "to y, so y reads as absolute height. Blue: the frame lines.")
    sheet.place(690, 318, 0.0, 510.0, 37)
    drawElevation(sheet, flattened(tool, walls, plane), plane[0])

    upright = (np.array([0.0, 0.0, 510.0]), EAST, UP)
    corner = (1.9, -1.0, 511.1)
    sheet.heading(30, 392, "3. One image, and how it lies to the plane")
    cases = [
        ("a) parallel", ("True size, frame on the picture,", "also at a distance from the plane."),
         Image(corner, 4.0, 3.0), upright),
        ("b) turned about y", ("Narrower, as seen along z;", "frame on the picture."),
         Image(corner, 4.0, 3.0, turned(UP, -45)), upright),
        ("c) facing the other way", ("Seen from behind: mirrored;", "frame on the picture."),
         Image((5.9, -1.0, 511.1), 4.0, 3.0, turned(UP, 180)), upright),
        ("d) turned in the plane", ("The picture is right, the frame is not:", "sheared and displaced."),
         Image((2.6, -1.0, 511.1), 4.0, 3.0, turned(NORTH, -20)), upright),
        ("e) leaning", ("The picture is right, the frame is not:", "it keeps its full height, displaced."),
         Image(corner, 4.0, 3.0, turned(EAST, -40)), upright),
        ("f) upright, and the plane leans", ("The same again; and y is a height", "at the origin only."),
         Image(corner, 4.0, 3.0), (upright[0], EAST, turned(EAST, -40) @ UP)),
    ]
    for number, case in enumerate(cases):
        drawCase(sheet, tool, (30 + 385 * (number % 3), 426 + 318 * (number // 3)), *case)

    Path(target).write_text(sheet.svg(), encoding="utf-8", newline="\n")


if __name__ == "__main__":
    main()
