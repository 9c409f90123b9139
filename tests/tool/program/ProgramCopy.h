#pragma once

#include "tool/TestFiles.h"
#include "tool/program/Program.h"

#include <filesystem>

namespace rasterplan_tool {

/// A copy of the program with a library of its own and no template yet, so that the template can be chosen.
class ProgramCopy {
public:
    ProgramCopy();

    std::filesystem::path executable() const;

    /// The place of the template beside the copy.
    std::filesystem::path templateFile() const;

    /// To run the copy.
    ProgramSetting setting() const;

private:
    TestFolder m_folder;
};

} // namespace rasterplan_tool
