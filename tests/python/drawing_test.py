"""What a drawing does, and what it says where it cannot."""

import copy
import os
import pathlib
import pickle
import unittest

import rasterplanwriter as rpw
from support import GOLDEN, NATIVE, UPRIGHT, WALL, FolderTest, package_copy, read, run, wall


def corners_across(path="other.png"):
    """A wall at a right angle to the first."""
    return {"path": path, "left_top": (5, 0, 3), "left_bottom": (5, 0, 0), "right_bottom": (5, 4, 0),
            "pixels_per_unit": 100}


class Drawings(FolderTest):
    def test_length_iteration_and_repr_tell_the_images(self):
        drawing = rpw.Drawing("south.dxf")
        self.assertEqual((len(drawing), list(drawing), repr(drawing)),
                         (0, [], "<rasterplanwriter.Drawing 'south.dxf', 0 images>"))
        drawing.add("wall.png", **WALL)
        self.assertEqual(repr(drawing), "<rasterplanwriter.Drawing 'south.dxf', 1 image>")
        drawing.add(**corners_across())
        first, second = drawing
        self.assertEqual((first.path, first.pixels_per_unit, first.unit), ("wall.png", 200, rpw.DrawingUnit.Meters))
        self.assertEqual((first.left_top, first.left_bottom, first.right_bottom),
                         ((0, 0, 3), (0, 0, 0), (5, 0, 0)))
        self.assertEqual(second.path, "other.png")
        self.assertEqual(len(drawing), 2)

    def test_paths_may_be_path_like(self):
        drawing = rpw.Drawing(pathlib.Path("größe.dxf"))
        self.assertEqual(drawing.path, "größe.dxf")
        drawing.add(pathlib.Path("pictures") / "wall.png", **WALL)
        self.assertEqual(list(drawing)[0].path, os.path.join("pictures", "wall.png"))
        drawing.write_3d()
        drawing.write_3d(pathlib.Path("立面図.dxf"))
        drawing.write_2d(UPRIGHT, path=pathlib.Path("flat.dxf"))
        self.assertEqual(sorted(os.listdir()), ["flat.dxf", "größe.dxf", "立面図.dxf"])

    def test_every_file_is_that_of_a_new_drawing(self):
        drawing = wall()
        written = []
        for number in range(3):
            drawing.write_3d()
            written.append(read("drawing.dxf"))
            drawing.write_2d(UPRIGHT, f"flat-{number}.dxf")
            written.append(read(f"flat-{number}.dxf"))
        wall("new.dxf").write_3d()
        wall("new-flat.dxf").write_2d(UPRIGHT)
        self.assertEqual(written, [read("new.dxf"), read("new-flat.dxf")] * 3)
        self.assertNotEqual(read("new.dxf"), read("new-flat.dxf"))

    def test_images_are_added_between_writes(self):
        drawing = wall()
        drawing.write_3d()
        drawing.reference_plane()
        drawing.add(**corners_across())
        drawing.write_3d("both.dxf")
        new = wall("new.dxf")
        new.add(**corners_across())
        new.write_3d()
        self.assertEqual(read("both.dxf"), read("new.dxf"))

    def test_drawing_is_copied_and_pickled(self):
        drawing = wall()
        copied = pickle.loads(pickle.dumps(copy.deepcopy(drawing)))
        drawing.add(**corners_across())
        self.assertEqual(len(copied), 1)
        copied.write_3d("copied.dxf")
        wall("new.dxf").write_3d()
        self.assertEqual(read("copied.dxf"), read("new.dxf"))

    def test_file_name_is_its_utf_8_whatever_the_locale_says(self):
        encoding = run(r"""
import sys
import rasterplanwriter as rpw
drawing = rpw.Drawing("gr\xf6\xdfe.dxf")
drawing.add("gr\xf6\xdfe.png", left_top=(0, 1, 0), left_bottom=(0, 0, 0), right_bottom=(1, 0, 0), pixels_per_unit=100)
drawing.write_3d()
print(sys.getfilesystemencoding())
""", flags=["-X", "utf8=0"], LC_ALL="C")
        self.assertEqual(encoding, "ascii\n")
        self.assertIn("größe.png".encode("utf-8"), read("größe.dxf"))

    def test_unit_may_be_its_code(self):
        self.assertIs(rpw.DrawingUnit(6), rpw.DrawingUnit.Meters)
        drawing = rpw.Drawing("drawing.dxf")
        drawing.add("wall.png", unit=1, **WALL)
        self.assertIs(list(drawing)[0].unit, rpw.DrawingUnit.Inches)


class Planes(unittest.TestCase):
    def test_proposed_plane_of_one_image_is_its_own(self):
        self.assertEqual(wall().reference_plane(), UPRIGHT)

    def test_equality_hash_and_repr(self):
        self.assertEqual(UPRIGHT, rpw.Plane([0, 0, 0], [1.0, 0, 0], [0, 0, 1]))
        self.assertEqual(hash(UPRIGHT), hash(rpw.Plane([0, 0, 0], [1.0, 0, 0], [0, 0, 1])))
        for other in (rpw.Plane((1, 0, 0), (1, 0, 0), (0, 0, 1)), rpw.Plane((0, 0, 0), (2, 0, 0), (0, 0, 1)),
                      rpw.Plane((0, 0, 0), (1, 0, 0), (0, 1, 1)), ((0, 0, 0), (1, 0, 0), (0, 0, 1))):
            self.assertNotEqual(UPRIGHT, other)
        self.assertEqual(eval(repr(UPRIGHT), {"Plane": rpw.Plane}), UPRIGHT) # pylint: disable=eval-used
        self.assertEqual(pickle.loads(pickle.dumps(UPRIGHT)), UPRIGHT)

    def test_plane_does_not_change(self):
        with self.assertRaises(AttributeError):
            UPRIGHT.origin = (1, 0, 0)


class Failures(FolderTest):
    def fails(self, error, words, call, *arguments, **named):
        with self.assertRaises(rpw.Error) as caught:
            call(*arguments, **named)
        self.assertIs(type(caught.exception), error)
        self.assertEqual(str(caught.exception), words)

    def test_each_result_has_a_class(self):
        header = (GOLDEN.parents[2] / "include/RasterPlanWriter/RasterPlanWriter.h").read_text(encoding="utf-8")
        for error in rpw.Error.__subclasses__():
            self.assertIn(f"        {error.__name__} = {error.result}", header)
        self.assertEqual(sorted(error.result for error in rpw.Error.__subclasses__()), list(range(1, 7)))

    def test_image_that_is_no_rectangle(self):
        drawing = wall()
        for left_top, right_bottom in (((0, 0, 0), (5, 0, 0)), ((0, 0, 3), (0, 0, 1e-11)), ((1, 0, 3), (5, 0, 0))):
            self.fails(rpw.InvalidGeometry, f"cannot add 'other.png': left_top {tuple(map(float, left_top))}, "
                       f"left_bottom (0.0, 0.0, 0.0) and right_bottom {tuple(map(float, right_bottom))} are no "
                       "corners of a rectangle; its sides must be longer than 1e-10 and at a right angle",
                       drawing.add, "other.png", left_top=left_top, left_bottom=(0, 0, 0),
                       right_bottom=right_bottom, pixels_per_unit=100)
        self.assertEqual(len(drawing), 1)

    def test_no_image(self):
        pathlib.Path("old.dxf").write_text("old", encoding="utf-8")
        drawing = rpw.Drawing("old.dxf")
        words = "cannot write 'old.dxf': the drawing has no image; add one first"
        self.fails(rpw.NoImage, words, drawing.write_3d)
        self.fails(rpw.NoImage, words, drawing.write_2d, UPRIGHT)
        self.fails(rpw.NoImage, "cannot propose a plane for 'old.dxf': the drawing has no image; add one first",
                   drawing.reference_plane)
        self.assertEqual(read("old.dxf"), b"old")

    def test_images_without_a_common_plane(self):
        drawing = wall()
        drawing.add("behind.png", left_top=(5, 1, 3), left_bottom=(5, 1, 0), right_bottom=(0, 1, 0),
                    pixels_per_unit=100)
        self.fails(rpw.InvalidGeometry, "cannot propose a plane for 'drawing.dxf': the images have no common plane; "
                   "give write_2d a Plane of your own", drawing.reference_plane)
        drawing.write_2d(UPRIGHT)

    def test_proposal_of_which_rounding_is_all_that_is_left(self):
        # The mean normal is the mean bottom edge.
        drawing = rpw.Drawing("drawing.dxf")
        for edge, side in (((0.6, 0.64, 0.48), (0.8, -0.48, -0.36)), ((0, -0.6, 0.8), (-0.8, 0.48, 0.36))):
            drawing.add("wall.png", left_top=side, left_bottom=(0, 0, 0), right_bottom=edge, pixels_per_unit=100)
        self.assertEqual(NATIVE.proposed_plane(list(drawing))[0], 0)
        self.fails(rpw.InvalidGeometry, "cannot propose a plane for 'drawing.dxf': the images have no common plane; "
                   "give write_2d a Plane of your own", drawing.reference_plane)

    def test_output_that_cannot_be_opened(self):
        os.mkdir("folder")
        for path in ("missing/drawing.dxf", "folder", "", "drawing.dxf/drawing.dxf", "x" * 300):
            words = f"cannot write {path!r}: the file cannot be opened for writing; its folder must exist, and both " \
                "must be writable"
            self.fails(rpw.CannotOpenOutput, words, wall().write_3d, path)
            self.fails(rpw.CannotOpenOutput, words, wall(path).write_2d, UPRIGHT)

    def test_plane_that_lies_far_off(self):
        pathlib.Path("drawing.dxf").write_text("old", encoding="utf-8")
        self.fails(rpw.InvalidGeometry, "cannot write 'drawing.dxf': the plane lies too far from the images; bring "
                   "its origin near them", wall().write_2d, rpw.Plane((1e20, 0, 0), (1, 0, 0), (0, 0, 1)))
        self.assertEqual(read("drawing.dxf"), b"old")

    def test_plane_that_leaves_no_image(self):
        drawing = rpw.Drawing("drawing.dxf")
        drawing.add("oblique.png", left_top=(0.82, 1.16, 1.9), left_bottom=(0.1, 0.2, 0.3),
                    right_bottom=(2.5, -1.6, 0.3), pixels_per_unit=100)
        self.fails(rpw.DxfFailure, "cannot write 'drawing.dxf': the drawing could not be completed; bring the "
                   "plane's origin near the images, and see that the template is the one that came with the package",
                   drawing.write_2d, rpw.Plane((1e15, 0, 0), (1, 0, 0), (0, 0, 1)))

    def test_axes_that_the_library_refuses_are_a_result(self):
        images = list(wall())
        result = NATIVE.write("drawing.dxf", images, ((0, 0, 0), (0, 0, 0), (0, 0, 1)))
        self.assertEqual(result, rpw.InvalidGeometry.result)

    def test_missing_template(self):
        copied = package_copy("without", None)
        answer = run("""
import sys
import rasterplanwriter as rpw
drawing = rpw.Drawing("drawing.dxf")
drawing.add("wall.png", left_top=(0, 0, 3), left_bottom=(0, 0, 0), right_bottom=(5, 0, 0), pixels_per_unit=200)
for write in (drawing.write_3d, lambda: drawing.write_2d(drawing.reference_plane())):
    try:
        write()
    except rpw.CannotOpenTemplate as error:
        print(error)
""", package=copied)
        self.assertEqual(answer, 2 * ("cannot write 'drawing.dxf': the template cannot be read from the folder of the "
                                      "package rasterplanwriter; install the package anew\n"))

    def test_template_that_does_not_fit(self):
        pathlib.Path("odd.template").write_text("#NOBODYS_PLACEHOLDER\n", encoding="utf-8")
        answer = run("""
import rasterplanwriter as rpw
drawing = rpw.Drawing("drawing.dxf")
drawing.add("wall.png", left_top=(0, 0, 3), left_bottom=(0, 0, 0), right_bottom=(5, 0, 0), pixels_per_unit=200)
try:
    drawing.write_3d()
except rpw.DxfFailure as error:
    print(type(error).__name__)
""", package=package_copy("odd", "odd.template"))
        self.assertEqual(answer, "DxfFailure\n")

    def test_messages_hold_no_control_characters(self):
        for error, call in ((rpw.CannotOpenOutput, lambda: wall("missing/\x1b[2J\n.dxf").write_3d()),
                            (rpw.InvalidGeometry, lambda: wall().add("\x1b.png", **{**WALL, "left_top": (0, 0, 0)}))):
            with self.assertRaises(error) as caught:
                call()
            self.assertTrue(str(caught.exception).isprintable(), str(caught.exception))


if __name__ == "__main__":
    unittest.main()
