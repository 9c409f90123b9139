"""Wrong arguments are named, and leave the drawing as it was."""

import pathlib
import unittest
from decimal import Decimal
from fractions import Fraction

import rasterplanwriter as rpw
from support import UPRIGHT, WALL, FolderTest, wall


class BytesPath:
    def __fspath__(self):
        return b"wall.png"


class Arguments(FolderTest):
    def refuses(self, error, words, call, *arguments, **named):
        with self.assertRaises(error) as caught:
            call(*arguments, **named)
        self.assertIs(type(caught.exception), error)
        self.assertEqual(str(caught.exception), words)

    def refuses_image(self, error, words, **changed):
        drawing = rpw.Drawing("drawing.dxf")
        self.refuses(error, words, drawing.add, **{"path": "wall.png", **WALL, **changed})
        self.assertEqual(len(drawing), 0)

    def test_corner_that_is_not_three_numbers(self):
        for name in ("left_top", "left_bottom", "right_bottom"):
            for corner, kind in ((5, "int"), (None, "NoneType"), ("012", "str"), (b"012", "bytes"),
                                 ({0, 1, 2}, "set"), ({0: 0, 1: 0, 2: 0}, "dict")):
                self.refuses_image(TypeError, f"{name} must be a sequence of three numbers, not {kind}",
                                   **{name: corner})
            for corner in ((), (0, 0), (0, 0, 0, 0)):
                self.refuses_image(ValueError, f"{name} must hold three numbers, not {len(corner)}",
                                   **{name: corner})

    def test_coordinate_that_is_no_number(self):
        for coordinate, kind in (("3", "str"), (None, "NoneType"), ((3,), "tuple"), (3j, "complex")):
            self.refuses_image(TypeError, f"left_top[2] must be a number, not {kind}", left_top=(0, 0, coordinate))

    def test_coordinate_that_is_not_finite(self):
        for coordinate in (float("nan"), float("inf"), -float("inf"), 10**400, 10**5000, Decimal("sNaN")):
            self.refuses_image(ValueError, "left_bottom[1] must be a finite number that fits into a float",
                               left_bottom=(0, coordinate, 0))

    def test_pixels_per_unit(self):
        for pixels in (0, -1.5):
            self.refuses_image(ValueError, f"pixels_per_unit must be greater than 0, not {float(pixels)}",
                               pixels_per_unit=pixels)
        self.refuses_image(ValueError, "pixels_per_unit must be a finite number that fits into a float",
                           pixels_per_unit=float("nan"))
        self.refuses_image(TypeError, "pixels_per_unit must be a number, not str", pixels_per_unit="200")

    def test_unit(self):
        for unit in (-1, 22, 10**5000):
            self.refuses_image(ValueError, "unit must be a DrawingUnit, a code from 0 to 21", unit=unit)
        for unit, kind in (("Meters", "str"), (6.0, "float"), (None, "NoneType")):
            self.refuses_image(TypeError, f"unit must be a DrawingUnit, not {kind}", unit=unit)

    def test_path_of_another_type(self):
        for path, kind in ((None, "NoneType"), (5, "int"), (b"wall.png", "bytes"), (BytesPath(), "BytesPath")):
            words = f"path must be a str or an os.PathLike of one, not {kind}"
            self.refuses_image(TypeError, words, path=path)
            self.refuses(TypeError, words, rpw.Drawing, path)
            if path is not None:
                self.refuses(TypeError, words, wall().write_3d, path)
                self.refuses(TypeError, words, wall().write_2d, UPRIGHT, path=path)

    def test_path_with_characters_that_no_file_name_holds(self):
        # A file name of other bytes than UTF-8 reaches Python with such halves of characters.
        for character, shown in (("\0", r"'\x00'"), ("\udcff", r"'\udcff'"), ("\ud800", r"'\ud800'")):
            words = f"path must not hold the character {shown} (at 1)"
            self.refuses_image(ValueError, words, path=f"a{character}.png")
            self.refuses(ValueError, words, rpw.Drawing, f"a{character}.dxf")
            self.refuses(ValueError, words, wall().write_3d, f"a{character}.dxf")

    def test_line_break_in_the_path_of_a_picture(self):
        # It would end the line of the drawing; the name of a drawing may hold one.
        for character in "\r\n":
            self.refuses_image(ValueError, f"path must not hold the character {character!r} (at 1)",
                               path=f"a{character}.png")
        wall("a\n.dxf").write_3d()
        self.assertTrue(pathlib.Path("a\n.dxf").exists())

    def test_numbers_of_other_types_are_their_floats(self):
        drawing = rpw.Drawing("drawing.dxf")
        drawing.add("wall.png", left_top=[0, Fraction(1, 2), Decimal("3.25")], left_bottom=iter((0, 0.5, 0)),
                    right_bottom=(True, 0.5, 0), pixels_per_unit=Decimal(200), unit=4)
        self.assertEqual(list(drawing), [("wall.png", (0.0, 0.5, 3.25), (0.0, 0.5, 0.0), (1.0, 0.5, 0.0), 200.0,
                                          rpw.DrawingUnit.Millimeters)])
        self.assertEqual({type(number) for triple in list(drawing)[0][1:4] for number in triple}, {float})

    def test_axis_without_direction(self):
        for name in ("x_axis", "y_axis"):
            for axis in ((0, 0, 0), (0, 1e150, 0), (1e308, 1e308, 1e308)):
                axes = (axis, (0, 1, 0)) if name == "x_axis" else ((1, 0, 0), axis)
                shown = tuple(map(float, axis))
                self.refuses(ValueError, f"{name} must be a direction, longer than 0 and shorter than 1e+150, not "
                                         f"{shown}", rpw.Plane, (0, 0, 0), *axes)

    def test_axes_that_are_parallel(self):
        for other in ((2, 2, 0), (-1e-200, -1e-200, 0), (1e100, 1e100, 1e90)):
            x, y = (1.0, 1.0, 0.0), tuple(map(float, other))
            self.refuses(ValueError, f"y_axis must not be parallel to x_axis, as {y} is to {x}", rpw.Plane,
                         (0, 0, 0), x, other)

    def test_parts_of_a_plane(self):
        self.refuses(ValueError, "origin[0] must be a finite number that fits into a float", rpw.Plane,
                     (float("nan"), 0, 0), (1, 0, 0), (0, 1, 0))
        self.refuses(ValueError, "x_axis must hold three numbers, not 2", rpw.Plane, (0, 0, 0), (1, 0), (0, 1, 0))
        self.refuses(TypeError, "y_axis[1] must be a number, not str", rpw.Plane, (0, 0, 0), (1, 0, 0), (0, "1", 0))

    def test_plane_that_is_none(self):
        self.refuses(TypeError, "plane must be a rasterplanwriter.Plane, not tuple", wall().write_2d,
                     ((0, 0, 0), (1, 0, 0), (0, 1, 0)))
        self.refuses(TypeError, "plane must be a rasterplanwriter.Plane, not NoneType", wall().write_2d, None)
        self.assertFalse(pathlib.Path("drawing.dxf").exists())


if __name__ == "__main__":
    unittest.main()
