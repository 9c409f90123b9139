#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace rasterplan::test {

/// A folder of its own for one test, removed with all that is in it. Its name holds a blank and letters
/// outside ASCII, so that every test that uses it covers them.
class TestFolder {
public:
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    /// The folder, absolute.
    const std::filesystem::path& path() const { return m_path; }

    /// The path of an entry, given in UTF-8 with '/' between folders.
    std::filesystem::path operator/(std::string_view entry) const;

private:
    std::filesystem::path m_path;
};

/// The path that a UTF-8 text names.
std::filesystem::path pathFromUtf8(std::string_view text);

/// The UTF-8 text of a path, with '/' between folders.
std::string utf8FromPath(const std::filesystem::path& path);

/// The bytes of a file. Throws std::runtime_error if it cannot be opened.
std::string readBytes(const std::filesystem::path& file);

/// Writes a file anew. Throws std::runtime_error if that fails.
void writeBytes(const std::filesystem::path& file, std::string_view bytes);

} // namespace rasterplan::test
