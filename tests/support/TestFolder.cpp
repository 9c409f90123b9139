#include "support/TestFolder.h"

#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace fs = std::filesystem;

namespace rasterplan::test {

TestFolder::TestFolder() {
    std::random_device random;
    m_path = fs::canonical(fs::temp_directory_path()) / pathFromUtf8("plan täst " + std::to_string(random()));
    fs::create_directory(m_path);
}

TestFolder::~TestFolder() {
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

fs::path TestFolder::operator/(std::string_view entry) const {
    return m_path / pathFromUtf8(entry);
}

fs::path pathFromUtf8(std::string_view text) {
    return fs::path(std::u8string(text.begin(), text.end()));
}

std::string utf8FromPath(const fs::path& path) {
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

std::string readBytes(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw std::runtime_error("cannot open " + utf8FromPath(file));
    return {std::istreambuf_iterator<char>(stream), {}};
}

void writeBytes(const fs::path& file, std::string_view bytes) {
    std::ofstream stream(file, std::ios::binary);
    if (!(stream << bytes).flush())
        throw std::runtime_error("cannot write " + utf8FromPath(file));
}

} // namespace rasterplan::test
