"""Invents scenes: each number gives one, always the same.

Most are oblique, near the origin and with few pixels per unit, because there every step of a formula shows in the
digits that are written. Among them are images that are refused, paths of every kind, planes that fit nothing, planes so
far off that only some images are left, and writes in any order.
"""

import math
import random

PATHS = ("", "", "south.png", "D:\\Aufnahmen\\Süd fassade.png", "/データ/立面図/東.png", "C:фасад.png", "E:", "E:\\",
         "pictures/nothing/", "\\\\server\\share\\wall.tif", "mixed/up\\names.jpg", "no drive:wall.png", "1:wall.png",
         "ä:wall.png", "z:/a:b.png", "..", "/", "back\\slash\\", "🏠/🏚.png", "blanks in  it .png", "~!#%&()=@.png",
         ".hidden", "long" * 40 + ".png")
UNITS = tuple(range(22)) + (6, 6, 6, -1, 22, 1000)
PIXELS = (0.37, 1.0 / 3.0, 0.1, 0.73, 1.7, 3.1, 7.0, 0.013)
MANY_PIXELS = (100.0, 33.3, 1000.0, 254.0, 1e4)
ODD_PIXELS = (0.0, -0.0, -2.5, 1e-300, 1e300)


def unit_vector(dice):
    while True:
        v = [dice.uniform(-1.0, 1.0) for _ in range(3)]
        size = math.sqrt(sum(c * c for c in v))
        if 0.1 < size < 1.0:
            return [c / size for c in v]


def cross(a, b):
    return [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]]


def combined(*terms):
    return [sum(factor * vector[i] for factor, vector in terms) for i in range(3)]


def square_axes(dice, kind):
    """Two directions at a right angle."""
    if kind == "along the axes":
        axes = [[0.0, 0.0, 0.0], [0.0, 0.0, 0.0]]
        first, second = dice.sample(range(3), 2)
        axes[0][first] = dice.choice((1.0, -1.0))
        axes[1][second] = dice.choice((1.0, -1.0))
        return axes
    if kind == "upright":
        angle = dice.uniform(0.0, 2.0 * math.pi)
        return [[math.cos(angle), math.sin(angle), 0.0], [0.0, 0.0, 1.0]]
    u = unit_vector(dice)
    while True:
        other = cross(u, unit_vector(dice))
        size = math.sqrt(sum(c * c for c in other))
        if size > 0.1:
            return [u, [c / size for c in other]]


def turned(dice, axes, most):
    """The axes turned by some small angle in a random direction, still at a right angle."""
    u, v = axes
    w = cross(u, v)
    a, b, c = (dice.uniform(-most, most) for _ in range(3))
    u = combined((1.0, u), (a, v), (b, w))
    size = math.sqrt(sum(x * x for x in u))
    u = [x / size for x in u]
    v = combined((1.0, v), (c, w))
    along = sum(x * y for x, y in zip(u, v))
    v = combined((1.0, v), (-along, u))
    size = math.sqrt(sum(x * x for x in v))
    return [u, [x / size for x in v]]


def kinds(dice, **weights):
    return dice.choices(list(weights), weights=list(weights.values()))[0].replace("_", " ")


class Invention:
    def __init__(self, number):
        self.dice = random.Random(number)
        self.lines = ["plane 0 0 0 1 0 0 0 1 0"]
        self.place = kinds(self.dice, near=70, site=12, survey=12, tiny=3, far=3)
        self.orientation = kinds(self.dice, oblique=60, upright=20, along_the_axes=20)
        self.agreement = kinds(self.dice, parallel=35, nearly=30, any=25, facing=10)
        self.axes = square_axes(self.dice, self.orientation)
        self.few_pixels = self.dice.random() < 0.8
        self.planes = 0

    def text(self):
        dice = self.dice
        if dice.random() < 0.04:
            return self.text_with_planes_far_off()
        self.lines.append("drawing missing/drawing.dxf" if dice.random() < 0.01 else "drawing")
        for _ in range(dice.choices((0, 1, 2, 3, 4), weights=(2, 25, 35, 28, 10))[0]):
            self.image()
        for step in range(dice.choices((1, 2, 3, 4), weights=(45, 35, 12, 8))[0]):
            if step and dice.random() < 0.15:
                self.image()
            if dice.random() < 0.5:
                self.lines.append("plane proposed")
            if dice.random() < 0.45:
                self.lines.append("write3d")
                continue
            if dice.random() < 0.55:
                self.plane()
            self.lines.append("write2d")
        return "\n".join(self.lines) + "\n"

    def text_with_planes_far_off(self):
        """A document that shows some of the images only, and others of the same drawing behind it."""
        dice = self.dice
        self.lines.append("drawing")
        for _ in range(dice.randint(2, 6)):
            self.image(10.0 ** dice.uniform(0.0, 3.0))
        self.plane(10.0 ** dice.uniform(12.5, 14.5))
        self.lines += dice.choice((["write2d"], ["write2d", "write3d", "write2d"]))
        for _ in range(dice.randint(0, 2)):
            self.lines.append(dice.choice(("write2d", "write3d")))
        return "\n".join(self.lines) + "\n"

    def say(self, *words):
        self.lines.append(" ".join(word if isinstance(word, str) else repr(word) for word in words).rstrip())

    def coordinate(self):
        dice = self.dice
        if dice.random() < 0.12:
            return dice.choice((0.0, -0.0, -0.0, 1.0, -1.0, 0.5))
        size = {"near": 3.0, "site": 100.0, "survey": 5e6, "tiny": 1e-3, "far": 1e12}[self.place]
        number = dice.uniform(-size, size)
        return round(number, 3) if dice.random() < 0.25 else number

    def side(self):
        dice = self.dice
        kind = dice.random()
        if kind < 0.03:
            return dice.choice((1e-10, 1.0000001e-10, 9.9999e-11, 2e-10, 1e-200, 0.0))
        if kind < 0.3:
            return float(dice.randint(1, 8))
        if kind < 0.4:
            return dice.uniform(1e-4, 1e-2) if self.place in ("near", "tiny") else dice.uniform(50.0, 900.0)
        return dice.uniform(0.1, 9.0)

    def image(self, scale=1.0):
        dice = self.dice
        u, v = self.axes
        if self.agreement == "nearly":
            u, v = turned(dice, self.axes, 0.2)
        elif self.agreement == "any":
            u, v = square_axes(dice, self.orientation)
        elif self.agreement == "facing" and dice.random() < 0.5:
            u = [-c for c in u]
        skew = dice.random()
        if skew < 0.06:  # about as much as is still allowed
            v = combined((1.0, v), (dice.choice((0.001, -0.001)) * (1.0 + dice.choice((0.0, 1e-6, -1e-6, 1e-9))), u))
        elif skew < 0.10:
            v = combined((1.0, v), (dice.uniform(-0.01, 0.01), u))
        elif skew < 0.18:
            v = combined((1.0, v), (dice.uniform(-0.0009, 0.0009), u))
        corner = [self.coordinate() for _ in range(3)]
        right = combined((1.0, corner), (scale * self.side(), u))
        top = combined((1.0, corner), (scale * self.side(), v))
        if self.orientation == "along the axes" and dice.random() < 0.3:
            right, top = ([-0.0 if c == 0.0 else c for c in point] for point in (right, top))
        if dice.random() < 0.01:
            top[dice.randrange(3)] = dice.choice((math.nan, math.inf, -math.inf, 1e200))
        pixels = dice.choice(PIXELS) if self.few_pixels else dice.choice(MANY_PIXELS)
        if dice.random() < 0.3:
            pixels = dice.uniform(0.02, 4.0)
        elif dice.random() < 0.03:
            pixels = dice.choice(ODD_PIXELS)
        self.say("image", str(dice.choice(UNITS)), pixels, *top, *corner, *right, dice.choice(PATHS))

    def plane(self, distance=0.0):
        dice = self.dice
        x, y = self.axes
        kind = kinds(dice, own=35, any=25, scaled=15, skewed=15, odd=10)
        if kind == "any":
            x, y = square_axes(dice, "oblique")
        elif kind == "scaled":
            x, y = ([c * factor for c in axis] for axis, factor in ((x, 250.0), (y, dice.uniform(1e-3, 2.0))))
        elif kind == "skewed":
            x, y = unit_vector(dice), unit_vector(dice)
        elif kind == "odd":
            x, y = dice.choice((([0.0] * 3, y), (x, [-0.0] * 3), (x, x), ([1.0, 0.0, 0.0], [1.0, 0.0, 0.0]),
                                ([0.48, 0.6, 0.64], [0.48, 0.6, 0.64]), ([1e-300, 0.0, 0.0], y),
                                ([0.0, 0.0, 1.0], [0.0, -1.0, -0.0]), ([-0.0, -1.0, 0.0], [0.0, -0.0, 1.0])))
        self.say("plane", *(self.coordinate() + distance * dice.choice((0.0, 1.0, -1.0)) for _ in range(3)), *x, *y)


def invented(number):
    """The text of scene `number`."""
    return Invention(number).text()
