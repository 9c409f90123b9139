#pragma once

#include <stdint.h>

/// Length unit of an image's coordinates. The numbers are the codes of the DXF header variable $INSUNITS and
/// are written into the drawing unchanged.
enum DrawingUnit : int32_t {
    Unitless = 0, ///< No unit; sizes in millimetres are reckoned as if it were metres.
    Inches = 1,
    Feet = 2,
    Miles = 3,
    Millimeters = 4,
    Centimeters = 5,
    Meters = 6, ///< The default of every ImageParam.
    Kilometers = 7,
    Microinches = 8,
    Mils = 9,
    Yards = 10,
    Angstroms = 11,
    Nanometers = 12,
    Microns = 13,
    Decimeters = 14,
    Decameters = 15,
    Hectometers = 16,
    Gigameters = 17,
    AstronomicalUnits = 18,
    LightYears = 19,
    Parsecs = 20,
    USSurveyFeet = 21
};
