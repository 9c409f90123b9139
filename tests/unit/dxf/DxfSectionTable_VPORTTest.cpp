#include "dxf/DxfSectionTable_VPORT.h"

#include "ExpectedRecord.h"

#include <gtest/gtest.h>

#include <iterator>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

constexpr ExpectedLine lines[] = {
    {L"#VEXO_TABLE_VPORTGROUPCODE#", L"0"},
    {L"#VEXO_TABLE_VPORT_NAME#", L"VPORT"},
    {L"#VEXO_TABLE_VPORTHANDLE_GROUPCODE#", L"5"},
    {L"#VEXO_TABLE_VPORTHANDLE_HANDLE#", L"29"},
    {L"#VEXO_TABLE_VPORT_SUBCLASSSYMBOLTABLE_GROUPCODESTR#", L"100"},
    {L"#VEXO_TABLE_VPORT_SUBCLASSSYMBOLTABLE#", L"AcDbSymbolTableRecord"},
    {L"#VEXO_TABLE_VPORT_SUBCLASSVIEWPORTTABLE_GROUPCODESTR#", L"100"},
    {L"#VEXO_TABLE_VPORT_SUBCLASSVIEWPORTTABLE#", L"AcDbViewportTableRecord"},
    {L"#VEXO_TABLE_VPORTCADNAME_GROUPCODE#", L"2"},
    {L"#VEXO_TABLE_VPORTCADNAME#", L"*ACTIVE"},
    {L"#VEXO_TABLE_VPORTEXT_GROUPCODE#", L"70"},
    {L"#VEXO_TABLE_VPORTEXT#", L"0"},
    {L"#VEXO_TABLE_VPORTLOWLEFTCORNER_X_GROUPCODE#", L"10"},
    {L"#VEXO_TABLE_VPORTLOWLEFTCORNER_X#", L"0"},
    {L"#VEXO_TABLE_VPORTLOWLEFTCORNER_Y_GROUPCODE#", L"20"},
    {L"#VEXO_TABLE_VPORTLOWLEFTCORNER_Y#", L"0"},
    {L"#VEXO_TABLE_VPORTUPRIGHTCORNER_X_GROUPCODE#", L"11"},
    {L"#VEXO_TABLE_VPORTUPRIGHTCORNER_X#", L"1.0"},
    {L"#VEXO_TABLE_VPORTUPRIGHTCORNER_Y_GROUPCODE#", L"21"},
    {L"#VEXO_TABLE_VPORTUPRIGHTCORNER_Y#", L"1.0"},
    {L"#VEXO_TABLE_VPORTCENTERPOINT_X_GROUPCODE#", L"12"},
    {L"#VEXO_TABLE_VPORTCENTERPOINT_X#", L"0.0"},
    {L"#VEXO_TABLE_VPORTCENTERPOINT_Y_GROUPCODE#", L"22"},
    {L"#VEXO_TABLE_VPORTCENTERPOINT_Y#", L"0.0"},
    {L"#VEXO_TABLE_VPORTSNAPPOINT_X_GROUPCODE#", L"13"},
    {L"#VEXO_TABLE_VPORTSNAPPOINT_X#", L"0.0"},
    {L"#VEXO_TABLE_VPORTSNAPPOINT_Y_GROUPCODE#", L"23"},
    {L"#VEXO_TABLE_VPORTSNAPPOINT_Y#", L"0.0"},
    {L"#VEXO_TABLE_VPORTSNAPSPACE_X_GROUPCODE#", L"14"},
    {L"#VEXO_TABLE_VPORTSNAPSPACE_X#", L"0.5"},
    {L"#VEXO_TABLE_VPORTSNAPSPACE_Y_GROUPCODE#", L"24"},
    {L"#VEXO_TABLE_VPORTSNAPSPACE_Y#", L"0.5"},
    {L"#VEXO_TABLE_VPORTGRIDSPACE_X_GROUPCODE#", L"15"},
    {L"#VEXO_TABLE_VPORTGRIDSPACE_X#", L"0.5"},
    {L"#VEXO_TABLE_VPORTGRIDSPACE_Y_GROUPCODE#", L"25"},
    {L"#VEXO_TABLE_VPORTGRIDSPACE_Y#", L"0.5"},
    {L"#VEXO_TABLE_VPORTVIEWDIR_X_GROUPCODE#", L"16"},
    {L"#VEXO_TABLE_VPORTVIEWDIR_X#", L"0", filled},
    {L"#VEXO_TABLE_VPORTVIEWDIR_Y_GROUPCODE#", L"26"},
    {L"#VEXO_TABLE_VPORTVIEWDIR_Y#", L"0", filled},
    {L"#VEXO_TABLE_VPORTVIEWDIR_Z_GROUPCODE#", L"36"},
    {L"#VEXO_TABLE_VPORTVIEWDIR_Z#", L"1", filled},
    {L"#VEXO_TABLE_VPORTVIEWTARGETPNT_X_GROUPCODE#", L"17"},
    {L"#VEXO_TABLE_VPORTVIEWTARGETPNT_X#", L"0", filled},
    {L"#VEXO_TABLE_VPORTVIEWTARGETPNT_Y_GROUPCODE#", L"27"},
    {L"#VEXO_TABLE_VPORTVIEWTARGETPNT_Y#", L"0", filled},
    {L"#VEXO_TABLE_VPORTVIEWTARGETPNT_Z_GROUPCODE#", L"37"},
    {L"#VEXO_TABLE_VPORTVIEWTARGETPNT_Z#", L"0", filled},
    {L"#VEXO_TABLE_VPORTVIEWHEIGHT_GROUPCODE#", L"40"},
    {L"#VEXO_TABLE_VPORTVIEWHEIGHT#", L"", filled},
    {L"#VEXO_TABLE_VPORTVIEWRATIO_GROUPCODE#", L"41"},
    {L"#VEXO_TABLE_VPORTVIEWRATIO#", L"", filled},
    {L"#VEXO_TABLE_VPORTLENSLENGHT_GROUPCODE#", L"42"},
    {L"#VEXO_TABLE_VPORTLENSLENGHT#", L"50.0"},
    {L"#VEXO_TABLE_VPORTFRONTCLIP_GROUPCODE#", L"43"},
    {L"#VEXO_TABLE_VPORTFRONTCLIP#", L"0.0"},
    {L"#VEXO_TABLE_VPORTBACKCLIP_GROUPCODE#", L"44"},
    {L"#VEXO_TABLE_VPORTBACKCLIP#", L"0.0"},
    {L"#VEXO_TABLE_VPORTSNAPROT_GROUPCODE#", L"50"},
    {L"#VEXO_TABLE_VPORTSNAPROT#", L"0.0"},
    {L"#VEXO_TABLE_VPORTTWIST_GROUPCODE#", L"51"},
    {L"#VEXO_TABLE_VPORTTWIST#", L"0.0", filled},
    {L"#VEXO_TABLE_VPORTMODE_GROUPCODE#", L"71"},
    {L"#VEXO_TABLE_VPORTMODE#", L"0.0"},
    {L"#VEXO_TABLE_VPORTZOOM_GROUPCODE#", L"72"},
    {L"#VEXO_TABLE_VPORTZOOM#", L"100"},
    {L"#VEXO_TABLE_VPORTFASTZOOM_GROUPCODE#", L"73"},
    {L"#VEXO_TABLE_VPORTFASTZOOM#", L"1"},
    {L"#VEXO_TABLE_VPORTUCSICON_GROUPCODE#", L"74"},
    {L"#VEXO_TABLE_VPORTUCSICON#", L"3"},
    {L"#VEXO_TABLE_VPORTSNAP_GROUPCODE#", L"75"},
    {L"#VEXO_TABLE_VPORTSNAP#", L"0"},
    {L"#VEXO_TABLE_VPORTGRID_GROUPCODE#", L"76"},
    {L"#VEXO_TABLE_VPORTGRID#", L"0"},
    {L"#VEXO_TABLE_VPORTSNAPSTYLE_GROUPCODE#", L"77"},
    {L"#VEXO_TABLE_VPORTSNAPSTYLE#", L"0"},
    {L"#VEXO_TABLE_VPORTSNAPISO_GROUPCODE#", L"78"},
    {L"#VEXO_TABLE_VPORTSNAPISO#", L"0"},
};

} // namespace

TEST(DxfSectionTable_VPORT, HasTheseLines) {
    ASSERT_EQ(std::size(lines), 78u);
    expectTable(viewportTable, lines);
    expectLines(DxfSectionTable_VPORT(), lines);
}

TEST(DxfSectionTable_VPORT, LooksDownOnThePlaneAtFirst) {
    EXPECT_EQ(DxfSectionTable_VPORT().render(), L"0\nVPORT\n"
                                                L"5\n29\n"
                                                L"100\nAcDbSymbolTableRecord\n"
                                                L"100\nAcDbViewportTableRecord\n"
                                                L"2\n*ACTIVE\n"
                                                L"70\n0\n"
                                                L"10\n0\n20\n0\n"
                                                L"11\n1.0\n21\n1.0\n"
                                                L"12\n0.0\n22\n0.0\n"
                                                L"13\n0.0\n23\n0.0\n"
                                                L"14\n0.5\n24\n0.5\n"
                                                L"15\n0.5\n25\n0.5\n"
                                                L"16\n0\n26\n0\n36\n1\n"
                                                L"17\n0\n27\n0\n37\n0\n"
                                                L"40\n\n41\n\n"
                                                L"42\n50.0\n43\n0.0\n44\n0.0\n"
                                                L"50\n0.0\n51\n0.0\n"
                                                L"71\n0.0\n"
                                                L"72\n100\n73\n1\n74\n3\n"
                                                L"75\n0\n76\n0\n77\n0\n78\n0\n");
}
