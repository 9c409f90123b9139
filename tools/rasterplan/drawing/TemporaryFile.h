#pragma once

#include <filesystem>

namespace rasterplan_tool {

/// While one lives, a file that does not outlive the program: a run that is ended from outside (Ctrl-C, the
/// end of the session, a closed pipe) removes it first. At the end of its life it removes the file too.
/// At most one at a time.
class TemporaryFile {
public:
    /// The file need not exist yet.
    explicit TemporaryFile(std::filesystem::path path);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::filesystem::path& path() const noexcept { return m_path; }

private:
    std::filesystem::path m_path;
};

} // namespace rasterplan_tool
