"""Points and numbers of NumPy, which the package does not need."""

import unittest

import numpy as np
import rasterplanwriter as rpw


class NumPy(unittest.TestCase):
    def test_points_of_every_type(self):
        for kind in (np.float64, np.float32, np.float16, np.int64, np.int32, np.uint8):
            drawing = rpw.Drawing("drawing.dxf")
            corners = np.array([[0, 0, 3], [0, 0, 0], [5, 0, 0]], dtype=kind)
            drawing.add("wall.png", left_top=corners[0], left_bottom=corners[1], right_bottom=corners[2],
                        pixels_per_unit=kind(200), unit=np.int64(6))
            image, = drawing
            self.assertEqual(image, ("wall.png", (0, 0, 3), (0, 0, 0), (5, 0, 0), 200, 6))
            self.assertEqual({type(number) for corner in image[1:4] for number in corner}, {float})

    def test_columns_of_a_matrix(self):
        origin, x_axis, y_axis = np.array([[1.0, 0.6, -0.8], [2.0, 0.8, 0.6], [3.0, 0.0, 0.0]]).T
        plane = rpw.Plane(origin, x_axis, y_axis)
        self.assertEqual(plane, rpw.Plane((1, 2, 3), (0.6, 0.8, 0), (-0.8, 0.6, 0)))
        np.testing.assert_array_equal(np.cross(plane.x_axis, plane.y_axis), (0, 0, 1))

    def test_wrong_arrays_are_named(self):
        for array, error, words in ((np.zeros(2), ValueError, "x_axis must hold three numbers, not 2"),
                                    (np.zeros((3, 3)), TypeError, r"x_axis\[0\] must be a number, not ndarray"),
                                    (np.float64(1), TypeError, "x_axis must be a sequence of three numbers"),
                                    (np.array([1, np.nan, 0]), ValueError, r"x_axis\[1\] must be a finite number"),
                                    (np.array(["1", "0", "0"]), TypeError, r"x_axis\[0\] must be a number, not str_")):
            with self.assertRaisesRegex(error, words):
                rpw.Plane((0, 0, 0), array, (0, 0, 1))


if __name__ == "__main__":
    unittest.main()
