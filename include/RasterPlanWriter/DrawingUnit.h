#pragma once

/// @file
/// The units of length.

#include <stdint.h>

/// Length unit of an image's coordinates. The numbers are the codes of the DXF header variable $INSUNITS and
/// are written into the drawing unchanged.
enum DrawingUnit : int32_t {
    Unitless = 0,           ///< No unit; sizes in millimetres are reckoned as if it were metres.
    Inches = 1,             ///< 0.0254 m.
    Feet = 2,               ///< 0.3048 m.
    Miles = 3,              ///< 1609.344 m.
    Millimeters = 4,        ///< 0.001 m.
    Centimeters = 5,        ///< 0.01 m.
    Meters = 6,             ///< The default of every ImageParam.
    Kilometers = 7,         ///< 1000 m.
    Microinches = 8,        ///< 2.54e-8 m.
    Mils = 9,               ///< 2.54e-5 m, a thousandth of an inch.
    Yards = 10,             ///< 0.9144 m.
    Angstroms = 11,         ///< 1e-10 m.
    Nanometers = 12,        ///< 1e-9 m.
    Microns = 13,           ///< 1e-6 m.
    Decimeters = 14,        ///< 0.1 m.
    Decameters = 15,        ///< 10 m.
    Hectometers = 16,       ///< 100 m.
    Gigameters = 17,        ///< 1e9 m.
    AstronomicalUnits = 18, ///< 1.4959787e11 m, as the library reckons.
    LightYears = 19,        ///< 9.46053e15 m, as the library reckons.
    Parsecs = 20,           ///< 3.085677e16 m, as the library reckons.
    USSurveyFeet = 21       ///< 1200/3937 m.
};
