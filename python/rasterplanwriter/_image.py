from typing import NamedTuple

from ._arguments import Triple
from ._unit import DrawingUnit


class Image(NamedTuple):
    """One ortho image of a drawing, as it was added."""

    path: str
    left_top: Triple
    left_bottom: Triple
    right_bottom: Triple
    pixels_per_unit: float
    unit: DrawingUnit
