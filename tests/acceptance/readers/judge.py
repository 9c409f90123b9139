#!/usr/bin/python3
"""Lets a program that reads drawings say what it finds in one, and compares that with what was to be drawn.

    judge.py READER --scene SCENE DRAWING            what is computed for the scene
    judge.py READER --site SITE.json [--flat] DRAWING    the same for a site, in space or in its proposed plane
    judge.py READER --faults SCENE DRAWING           breaks the drawing in many ways, each of which must be seen

READER is ezdxf, ogrinfo, or the path of the program that reads with dxflib; or "bytes", which reads nothing and
wants the very bytes that are computed.
"""

import json
import subprocess
import sys
import tempfile
from pathlib import Path

sys.path[:0] = [str(Path(__file__).resolve().parent.parent / folder) for folder in ("computed", "golden")]
sys.dont_write_bytecode = True
from drawing import Image, file_name  # noqa: E402
from expected import first_difference  # noqa: E402
from scenes import Player, described, played  # noqa: E402

TEMPLATE = Path(__file__).resolve().parents[3] / "resources" / "PrepImageAbschnitte_2010.template"
UNITS = ("Unitless Inches Feet Miles Millimeters Centimeters Meters Kilometers Microinches Mils Yards Angstroms "
         "Nanometers Microns Decimeters Decameters Hectometers Gigameters AstronomicalUnits LightYears Parsecs "
         "USSurveyFeet").split()


class Finding(Exception):
    """What a reader complains of."""


# ---- What was to be drawn: its images as (numbers, path), its lines as numbers, and its bytes.

class Drawn:
    def __init__(self, lines, data=None):
        self.images, self.lines, self.data = [], [], data
        for line in lines:
            word, _, rest = line.rstrip("\n").partition(" ")
            if word == "image":
                words = rest.split(" ", 11)
                self.images.append(([float(w) for w in words[:11]], words[11]))
            else:
                self.lines.append([float(w) for w in rest.split()])


def of_scene(scene):
    player = played(Path(scene), TEMPLATE)
    return Drawn(described(player.last), player.bytes)


def of_site(site, flat):
    manifest = json.loads(Path(site).read_text("utf-8"))
    player = Player(TEMPLATE.read_bytes())
    player.do_drawing("")
    for entry in manifest["images"]:
        corners = [tuple(float(c) for c in entry[name]) for name in ("leftTop", "leftBottom", "rightBottom")]
        unit = UNITS.index(entry.get("unit", manifest.get("unit", "Meters")))
        player.drawing.add(Image(unit, float(entry["pixelsPerUnit"]), corners, entry["path"]))
    if len(player.drawing.images) != len(manifest["images"]):
        raise Finding("the site has images that are no rectangles")
    if flat:
        player.do_plane("proposed")
        player.do_write2d("")
    else:
        player.do_write3d("")
    # The tool writes the viewport's view mode as an integer, the library does not.
    return Drawn(described(player.last), player.bytes.replace(b"\r\n71\r\n0.0\r\n", b"\r\n71\r\n  0\r\n", 1))


# ---- What the readers find. None where a reader passes over the images.

def read_ezdxf(drawing):
    import ezdxf
    from ezdxf.lldxf.const import DXFError
    try:
        document = ezdxf.readfile(drawing)
    except (DXFError, OSError, ValueError, KeyError, AttributeError) as error:
        raise Finding(f"cannot be read: {error}") from error
    auditor = document.audit()
    if auditor.errors or auditor.fixes:
        raise Finding("; ".join(e.message for e in auditor.errors + auditor.fixes))
    if document.dxfversion != "AC1024" or sorted(document.layout_names()) != ["Layout1", "Model"]:
        raise Finding(f"version {document.dxfversion}, layouts {document.layout_names()}")
    space = document.modelspace()
    images = []
    for image in space.query("IMAGE"):
        definition = document.entitydb.get(image.dxf.image_def_handle)
        reactor = document.entitydb.get(image.dxf.image_def_reactor_handle)
        if definition is None or reactor is None or reactor.dxf.image_handle != image.dxf.handle:
            raise Finding("an image without definition or reactor")
        size = [image.dxf.image_size.x, image.dxf.image_size.y]
        if [tuple(corner) for corner in image.boundary_path] != [(-0.5, -0.5), (size[0] - 0.5, size[1] - 0.5)]:
            raise Finding(f"boundary {image.boundary_path} of an image of {image.dxf.image_size}")
        vectors = (image.dxf.insert, image.dxf.u_pixel, image.dxf.v_pixel)
        images.append(([c for v in vectors for c in v] + size, definition.dxf.filename))
    if "ACAD_IMAGE_DICT" not in document.rootdict:
        raise Finding("no image dictionary")
    names = set(document.rootdict["ACAD_IMAGE_DICT"].keys())
    if names != {file_name(path) for _, path in images} - {""}:  # it drops entries without a name
        raise Finding(f"entries {names} of the image dictionary")
    return images, [list(line.dxf.start) + list(line.dxf.end) for line in space.query("LINE")]


def run(*command):
    done = subprocess.run(command, capture_output=True, text=True, errors="replace", check=False)
    if done.returncode != 0:
        raise Finding(f"{Path(command[0]).name}: {done.stderr.strip() or done.returncode}")
    return done


def read_ogrinfo(drawing):
    summary = run("ogrinfo", "-ro", "-so", drawing, "entities")
    # Coordinates come as GeoJSON: what ogrinfo itself prints loses zeros at the end of an exponent.
    done = run("ogr2ogr", "-f", "GeoJSON", "-lco", "COORDINATE_PRECISION=17", "/vsistdout/", drawing)
    if summary.stderr.strip() or done.stderr.strip():
        raise Finding(summary.stderr.strip() + done.stderr.strip())
    shapes = [feature["geometry"] for feature in json.loads(done.stdout)["features"]]
    lines = [[c for point in s["coordinates"] for c in point] for s in shapes if s["type"] == "LineString"]
    if len(lines) != len(shapes) or f"Feature Count: {len(lines)}\n" not in summary.stdout:
        raise Finding(f"{len(lines)} lines of {len(shapes)} shapes")
    return None, lines


def read_dxflib(program, drawing):
    found = Drawn(run(program, drawing).stdout.splitlines())
    return found.images, found.lines


# Relative to the numbers themselves: what a reader rounds is its own affair.
PRECISION = {"ezdxf": 1e-15, "ogrinfo": 1e-15, "dxflib": 1e-15}


def reader_named(name):
    if name == "ezdxf":
        return name, read_ezdxf
    if name == "ogrinfo":
        return name, read_ogrinfo
    return "dxflib", lambda drawing: read_dxflib(name, drawing)


# ---- The comparison.

def check_numbers(what, wanted, found, precision):
    if len(wanted) != len(found) or any(abs(w - f) > precision * max(abs(w), 1.0) for w, f in zip(wanted, found)):
        raise Finding(f"{what}: {found} instead of {wanted}")


def check_images(wanted, found, precision, whole_pixels):
    if len(wanted) != len(found):
        raise Finding(f"{len(found)} images instead of {len(wanted)}")
    for number, ((numbers, path), (found_numbers, found_path)) in enumerate(zip(wanted, found), 1):
        check_numbers(f"image {number}", numbers[:9], found_numbers[:9], precision)
        for count, found_count in zip(numbers[9:], found_numbers[9:]):
            if abs(count - found_count) >= (1.0 if whole_pixels else precision * count):
                raise Finding(f"image {number}: {found_count} pixels instead of {count}")
        if path != found_path:
            raise Finding(f"image {number}: {found_path!r} instead of {path!r}")


def judge(reader, drawing, wanted):
    if reader == "bytes":
        data = Path(drawing).read_bytes()
        if data != wanted.data:
            raise Finding(first_difference(data, wanted.data))
        return f"{len(data)} bytes"
    name, read = reader_named(reader)
    images, lines = read(drawing)
    if images is not None:
        check_images(wanted.images, images, PRECISION[name], whole_pixels=name == "dxflib")
    if len(lines) != len(wanted.lines):
        raise Finding(f"{len(lines)} lines instead of {len(wanted.lines)}")
    for number, (line, found) in enumerate(zip(wanted.lines, lines), 1):
        check_numbers(f"line {number}", line, found, PRECISION[name])
    return f"{'no' if images is None else len(images)} images, {len(lines)} lines"


# ---- Faults that must be seen.

def records(text):
    """The drawing's records as lists of pairs."""
    lines = text.split("\r\n")
    found = []
    for code, value in zip(lines[0::2], lines[1::2]):
        if code == "0":
            found.append([])
        found[-1].append((code, value))
    return found


def text_of(found):
    return "".join(f"{code}\r\n{value}\r\n" for record in found for code, value in record)


def without(text, kind):
    found = records(text)
    found.remove(next(record for record in found if record[0] == ("0", kind)))
    return text_of(found)


def changed(text, kind, code, change):
    found = records(text)
    record = next(record for record in found if record[0] == ("0", kind))
    at = next(i for i, pair in enumerate(record) if pair[0] == code)
    record[at] = (code, change(record[at][1]))
    return text_of(found)


def nudged(value):
    return repr(float(value) + 1e-6)


def faults(text, reader):
    yield "a line missing", without(text, "LINE")
    for code in ("10", "20", "30", "11", "21", "31"):
        yield f"a line's code {code} off", changed(text, "LINE", code, nudged)
    if reader == "ogrinfo":
        return
    yield "an image missing", without(text, "IMAGE")
    yield "a definition missing", without(text, "IMAGEDEF")
    yield "another path", changed(text, "IMAGEDEF", "1", lambda path: path + "x")
    yield "an image of no definition", changed(text, "IMAGE", "340", lambda _: "FFFF")
    for code in ("10", "20", "30", "11", "21", "31", "12", "22", "32"):
        yield f"an image's code {code} off", changed(text, "IMAGE", code, nudged)
    yield "an image's width off", changed(text, "IMAGE", "13", lambda width: repr(float(width) + 2))
    if reader == "ezdxf":
        yield "no image dictionary", text.replace("3\r\nACAD_IMAGE_DICT\r\n350\r\n5A\r\n", "")
        yield "another boundary", changed(text, "IMAGE", "24", lambda _: "-0.6")
        yield "two records of one handle", changed(text, "IMAGE", "5", lambda _: "7E")


def see_faults(reader, scene, drawing):
    wanted = of_scene(scene)
    text = Path(drawing).read_bytes().decode("utf-8")
    judge(reader, drawing, wanted)
    unseen, count = [], 0
    with tempfile.TemporaryDirectory() as folder:
        broken = Path(folder) / "broken.dxf"
        for name, fault in faults(text, reader if reader == "bytes" else reader_named(reader)[0]):
            count += 1
            if fault == text:
                unseen.append(name + " (nothing was changed)")
                continue
            broken.write_bytes(fault.encode("utf-8"))
            try:
                judge(reader, str(broken), wanted)
                unseen.append(name)
            except Finding:
                pass
    if unseen:
        raise Finding("not seen: " + "; ".join(unseen))
    return f"{count} faults seen"


def main(reader, mode, source, *rest):
    if mode == "--faults":
        return see_faults(reader, source, rest[-1])
    wanted = of_site(source, rest[0] == "--flat") if mode == "--site" else of_scene(source)
    return judge(reader, rest[-1], wanted)


if __name__ == "__main__":
    try:
        print(main(*sys.argv[1:]))
    except Finding as finding:
        print(finding)
        sys.exit(1)
