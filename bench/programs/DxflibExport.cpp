// The pictures as dxflib writes them: an IMAGE, its IMAGEDEF and the six lines of the frame each, by dxflib's
// own record functions; or the same groups one by one, with the numbers as texts that std::to_chars has made.

#include "Drawing.h"

#include <dxflib/dl_dxf.h>
#include <dxflib/dl_writer_ascii.h>

#include <charconv>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

namespace {

using bench::Drawing;
using bench::Placed;
using bench::Point;

DL_ImageData imageData(const Placed& picture) {
    const Point& corner = picture.corner;
    const Point u = picture.pixelU();
    const Point v = picture.pixelV();
    return DL_ImageData(picture.path, corner.x, corner.y, corner.z, u.x, u.y, u.z, v.x, v.y, v.z,
                        static_cast<int>(picture.pixelWidth), static_cast<int>(picture.pixelHeight), 50, 50,
                        0);
}

class OwnNumbers {
public:
    OwnNumbers(DL_Dxf& dxf, DL_WriterA& writer)
        : m_dxf(dxf)
        , m_writer(writer) {}

    // Returns the handle of the definition.
    unsigned long image(const DL_ImageData& image) { return m_dxf.writeImage(m_writer, image, m_attributes); }
    void line(const Point& a, const Point& b) {
        m_dxf.writeLine(m_writer, DL_LineData(a.x, a.y, a.z, b.x, b.y, b.z), m_attributes);
    }
    void definition(unsigned long handle, const DL_ImageData& image) {
        m_dxf.writeImageDef(m_writer, static_cast<int>(handle), image);
    }

private:
    DL_Dxf& m_dxf;
    DL_WriterA& m_writer;
    DL_Attributes m_attributes{"0", 256, -1, "BYLAYER", 1.0};
};

class ReadyTexts {
public:
    ReadyTexts(DL_Dxf&, DL_WriterA& writer)
        : m_writer(writer) {}

    unsigned long image(const DL_ImageData& image) {
        entity("IMAGE", "AcDbRasterImage");
        m_writer.dxfInt(90, 0);
        point(10, {image.ipx, image.ipy, image.ipz});
        point(11, {image.ux, image.uy, image.uz});
        point(12, {image.vx, image.vy, image.vz});
        number(13, image.width);
        number(23, image.height);
        const unsigned long definition = m_writer.handle(340);
        m_writer.dxfInt(70, 15);
        m_writer.dxfInt(280, 0);
        m_writer.dxfInt(281, image.brightness);
        m_writer.dxfInt(282, image.contrast);
        m_writer.dxfInt(283, image.fade);
        return definition;
    }
    void line(const Point& a, const Point& b) {
        entity("LINE", "AcDbLine");
        point(10, a);
        point(11, b);
    }
    void definition(unsigned long handle, const DL_ImageData& image) {
        m_writer.dxfString(0, "IMAGEDEF");
        m_writer.dxfHex(5, static_cast<int>(handle));
        m_writer.dxfString(100, "AcDbRasterImageDef");
        m_writer.dxfInt(90, 0);
        m_writer.dxfString(1, image.ref);
        number(10, image.width);
        number(20, image.height);
        number(11, 1.0);
        number(21, 1.0);
        m_writer.dxfInt(280, 1);
        m_writer.dxfInt(281, 0);
    }

private:
    void entity(const char* name, const char* marker) {
        m_writer.entity(name);
        m_writer.dxfString(100, "AcDbEntity");
        m_writer.entityAttributes(m_attributes);
        m_writer.dxfString(100, marker);
    }
    void point(int code, const Point& value) {
        number(code, value.x);
        number(code + 10, value.y);
        number(code + 20, value.z);
    }
    void number(int code, double value) {
        char text[340];
        *std::to_chars(text, text + sizeof text - 1, value, std::chars_format::fixed, 17).ptr = '\0';
        m_writer.dxfString(code, text);
    }

    DL_WriterA& m_writer;
    DL_Attributes m_attributes{"0", 256, -1, "BYLAYER", 1.0};
};

template <typename Records>
void write(const Drawing& drawing, DL_Dxf& dxf, DL_WriterA& writer) {
    dxf.writeHeader(writer);
    writer.sectionEnd();
    writer.sectionTables();
    dxf.writeVPort(writer);
    writer.tableLayers(1);
    dxf.writeLayer(writer, DL_LayerData("0", 0), DL_Attributes("", 7, -1, "CONTINUOUS", 1.0));
    writer.tableEnd();
    dxf.writeBlockRecord(writer);
    writer.tableEnd();
    writer.sectionEnd();
    writer.sectionBlocks();
    dxf.writeBlock(writer, DL_BlockData("*Model_Space", 0, 0.0, 0.0, 0.0));
    dxf.writeEndBlock(writer, "*Model_Space");
    writer.sectionEnd();

    Records records(dxf, writer);
    std::vector<unsigned long> definitions;
    definitions.reserve(drawing.pictures().size());
    writer.sectionEntities();
    for (const Placed& picture : drawing.pictures()) {
        definitions.push_back(records.image(imageData(picture)));
        for (const auto& [start, end] : picture.lines())
            records.line(start, end);
    }
    writer.sectionEnd();

    dxf.writeObjects(writer);
    for (std::size_t i = 0; i < definitions.size(); ++i)
        records.definition(definitions[i], imageData(drawing.pictures()[i]));
    dxf.writeObjectsEnd(writer);
    writer.dxfEOF();
}

} // namespace

int main(int argc, char** argv) {
    const std::string_view numbers = argc == 4 ? argv[1] : "";
    if (numbers != "texts" && numbers != "own") {
        std::fputs("usage: dxflib_export {texts|own} COUNT OUTPUT\n", stderr);
        return 2;
    }
    const Drawing drawing(static_cast<std::size_t>(std::atoi(argv[2])));
    DL_Dxf dxf;
    const std::unique_ptr<DL_WriterA> writer(dxf.out(argv[3], DL_Codes::AC1015));
    if (!writer)
        return 1;
    if (numbers == "own")
        write<OwnNumbers>(drawing, dxf, *writer);
    else
        write<ReadyTexts>(drawing, dxf, *writer);
    writer->close();
    return 0;
}
