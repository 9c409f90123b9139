"""Writes ortho images into one text DXF drawing, each picture at its exact place in space.

An ortho image is a rectified picture of a facade, a section or a floor plan. It is described by its file, three
of its corners, its pixels per unit and its unit:

    import rasterplanwriter as rpw

    drawing = rpw.Drawing("south.dxf")
    drawing.add("south.png", left_top=(0, 0, 3), left_bottom=(0, 0, 0), right_bottom=(5, 0, 0),
                pixels_per_unit=200)
    drawing.write_3d()
    drawing.write_2d(drawing.reference_plane(), path="south-2d.dxf")

Every CAD program that reads AutoCAD 2010 files opens such a drawing. What cannot be done is an exception below
rasterplanwriter.Error; a wrong argument is a TypeError or ValueError that names it.
"""

from ._drawing import Drawing
from ._errors import (CannotOpenOutput, CannotOpenTemplate, DxfFailure, Error, InvalidGeometry, NoImage,
                      UnexpectedFailure)
from ._image import Image
from ._native import version as __version__
from ._plane import Plane
from ._unit import DrawingUnit

__all__ = ["CannotOpenOutput", "CannotOpenTemplate", "Drawing", "DrawingUnit", "DxfFailure", "Error", "Image",
           "InvalidGeometry", "NoImage", "Plane", "UnexpectedFailure", "__version__"]

# A traceback and help() call them what a program calls them.
for _public in (Drawing, DrawingUnit, Image, Plane, Error, *Error.__subclasses__()):
    _public.__module__ = __name__
