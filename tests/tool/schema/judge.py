#!/usr/bin/python3
"""Judges sites by the schema of SITE.json and by rasterplan itself; both must say the same.

The schema is itself judged by that of its draft, and by sites that are right, the examples among them, and wrong.
"""

import argparse
import json
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

import jsonschema

CORNERS = {"path": "grey-17x9.png", "leftTop": [0, 0, 9], "leftBottom": [0, 0, 0], "rightBottom": [17, 0, 0],
           "pixelsPerUnit": 1}
DIRECTIONS = {"path": "grey-17x9.jpg", "leftBottom": [0, 0, 0], "right": [1, 0, 0], "up": [0, 0, 1],
              "pixelsPerUnit": 1}
MAP = {"path": "map-17x9.tif"}
PLANE = {"origin": [0, 0, 0], "xAxis": [1, 0, 0], "yAxis": [0, 0, 1]}


def changed(image, **fields):
    """The image with other fields; those that are None are left out."""
    return {name: value for name, value in {**image, **fields}.items() if value is not None}


def site(*images, **fields):
    """A site of these images, with fields of its own."""
    return {"images": list(images), **fields}


RIGHT = {
    "corners": site(CORNERS),
    "directions": site(DIRECTIONS),
    "map": site(MAP),
    "all ways": site(CORNERS, DIRECTIONS, MAP, unit="m", _note={"any": ["thing"]}, **{"$schema": "site.schema.json"}),
    "named": site(changed(CORNERS, name="South", _scan=7, unit="Feet")),
    "elevation": site(changed(MAP, elevation=-2.5)),
    "world file": site(changed(MAP, worldFile="map-17x9.tfw")),
    "plane": site(changed(MAP, plane={**PLANE, "_why": "a wall"})),
    "negative zero": site(changed(CORNERS, leftBottom=[-0.0, 0, 0])),
}

WRONG = {
    "no object": [],
    "no images": {},
    "empty": site(),
    "images that are none": {"images": {}},
    "an image that is none": site(7),
    "unknown field": site(CORNERS, units="m"),
    "unknown field of an image": site(changed(CORNERS, pixelPerUnit=1)),
    "schema in an image": site(changed(CORNERS, **{"$schema": "x"})),
    "no path": site(changed(CORNERS, path=None)),
    "empty path": site(changed(CORNERS, path="")),
    "path of two lines": site(changed(CORNERS, path="a\nb")),
    "path of two lines to few": site(changed(CORNERS, path="a\u2028b")),
    "path that is none": site(changed(CORNERS, path=7)),
    "empty name": site(changed(CORNERS, name="")),
    "no corner": site(changed(CORNERS, leftTop=None)),
    "no resolution": site(changed(DIRECTIONS, pixelsPerUnit=None)),
    "no direction": site(changed(DIRECTIONS, up=None)),
    "zero direction": site(changed(DIRECTIONS, right=[0, 0.0, 0])),
    "two coordinates": site(changed(CORNERS, leftTop=[0, 9])),
    "four coordinates": site(changed(CORNERS, leftTop=[0, 0, 9, 1])),
    "coordinate that is none": site(changed(CORNERS, leftTop=[0, 0, "9"])),
    "coordinate too far": site(changed(CORNERS, leftTop=[0, 0, 2e18])),
    "no pixels": site(changed(CORNERS, pixelsPerUnit=0)),
    "too many pixels": site(changed(CORNERS, pixelsPerUnit=2e18)),
    "corners and directions": site({**CORNERS, **DIRECTIONS}),
    "corners and a map": site(changed(CORNERS, elevation=1)),
    "resolution of a map": site(changed(MAP, pixelsPerUnit=1)),
    "corner of a map": site(changed(MAP, leftBottom=[0, 0, 0], elevation=0)),
    "plane and elevation": site(changed(MAP, plane=PLANE, elevation=1)),
    "plane without an axis": site(changed(MAP, plane={"origin": [0, 0, 0], "xAxis": [1, 0, 0]})),
    "plane with a zero axis": site(changed(MAP, plane={**PLANE, "yAxis": [0, 0, 0]})),
    "unknown field of a plane": site(changed(MAP, plane={**PLANE, "zAxis": [0, 1, 0]})),
    "elevation that is none": site(changed(MAP, elevation="1")),
    "empty world file": site(changed(MAP, worldFile="")),
    "unknown unit": site(CORNERS, unit="furlongs"),
    "unit that is none": site(changed(CORNERS, unit=6)),
}


class Judge:
    """Counts what is wrong."""

    def __init__(self, options, folder):
        self.tool = options.tool
        self.folder = folder
        schema = json.loads(options.schema.read_text(encoding="utf-8"))
        jsonschema.Draft7Validator.check_schema(schema)
        self.validator = jsonschema.Draft7Validator(schema)
        self.units = schema["definitions"]["unit"]["enum"]
        self.complaints = 0

    def expect(self, name, document, is_right):
        """Both must find the site right, or both wrong."""
        by_schema = self.validator.is_valid(document)
        file = self.folder / "SITE.json"
        file.write_text(json.dumps(document), encoding="utf-8")
        run = subprocess.run([self.tool, "corners", file], capture_output=True, check=False)
        if by_schema != is_right or (run.returncode == 0) != is_right or run.returncode not in (0, 2):
            self.complaints += 1
            print(f"{name}: schema says {by_schema}, rasterplan ends with {run.returncode}: {run.stderr.decode()}")


def main():
    """Judges all."""
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--schema", type=Path, required=True)
    parser.add_argument("--tool", type=Path, required=True, help="rasterplan")
    parser.add_argument("--pictures", type=Path, required=True, help="the folder of the test pictures")
    parser.add_argument("examples", type=Path, nargs="+", help="sites that are right")
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        for file in options.pictures.iterdir():
            shutil.copy(file, folder)
        judge = Judge(options, folder)
        for name, document in RIGHT.items():
            judge.expect(name, document, True)
        for name, document in WRONG.items():
            judge.expect(name, document, False)
        judge.expect("every unit", site(*(changed(CORNERS, unit=unit) for unit in judge.units)), True)
        for example in options.examples:
            judge.expect(str(example), json.loads(example.read_text(encoding="utf-8")), True)
    if judge.complaints:
        sys.exit(f"{judge.complaints} sites are judged wrongly")


if __name__ == "__main__":
    main()
