from typing import ClassVar


class Error(Exception):
    """What the library could not do; the message says what to do about it."""

    result: ClassVar[int]
    """The number of this result in the C++ library's ErrorEnum."""
    advice: ClassVar[str]
    """What to do about it."""


class NoImage(Error):
    """No image has been added yet, so there is nothing to write and no plane to propose. No file was touched."""

    result = 1
    advice = "the drawing has no image; add one first"


class InvalidGeometry(Error):
    """An image is no rectangle with two sides, the images have no common plane, or the plane to flatten into lies too
    far off. Nothing was added or written."""

    result = 2
    advice = "the plane lies too far from the images; bring its origin near them"


class CannotOpenOutput(Error):
    """The output file could not be opened for writing."""

    result = 3
    advice = "the file cannot be opened for writing; its folder must exist, and both must be writable"


class CannotOpenTemplate(Error):
    """The template does not lie beside the module, or cannot be read. The output file has been emptied."""

    result = 4
    advice = "the template cannot be read from the folder of the package rasterplanwriter; install the package anew"


class DxfFailure(Error):
    """The drawing could not be completed. What was written so far is no usable drawing."""

    result = 5
    advice = ("the drawing could not be completed; bring the plane's origin near the images, and see that the "
              "template is the one that came with the package")


class UnexpectedFailure(Error, MemoryError):
    """Out of memory. Of a drawing, parts may have been written."""

    result = 6
    advice = "out of memory; write fewer images in one drawing"


_BY_RESULT = {error.result: error for error in Error.__subclasses__()}


def failure(result: int, deed: str, invalid_geometry: str = InvalidGeometry.advice) -> Error:
    """What to raise for a result other than Success. What is wrong with a geometry depends on the deed."""
    error = _BY_RESULT[result]
    return error(f"{deed}: {invalid_geometry if error is InvalidGeometry else error.advice}")
