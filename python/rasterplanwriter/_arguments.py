"""What a caller may pass, as the library takes it; anything else is a TypeError or ValueError with its name."""

import math
import operator
import os
import re
from collections.abc import Iterable, Mapping, Set
from typing import SupportsFloat, SupportsIndex

from ._unit import DrawingUnit

StrPath = str | os.PathLike[str]
Number = SupportsFloat | SupportsIndex
Coordinates = Iterable[Number]
Triple = tuple[float, float, float]

# The halves of a surrogate pair stand for bytes of a file name that are no text.
_NEVER_IN_A_PATH = re.compile("[\0\ud800-\udfff]")
_LINE_BREAK = re.compile("[\r\n]")


def file_path(name: str, value: StrPath) -> str:
    text = os.fspath(value) if isinstance(value, (str, os.PathLike)) else None
    if not isinstance(text, str):
        raise TypeError(f"{name} must be a str or an os.PathLike of one, not {_kind(value)}")
    _refuse(name, text, _NEVER_IN_A_PATH)
    return text


def picture_path(name: str, value: StrPath) -> str:
    text = file_path(name, value)
    _refuse(name, text, _LINE_BREAK)
    return text


def number(name: str, value: Number) -> float:
    try:
        finite = math.isfinite(value) # float alone would take a text
    except TypeError:
        raise TypeError(f"{name} must be a number, not {_kind(value)}") from None
    except (OverflowError, ValueError):
        finite = False
    if not finite:
        raise ValueError(f"{name} must be a finite number that fits into a float")
    return float(value)


def positive(name: str, value: Number) -> float:
    result = number(name, value)
    if result <= 0:
        raise ValueError(f"{name} must be greater than 0, not {result}")
    return result


def triple(name: str, value: Coordinates) -> Triple:
    # A text holds no numbers, a set has no order, and of a mapping the keys would count.
    unordered = isinstance(value, (str, bytes, bytearray, Set, Mapping))
    try:
        members = None if unordered else tuple(value)
    except TypeError:
        members = None
    if members is None:
        raise TypeError(f"{name} must be a sequence of three numbers, not {_kind(value)}")
    if len(members) != 3:
        raise ValueError(f"{name} must hold three numbers, not {len(members)}")
    x, y, z = (number(f"{name}[{index}]", member) for index, member in enumerate(members))
    return x, y, z


def drawing_unit(name: str, value: object) -> DrawingUnit:
    try:
        return DrawingUnit(operator.index(value)) # type: ignore[arg-type]
    except TypeError:
        raise TypeError(f"{name} must be a DrawingUnit, not {_kind(value)}") from None
    except ValueError:
        raise ValueError(f"{name} must be a DrawingUnit, a code from 0 to 21") from None


def _refuse(name: str, text: str, characters: re.Pattern[str]) -> None:
    found = characters.search(text)
    if found:
        raise ValueError(f"{name} must not hold the character {found.group()!a} (at {found.start()})")


def _kind(value: object) -> str:
    return type(value).__name__
