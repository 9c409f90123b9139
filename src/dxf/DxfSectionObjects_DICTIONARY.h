#pragma once

#include "template/DxfSection.h"
#include "template/SectionTable.h"

#include <cstdint>

namespace rasterplan {

/// The image dictionary, owned by the template's root dictionary, 9. The template names it there.
inline constexpr auto imageDictionaryRows = RecordTable({
    {L"#VEXO_OBJDICT_GROUPCODE#", "0"},
    {L"#VEXO_OBJDICT#", "DICTIONARY"},
    {L"#VEXO_OBJ_DICTHANDLE_GROUPCODE#", "5"},
    {L"#VEXO_OBJ_DICTHANDLE#", "5A"},
    {L"#VEXO_OBJ_DICTREACTORSTARTGROUPCODE#", "102"},
    {L"#VEXO_OBJ_DICTREACTORSTART#", "{ACAD_REACTORS"},
    {L"#VEXO_OBJ_DICTREACTORHANDLE_GROUPCODE#", "330"},
    {L"#VEXO_OBJ_DICTREACTORHANDLE#", "9"},
    {L"#VEXO_OBJ_DICTREACTOREND_GROUPCODE#", "102"},
    {L"#VEXO_OBJ_DICTREACTOREND#", "}"},
    {L"#VEXO_OBJ_DICTREACTORHANDLE2_GROUPCODE#", "330"},
    {L"#VEXO_OBJ_DICTREACTORHANDLE2#", "9"},
    {L"#VEXO_OBJ_SUBCLASSACDBDICT_GROUPCODESTR#", "100"},
    {L"#VEXO_OBJ_SUBCLASSACDBDICT#", "AcDbDictionary"},
    {L"#VEXO_OBJ_CLONEDICT_GROUPCODE#", "281"},
    {L"#VEXO_OBJ_CLONEDICT#", "1"},
});

/// What each image adds to it; the keys carry the image's number.
inline constexpr auto imageDictionaryEntryRows = RecordTable({
    {L"#VEXO_OBJ_NAMEOBJ_GROUPCODE#", "3"},
    {L"#VEXO_OBJ_NAMEOBJ#", "", filled},
    {L"#VEXO_OBJ_HANDLEOBJ_GROUPCODE#", "350"},
    {L"#VEXO_OBJ_HANDLEOBJ#", "", filled},
});
inline constexpr SectionTable imageDictionaryEntryTable = imageDictionaryEntryRows.table();
inline constexpr SectionTable imageDictionaryTable = imageDictionaryRows.table(&imageDictionaryEntryTable);

/// The image dictionary with an entry per image, names and handles still empty.
class DxfSectionObjects_DICTIONARY final : public DxfSection {
public:
    explicit DxfSectionObjects_DICTIONARY(std::int32_t images)
        : DxfSection(imageDictionaryTable, images) {}
};

} // namespace rasterplan
