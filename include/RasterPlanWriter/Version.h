#pragma once

// The version of these headers, for the preprocessor. A major version keeps what a host relies on; a minor
// one adds to it; a patch changes neither.

#define RASTERPLANWRITER_VERSION_MAJOR 1
#define RASTERPLANWRITER_VERSION_MINOR 0
#define RASTERPLANWRITER_VERSION_PATCH 0

/// The three numbers as a text: "1.0.0".
#define RASTERPLANWRITER_VERSION "1.0.0"
