// A run that is ended by Ctrl-C: the old drawing stays and nothing lies beside it.

#include "ConsoleProcess.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace rasterplan::test;

namespace {

constexpr const char* siteOfOneImage = R"({"images": [{"path": "a.png", "leftTop": [0, 0, 3],
    "leftBottom": [0, 0, 0], "rightBottom": [5, 0, 0], "pixelsPerUnit": 200}]})";

// An output that takes nothing: who prints to it waits.
class CloggedPipe {
public:
    CloggedPipe() {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        DWORD written = 0;
        EXPECT_TRUE(CreatePipe(&m_reader, &m_writer, &inherited, 1));
        EXPECT_TRUE(SetHandleInformation(m_reader, HANDLE_FLAG_INHERIT, 0));
        EXPECT_TRUE(WriteFile(m_writer, "x", 1, &written, nullptr));
    }
    ~CloggedPipe() {
        CloseHandle(m_reader);
        CloseHandle(m_writer);
    }
    CloggedPipe(const CloggedPipe&) = delete;
    CloggedPipe& operator=(const CloggedPipe&) = delete;

    HANDLE writer() const { return m_writer; }

private:
    HANDLE m_reader = nullptr;
    HANDLE m_writer = nullptr;
};

std::vector<std::string> namesIn(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(utf8FromPath(entry.path().filename()));
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

TEST(ProgramCtrlC, RemovesTheUnfinishedDrawingAndKeepsTheOldOne) {
    const TestFolder test;
    writeBytes(test / "SITE.json", siteOfOneImage);
    writeBytes(test / "out.dxf", "good drawing");
    const std::vector<std::string> names = namesIn(test.path());
    const CloggedPipe output;
    const ConsoleProcess program(pathFromUtf8(RASTERPLAN_EXE).make_preferred(),
                                 {L"3d", (test / "SITE.json").wstring(), (test / "out.dxf").wstring()},
                                 output.writer());
    while (namesIn(test.path()) == names)
        ASSERT_FALSE(program.statusWithin(1).has_value()) << "it has ended";

    program.pressCtrlC();
    EXPECT_EQ(program.statusWithin(60000), static_cast<DWORD>(STATUS_CONTROL_C_EXIT));
    EXPECT_EQ(namesIn(test.path()), names);
    EXPECT_EQ(readBytes(test / "out.dxf"), "good drawing");
}
