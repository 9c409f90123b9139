"""Read by mypy, which must see nothing wrong in here but what is marked; a mark without a finding is an error too."""

from pathlib import Path

import numpy as np
import rasterplanwriter as rpw

drawing = rpw.Drawing(Path("south.dxf"))
corners = np.zeros((3, 3))
drawing.add("south.png", left_top=(0, 0, 3), left_bottom=[0, 0, 0], right_bottom=corners[2], pixels_per_unit=200,
            unit=rpw.DrawingUnit(6))
drawing.add(Path("south.png"), left_top=(0, 0, 3), left_bottom=(0, 0, 0), right_bottom=(5, 0, 0),
            pixels_per_unit=np.float32(200), unit=4)
plane: rpw.Plane = drawing.reference_plane()
drawing.write_3d()
drawing.write_2d(plane, path="south-2d.dxf")
drawing.write_2d(rpw.Plane([0, 0, 0], corners[0], (0, 0, 1)))
paths: list[str] = [image.path for image in drawing]
units: set[rpw.DrawingUnit] = {image.unit for image in drawing}
count: int = len(drawing)
x: float = plane.origin[0]
try:
    drawing.write_3d(Path("south.dxf"))
except rpw.CannotOpenOutput as error:
    result: int = error.result

rpw.Drawing(b"south.dxf") # type: ignore[arg-type]
rpw.Plane("000", (1, 0, 0), (0, 1, 0)) # type: ignore[arg-type]
drawing.add("a.png", left_top="003", left_bottom=(0, 0, 0), # type: ignore[arg-type]
            right_bottom=(5, 0, 0), pixels_per_unit="200") # type: ignore[arg-type]
drawing.write_2d(((0, 0, 0), (1, 0, 0), (0, 1, 0))) # type: ignore[arg-type]
plane.origin = (0, 0, 0) # type: ignore[misc]
drawing.path = "other.dxf" # type: ignore[misc]
