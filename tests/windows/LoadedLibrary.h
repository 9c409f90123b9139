#pragma once

#include <filesystem>
#include <string>

#include <windows.h>

namespace rasterplan::test {

/// The library as a host uses it that knows only its file: loaded by path, every function looked up by name.
/// Freed at the end. Throws std::runtime_error when the file cannot be loaded or lacks a function.
class LoadedLibrary {
public:
    explicit LoadedLibrary(const std::wstring& file);
    ~LoadedLibrary();
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;

    /// The path that the system reports for the loaded file.
    std::wstring path() const;

    /// What fnRasterPlanWriter returns.
    int call() const;

    /// The value of nRasterPlanWriter.
    int spareVariable() const;

    /// Writes a drawing of one image and returns the result's number.
    int writeDrawing(const wchar_t* output) const;

private:
    template <typename Function>
    Function* find(const char* name) const;

    HMODULE m_module;
};

} // namespace rasterplan::test
