#pragma once

#include "base/FileName.h"
#include "dxf/Handles.h"
#include "template/DxfSection.h"

#include <RasterPlanWriter/ImageParam.h>

#include <string_view>

namespace rasterplan {

/// The image dictionary. Its entries follow it.
struct DxfSectionObjects_DICTIONARY : DxfSection<DxfSectionObjects_DICTIONARY> {
    // clang-format off
    static consteval auto pairs() { return std::to_array<Pair<Self>>({
        {"0",   "DICTIONARY",     L"#VEXO_OBJDICT_GROUPCODE#",                 L"#VEXO_OBJDICT#"},
        {"5",   "5A",             L"#VEXO_OBJ_DICTHANDLE_GROUPCODE#",          L"#VEXO_OBJ_DICTHANDLE#"}, // the root dictionary of the template names it
        {"102", "{ACAD_REACTORS", L"#VEXO_OBJ_DICTREACTORSTARTGROUPCODE#",     L"#VEXO_OBJ_DICTREACTORSTART#"},
        {"330", "9",              L"#VEXO_OBJ_DICTREACTORHANDLE_GROUPCODE#",   L"#VEXO_OBJ_DICTREACTORHANDLE#"}, // the root dictionary
        {"102", "}",              L"#VEXO_OBJ_DICTREACTOREND_GROUPCODE#",      L"#VEXO_OBJ_DICTREACTOREND#"},
        {"330", "9",              L"#VEXO_OBJ_DICTREACTORHANDLE2_GROUPCODE#",  L"#VEXO_OBJ_DICTREACTORHANDLE2#"}, // owner: the root dictionary
        {"100", "AcDbDictionary", L"#VEXO_OBJ_SUBCLASSACDBDICT_GROUPCODESTR#", L"#VEXO_OBJ_SUBCLASSACDBDICT#"},
        {"281", "1",              L"#VEXO_OBJ_CLONEDICT_GROUPCODE#",           L"#VEXO_OBJ_CLONEDICT#"}, // duplicates keep the existing entry
    }); }
    // clang-format on
};

/// An entry of the image dictionary. It refers to the image's path.
struct DxfSectionObjects_DICTIONARYEntry : DxfSection<DxfSectionObjects_DICTIONARYEntry>, ImageHandles {
    DxfSectionObjects_DICTIONARYEntry(const ImageParam& image, const ImageHandles& handles) noexcept
        : ImageHandles(handles)
        , name(image.getImagePath() ? ZelkBase::fileNameOf(image.getImagePath()) : L"") {}

    const std::wstring_view name;

    // clang-format off
    static consteval auto pairs() { return std::to_array<Pair<Self>>({
        {"3",   &Self::name,       L"#VEXO_OBJ_NAMEOBJ_GROUPCODE#",   L"#VEXO_OBJ_NAMEOBJ#"}, // the picture's file name
        {"350", &Self::definition, L"#VEXO_OBJ_HANDLEOBJ_GROUPCODE#", L"#VEXO_OBJ_HANDLEOBJ#"}, // its definition
    }); }
    // clang-format on
};

/// The definition of an image: its file, its size in pixels and the size of one pixel. It refers to the
/// image's path.
struct DxfSectionObjects_IMAGEDEF : DxfSection<DxfSectionObjects_IMAGEDEF>, ImageHandles {
    DxfSectionObjects_IMAGEDEF(const ImageParam& image, const ImageHandles& handles) noexcept
        : ImageHandles(handles)
        , path(image.getImagePath() ? image.getImagePath() : L"")
        , pixelWidth(image.getNumPixelWidth())
        , pixelHeight(image.getNumPixelHeight())
        , pixelSize(image.getPixelSizeInMillimeter()) {}

    const std::wstring_view path;
    const double pixelWidth;
    const double pixelHeight;
    const double pixelSize;

    // clang-format off
    static consteval auto pairs() { return std::to_array<Pair<Self>>({
        {"0",   "IMAGEDEF",                 L"#VEXO_OBJ_GROUPCODE#",                             L"#VEXO_OBJNAME#"},
        {"5",   {&Self::definition, "59"},  L"#VEXO_OBJHANDLE_GROUPCODE#",                       L"#VEXO_OBJHANDLE#"},
        {"102", "{ACAD_REACTORS",           L"#VEXO_OBJ_REACTORSTARTGROUPCODE#",                 L"#VEXO_OBJ_REACTORSTART#"},
        {"330", "5A",                       L"#VEXO_OBJ_DICTHANDLEGROUPCODE#",                   L"#VEXO_OBJ_DICTHANDLE#"}, // the image dictionary
        {"330", {&Self::reactor, "5B"},     L"#VEXO_OBJ_REACTORHANDLE_GROUPCODE#",               L"#VEXO_OBJ_REACTORHANDLE#"}, // the image's reactor
        {"102", "}",                        L"#VEXO_OBJ_REACTORENDGROUPCODE#",                   L"#VEXO_OBJ_REACTOREND#"},
        {"330", "5A",                       L"#VEXO_OBJ_DICTHANDLEGROUPCODE2#",                  L"#VEXO_OBJ_DICTHANDLE2#"}, // owner: the image dictionary
        {"100", "AcDbRasterImageDef",       L"#VEXO_OBJ_SUBCLASSACDBRASTERIMGDEF_GROUPCODESTR#", L"#VEXO_OBJ_SUBCLASSACDBRASTERIMGDEF#"},
        {"90",  "0",                        L"#VEXO_OBJ_CLASSVERSION_GROUPCODE#",                L"#VEXO_OBJ_CLASSVERSION#"}, // class version
        {"1",   &Self::path,                L"#VEXO_OBJ_FILENAME_GROUPCODE#",                    L"#VEXO_OBJ_FILENAME#"}, // as the host gave it
        {"10",  &Self::pixelWidth,          L"#VEXO_OBJ_IMGSIZEU_GROUPCODE#",                    L"#VEXO_OBJ_IMGSIZEU#"}, // size in pixels
        {"20",  &Self::pixelHeight,         L"#VEXO_OBJ_IMGSIZEV_GROUPCODE#",                    L"#VEXO_OBJ_IMGSIZEV#"},
        {"11",  {&Self::pixelSize, "10.0"}, L"#VEXO_OBJ_PIXELSIZEU_GROUPCODE#",                  L"#VEXO_OBJ_PIXELSIZEU#"}, // edges of a pixel in millimetres, a square
        {"21",  {&Self::pixelSize, "10.0"}, L"#VEXO_OBJ_PIXELSIZEV_GROUPCODE#",                  L"#VEXO_OBJ_PIXELSIZEV#"},
        {"280", "1",                        L"#VEXO_OBJ_IMGLOADED_GROUPCODE#",                   L"#VEXO_OBJ_IMGLOADED#"}, // loaded
        {"281", "5",                        L"#VEXO_OBJ_RESOLUTIONUNIT_GROUPCODE#",              L"#VEXO_OBJ_RESOLUTIONUNIT#"}, // resolution unit: as it stands
    }); }
    // clang-format on
};

/// The reactor that links an image definition back to its IMAGE entity.
struct DxfSectionObjects_IMAGEDEFREACTOR : DxfSection<DxfSectionObjects_IMAGEDEFREACTOR>, ImageHandles {
    explicit DxfSectionObjects_IMAGEDEFREACTOR(const ImageHandles& handles) noexcept
        : ImageHandles(handles) {}

    // clang-format off
    static consteval auto pairs() { return std::to_array<Pair<Self>>({
        {"0",   "IMAGEDEF_REACTOR",          L"#VEXO_OBJ_IMAGEDEFREACTOR_GROUPCODE#",                    L"#VEXO_OBJIMAGEDEFREACTOR#"},
        {"5",   {&Self::reactor, "5B"},      L"#VEXO_OBJIMAGEDEFREACTORHANDLE_GROUPCODE#",               L"#VEXO_OBJIMAGEDEFREACTORHANDLE#"},
        {"330", {&Self::entity, "58"},       L"#VEXO_OBJ_IMAGEDEFREACTOR2IMAGEHANDLEGROUPCODE#",         L"#VEXO_OBJ_IMAGEDEFREACTOR2IMAGEHANDLE#"}, // owner: the IMAGE entity
        {"100", "AcDbRasterImageDefReactor", L"#VEXO_OBJ_SUBCLASSACDBRASTERIMGDEFREACTOR_GROUPCODESTR#", L"#VEXO_OBJ_SUBCLASSACDBRASTERIMGDEFREACTOR#"},
        {"90",  "2",                         L"#VEXO_OBJ_CLASSVERSIONIMAGEDEFREACTOR_GROUPCODE#",        L"#VEXO_OBJ_CLASSVERSIONIMAGEDEFREACTOR#"}, // class version
        {"330", {&Self::entity, "58"},       L"#VEXO_OBJ_IMAGEDEFREACTOR2IMAGEHANDLEGROUPCODE2#",        L"#VEXO_OBJ_IMAGEDEFREACTOR2IMAGEHANDLE2#"}, // the IMAGE entity
    }); }
    // clang-format on
};

} // namespace rasterplan
