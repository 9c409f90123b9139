#pragma once

#include "../../RasterPlanWriter/Version.h" // the very same
