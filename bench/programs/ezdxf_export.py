"""The pictures as ezdxf writes them: an IMAGE with its IMAGEDEF and the six lines of the frame each."""

import sys

import ezdxf
from ezdxf.math import Vec3

from scene import scene


def add_picture(document, modelspace, picture):
    corner = Vec3(picture.left_bottom)
    to_right = Vec3(picture.right_bottom) - corner
    upwards = Vec3(picture.left_top) - corner
    width, height = to_right.magnitude, upwards.magnitude
    pixels = (width * picture.pixels_per_metre, height * picture.pixels_per_metre)
    definition = document.add_image_def(picture.path, size_in_pixel=(round(pixels[0]), round(pixels[1])))
    image = modelspace.add_image(definition, insert=corner, size_in_units=(width, height))
    image.dxf.u_pixel = to_right / pixels[0]
    image.dxf.v_pixel = upwards / pixels[1]

    right_bottom = corner + to_right
    left_top = corner + upwards
    right_top = corner + to_right + upwards
    longest = max(width, height)
    mark_u = to_right.normalize(longest)
    mark_v = upwards.normalize(longest)
    for start, end in (
        (corner, right_bottom),
        (corner, left_top),
        (right_bottom, right_top),
        (left_top, right_top),
        (corner - mark_u / 20, corner - mark_u / 40),
        (corner - mark_v / 20, corner - mark_v / 40),
    ):
        modelspace.add_line(start, end)


def main():
    count, output = int(sys.argv[1]), sys.argv[2]
    document = ezdxf.new("R2010")
    document.header["$INSUNITS"] = 6
    modelspace = document.modelspace()
    for picture in scene(count):
        add_picture(document, modelspace, picture)
    document.saveas(output)


main()
