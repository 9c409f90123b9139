#pragma once

#include "dxf/Handles.h"
#include "template/DxfSection.h"

#include <RasterPlanWriter/ImageParam.h>

namespace rasterplan {

/// The IMAGE entity of an image. The clip boundary is the whole picture: half a pixel around the centres of
/// its corner pixels.
struct DxfSectionImageEntity : DxfSection<DxfSectionImageEntity>, ImageHandles {
    DxfSectionImageEntity(const ImageParam& image, const ImageHandles& handles) noexcept
        : ImageHandles(handles)
        , insertion(image.getLeftBottomCorner())
        , pixelWidth(image.getNumPixelWidth())
        , pixelHeight(image.getNumPixelHeight())
        , pixelU(MathVector3d(image.getImgUVector()) * image.getImgWidth() / pixelWidth)
        , pixelV(MathVector3d(image.getImgVVector()) * image.getImgHeight() / pixelHeight)
        , clipRight(pixelWidth - 0.5)
        , clipTop(pixelHeight - 0.5) {}

    const MathPoint3d insertion;
    const double pixelWidth;
    const double pixelHeight;
    const MathVector3d pixelU;
    const MathVector3d pixelV;
    const double clipRight;
    const double clipTop;

    // clang-format off
    static consteval auto pairs() { return std::to_array<Pair<Self>>({
        {"0",   "IMAGE",                    L"#VEXO_ENTITYIMAGE_GROUPCODE#",                          L"#VEXO_ENTITYIMAGE_NAME#"},
        {"5",   &Self::entity,              L"#VEXO_ENTITYIMAGEHANDLE_GROUPCODE#",                    L"#VEXO_ENTITYIMAGE_HANDLE#"},
        {"330", "2",                        L"#VEXO_ENTITYIMAGE_DICTHANDLE_GROUPCODE#",               L"#VEXO_ENTITYIMAGE_DICTHANDLE#"}, // owner: the template's model space
        {"100", "AcDbEntity",               L"#VEXO_ENTITYIMAGE_SUBCLASSACDBENTITY_GROUPCODESTR#",    L"#VEXO_ENTITYIMAGE_SUBCLASSACDBENTITY#"},
        {"8",   "0",                        L"#VEXO_ENTITYIMAGE_LAYER_GROUPCODE#",                    L"#VEXO_ENTITYIMAGE_LAYER#"}, // layer
        {"160", "140",                      L"#VEXO_ENTITYIMAGE_UNDEFINED1#",                         L"#VEXO_ENTITYIMAGE_UNDEFINED2#"}, // belongs to the record as it stands
        {"100", "AcDbRasterImage",          L"#VEXO_ENTITYIMAGE_SUBCLASSACDBRASTERIMAGE_GROUPCODE2#", L"#VEXO_ENTITYIMAGE_SUBCLASSACDBRASTERIMAGE#"},
        {"90",  "0",                        L"#VEXO_ENTITYIMAGE_CLASSVERSION_GROUPCODE#",             L"#VEXO_ENTITYIMAGE_CLASSVERSION#"}, // class version
        {"10",  x(&Self::insertion),        L"#VEXO_ENTITYIMAGE_INSPNTX_GROUPCODE#",                  L"#VEXO_ENTITYIMAGE_INSPNTX#"}, // left-bottom corner
        {"20",  y(&Self::insertion),        L"#VEXO_ENTITYIMAGE_INSPNTY_GROUPCODE#",                  L"#VEXO_ENTITYIMAGE_INSPNTY#"},
        {"30",  z(&Self::insertion),        L"#VEXO_ENTITYIMAGE_INSPNTZ_GROUPCODE#",                  L"#VEXO_ENTITYIMAGE_INSPNTZ#"},
        {"11",  x(&Self::pixelU),           L"#VEXO_ENTITYIMAGE_UVECX_GROUPCODE#",                    L"#VEXO_ENTITYIMAGE_UVECX#"}, // one pixel along the bottom edge
        {"21",  y(&Self::pixelU),           L"#VEXO_ENTITYIMAGE_UVECY_GROUPCODE#",                    L"#VEXO_ENTITYIMAGE_UVECY#"},
        {"31",  z(&Self::pixelU),           L"#VEXO_ENTITYIMAGE_UVECZ_GROUPCODE#",                    L"#VEXO_ENTITYIMAGE_UVECZ#"},
        {"12",  x(&Self::pixelV),           L"#VEXO_ENTITYIMAGE_VVECX_GROUPCODE#",                    L"#VEXO_ENTITYIMAGE_VVECX#"}, // one pixel along the left edge
        {"22",  y(&Self::pixelV),           L"#VEXO_ENTITYIMAGE_VVECY_GROUPCODE#",                    L"#VEXO_ENTITYIMAGE_VVECY#"},
        {"32",  z(&Self::pixelV),           L"#VEXO_ENTITYIMAGE_VVECZ_GROUPCODE#",                    L"#VEXO_ENTITYIMAGE_VVECZ#"},
        {"13",  &Self::pixelWidth,          L"#VEXO_ENTITYIMAGE_IMGSIZEU_GROUPCODE#",                 L"#VEXO_ENTITYIMAGE_IMGSIZEU#"}, // size in pixels
        {"23",  &Self::pixelHeight,         L"#VEXO_ENTITYIMAGE_IMGSIZEV_GROUPCODE#",                 L"#VEXO_ENTITYIMAGE_IMGSIZEV#"},
        {"340", &Self::definition,          L"#VEXO_ENTITYIMAGE_OBJPOINTER_GROUPCODE#",               L"#VEXO_ENTITYIMAGE_OBJPOINTER#"}, // definition
        {"70",  "15",                       L"#VEXO_ENTITYIMAGE_IMGDISPLAY_GROUPCODE#",               L"#VEXO_ENTITYIMAGE_IMGDISPLAY#"}, // shown, also when seen obliquely; clipped; transparent
        {"280", "0",                        L"#VEXO_ENTITYIMAGE_CLIPSTATE_GROUPCODE#",                L"#VEXO_ENTITYIMAGE_CLIPSTATE#"}, // clipping
        {"281", "50",                       L"#VEXO_ENTITYIMAGE_BRIGHT_GROUPCODE#",                   L"#VEXO_ENTITYIMAGE_BRIGHT#"}, // brightness
        {"282", "50",                       L"#VEXO_ENTITYIMAGE_CONTRAST_GROUPCODE#",                 L"#VEXO_ENTITYIMAGE_CONTRAST#"}, // contrast
        {"283", "0",                        L"#VEXO_ENTITYIMAGE_FADE_GROUPCODE#",                     L"#VEXO_ENTITYIMAGE_FADE#"}, // fade
        {"290", "0",                        L"#VEXO_ENTITYIMAGE_UNDEFINED3#",                         L"#VEXO_ENTITYIMAGE_UNDEFINED4#"}, // belongs to the record as it stands
        {"360", &Self::reactor,             L"#VEXO_ENTITYIMAGE_HANDLEIMGDEFREACTOR_GROUPCODE#",      L"#VEXO_ENTITYIMAGE_HANDLEIMGDEFREACTOR#"}, // reactor
        {"71",  {"1", ""},                  L"#VEXO_ENTITYIMAGE_CLIPBOUNDTYPE_GROUPCODE#",            L"#VEXO_ENTITYIMAGE_CLIPBOUNDTYPE#"}, // clip boundary: a rectangle
        {"91",  {"2", ""},                  L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTNUM_GROUPCODE#",         L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTNUM#"}, // of two corners, in pixels
        {"14",  "-0.5",                     L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTX1_GROUPCODE#",          L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTX1#"}, // first corner
        {"24",  "-0.5",                     L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTY1_GROUPCODE#",          L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTY1#"},
        {"14",  {&Self::clipRight, "-0.5"}, L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTX2_GROUPCODE#",          L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTX2#"}, // opposite corner
        {"24",  {&Self::clipTop, "-0.5"},   L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTY2_GROUPCODE#",          L"#VEXO_ENTITYIMAGE_CLIPBOUNDVERTY2#"},
    }); }
    // clang-format on
};

/// The LINE entity of a line.
struct DxfSectionLineEntity : DxfSection<DxfSectionLineEntity> {
    DxfSectionLineEntity(const MathPoint3d& start_, const MathPoint3d& end_, Handle handle_) noexcept
        : handle(handle_)
        , start(start_)
        , end(end_) {}

    const Handle handle;
    const MathPoint3d start;
    const MathPoint3d end;

    // clang-format off
    static consteval auto pairs() { return std::to_array<Pair<Self>>({
        {"0",   "LINE",          L"#VEXO_ENTITYLINE_GROUPCODE#",                       L"#VEXO_ENTITYLINE_NAME#"},
        {"5",   &Self::handle,   L"#VEXO_ENTITYLINEHANDLE_GROUPCODE#",                 L"#VEXO_ENTITYLINEHANDLE#"},
        {"100", "AcDbEntity",    L"#VEXO_ENTITYLINE_SUBCLASSACDBENTITY_GROUPCODESTR#", L"#VEXO_ENTITYLINE_SUBCLASSACDBENTITY#"},
        {"8",   "0",             L"#VEXO_ENTITYLINE_LAYER_GROUPCODE#",                 L"#VEXO_ENTITYLINE_LAYER#"}, // layer
        {"100", "AcDbLine",      L"#VEXO_ENTITYLINE_CLASSACDBLINE_GROUPCODE2#",        L"#VEXO_ENTITYLINE_CLASSACDLINE#"},
        {"10",  x(&Self::start), L"#VEXO_ENTITYLINE_STARTPNTX_GROUPCODE#",             L"#VEXO_ENTITYLINE_STARTPNTX#"},
        {"20",  y(&Self::start), L"#VEXO_ENTITYLINE_STARTPNTY_GROUPCODE#",             L"#VEXO_ENTITYLINE_STARTPNTY#"},
        {"30",  z(&Self::start), L"#VEXO_ENTITYLINE_STARTPNTZ_GROUPCODE#",             L"#VEXO_ENTITYLINE_STARTPNTZ#"},
        {"11",  x(&Self::end),   L"#VEXO_ENTITYLINE_ENDPNTXGROUPCODE#",                L"#VEXO_ENTITYLINE_ENDPNTX#"},
        {"21",  y(&Self::end),   L"#VEXO_ENTITYLINE_ENDPNTY_GROUPCODE#",               L"#VEXO_ENTITYLINE_ENDPNTY#"},
        {"31",  z(&Self::end),   L"#VEXO_ENTITYLINE_ENDPNTZ_GROUPCODE#",               L"#VEXO_ENTITYLINE_ENDPNTZ#"},
    }); }
    // clang-format on
};

} // namespace rasterplan
