#pragma once

/// @file
/// The version of these headers, for the preprocessor.

#define RASTERPLANWRITER_VERSION_MAJOR 1 ///< Within one version, what a host relies on is kept.
#define RASTERPLANWRITER_VERSION_MINOR 0 ///< A higher one adds to it.
#define RASTERPLANWRITER_VERSION_PATCH 0 ///< A higher one neither changes nor adds.

/// The three numbers as a text: "1.0.0".
#define RASTERPLANWRITER_VERSION "1.0.0"
