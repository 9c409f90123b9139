from enum import IntEnum


class DrawingUnit(IntEnum):
    """Length unit of an image's coordinates: the codes of the DXF header variable $INSUNITS."""

    Unitless = 0
    Inches = 1
    Feet = 2
    Miles = 3
    Millimeters = 4
    Centimeters = 5
    Meters = 6
    Kilometers = 7
    Microinches = 8
    Mils = 9
    Yards = 10
    Angstroms = 11
    Nanometers = 12
    Microns = 13
    Decimeters = 14
    Decameters = 15
    Hectometers = 16
    Gigameters = 17
    AstronomicalUnits = 18
    LightYears = 19
    Parsecs = 20
    USSurveyFeet = 21
