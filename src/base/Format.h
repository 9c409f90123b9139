#pragma once

#include "base/Text.h"

#include <initializer_list>

namespace ZelkBase {

/// `format` with every placeholder %kNN (two decimal digits) replaced by argument NN, counted from 1.
/// Arguments that hold placeholders are inserted as they stand. A placeholder is escaped by an even count of
/// percent signs ("%%k01"), those counted with which an argument before it ends; all percent signs are kept,
/// and so is "%k" that is not followed by two digits.
/// Throws Error ("Format string has invalid list of arguments") when NN is 0 or above the number of
/// arguments.
Text format(const Text& format, std::initializer_list<Text> arguments);

} // namespace ZelkBase
