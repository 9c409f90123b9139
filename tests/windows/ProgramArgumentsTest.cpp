#include "Process.h"
#include "support/TestFolder.h"
#include "support/WideText.h"

#include <gtest/gtest.h>

using namespace rasterplan::test;

namespace {

constexpr const char* site = R"({"images": [{"path": "süd.png", "leftTop": [0, 0, 3],
    "leftBottom": [0, 0, 0], "rightBottom": [5, 0, 0], "pixelsPerUnit": 200}]})";

} // namespace

TEST(ProgramArguments, MayHoldAnyLetter) {
    const TestFolder test;
    for (const char* name : {"Größe Maß", "図面", "폴더 é", "home \xF0\x9F\x8F\xA0"}) {
        const std::string folder = name;
        std::filesystem::create_directory(test / folder);
        writeBytes(test / (folder + "/SITE.json"), site);
        const std::filesystem::path out = test / (folder + "/" + name + ".dxf");
        const Process program(pathFromUtf8(RASTERPLAN_EXE).make_preferred(),
                              {L"3d", (test / (folder + "/SITE.json")).wstring(), out.wstring()});
        EXPECT_EQ(program.status(), 0u) << name;
        ASSERT_TRUE(std::filesystem::exists(out)) << name;
        EXPECT_NE(readBytes(out).find("süd.png"), std::string::npos) << name;
    }
}

TEST(ProgramArguments, MissingSiteWithLettersOutsideTheCodePageFails) {
    const TestFolder test;
    const Process program(pathFromUtf8(RASTERPLAN_EXE).make_preferred(),
                          {L"3d", (test / "図面.json").wstring(), (test / "out.dxf").wstring()});
    EXPECT_NE(program.status(), 0u);
    EXPECT_FALSE(std::filesystem::exists(test / "out.dxf"));
}
