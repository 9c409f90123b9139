#include "reader/DxfForm.h"

#include <gtest/gtest.h>

namespace rasterplan_tool {

TEST(DxfForm, IsToldByTheFirstBytes) {
    using std::string_view;
    EXPECT_EQ(formOf(string_view("AutoCAD Binary DXF\r\n\x1a\0rest", 26)), DxfForm::Binary);
    EXPECT_EQ(formOf("AC1024\0"), DxfForm::Dwg);
    EXPECT_EQ(formOf("AC2.10"), DxfForm::Dwg);
    for (const string_view text :
         {"", "A", "AC", "ACAD", "0\nSECTION\n", "999\nAC1024\n", "AutoCAD Binary DXF\r\n"})
        EXPECT_EQ(formOf(text), DxfForm::Text) << text;
}

} // namespace rasterplan_tool
