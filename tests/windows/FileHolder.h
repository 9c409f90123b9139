#pragma once

#include "Process.h"

#include <optional>

namespace rasterplan::test {

/// Another process that holds a file open for reading during this object's life.
class FileHolder {
public:
    /// `sharing`: what it allows others meanwhile, FILE_SHARE_READ and so on, 0 for nothing. Returns when the
    /// file is open. Throws std::runtime_error when that fails.
    FileHolder(const std::filesystem::path& file, DWORD sharing);
    ~FileHolder();
    FileHolder(const FileHolder&) = delete;
    FileHolder& operator=(const FileHolder&) = delete;

private:
    HANDLE m_opened;
    HANDLE m_release;
    std::optional<Process> m_process;
};

} // namespace rasterplan::test
