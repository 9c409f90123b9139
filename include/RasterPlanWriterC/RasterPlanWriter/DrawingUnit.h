#pragma once

#include "../../RasterPlanWriter/DrawingUnit.h" // the very same
