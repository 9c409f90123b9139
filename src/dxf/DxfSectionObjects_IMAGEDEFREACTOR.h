#pragma once

#include "template/DxfSection.h"
#include "template/SectionTable.h"

namespace rasterplan {

/// The reactor that links an image definition back to its IMAGE entity.
inline constexpr auto imageDefReactorRows = RecordTable({
    {L"#VEXO_OBJ_IMAGEDEFREACTOR_GROUPCODE#", "0"},
    {L"#VEXO_OBJIMAGEDEFREACTOR#", "IMAGEDEF_REACTOR"},
    {L"#VEXO_OBJIMAGEDEFREACTORHANDLE_GROUPCODE#", "5"},
    {L"#VEXO_OBJIMAGEDEFREACTORHANDLE#", "5B", filled},
    {L"#VEXO_OBJ_IMAGEDEFREACTOR2IMAGEHANDLEGROUPCODE#", "330"},
    {L"#VEXO_OBJ_IMAGEDEFREACTOR2IMAGEHANDLE#", "58", filled},
    {L"#VEXO_OBJ_SUBCLASSACDBRASTERIMGDEFREACTOR_GROUPCODESTR#", "100"},
    {L"#VEXO_OBJ_SUBCLASSACDBRASTERIMGDEFREACTOR#", "AcDbRasterImageDefReactor"},
    {L"#VEXO_OBJ_CLASSVERSIONIMAGEDEFREACTOR_GROUPCODE#", "90"},
    {L"#VEXO_OBJ_CLASSVERSIONIMAGEDEFREACTOR#", "2"},
    {L"#VEXO_OBJ_IMAGEDEFREACTOR2IMAGEHANDLEGROUPCODE2#", "330"},
    {L"#VEXO_OBJ_IMAGEDEFREACTOR2IMAGEHANDLE2#", "58", filled},
});
inline constexpr SectionTable imageDefReactorTable = imageDefReactorRows.table();

/// One reactor with default handles.
class DxfSectionObjects_IMAGEDEFREACTOR final : public DxfSection {
public:
    DxfSectionObjects_IMAGEDEFREACTOR()
        : DxfSection(imageDefReactorTable) {}
};

} // namespace rasterplan
