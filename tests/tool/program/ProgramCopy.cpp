#include "tool/program/ProgramCopy.h"

#include "base/PathText.h"

namespace fs = std::filesystem;

namespace rasterplan_tool {

ProgramCopy::ProgramCopy() {
    fs::copy_file(pathFromUtf8(RASTERPLAN_EXE), executable());
    const fs::path library = pathFromUtf8(RASTERPLAN_LIBRARY);
    if (library.extension() == ".a" || library.extension() == ".lib")
        return;
    // on Linux the program asks for the library by the name with the major version
    const std::string stem = utf8FromPath(library.stem().stem().stem().stem());
    for (const fs::directory_entry& entry : fs::directory_iterator(library.parent_path()))
        if (utf8FromPath(entry.path().filename()).starts_with(stem + '.'))
            fs::copy_file(entry.path(), m_folder.path() / entry.path().filename());
}

fs::path ProgramCopy::executable() const {
    return m_folder.path() / pathFromUtf8(RASTERPLAN_EXE).filename();
}

fs::path ProgramCopy::templateFile() const {
    return m_folder / "PrepImageAbschnitte_2010.template";
}

ProgramSetting ProgramCopy::setting() const {
    ProgramSetting setting;
    setting.executable = executable();
#ifndef _WIN32
    setting.shellBefore = "LD_LIBRARY_PATH='" + utf8FromPath(m_folder.path()) + "'; export LD_LIBRARY_PATH; ";
#endif
    return setting;
}

} // namespace rasterplan_tool
