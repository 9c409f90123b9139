"""A site of pictures with coloured marks at survey coordinates, and where the marks must be on the screen: computed from
the site alone, by the rules of docs/view.md."""

import json
import math
import subprocess

from PIL import Image, ImageDraw

PIXELS = (200, 120)
PIXELS_PER_UNIT = 50
MARK = 12  # pixels along its side
FIELD_OF_VIEW = 40  # degrees
FILLED = 0.92  # of the stage, by a fitted view


def plus(a, b, factor=1.0):
    return tuple(x + factor * y for x, y in zip(a, b))


def minus(a, b):
    return plus(a, b, -1.0)


def dot(a, b):
    return sum(x * y for x, y in zip(a, b))


def cross(a, b):
    return (a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0])


def unit(a):
    return tuple(x / math.sqrt(dot(a, a)) for x in a)


class Picture:
    """The file, its place, and the one mark in it: its color and its middle in pixels from the left top."""

    def __init__(self, name, left_bottom, u, v, color, mark):
        self.name, self.left_bottom, self.u, self.v, self.color, self.mark = name, left_bottom, u, v, color, mark

    def point(self, across, upright):
        """The point that lies as many pixels from the left bottom."""
        along = plus(self.left_bottom, self.u, across / PIXELS_PER_UNIT)
        return plus(along, self.v, upright / PIXELS_PER_UNIT)

    def mark_point(self):
        return self.point(self.mark[0], PIXELS[1] - self.mark[1])

    def corners(self):
        width, height = PIXELS
        return [self.point(0, 0), self.point(width, 0), self.point(width, height), self.point(0, height)]

    def draw(self, folder):
        image = Image.new("RGB", PIXELS, (225, 225, 225))
        x, y = self.mark
        ImageDraw.Draw(image).rectangle([x - MARK / 2, y - MARK / 2, x + MARK / 2 - 1, y + MARK / 2 - 1], self.color)
        image.save(folder / self.name)


EAST, NORTH, UP = (1.0, 0.0, 0.0), (0.0, 1.0, 0.0), (0.0, 0.0, 1.0)
ALONG = (math.cos(math.radians(30)), math.sin(math.radians(30)), 0.0)
ACROSS = (-ALONG[1], ALONG[0], 0.0)
SLOPE = plus(tuple(math.cos(math.radians(40)) * x for x in NORTH), UP, math.sin(math.radians(40)))
CORNER = (4468215.842455544, 5333642.029, 510.34)

# Far enough from each other that none hides a mark of another.
WALL = Picture("süd wand.png", CORNER, ALONG, UP, (230, 20, 20), (150, 30))
GABLE = Picture("gable.png", plus(CORNER, ACROSS, 9.0), tuple(-x for x in ACROSS), UP, (20, 20, 230), (40, 90))
PLAN = Picture("plan.png", plus(CORNER, EAST, 7.0), ALONG, ACROSS, (20, 150, 20), (60, 40))
ROOF = Picture("roof.png", plus(CORNER, NORTH, 12.0), EAST, SLOPE, (200, 20, 200), (100, 60))
PICTURES = [WALL, GABLE, PLAN, ROOF]


def write_site(program, folder):
    """Writes the pictures and, with the tool, the drawing, which names them by relative path."""
    for picture in PICTURES:
        picture.draw(folder)
    images = [{"path": picture.name, "leftTop": picture.corners()[3], "leftBottom": picture.corners()[0],
               "rightBottom": picture.corners()[1], "pixelsPerUnit": PIXELS_PER_UNIT} for picture in PICTURES]
    site = folder / "SITE.json"
    site.write_text(json.dumps({"unit": "Meters", "images": images}), encoding="utf-8")
    drawing = folder / "site.dxf"
    subprocess.run([program, "3d", site, drawing, "--paths", "relative"], check=True, stdout=subprocess.DEVNULL)
    return drawing


class View:
    """A camera of our own: where points are on a stage of some size."""

    def __init__(self, stage, towards, up, target=None, height=None, parallel=True):
        self.left, self.top, self.width, self.height = stage
        self.towards, self.up, self.parallel = towards, up, parallel
        self.right = cross(up, towards)
        self.focal_length = self.height / 2 / math.tan(math.radians(FIELD_OF_VIEW / 2))
        self.target = target
        self.distance = height and self.focal_length * height / self.height

    def fitted(self, points):
        """As large as can be with all the points in it."""
        axes = [self.right, self.up, self.towards]
        ranges = [(min(dot(p, axis) for p in points), max(dot(p, axis) for p in points)) for axis in axes]
        self.target = (0.0, 0.0, 0.0)
        for axis, (least, most) in zip(axes, ranges):
            self.target = plus(self.target, axis, (least + most) / 2)
        self.distance = 0.0
        for point in points:
            x, y, z = (dot(minus(point, self.target), axis) for axis in axes)
            widest = max(abs(x) / self.width, abs(y) / self.height) * 2 * self.focal_length / FILLED
            self.distance = max(self.distance, widest + (0.0 if self.parallel else z))
        return self

    def place(self, point):
        x, y, z = (dot(minus(point, self.target), axis) for axis in (self.right, self.up, self.towards))
        pixels = self.focal_length / (self.distance if self.parallel else self.distance - z)
        return (self.left + self.width / 2 + x * pixels, self.top + self.height / 2 - y * pixels)


def all_corners():
    return [corner for picture in PICTURES for corner in picture.corners()]


def overview(stage):
    towards = unit((-0.5, -0.75, 0.45))
    return View(stage, towards, cross(towards, unit(cross(UP, towards))), parallel=False).fitted(all_corners())


def above(stage):
    return View(stage, UP, NORTH).fitted(all_corners())


def front(stage, picture):
    normal = cross(picture.u, picture.v)
    return View(stage, normal, picture.v).fitted(picture.corners())
