#!/usr/bin/python3
"""Lets rasterplan check drawings of other writers: whole ones, and broken in every way that it tells.

    foreign.py RASTERPLAN DXFLIB_WRITER PICTURE

PICTURE has 17 x 9 pixels. DXFLIB_WRITER writes a drawing: DXFLIB_WRITER OUTPUT [PICTURE].
"""

import json
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

import ezdxf

SIZE = (17, 9)
VERSIONS = ("R2000", "R2004", "R2007", "R2010", "R2013", "R2018")


def checked(rasterplan, drawing):
    """The exit status, and the kinds and records of all findings."""
    run = subprocess.run([rasterplan, "check", "--json", drawing], capture_output=True, check=False)
    findings = json.loads(run.stdout.decode("utf-8"))
    for finding in findings:
        line = drawing.read_bytes().decode("utf-8", "replace").splitlines()[finding["line"] - 1:][:2]
        assert not finding["record"] or line[1].strip() == finding["record"], (finding, line)
    return run.returncode, [(finding["kind"], finding["record"]) for finding in findings]


def document(version="R2010"):
    """A drawing of two images: one lies in the model space, one in a block that is inserted."""
    doc = ezdxf.new(version)
    doc.layers.add("pictures")
    for number, layout in enumerate((doc.modelspace(), doc.blocks.new("sheet"))):
        definition = doc.add_image_def(f"pictures/{number} süd.png", size_in_pixel=SIZE)
        image = layout.add_image(definition, insert=(20 * number, 0), size_in_units=SIZE)
        image.dxf.layer = "pictures"
    doc.modelspace().add_blockref("sheet", (0, 0))
    return doc


def image_of(doc):
    return doc.modelspace().query("IMAGE").first


def stand_upright(doc):
    image_of(doc).dxf.v_pixel = (0, 0, 1)


def clip(doc, corners):
    image_of(doc).set_boundary_path(corners)


# ---- What each break does to the document, and what check shall find.

def no_dictionary(doc):
    doc.rootdict.discard("ACAD_IMAGE_DICT")


def not_in_dictionary(doc):
    doc.rootdict["ACAD_IMAGE_DICT"].discard(next(iter(doc.rootdict["ACAD_IMAGE_DICT"].keys())))


def class_count(doc):
    doc.classes.add_required_classes(doc.dxfversion)
    for key in ("IMAGE", "IMAGEDEF", "IMAGEDEF_REACTOR", "LAYOUT"):
        for entry in doc.classes:
            if entry.dxf.name == key:
                entry.dxf.instance_count = 0 if key == "IMAGE" else 2


def no_definition(doc):
    image_of(doc).dxf.image_def_handle = doc.layers.get("0").dxf.handle


def no_reactor(doc):
    image_of(doc).dxf.image_def_reactor_handle = "0"


def definition_without_reactors(doc):
    doc.entitydb[image_of(doc).dxf.image_def_handle].set_reactors([])


def empty_clip(doc):
    clip(doc, [(3, 3), (3, 8)])


def oblique(doc):
    stand_upright(doc)
    image_of(doc).dxf.flags = 1


def switched_off(doc):
    image_of(doc).dxf.flags = 2


def layer_off(doc):
    doc.layers.get("pictures").off()


def layer_frozen(doc):
    doc.layers.get("pictures").freeze()


def not_inserted(doc):
    doc.modelspace().delete_entity(doc.modelspace().query("INSERT").first)


def no_extent(doc):
    image_of(doc).dxf.u_pixel = (0, 0, 0)


def no_file(doc):
    doc.entitydb[image_of(doc).dxf.image_def_handle].dxf.filename = ""


def missing_file(doc):
    doc.entitydb[image_of(doc).dxf.image_def_handle].dxf.filename = "C:\\gone\\south.png"


def no_picture(doc):
    doc.entitydb[image_of(doc).dxf.image_def_handle].dxf.filename = "text.png"


def pixel_count(doc):
    image_of(doc).dxf.image_size = (18, 9)


def pixel_count_of_file(doc):
    pixel_count(doc)
    doc.entitydb[image_of(doc).dxf.image_def_handle].dxf.image_size = (18, 9)


BREAKS = {
    no_dictionary: [("no-image-dictionary", "DICTIONARY")],
    not_in_dictionary: [("no-image-dictionary", "IMAGEDEF")],
    class_count: [("class-count", "CLASS")],
    no_definition: [("broken-ring", "IMAGE")],
    no_reactor: [("broken-ring", "IMAGE")],
    definition_without_reactors: [("broken-ring", "IMAGEDEF")],
    empty_clip: [("empty-clip-boundary", "IMAGE")],
    oblique: [("hidden-obliquely", "IMAGE")],
    switched_off: [("switched-off", "IMAGE")],
    layer_off: [("hidden-layer", "LAYER")],
    layer_frozen: [("hidden-layer", "LAYER")],
    not_inserted: [("not-inserted", "BLOCK")],
    no_extent: [("no-extent", "IMAGE")],
    no_file: [("no-file", "IMAGEDEF")],
    missing_file: [("file-missing", "IMAGEDEF")],
    no_picture: [("unreadable-file", "IMAGEDEF")],
    pixel_count: [("pixel-count", "IMAGE")],
    pixel_count_of_file: [("pixel-count", "IMAGEDEF")],
}


def second_layer_handle(text):
    """The LAYER Defpoints gets the handle of the layer 0."""
    layers = text.split("  0\nLAYER\n  5\n")
    first = layers[1].split("\n", 1)[0]
    layers[2] = first + "\n" + layers[2].split("\n", 1)[1]
    return "  0\nLAYER\n  5\n".join(layers)


def reactor_of_nothing(text):
    return re.sub("(\nAcDbRasterImageDefReactor\n 90\n2\n330\n).*", r"\1FFFF", text, count=1)


def invisible(text):
    return text.replace("\nAcDbRasterImage\n 90\n0\n", "\nAcDbRasterImage\n 90\n0\n 60\n1\n", 1)


def ends_early(text):
    return text[:text.index("  0\nENDSEC\n", text.index("\nENTITIES\n"))]


def line_too_many(text):
    return text.replace("\nAcDbRasterImage\n", "\nAcDbRaster\nImage\n", 1)


# What no document of ezdxf can be brought to.
TEXT_BREAKS = {
    second_layer_handle: [("shared-handle", "LAYER")],
    reactor_of_nothing: [("broken-ring", "IMAGEDEF_REACTOR")],
    invisible: [("switched-off", "IMAGE")],
    ends_early: [("cut-short", "")],
    line_too_many: [("damaged", "")],
}

# What is odd, but hides nothing.
HARMLESS = [
    stand_upright,
    lambda doc: clip(doc, [(2, 2), (9, 8)]),
    lambda doc: clip(doc, [(2, 2), (9, 8), (4, 4)]),
    lambda doc: setattr(image_of(doc).dxf, "flags", 1),
    lambda doc: doc.layers.get("0").off(),
    lambda doc: doc.blocks.new("empty"),
    lambda doc: doc.modelspace().add_image(image_of(doc).image_def, insert=(0, 20), size_in_units=SIZE),
]


def main():
    rasterplan, dxflib_writer, picture = sys.argv[1:]
    wrong = []
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        (folder / "pictures").mkdir()
        for number in range(2):
            shutil.copy(picture, folder / "pictures" / f"{number} süd.png")
        (folder / "text.png").write_text("no picture", "utf-8")
        drawing = folder / "plan.dxf"

        def demand(what, findings):
            expected = (1 if findings else 0, findings)
            found = checked(rasterplan, drawing)
            if found != expected:
                wrong.append(f"{what}: {found} instead of {expected}")

        for version in VERSIONS:
            document(version).saveas(drawing)
            demand(version, [])
            drawing.write_bytes(drawing.read_bytes().replace(b"\n", b"\r\n"))
            demand(version + " with CR LF", [])
        ezdxf.new("R12").saveas(drawing)
        demand("R12", [])
        for change in HARMLESS:
            doc = document()
            change(doc)
            doc.saveas(drawing)
            demand(f"harmless {HARMLESS.index(change)}", [])
        for change, findings in BREAKS.items():
            doc = document()
            change(doc)
            doc.saveas(drawing)
            demand(change.__name__, findings)
        for change, findings in TEXT_BREAKS.items():
            document().saveas(drawing)
            drawing.write_text(change(drawing.read_text("utf-8")), "utf-8")
            demand(change.__name__, findings)

        subprocess.run([dxflib_writer, drawing], check=True)
        demand("dxflib", [])
        subprocess.run([dxflib_writer, drawing, "pictures/0 s\\U+00FCd.png"], check=True)
        demand("dxflib with an image", [("no-image-dictionary", "DICTIONARY"), ("broken-ring", "IMAGE")])
    for line in wrong:
        print(line)
    return 1 if wrong else 0


sys.exit(main())
