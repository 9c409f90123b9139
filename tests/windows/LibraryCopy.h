#pragma once

#include <string>
#include <vector>

namespace rasterplan::test {

/// The library and its template, copied into a folder of any length and any name; all is removed at the end.
/// Throws std::runtime_error when that fails.
class LibraryCopy {
public:
    /// Into this folder, which is made with all that is missing above it.
    explicit LibraryCopy(const std::wstring& folder);
    ~LibraryCopy();
    LibraryCopy(const LibraryCopy&) = delete;
    LibraryCopy& operator=(const LibraryCopy&) = delete;

    std::wstring library() const { return m_folder + L"\\RasterPlanWriter.dll"; }
    std::wstring templateFile() const { return m_folder + L"\\PrepImageAbschnitte_2010.template"; }

private:
    std::wstring m_folder;
    std::vector<std::wstring> m_madeFolders;
};

/// A folder below `base` whose path has this length, at least two more than the base's.
std::wstring folderOfLength(const std::wstring& base, std::size_t length);

/// The path in the form that has no limit of length.
std::wstring unlimited(const std::wstring& path);

} // namespace rasterplan::test
