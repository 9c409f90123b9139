#include "LibraryCopy.h"

#include "support/TestFolder.h"

#include <stdexcept>

#include <windows.h>

namespace rasterplan::test {
namespace {

void copy(const char* source, const std::wstring& target) {
    const std::wstring from = pathFromUtf8(source).make_preferred().wstring();
    if (!CopyFileW(from.c_str(), unlimited(target).c_str(), FALSE))
        throw std::runtime_error("cannot copy: error " + std::to_string(GetLastError()));
}

} // namespace

LibraryCopy::LibraryCopy(const std::wstring& folder)
    : m_folder(folder) {
    for (std::size_t end = folder.find(L'\\'); end != std::wstring::npos;) {
        end = folder.find(L'\\', end + 1);
        const std::wstring part = folder.substr(0, end);
        if (CreateDirectoryW(unlimited(part).c_str(), nullptr))
            m_madeFolders.push_back(part);
    }
    copy(RASTERPLAN_LIBRARY, library());
    copy(RASTERPLAN_TEMPLATE_FILE, templateFile());
}

LibraryCopy::~LibraryCopy() {
    for (const std::wstring& file : {library(), templateFile()}) {
        SetFileAttributesW(unlimited(file).c_str(), FILE_ATTRIBUTE_NORMAL);
        DeleteFileW(unlimited(file).c_str());
    }
    for (; !m_madeFolders.empty(); m_madeFolders.pop_back())
        RemoveDirectoryW(unlimited(m_madeFolders.back()).c_str());
}

std::wstring folderOfLength(const std::wstring& base, std::size_t length) {
    // No name may be longer than 255 characters, and none may be empty.
    std::wstring folder = base;
    while (folder.size() + 1 < length) {
        std::size_t name = length - folder.size() - 1;
        if (name > 100)
            name = name == 101 ? 50 : 100;
        folder += L'\\' + std::wstring(name, L'm');
    }
    return folder;
}

std::wstring unlimited(const std::wstring& path) {
    return L"\\\\?\\" + path;
}

} // namespace rasterplan::test
