"""What a host describes and what becomes of it: images, their frames, the view, the plane, the flat drawing."""

import copy

from geometry import (DEFAULT_TOLERANCE, Plane, add, cross, distance, inverse, is_parallel, is_perpendicular, is_zero,
                      mapped, normalized, over, placement, quotient, sub, times, twist_of)

RIGHT_ANGLE = 0.001
EMPTY_BOX = 4294967295.0
ABOVE_EVERY_COORDINATE = 2147483647.0
METERS = 6
ZERO = (0.0, 0.0, 0.0)

METRES_PER_UNIT = [1.0, 0.0254, 0.3048, 1609.344, 0.001, 0.01, 1.0, 1000.0, 2.54e-8, 2.54e-5, 0.9144, 1e-10,
                   1e-9, 1e-6, 0.1, 10.0, 100.0, 1e9, 1.4959787e11, 9.46053e15, 3.085677e16, 0.3048006096012192]


class DxfFailure(Exception):
    """The drawing cannot be completed."""


def file_name(path):
    if len(path) > 1 and path[1] == ":" and path[0].isascii() and path[0].isalpha():
        path = path[2:]
    return path.replace("\\", "/").split("/")[-1]


class Image:
    def __init__(self, unit, pixels_per_unit, corners, path):
        self.unit = unit if 0 <= unit < len(METRES_PER_UNIT) else METERS
        self.ppu = pixels_per_unit
        self.path = path
        self.set_corners(*corners)

    def set_corners(self, left_top, left_bottom, right_bottom):
        self.height = distance(left_top, left_bottom)
        self.width = distance(left_bottom, right_bottom)
        self.lb = left_bottom
        self.u = normalized(sub(right_bottom, left_bottom))
        self.v = normalized(sub(left_top, left_bottom))
        self.direction = cross(self.u, self.v)

    def corners(self):
        return (add(self.lb, times(self.v, self.height)), self.lb, add(self.lb, times(self.u, self.width)))

    def right_top(self):
        return add(add(times(self.u, self.width), times(self.v, self.height)), self.lb)

    def pixels(self):
        return self.ppu * self.width, self.ppu * self.height

    def unit_size(self):
        return METRES_PER_UNIT[self.unit] * 1000.0

    def pixel_size(self):
        return self.unit_size() / self.ppu if self.ppu > 0.0 and self.unit != 0 else 10.0

    def pixel_vectors(self):
        width, height = self.pixels()
        return over(times(self.u, self.width), width), over(times(self.v, self.height), height)

    def is_rectangle(self):
        return (self.width > DEFAULT_TOLERANCE and self.height > DEFAULT_TOLERANCE
                and is_perpendicular(self.u, self.v, RIGHT_ANGLE))

    def with_corners(self, change):
        image = copy.copy(self)
        image.set_corners(*(change(corner) for corner in self.corners()))
        return image

    def moved(self, offset):
        return self.with_corners(lambda corner: add(corner, offset))

    def through(self, matrix):
        return self.with_corners(lambda corner: mapped(matrix, corner))


class Line:
    def __init__(self, start, end, frame):
        self.start, self.end, self.frame = start, end, frame

    def flattened(self, matrix, lift):
        def point(p):
            _, y, z = mapped(self.frame, p)
            return add((mapped(matrix, p)[0], y, z), lift)
        return Line(point(self.start), point(self.end), self.frame)


class Viewport:
    def __init__(self):
        self.minimum = (EMPTY_BOX,) * 3
        self.maximum = (-EMPTY_BOX,) * 3
        self.direction = ZERO
        self.to_plane = placement((1.0, 0.0, 0.0), (0.0, 1.0, 0.0), (0.0, 0.0, 1.0), ZERO)
        self.twist = 0.0

    def add(self, image):
        if any(high < low for low, high in zip(self.minimum, self.maximum)):
            self.look_at(image)
        for corner in (image.lb, image.right_top()):
            local = mapped(self.to_plane, corner)
            self.minimum = tuple(min(a, b) for a, b in zip(self.minimum, local))
            self.maximum = tuple(max(a, b) for a, b in zip(self.maximum, local))

    def look_at(self, image):
        self.to_plane = inverse(placement(image.u, image.v, image.direction, image.lb))
        self.twist = twist_of(self.to_plane)
        if (not is_zero(self.direction, DEFAULT_TOLERANCE)
                and not is_parallel(self.direction, image.direction, DEFAULT_TOLERANCE)):
            raise DxfFailure("a second direction")
        self.direction = image.direction

    def target(self):
        centre = add(times(sub(self.maximum, self.minimum), 0.5), self.minimum)
        return mapped(inverse(self.to_plane), centre)

    def height_and_ratio(self):
        width, height, _ = sub(self.maximum, self.minimum)
        return abs(height), quotient(width, height)


class Drawing:
    def __init__(self):
        self.images = []
        self.lines = []
        self.viewport = Viewport()

    def add(self, image):
        """Whether the image is one."""
        if not image.is_rectangle():
            return False
        self.images.append(image)
        frame = [list(row) + [0.0] for row in (image.u, image.v, image.direction)] + [[0.0, 0.0, 0.0, 1.0]]
        lb, wu, hv = image.lb, times(image.u, image.width), times(image.v, image.height)
        rb, lt, rt = add(lb, wu), add(lb, hv), add(lb, add(wu, hv))
        longest = max(image.width, image.height)
        su, sv = times(image.u, longest), times(image.v, longest)
        for start, end in ((lb, rb), (lb, lt), (rb, rt), (lt, rt),
                           (sub(lb, over(su, 20.0)), sub(lb, over(su, 40.0))),
                           (sub(lb, over(sv, 20.0)), sub(lb, over(sv, 40.0)))):
            self.lines.append(Line(start, end, frame))
        self.viewport.add(image)
        return True

    def proposed_plane(self):
        first = self.images[0]
        if len(self.images) == 1:
            return first.lb, first.u, first.v
        n = float(len(self.images))
        total = ZERO
        for image in self.images:
            total = add(total, normalized(Plane(image.lb, cross(image.u, image.v)).normal))
        normal = normalized(over(total, n))
        offsets = us = ZERO
        for image in self.images:
            offsets = add(offsets, Plane(sub(image.lb, first.lb), normal).project(ZERO))
            us = add(us, image.u)
        middle = over(offsets, n)
        x = normalized(over(us, n))
        y = cross(normal, x)
        z = normalized(cross(x, y))
        plane = Plane(middle, normal)
        to_local = inverse(placement(x, y, z, middle))
        entries = []
        least = (ABOVE_EVERY_COORDINATE,) * 3
        for image in self.images:
            projected = plane.project(sub(image.lb, first.lb))
            local = mapped(to_local, projected)
            entries.append((local, projected))
            if least[0] > local[0]:
                least = local
        origin = next((projected for local, projected in entries if local == least), ZERO)
        return add(first.lb, origin), x, y

    def flattened(self, origin, x_axis, y_axis):
        moved = Drawing()
        for image in self.images:
            moved.add(image.moved(times(origin, -1.0)))
        x, y = normalized(x_axis), normalized(y_axis)
        to_plane = inverse(placement(x, y, cross(x, y), ZERO))
        lift = (0.0, origin[2], 0.0)
        flat = Drawing()
        flat.lines = [line.flattened(to_plane, lift) for line in moved.lines]
        for image in moved.images:
            flat.images.append(image.through(to_plane).moved(lift))
            flat.viewport.add(flat.images[-1])
            flat.viewport.twist = 0.0
        return flat
