#!/usr/bin/python3
"""The golden drawings, computed without the library.

A scene (*.scene, see ../host/Scene.h) is played here a second time, with Python's floats and its exact "%.17f",
by code that shares nothing with the library. The drawings beside the scenes come from this program alone; the
library is held to them byte for byte.

    expected.py TEMPLATE            compares every golden drawing with what is computed now
    expected.py TEMPLATE --write    writes the golden drawings anew, for instance after a change of the template
    expected.py TEMPLATE SCENE      prints what readers should find in the scene's last drawing

A scene with a template of its own has it beside it under the same name (*.template).
"""

import math
import sys
from pathlib import Path

LARGEST_DOUBLE = sys.float_info.max
SMALLEST_NORMAL = sys.float_info.min
DEFAULT_TOLERANCE = 1e-10
RIGHT_ANGLE = 0.001

METRES_PER_UNIT = [1.0, 0.0254, 0.3048, 1609.344, 0.001, 0.01, 1.0, 1000.0, 2.54e-8, 2.54e-5, 0.9144, 1e-10,
                   1e-9, 1e-6, 0.1, 10.0, 100.0, 1e9, 1.4959787e11, 9.46053e15, 3.085677e16, 0.3048006096012192]


# ---- Vectors are triples; matrices are lists of rows. The order of every operation shows in the last digit.

def add(a, b):
    return tuple(x + y for x, y in zip(a, b))


def sub(a, b):
    return tuple(x - y for x, y in zip(a, b))


def times(a, s):
    return tuple(x * s for x in a)


def over(a, s):
    return tuple(x / s for x in a)


def dot(a, b):
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]


def cross(a, b):
    return (a[1] * b[2] - a[2] * b[1], b[0] * a[2] - a[0] * b[2], a[0] * b[1] - a[1] * b[0])


def length(a):
    return math.sqrt(dot(a, a))


def normalised(a):
    return over(a, length(a))


def placement(x, y, z, origin):
    return [[x[i], y[i], z[i], origin[i]] for i in range(3)] + [[0.0, 0.0, 0.0, 1.0]]


def mapped(m, p):
    rows = [r[0] * p[0] + r[1] * p[1] + r[2] * p[2] + r[3] for r in m]
    return (rows[0] / rows[3], rows[1] / rows[3], rows[2] / rows[3])


def inverse(matrix):
    """LU decomposition by Crout's method with implicit scaling, then one solution per unit vector."""
    n = len(matrix)
    a = [list(row) for row in matrix]
    scale = []
    for row in a:
        largest = max(abs(value) for value in row)
        if largest == 0.0:
            raise ZeroDivisionError("singular")
        scale.append(1.0 / largest)
    swaps = []
    for j in range(n):
        for i in range(j):
            for k in range(i):
                a[i][j] -= a[i][k] * a[k][j]
        largest = 0.0
        pivot = j
        for i in range(j, n):
            for k in range(j):
                a[i][j] -= a[i][k] * a[k][j]
            candidate = scale[i] * abs(a[i][j])
            if candidate >= largest:
                largest = candidate
                pivot = i
        if pivot != j:
            a[pivot], a[j] = a[j], a[pivot]
            scale[pivot] = scale[j]
        swaps.append(pivot)
        if a[j][j] == 0.0:
            a[j][j] = 1e-20
        if j < n - 1:
            factor = 1.0 / a[j][j]
            for i in range(j + 1, n):
                a[i][j] *= factor

    result = [[0.0] * n for _ in range(n)]
    for column in range(n):
        b = [0.0] * n
        b[column] = 1.0
        first = None
        for i in range(n):
            value = b[swaps[i]]
            b[swaps[i]] = b[i]
            if first is not None:
                for j in range(first, i):
                    value -= a[i][j] * b[j]
            elif value != 0.0:
                first = i
            b[i] = value
        for i in reversed(range(n)):
            value = b[i]
            for j in range(i + 1, n):
                value -= a[i][j] * b[j]
            b[i] = value / a[i][i]
        for i in range(n):
            result[i][column] = b[i]
    return result


def twist_of(m):
    """Third angle, in degrees, of the rotations about the fixed axes z, y, x that make up `m`."""
    if math.sqrt(m[2][2] * m[2][2] + m[1][2] * m[1][2]) > 16 * 2.0 ** -23:
        return (-math.atan2(m[1][2], m[2][2]) + 0.0) * (180.0 / math.pi)
    return 0.0


def fixed(value):
    return ("%.17f" % value)[:99]


class Plane:
    def __init__(self, point, normal):
        self.normal = normalised(normal)
        self.d = -dot(self.normal, point)

    def project(self, p):
        t = (dot(self.normal, p) + self.d) / dot(self.normal, self.normal)
        return sub(p, times(self.normal, t))


# ---- What a host describes.

def file_name(path):
    if len(path) > 1 and path[1] == ":" and path[0].isascii() and path[0].isalpha():
        path = path[2:]
    return path.replace("\\", "/").split("/")[-1]


class Image:
    def __init__(self, unit, pixels_per_unit, corners, path):
        self.unit = unit
        self.ppu = pixels_per_unit
        self.path = path
        self.set_corners(*corners)

    def set_corners(self, left_top, left_bottom, right_bottom):
        self.height = length(sub(left_top, left_bottom))
        self.width = length(sub(left_bottom, right_bottom))
        self.lb = left_bottom
        self.u = normalised(sub(right_bottom, left_bottom))
        self.v = normalised(sub(left_top, left_bottom))
        self.direction = cross(self.u, self.v)

    def corners(self):
        return (add(self.lb, times(self.v, self.height)), self.lb, add(self.lb, times(self.u, self.width)))

    def right_top(self):
        return add(add(times(self.u, self.width), times(self.v, self.height)), self.lb)

    def pixels(self):
        return self.ppu * self.width, self.ppu * self.height

    def pixel_size(self):
        if self.ppu > 0.0 and self.unit != 0:
            return METRES_PER_UNIT[self.unit] * 1000.0 / self.ppu
        return 10.0

    def is_rectangle(self):
        return (self.width > DEFAULT_TOLERANCE and self.height > DEFAULT_TOLERANCE
                and abs(dot(normalised(self.u), normalised(self.v))) <= RIGHT_ANGLE)

    def moved(self, offset):
        image = Image(self.unit, self.ppu, self.corners(), self.path)
        image.set_corners(*(add(corner, offset) for corner in self.corners()))
        return image

    def through(self, matrix):
        image = Image(self.unit, self.ppu, self.corners(), self.path)
        image.set_corners(*(mapped(matrix, corner) for corner in self.corners()))
        return image


class Line:
    def __init__(self, start, end, frame):
        self.start, self.end, self.frame = start, end, frame

    def flattened(self, matrix, lift):
        def point(p):
            _, y, z = mapped(self.frame, p)
            return add((mapped(matrix, p)[0], y, z), lift)
        return Line(point(self.start), point(self.end), self.frame)


class Viewport:
    def __init__(self):
        self.minimum = (4294967295.0,) * 3
        self.maximum = (-4294967295.0,) * 3
        self.direction = (0.0, 0.0, 0.0)
        self.to_plane = placement((1.0, 0.0, 0.0), (0.0, 1.0, 0.0), (0.0, 0.0, 1.0), (0.0, 0.0, 0.0))
        self.twist = 0.0

    def add(self, image):
        if any(high < low for low, high in zip(self.minimum, self.maximum)):
            self.to_plane = inverse(placement(image.u, image.v, image.direction, image.lb))
            self.twist = twist_of(self.to_plane)
            self.direction = image.direction
        for corner in (image.lb, image.right_top()):
            local = mapped(self.to_plane, corner)
            self.minimum = tuple(min(a, b) for a, b in zip(self.minimum, local))
            self.maximum = tuple(max(a, b) for a, b in zip(self.maximum, local))


class Drawing:
    def __init__(self):
        self.images = []
        self.lines = []
        self.viewport = Viewport()

    def add(self, image):
        if not image.is_rectangle():
            return
        self.images.append(image)
        frame = [list(row) + [0.0] for row in (image.u, image.v, image.direction)] + [[0.0, 0.0, 0.0, 1.0]]
        lb, wu, hv = image.lb, times(image.u, image.width), times(image.v, image.height)
        rb, lt, rt = add(lb, wu), add(lb, hv), add(lb, add(wu, hv))
        longest = max(image.width, image.height)
        su, sv = times(image.u, longest), times(image.v, longest)
        for start, end in ((lb, rb), (lb, lt), (rb, rt), (lt, rt),
                           (sub(lb, over(su, 20.0)), sub(lb, over(su, 40.0))),
                           (sub(lb, over(sv, 20.0)), sub(lb, over(sv, 40.0)))):
            self.lines.append(Line(start, end, frame))
        self.viewport.add(image)

    def proposed_plane(self):
        first = self.images[0]
        if len(self.images) == 1:
            return first.lb, first.u, first.v
        n = float(len(self.images))
        zero = (0.0, 0.0, 0.0)
        total = zero
        for image in self.images:
            total = add(total, normalised(cross(image.u, image.v)))
        normal = normalised(over(total, n))
        offsets = zero
        us = zero
        for image in self.images:
            offsets = add(offsets, Plane(sub(image.lb, first.lb), normal).project(zero))
            us = add(us, image.u)
        middle = over(offsets, n)
        x = normalised(over(us, n))
        y = cross(normal, x)
        z = normalised(cross(x, y))
        to_local = inverse(placement(x, y, z, middle))
        plane = Plane(middle, normal)
        points = [plane.project(sub(image.lb, first.lb)) for image in self.images]
        locals_ = [mapped(to_local, point) for point in points]
        least = min(range(len(points)), key=lambda i: locals_[i][0])  # the first of equal ones
        return add(first.lb, points[least]), x, y

    def flattened(self, origin, x_axis, y_axis):
        moved = Drawing()
        for image in self.images:
            moved.add(image.moved(times(origin, -1.0)))
        x, y = normalised(x_axis), normalised(y_axis)
        to_plane = inverse(placement(x, y, cross(x, y), (0.0, 0.0, 0.0)))
        lift = (0.0, origin[2], 0.0)
        flat = Drawing()
        flat.lines = [line.flattened(to_plane, lift) for line in moved.lines]
        for image in moved.images:
            flat.images.append(image.through(to_plane).moved(lift))
            flat.viewport.add(flat.images[-1])
        flat.viewport.twist = 0.0
        return flat


# ---- Records: pairs of code and value; "@name" is a value that is filled, empty or as given behind "=" before.

def record(text):
    return [tuple(pair.split(" ", 1)) for pair in text.split("|")]


def class_record(name, class_name, proxy, entity):
    return record(f"0 CLASS|1 {name}|2 {class_name}|3 ISM|90 {proxy}|91 @count|280 0|281 {entity}")


def box_variable(name):
    return record(f"9 {name}|10 @x|20 @y|30 @z")


IMAGE = record("0 IMAGE|5 @entity|330 2|100 AcDbEntity|8 0|160 140|100 AcDbRasterImage|90 0|10 @x|20 @y|30 @z|"
               "11 @ux|21 @uy|31 @uz|12 @vx|22 @vy|32 @vz|13 @width|23 @height|340 @definition|70 15|280 0|"
               "281 50|282 50|283 0|290 0|360 @reactor|71 @type|91 @vertices|14 -0.5|24 -0.5|14 @right=-0.5|"
               "24 @top=-0.5")
LINE = record("0 LINE|5 @entity|100 AcDbEntity|8 0|100 AcDbLine|10 @x1|20 @y1|30 @z1|11 @x2|21 @y2|31 @z2")
DEFINITION = record("0 IMAGEDEF|5 @definition=59|102 {ACAD_REACTORS|330 5A|330 @reactor=5B|102 }|330 5A|"
                    "100 AcDbRasterImageDef|90 0|1 @path|10 @width|20 @height|11 @pixel=10.0|21 @pixel=10.0|"
                    "280 1|281 5")
REACTOR = record("0 IMAGEDEF_REACTOR|5 @reactor=5B|330 @entity=58|100 AcDbRasterImageDefReactor|90 2|"
                 "330 @entity=58")
DICTIONARY = record("0 DICTIONARY|5 5A|102 {ACAD_REACTORS|330 9|102 }|330 9|100 AcDbDictionary|281 1")
VIEW = record("0 VPORT|5 29|100 AcDbSymbolTableRecord|100 AcDbViewportTableRecord|2 *ACTIVE|70 0|10 0|20 0|"
              "11 1.0|21 1.0|12 0.0|22 0.0|13 0.0|23 0.0|14 0.5|24 0.5|15 0.5|25 0.5|16 @dx|26 @dy|36 @dz|"
              "17 @tx|27 @ty|37 @tz|40 @viewheight|41 @ratio|42 50.0|43 0.0|44 0.0|50 0.0|51 @twist|71 0.0|"
              "72 100|73 1|74 3|75 0|76 0|77 0|78 0")


class Section:
    def __init__(self, pairs, values=None):
        self.pairs = pairs
        self.values = dict(values or {})

    def set(self, names, numbers):
        self.values.update(zip(names.split(), (n if isinstance(n, str) else fixed(n) for n in numbers)))

    def text(self):
        lines = []
        for code, value in self.pairs:
            if value.startswith("@"):
                name, _, default = value[1:].partition("=")
                value = self.values.get(name, default)
            lines += [code, value]
        return lines


class Document:
    """The records of all writes of one facade: nothing is ever taken back."""

    def __init__(self):
        self.handle = 125
        self.fixed = None
        self.lines, self.images, self.definitions, self.reactors = [], [], [], []

    def next_handle(self):
        self.handle += 1
        return "%X" % self.handle

    def take(self, drawing):
        count = len(drawing.images)
        if self.fixed is None:
            instances = {"count": str(count)}
            entries = [pair for i in range(count) for pair in record(f"3 @name{i}|350 @handle{i}")]
            self.fixed = {
                "HEADER_EXTMIN": Section(box_variable("$EXTMIN"), dict.fromkeys("xyz", fixed(LARGEST_DOUBLE))),
                "HEADER_EXTMAX": Section(box_variable("$EXTMAX"), dict.fromkeys("xyz", fixed(SMALLEST_NORMAL))),
                "HEADER_HANDSEED": Section(record("9 $HANDSEED|5 @seed")),
                "HEADER_INSUNITS": Section(record("9 $INSUNITS|70 @unit=6")),
                "CLASS_IMAGE": Section(class_record("IMAGE", "AcDbRasterImage", 2175, 1), instances),
                "CLASS_IMAGEDEF": Section(class_record("IMAGEDEF", "AcDbRasterImageDef", 0, 0), instances),
                "CLASS_IMAGEDEFREACTOR": Section(
                    class_record("IMAGEDEF_REACTOR", "AcDbRasterImageDefReactor", 1, 0), instances),
                "TABLE_VPORT": Section(VIEW),
                "OBJECT_DICTIONARY": Section(DICTIONARY + entries),
            }
        self.definitions += [Section(DEFINITION) for _ in range(count)]
        self.reactors += [Section(REACTOR) for _ in range(count)]

        for line in drawing.lines:
            section = Section(LINE, {"entity": self.next_handle()})
            section.set("x1 y1 z1 x2 y2 z2", line.start + line.end)
            self.lines.append(section)
        for number, image in enumerate(drawing.images):
            self.take_image(number, image)
        self.take_view(drawing.viewport)
        self.fixed["HEADER_HANDSEED"].values["seed"] = self.next_handle()

    def take_image(self, number, image):
        handles = {name: self.next_handle() for name in ("entity", "definition", "reactor")}
        self.take_extents(image)
        width, height = image.pixels()

        entity = Section(IMAGE, handles)
        entity.set("x y z", image.lb)
        entity.set("ux uy uz", over(times(image.u, image.width), width))
        entity.set("vx vy vz", over(times(image.v, image.height), height))
        entity.set("width height right top", (width, height, width - 0.5, height - 0.5))
        entity.set("type vertices", ("1", "2"))
        self.images.append(entity)

        # Both stay those of the image's own number, also in a later write.
        definition = self.definitions[number]
        definition.values.update(handles)
        definition.set("path width height pixel", (image.path, width, height, image.pixel_size()))
        self.reactors[number].values.update(handles)
        dictionary = self.fixed["OBJECT_DICTIONARY"].values
        dictionary[f"name{number}"] = file_name(image.path)
        dictionary[f"handle{number}"] = handles["definition"]

    def take_extents(self, image):
        low, high = self.fixed["HEADER_EXTMIN"].values, self.fixed["HEADER_EXTMAX"].values
        for axis, name in enumerate("xyz"):
            lb, u, v = image.lb[axis], image.u[axis], image.v[axis]
            if float(low[name]) > lb:
                low[name] = fixed(lb)
            if lb + u + v > float(high[name]):
                high[name] = fixed(image.width * u + lb + image.height * v)
        self.fixed["HEADER_INSUNITS"].values["unit"] = str(image.unit)

    def take_view(self, view):
        extent = sub(view.maximum, view.minimum)
        centre = add(times(extent, 0.5), view.minimum)
        section = self.fixed["TABLE_VPORT"]
        section.set("dx dy dz", view.direction)
        section.set("tx ty tz", mapped(inverse(view.to_plane), centre))
        section.set("twist viewheight ratio", (view.twist, abs(extent[1]), extent[0] / extent[1]))

    def sections_of(self, key):
        repeated = {"ENTITY_IMAGE": self.images, "ENTITY_LINE": self.lines, "OBJECT_IMAGEDEF": self.definitions,
                    "OBJECT_IMAGEDEFREACTOR": self.reactors}
        return repeated[key] if key in repeated else [self.fixed[key]]

    def expand(self, template):
        out = []
        for line in template.replace(b"\r\n", b"\n").split(b"\n"):
            if line.startswith(b"#VEXO_"):
                key = line.decode("ascii")[len("#VEXO_"):-1]
                for section in self.sections_of(key):
                    out += [text.encode("utf-8") for text in section.text()]
            else:
                out.append(line)
        return b"".join(line + b"\r\n" for line in out)


# ---- Scenes.

class Player:
    def __init__(self, template):
        self.template = template
        self.drawing = self.document = self.plane = self.last = self.bytes = None

    def play(self, scene):
        for line in scene.split("\n"):
            word, _, rest = line.strip().partition(" ")
            if word and not word.startswith("#"):
                getattr(self, "do_" + word)(rest.strip())
        return self

    def do_drawing(self, _):
        self.drawing, self.document = Drawing(), Document()

    def do_image(self, rest):
        words = rest.split(None, 11)
        numbers = [float(word) for word in words[1:11]]
        corners = [tuple(numbers[i:i + 3]) for i in (1, 4, 7)]
        self.drawing.add(Image(int(words[0]), numbers[0], corners, words[11] if len(words) > 11 else ""))

    def do_plane(self, rest):
        if rest == "proposed":
            self.plane = self.drawing.proposed_plane()
        else:
            numbers = [float(word) for word in rest.split()]
            self.plane = [tuple(numbers[i:i + 3]) for i in (0, 3, 6)]

    def do_write3d(self, _):
        self.write(self.drawing)

    def do_write2d(self, _):
        self.write(self.drawing.flattened(*self.plane))

    def write(self, drawing):
        self.last = drawing
        self.document.take(drawing)
        self.bytes = self.document.expand(self.template)


def played(scene, template):
    own = scene.with_suffix(".template")
    return Player((own if own.exists() else template).read_bytes()).play(scene.read_text("utf-8"))


def described(drawing):
    """One line per image (insertion point, pixel vectors, pixel counts, path) and per line (both ends)."""
    for image in drawing.images:
        width, height = image.pixels()
        numbers = (image.lb + over(times(image.u, image.width), width)
                   + over(times(image.v, image.height), height) + (width, height))
        yield "image " + " ".join(repr(n) for n in numbers) + " " + image.path
    for line in drawing.lines:
        yield "line " + " ".join(repr(n) for n in line.start + line.end)


def first_difference(golden, computed):
    a, b = golden.split(b"\r\n"), computed.split(b"\r\n")
    for number, (left, right) in enumerate(zip(a, b), 1):
        if left != right:
            return f"line {number}: {left!r} is computed as {right!r}"
    return f"{len(a)} lines are computed as {len(b)}"


def main(template, *arguments):
    template = Path(template)
    if arguments and arguments[0] != "--write":
        for text in described(played(Path(arguments[0]), template).last):
            sys.stdout.buffer.write(text.encode("utf-8") + b"\n")
        return 0
    failures = 0
    scenes = sorted(Path(__file__).parent.glob("*.scene"))
    for scene in scenes:
        computed = played(scene, template).bytes
        golden = scene.with_suffix(".dxf")
        if arguments:
            golden.write_bytes(computed)
        elif golden.read_bytes() != computed:
            failures += 1
            print(f"{golden.name}, {first_difference(golden.read_bytes(), computed)}")
    print(f"{len(scenes)} scenes, {failures} differences")
    return 1 if failures or not scenes else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
