#pragma once

#include "fuzz/Fuzzing.h"

#include <cstddef>
#include <string>

#include <sys/mman.h>
#include <unistd.h>

namespace rasterplan::fuzz {

/// A file without a place on any disk.
class MemoryFile {
public:
    MemoryFile(const void* data, std::size_t size)
        : m_file(memfd_create("input", MFD_CLOEXEC)) {
        demand(write(m_file, data, size) == static_cast<ssize_t>(size), "cannot write to memory");
    }
    ~MemoryFile() { close(m_file); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(m_file); }

private:
    int m_file;
};

} // namespace rasterplan::fuzz
