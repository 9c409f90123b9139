"""Plays a scene (see ../host/Scene.h) without the library, and answers as the host does."""

from drawing import Drawing, DxfFailure, Image
from geometry import GeometryError, SingularMatrix
from records import Document


def in_code_points(text):
    return text.encode("utf-8")


def in_code_units(text):
    """The UTF-8 of each UTF-16 unit by itself, as where wide characters have 16 bits."""
    units = text.encode("utf-16-le")
    halves = (int.from_bytes(units[i:i + 2], "little") for i in range(0, len(units), 2))
    return "".join(map(chr, halves)).encode("utf-8", "surrogatepass")


def hexed(number):
    """A float as C++ writes it in hexadecimal."""
    if number != number:
        return "nan"
    text = number.hex().replace("0x", "")
    mantissa, mark, exponent = text.partition("p")
    return (mantissa.rstrip("0").rstrip(".") if "." in mantissa else mantissa) + mark + exponent


class Player:
    def __init__(self, template, encoded=in_code_points):
        self.template = template
        self.encoded = encoded
        self.drawing = self.document = self.last = self.bytes = None
        self.plane = ((0.0, 0.0, 0.0), (1.0, 0.0, 0.0), (0.0, 1.0, 0.0))
        self.reports = False
        self.can_be_opened = True
        self.log = []

    def play(self, scene):
        for line in scene.split("\n"):
            word, _, rest = line.strip(" \r").partition(" ")
            if word and not word.startswith("#"):
                getattr(self, "do_" + word)(rest.strip(" "))
        return self

    def answers(self):
        return b"".join(line + b"\n" for line in self.log)

    def say(self, text):
        self.log.append(text.encode("utf-8"))

    def report(self, word, *numbers):
        if self.reports:
            self.say("  " + " ".join([word] + [n if isinstance(n, str) else hexed(n) for n in numbers]))

    def do_say(self, text):
        self.say(text)

    def do_locale(self, _):
        pass

    def do_report(self, _):
        self.reports = True

    def do_drawing(self, path):
        self.drawing, self.document, self.bytes = Drawing(), Document(), None
        self.can_be_opened = "/" not in path  # such a folder is missing

    def do_image(self, rest):
        words = [word for word in rest.split(" ") if word]
        numbers = [float(word) for word in words[1:11]]
        corners = [tuple(numbers[i:i + 3]) for i in (1, 4, 7)]
        path = rest.split(None, 11)[11] if len(words) > 11 else ""
        try:
            image = Image(int(words[0]), numbers[0], corners, path)
            self.report_image(image)
            self.say("image " + ("Success" if self.drawing.add(image) else "InvalidGeometry"))
        except GeometryError as error:
            self.say(f"image exception {error}")

    def report_image(self, image):
        if self.reports:
            self.report("size", image.width, image.height, *image.pixels(), image.ppu, image.pixel_size())
            self.report("unit", str(image.unit), image.unit_size())
            self.report("axes", *image.u, *image.v, *image.direction)
            self.report("corners", *image.lb, *image.right_top())

    def do_plane(self, rest):
        if rest != "proposed":
            numbers = [float(word) for word in rest.split()]
            self.plane = [tuple(numbers[i:i + 3]) for i in (0, 3, 6)]
            return
        try:
            if self.drawing.images:
                self.plane = self.drawing.proposed_plane()
                self.say("plane Success")
            else:
                self.say("plane NoImage")
        except GeometryError:
            self.say("plane InvalidGeometry")
        except SingularMatrix as error:
            self.say(f"plane exception {error}")
        self.report("plane", *(number for triple in self.plane for number in triple))

    def do_write3d(self, _):
        self.write("write3d", lambda: self.drawing)

    def do_write2d(self, _):
        if not self.drawing.images:
            self.answer_write("write2d NoImage")
        else:
            self.write("write2d", lambda: self.drawing.flattened(*self.plane))

    def write(self, command, drawing):
        try:
            self.last = drawing()
            self.document.take(self.last)
            if self.can_be_opened:
                self.bytes, complete = self.document.expand(self.template, self.encoded)
                result = "Success" if complete else "DxfFailure"
            else:
                result = "CannotOpenOutput"
        except DxfFailure:
            result = "DxfFailure"
        except (GeometryError, SingularMatrix) as error:
            result = f"exception {error}"
        self.answer_write(f"{command} {result}")

    def answer_write(self, text):
        self.say(text)
        if self.reports and self.bytes is None:
            self.report("file", "none")
        elif self.reports:
            self.report("file", str(len(self.bytes)))
            self.log.append(self.bytes)


def played(scene, template):
    """`template` unless the scene has its own beside it."""
    own = scene.with_suffix(".template")
    return Player((own if own.exists() else template).read_bytes()).play(scene.read_text("utf-8"))


def described(drawing):
    """One line per image (insertion point, pixel vectors, pixel counts, path) and per line (both ends)."""
    for image in drawing.images:
        u, v = image.pixel_vectors()
        yield "image " + " ".join(repr(n) for n in image.lb + u + v + image.pixels()) + " " + image.path
    for line in drawing.lines:
        yield "line " + " ".join(repr(n) for n in line.start + line.end)
