from __future__ import annotations

import math
from dataclasses import dataclass

from . import _arguments
from ._arguments import Coordinates, Triple

# Squares of longer axes leave the range of numbers.
_LONGEST_AXIS = 1e150
_SMALLEST_SINE = 1e-9


@dataclass(frozen=True, init=False)
class Plane:
    """A plane to flatten a drawing into. Planes of equal numbers are equal.

    origin: where the drawing's x is 0, in drawing units. Its z is added to y, so that y reads as height where
        y_axis points upwards.
    x_axis, y_axis: the directions of the drawing's x and y; their lengths have no effect. At any angle but a
        right one the drawing comes out sheared.
    """

    origin: Triple
    x_axis: Triple
    y_axis: Triple

    def __init__(self, origin: Coordinates, x_axis: Coordinates, y_axis: Coordinates) -> None:
        """Takes any sequences of three finite numbers. ValueError for axes that span no plane."""
        point = _arguments.triple("origin", origin)
        x, y = _axis("x_axis", x_axis), _axis("y_axis", y_axis)
        if _sine(x, y) < _SMALLEST_SINE:
            raise ValueError(f"y_axis must not be parallel to x_axis, as {y} is to {x}")
        for name, value in ("origin", point), ("x_axis", x), ("y_axis", y):
            object.__setattr__(self, name, value)


def _axis(name: str, value: Coordinates) -> Triple:
    axis = _arguments.triple(name, value)
    if not 0 < math.hypot(*axis) < _LONGEST_AXIS:
        raise ValueError(f"{name} must be a direction, longer than 0 and shorter than {_LONGEST_AXIS}, not {axis}")
    return axis


def _sine(first: Triple, second: Triple) -> float:
    (a, b, c), (u, v, w) = _normalized(first), _normalized(second)
    return math.hypot(b * w - c * v, c * u - a * w, a * v - b * u)


def _normalized(axis: Triple) -> Triple:
    x, y, z = axis
    length = math.hypot(x, y, z)
    return x / length, y / length, z / length
