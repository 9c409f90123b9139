#pragma once

#include "RasterPlanWriter.h" // before the other of this name

#include "../../RasterPlanWriter/ResultText.h"
