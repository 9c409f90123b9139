#include "reader/DxfPointers.h"

#include <gtest/gtest.h>

namespace rasterplan_tool {
namespace {

DxfDrawing drawingOf(const std::string& records) {
    return readDrawing("0\nSECTION\n2\nOBJECTS\n" + records + "0\nENDSEC\n0\nEOF\n");
}

} // namespace

TEST(DxfPointers, RecordsAreFoundByTheirHandles) {
    const DxfDrawing drawing = drawingOf("0\nA\n5\n1f\n0\nB\n5\n0\n0\nC\n5\n001F\n0\nD\n5\n20\n");
    const DxfHandles handles(drawing.records);
    EXPECT_EQ(handles.find("1F"), &drawing.records[1]);
    EXPECT_EQ(handles.find(" 1f", "A"), &drawing.records[1]);
    EXPECT_EQ(handles.find("1F", "C"), nullptr);
    EXPECT_EQ(handles.find("20"), &drawing.records[4]);
    for (const char* handle : {"0", "", "21", "x"})
        EXPECT_EQ(handles.find(handle), nullptr) << handle;
    EXPECT_EQ(handles.repeated(), std::vector<const DxfRecord*>{&drawing.records[3]});
}

TEST(DxfPointers, HandlesAreComparedAsNumbers) {
    EXPECT_TRUE(isSameHandle("1F", " 001f"));
    EXPECT_FALSE(isSameHandle("1F", "1E"));
    EXPECT_FALSE(isSameHandle("0", "0"));
    EXPECT_FALSE(isSameHandle("", ""));
}

TEST(DxfPointers, ReactorsOwnerAndEntriesOfARecord) {
    const DxfDrawing drawing = drawingOf(
        "0\nDICTIONARY\n5\n1\n102\n{ACAD_REACTORS\n330\n2\n330\n3\n102\n}\n102\n{ACAD_XDICTIONARY\n"
        "360\n4\n330\n5\n102\n}\n330\n6\n330\n7\n3\nfirst\n350\n8\n3\nno handle\n3\nsecond\n360\n9\n");
    const DxfRecord& record = drawing.records[1];
    EXPECT_EQ(reactorsOf(record), (std::vector<std::string>{"2", "3"}));
    EXPECT_EQ(ownerOf(record), "6");
    EXPECT_EQ(entriesOf(record),
              (std::vector<std::pair<std::string, std::string>>{{"first", "8"}, {"second", "9"}}));
    EXPECT_EQ(ownerOf(drawing.records[0]), "");
}

} // namespace rasterplan_tool
