#pragma once

#include "template/DxfSection.h"

namespace rasterplan {

/// The active viewport.
struct DxfSectionTable_VPORT : DxfSection<DxfSectionTable_VPORT> {
    DxfSectionTable_VPORT(const MathVector3d& direction_, const MathPoint3d& target_, double height_,
                          double ratio_, double twist_) noexcept
        : direction(direction_)
        , target(target_)
        , height(height_)
        , ratio(ratio_)
        , twist(twist_) {}

    const MathVector3d direction;
    const MathPoint3d target;
    const double height;
    const double ratio;
    const double twist;

    // clang-format off
    static consteval auto pairs() { return std::to_array<Pair<Self>>({
        {"0",   "VPORT",                   L"#VEXO_TABLE_VPORTGROUPCODE#",                           L"#VEXO_TABLE_VPORT_NAME#"},
        {"5",   "29",                      L"#VEXO_TABLE_VPORTHANDLE_GROUPCODE#",                    L"#VEXO_TABLE_VPORTHANDLE_HANDLE#"}, // fixed
        {"100", "AcDbSymbolTableRecord",   L"#VEXO_TABLE_VPORT_SUBCLASSSYMBOLTABLE_GROUPCODESTR#",   L"#VEXO_TABLE_VPORT_SUBCLASSSYMBOLTABLE#"},
        {"100", "AcDbViewportTableRecord", L"#VEXO_TABLE_VPORT_SUBCLASSVIEWPORTTABLE_GROUPCODESTR#", L"#VEXO_TABLE_VPORT_SUBCLASSVIEWPORTTABLE#"},
        {"2",   "*ACTIVE",                 L"#VEXO_TABLE_VPORTCADNAME_GROUPCODE#",                   L"#VEXO_TABLE_VPORTCADNAME#"},
        {"70",  "0",                       L"#VEXO_TABLE_VPORTEXT_GROUPCODE#",                       L"#VEXO_TABLE_VPORTEXT#"}, // flags
        {"10",  "0",                       L"#VEXO_TABLE_VPORTLOWLEFTCORNER_X_GROUPCODE#",           L"#VEXO_TABLE_VPORTLOWLEFTCORNER_X#"}, // lower-left corner on the screen
        {"20",  "0",                       L"#VEXO_TABLE_VPORTLOWLEFTCORNER_Y_GROUPCODE#",           L"#VEXO_TABLE_VPORTLOWLEFTCORNER_Y#"},
        {"11",  "1.0",                     L"#VEXO_TABLE_VPORTUPRIGHTCORNER_X_GROUPCODE#",           L"#VEXO_TABLE_VPORTUPRIGHTCORNER_X#"}, // upper-right corner on the screen
        {"21",  "1.0",                     L"#VEXO_TABLE_VPORTUPRIGHTCORNER_Y_GROUPCODE#",           L"#VEXO_TABLE_VPORTUPRIGHTCORNER_Y#"},
        {"12",  "0.0",                     L"#VEXO_TABLE_VPORTCENTERPOINT_X_GROUPCODE#",             L"#VEXO_TABLE_VPORTCENTERPOINT_X#"}, // centre
        {"22",  "0.0",                     L"#VEXO_TABLE_VPORTCENTERPOINT_Y_GROUPCODE#",             L"#VEXO_TABLE_VPORTCENTERPOINT_Y#"},
        {"13",  "0.0",                     L"#VEXO_TABLE_VPORTSNAPPOINT_X_GROUPCODE#",               L"#VEXO_TABLE_VPORTSNAPPOINT_X#"}, // snap base
        {"23",  "0.0",                     L"#VEXO_TABLE_VPORTSNAPPOINT_Y_GROUPCODE#",               L"#VEXO_TABLE_VPORTSNAPPOINT_Y#"},
        {"14",  "0.5",                     L"#VEXO_TABLE_VPORTSNAPSPACE_X_GROUPCODE#",               L"#VEXO_TABLE_VPORTSNAPSPACE_X#"}, // snap spacing
        {"24",  "0.5",                     L"#VEXO_TABLE_VPORTSNAPSPACE_Y_GROUPCODE#",               L"#VEXO_TABLE_VPORTSNAPSPACE_Y#"},
        {"15",  "0.5",                     L"#VEXO_TABLE_VPORTGRIDSPACE_X_GROUPCODE#",               L"#VEXO_TABLE_VPORTGRIDSPACE_X#"}, // grid spacing
        {"25",  "0.5",                     L"#VEXO_TABLE_VPORTGRIDSPACE_Y_GROUPCODE#",               L"#VEXO_TABLE_VPORTGRIDSPACE_Y#"},
        {"16",  x(&Self::direction),       L"#VEXO_TABLE_VPORTVIEWDIR_X_GROUPCODE#",                 L"#VEXO_TABLE_VPORTVIEWDIR_X#"}, // direction from the target to the viewer
        {"26",  y(&Self::direction),       L"#VEXO_TABLE_VPORTVIEWDIR_Y_GROUPCODE#",                 L"#VEXO_TABLE_VPORTVIEWDIR_Y#"},
        {"36",  z(&Self::direction),       L"#VEXO_TABLE_VPORTVIEWDIR_Z_GROUPCODE#",                 L"#VEXO_TABLE_VPORTVIEWDIR_Z#"},
        {"17",  x(&Self::target),          L"#VEXO_TABLE_VPORTVIEWTARGETPNT_X_GROUPCODE#",           L"#VEXO_TABLE_VPORTVIEWTARGETPNT_X#"}, // target
        {"27",  y(&Self::target),          L"#VEXO_TABLE_VPORTVIEWTARGETPNT_Y_GROUPCODE#",           L"#VEXO_TABLE_VPORTVIEWTARGETPNT_Y#"},
        {"37",  z(&Self::target),          L"#VEXO_TABLE_VPORTVIEWTARGETPNT_Z_GROUPCODE#",           L"#VEXO_TABLE_VPORTVIEWTARGETPNT_Z#"},
        {"40",  &Self::height,             L"#VEXO_TABLE_VPORTVIEWHEIGHT_GROUPCODE#",                L"#VEXO_TABLE_VPORTVIEWHEIGHT#"}, // height in drawing units
        {"41",  &Self::ratio,              L"#VEXO_TABLE_VPORTVIEWRATIO_GROUPCODE#",                 L"#VEXO_TABLE_VPORTVIEWRATIO#"}, // width to height
        {"42",  "50.0",                    L"#VEXO_TABLE_VPORTLENSLENGHT_GROUPCODE#",                L"#VEXO_TABLE_VPORTLENSLENGHT#"}, // lens length; the key is spelled so
        {"43",  "0.0",                     L"#VEXO_TABLE_VPORTFRONTCLIP_GROUPCODE#",                 L"#VEXO_TABLE_VPORTFRONTCLIP#"}, // front clipping plane
        {"44",  "0.0",                     L"#VEXO_TABLE_VPORTBACKCLIP_GROUPCODE#",                  L"#VEXO_TABLE_VPORTBACKCLIP#"}, // back clipping plane
        {"50",  "0.0",                     L"#VEXO_TABLE_VPORTSNAPROT_GROUPCODE#",                   L"#VEXO_TABLE_VPORTSNAPROT#"}, // snap rotation
        {"51",  &Self::twist,              L"#VEXO_TABLE_VPORTTWIST_GROUPCODE#",                     L"#VEXO_TABLE_VPORTTWIST#"}, // twist in degrees
        {"71",  "0.0",                     L"#VEXO_TABLE_VPORTMODE_GROUPCODE#",                      L"#VEXO_TABLE_VPORTMODE#"}, // mode; a real text, although the code is that of an integer
        {"72",  "100",                     L"#VEXO_TABLE_VPORTZOOM_GROUPCODE#",                      L"#VEXO_TABLE_VPORTZOOM#"}, // circle zoom percent
        {"73",  "1",                       L"#VEXO_TABLE_VPORTFASTZOOM_GROUPCODE#",                  L"#VEXO_TABLE_VPORTFASTZOOM#"}, // fast zoom
        {"74",  "3",                       L"#VEXO_TABLE_VPORTUCSICON_GROUPCODE#",                   L"#VEXO_TABLE_VPORTUCSICON#"}, // UCS icon
        {"75",  "0",                       L"#VEXO_TABLE_VPORTSNAP_GROUPCODE#",                      L"#VEXO_TABLE_VPORTSNAP#"}, // snap off
        {"76",  "0",                       L"#VEXO_TABLE_VPORTGRID_GROUPCODE#",                      L"#VEXO_TABLE_VPORTGRID#"}, // grid off
        {"77",  "0",                       L"#VEXO_TABLE_VPORTSNAPSTYLE_GROUPCODE#",                 L"#VEXO_TABLE_VPORTSNAPSTYLE#"}, // snap style
        {"78",  "0",                       L"#VEXO_TABLE_VPORTSNAPISO_GROUPCODE#",                   L"#VEXO_TABLE_VPORTSNAPISO#"}, // snap isometric plane
    }); }
    // clang-format on
};

} // namespace rasterplan
