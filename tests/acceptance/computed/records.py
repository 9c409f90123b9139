"""The records of a drawing file: pairs of code and value."""

import sys

from drawing import DxfFailure, file_name

LARGEST_DOUBLE = sys.float_info.max
SMALLEST_NORMAL = sys.float_info.min


def fixed(value):
    return ("%.17f" % value)[:99]


def record(text):
    """Pairs between "|"; "@name" is a value that is filled, empty or as given behind "=" before."""
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
        self.entries = 0
        self.lines, self.images, self.definitions, self.reactors = [], [], [], []

    def next_handle(self):
        self.handle += 1
        return "%X" % self.handle

    def take(self, drawing):
        """Raises DxfFailure where a picture has no entry in the dictionary; what was taken before stays."""
        count = len(drawing.images)
        if self.fixed is None:
            self.make_fixed(count)
        self.definitions += [Section(DEFINITION) for _ in range(count)]
        self.reactors += [Section(REACTOR) for _ in range(count)]
        lines = [Section(LINE) for _ in drawing.lines]
        images = [Section(IMAGE) for _ in drawing.images]
        self.lines += lines
        self.images += images

        for section, line in zip(lines, drawing.lines):
            section.values["entity"] = self.next_handle()
            section.set("x1 y1 z1 x2 y2 z2", line.start + line.end)
        for number, (section, image) in enumerate(zip(images, drawing.images)):
            self.take_image(number, section, image)
        self.take_view(drawing.viewport)
        self.fixed["HEADER_HANDSEED"].values["seed"] = self.next_handle()

    def make_fixed(self, count):
        self.entries = count
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

    def take_image(self, number, entity, image):
        handles = {name: self.next_handle() for name in ("entity", "definition", "reactor")}
        self.take_extents(image)
        width, height = image.pixels()
        u, v = image.pixel_vectors()

        entity.values.update(handles)
        entity.set("x y z", image.lb)
        entity.set("ux uy uz", u)
        entity.set("vx vy vz", v)
        entity.set("width height right top", (width, height, width - 0.5, height - 0.5))
        entity.set("type vertices", ("1", "2"))

        # Both stay those of the image's own number, also in a later write.
        definition = self.definitions[number]
        definition.values.update(handles)
        definition.set("path width height pixel", (image.path, width, height, image.pixel_size()))
        self.reactors[number].values.update(handles)
        if number >= self.entries:
            raise DxfFailure("no entry in the dictionary")
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
        section = self.fixed["TABLE_VPORT"]
        section.set("dx dy dz", view.direction)
        section.set("tx ty tz", view.target())
        section.set("twist viewheight ratio", (view.twist, *view.height_and_ratio()))

    def sections_of(self, key):
        repeated = {"ENTITY_IMAGE": self.images, "ENTITY_LINE": self.lines, "OBJECT_IMAGEDEF": self.definitions,
                    "OBJECT_IMAGEDEFREACTOR": self.reactors}
        return repeated[key] if key in repeated else [self.fixed[key]]

    def expand(self, template, encoded):
        """The bytes, and whether the template was used up: a placeholder that nothing stands for ends them."""
        out = []
        for line in template.replace(b"\r\n", b"\n").split(b"\n"):
            if not line.startswith(b"#VEXO_"):
                out.append(line)
                continue
            sections = self.sections_of(line.decode("ascii")[len("#VEXO_"):-1])
            if not sections:
                return b"".join(line + b"\r\n" for line in out), False
            for section in sections:
                out += [encoded(text) for text in section.text()]
        return b"".join(line + b"\r\n" for line in out), True
