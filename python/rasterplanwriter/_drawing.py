from __future__ import annotations

import math
from collections.abc import Iterator

from . import _arguments
from ._arguments import Coordinates, Number, StrPath
from ._errors import InvalidGeometry, NoImage, failure
from ._image import Image
from ._native import check, proposed_plane, write
from ._plane import Plane
from ._unit import DrawingUnit

# The y axis of a proposal is as long as the sine between normal and x axis; a shorter one has no direction.
_ROUNDING = 1e-9


class Drawing:
    """Collects ortho images and writes them as text DXF drawings (AutoCAD 2010, AC1024).

    One drawing may be written any number of times, in 3D and flattened, to any paths, and images may be added in
    between: every file holds exactly the images that have been added until then. len() counts them, and iterating
    yields them in order of addition. Other threads run while a file is written.
    """

    def __init__(self, path: StrPath) -> None:
        """A drawing without images, to be written to `path`, a str or os.PathLike. Nothing is opened yet."""
        self._path = _arguments.file_path("path", path)
        self._images: list[Image] = []

    @property
    def path(self) -> str:
        """The file to write where a write names no other."""
        return self._path

    def add(self, path: StrPath, *, left_top: Coordinates, left_bottom: Coordinates, right_bottom: Coordinates,
            pixels_per_unit: Number, unit: DrawingUnit | int = DrawingUnit.Meters) -> None:
        """Adds one image with its frame.

        path: the picture's file, a str or os.PathLike. It is written into the drawing exactly as given, nobody
            opens it, and CAD programs look for a relative one from the drawing's folder.
        left_top, left_bottom, right_bottom: the corners as seen by somebody who looks at the picture, each a
            sequence of three numbers (NumPy's too), in drawing units.
        pixels_per_unit: pixels per drawing unit. Times the width it must be the picture's true count of pixels,
            or CAD programs show it too small or too large in its frame.
        unit: a DrawingUnit or its code.

        Raises InvalidGeometry when a side is not longer than 1e-10 drawing units or the sides are not at a right
        angle (the cosine of their angle is above 0.001), UnexpectedFailure when memory runs out, and ValueError
        or TypeError for a wrong argument. The drawing is then as it was.
        """
        image = Image(_arguments.picture_path("path", path), _arguments.triple("left_top", left_top),
                      _arguments.triple("left_bottom", left_bottom),
                      _arguments.triple("right_bottom", right_bottom),
                      _arguments.positive("pixels_per_unit", pixels_per_unit),
                      _arguments.drawing_unit("unit", unit))
        result = check(image)
        if result:
            raise failure(result, f"cannot add {image.path!r}",
                          f"left_top {image.left_top}, left_bottom {image.left_bottom} and right_bottom "
                          f"{image.right_bottom} are no corners of a rectangle; its sides must be longer than "
                          "1e-10 and at a right angle")
        self._images.append(image)

    def reference_plane(self) -> Plane:
        """Proposes a plane for write_2d: parallel to the mean of the image planes, with the mean of the bottom
        edges' directions as x_axis, and with the left-bottom corner furthest to the left in it as origin.

        Raises NoImage; InvalidGeometry when the images have no common plane, as when two face each other;
        UnexpectedFailure when memory runs out.
        """
        result, (origin, x_axis, y_axis) = proposed_plane(self._images)
        if not result and math.hypot(*y_axis) < _ROUNDING:
            result = InvalidGeometry.result
        if result:
            raise failure(result, f"cannot propose a plane for {self._path!r}",
                          "the images have no common plane; give write_2d a Plane of your own")
        return Plane(origin, x_axis, y_axis)

    def write_3d(self, path: StrPath | None = None) -> None:
        """Writes the drawing with every image where it lies in space, to `path` or else to the drawing's own.

        Raises NoImage, before any file is opened; CannotOpenOutput, CannotOpenTemplate, DxfFailure or
        UnexpectedFailure. With the last three the file has been overwritten. A full disk is not noticed.
        """
        self._write(path, None)

    def write_2d(self, plane: Plane, path: StrPath | None = None) -> None:
        """Writes the drawing flattened into `plane`, to `path` or else to the drawing's own.

        The plane's axes become the drawing's x and y, and y is lifted by the z of its origin, so that y reads as
        height where y_axis points upwards; the drawing's z is the distance from the plane.

        Raises what write_3d does, and InvalidGeometry, before any file is opened, for a plane so far off that the
        images' coordinates vanish beside it; DxfFailure also for one so far off that no image is left.
        """
        if not isinstance(plane, Plane):
            raise TypeError(f"plane must be a rasterplanwriter.Plane, not {type(plane).__name__}")
        self._write(path, plane)

    def _write(self, path: StrPath | None, plane: Plane | None) -> None:
        output = self._path if path is None else _arguments.file_path("path", path)
        numbers = None if plane is None else (plane.origin, plane.x_axis, plane.y_axis)
        # Without images the library would empty the file before it says so.
        result = write(output, self._images, numbers) if self._images else NoImage.result
        if result:
            raise failure(result, f"cannot write {output!r}")

    def __len__(self) -> int:
        return len(self._images)

    def __iter__(self) -> Iterator[Image]:
        return iter(self._images)

    def __repr__(self) -> str:
        count = len(self._images)
        return f"<rasterplanwriter.Drawing {self._path!r}, {count} image{'' if count == 1 else 's'}>"
