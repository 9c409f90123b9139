// The measure: the same drawing, byte for byte, from straight code that knows nothing but this one job.
// Constant text and numbers go through one buffer; nothing is stored but the pictures.

#include "Drawing.h"

#include "base/FormatFixed.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace {

using bench::Drawing;
using bench::Placed;
using bench::Point;

constexpr std::size_t bufferSize = 65536;
constexpr std::size_t longestNumber = 330; // of the largest double with 17 decimals

struct WithToChars {
    static char* format(double number, char* out) {
        return std::to_chars(out, out + longestNumber, number, std::chars_format::fixed, 17).ptr;
    }
};

struct WithFormatFixed {
    static char* format(double number, char* out) { return ZelkBase::formatFixed17(number, out); }
};

template <typename Numbers>
class Writer {
public:
    Writer(const Drawing& drawing, std::FILE* file)
        : m_drawing(drawing)
        , m_file(file)
        , m_buffer(new char[bufferSize])
        , m_end(m_buffer.get()) {}
    ~Writer() { flush(); }

    void copy(std::string_view line) {
        text(line);
        text("\r\n");
    }

    // Writes what stands for a line of the template that begins with '#'.
    void expand(std::string_view key) {
        if (key == "#VEXO_HEADER_EXTMIN#")
            writeVariable("$EXTMIN", m_drawing.min());
        else if (key == "#VEXO_HEADER_EXTMAX#")
            writeVariable("$EXTMAX", m_drawing.max());
        else if (key == "#VEXO_HEADER_INSUNITS#")
            text("9\r\n$INSUNITS\r\n70\r\n6\r\n");
        else if (key == "#VEXO_HEADER_HANDSEED#")
            writeHandleSeed();
        else if (key == "#VEXO_CLASS_IMAGE#")
            writeClass("IMAGE\r\n2\r\nAcDbRasterImage", "2175", "1");
        else if (key == "#VEXO_CLASS_IMAGEDEF#")
            writeClass("IMAGEDEF\r\n2\r\nAcDbRasterImageDef", "0", "0");
        else if (key == "#VEXO_CLASS_IMAGEDEFREACTOR#")
            writeClass("IMAGEDEF_REACTOR\r\n2\r\nAcDbRasterImageDefReactor", "1", "0");
        else if (key == "#VEXO_TABLE_VPORT#")
            writeView();
        else if (key == "#VEXO_ENTITY_IMAGE#")
            m_drawing.forEachPicture([this](auto&... place) { writeImage(place...); });
        else if (key == "#VEXO_ENTITY_LINE#")
            m_drawing.forEachLine([this](auto&&... place) { writeLine(place...); });
        else if (key == "#VEXO_OBJECT_DICTIONARY#")
            writeDictionary();
        else if (key == "#VEXO_OBJECT_IMAGEDEF#")
            m_drawing.forEachPicture([this](auto&... place) { writeDefinition(place...); });
        else if (key == "#VEXO_OBJECT_IMAGEDEFREACTOR#")
            m_drawing.forEachPicture([this](auto&, unsigned handles) { writeReactor(handles); });
    }

private:
    void text(std::string_view bytes) {
        reserve(bytes.size());
        std::memcpy(m_end, bytes.data(), bytes.size());
        m_end += bytes.size();
    }
    void number(double value) {
        reserve(longestNumber);
        m_end = Numbers::format(value, m_end);
    }
    void integer(std::size_t value) {
        reserve(20);
        m_end = std::to_chars(m_end, m_end + 20, value).ptr;
    }
    void handle(unsigned value) {
        reserve(8);
        char* const first = m_end;
        m_end = std::to_chars(first, first + 8, value, 16).ptr;
        for (char* digit = first; digit != m_end; ++digit)
            if (*digit >= 'a')
                *digit = static_cast<char>(*digit - 'a' + 'A');
    }
    void point(const Point& value, std::string_view x, std::string_view y, std::string_view z) {
        text(x);
        number(value.x);
        text(y);
        number(value.y);
        text(z);
        number(value.z);
    }

    void reserve(std::size_t size) {
        if (bufferSize - static_cast<std::size_t>(m_end - m_buffer.get()) < size)
            flush();
    }
    void flush() {
        std::fwrite(m_buffer.get(), 1, static_cast<std::size_t>(m_end - m_buffer.get()), m_file);
        m_end = m_buffer.get();
    }

    void writeVariable(std::string_view name, const Point& value) {
        text("9\r\n");
        text(name);
        point(value, "\r\n10\r\n", "\r\n20\r\n", "\r\n30\r\n");
        text("\r\n");
    }

    void writeHandleSeed() {
        text("9\r\n$HANDSEED\r\n5\r\n");
        handle(m_drawing.handleSeed());
        text("\r\n");
    }

    void writeClass(std::string_view names, std::string_view proxyFlags, std::string_view isEntity) {
        text("0\r\nCLASS\r\n1\r\n");
        text(names);
        text("\r\n3\r\nISM\r\n90\r\n");
        text(proxyFlags);
        text("\r\n91\r\n");
        integer(m_drawing.pictures().size());
        text("\r\n280\r\n0\r\n281\r\n");
        text(isEntity);
        text("\r\n");
    }

    void writeView() {
        text("0\r\nVPORT\r\n5\r\n29\r\n100\r\nAcDbSymbolTableRecord\r\n100\r\nAcDbViewportTableRecord\r\n"
             "2\r\n*ACTIVE\r\n70\r\n0\r\n10\r\n0\r\n20\r\n0\r\n11\r\n1.0\r\n21\r\n1.0\r\n12\r\n0.0\r\n"
             "22\r\n0.0\r\n13\r\n0.0\r\n23\r\n0.0\r\n14\r\n0.5\r\n24\r\n0.5\r\n15\r\n0.5\r\n25\r\n0.5");
        point(m_drawing.viewDirection(), "\r\n16\r\n", "\r\n26\r\n", "\r\n36\r\n");
        point(m_drawing.viewTarget(), "\r\n17\r\n", "\r\n27\r\n", "\r\n37\r\n");
        text("\r\n40\r\n");
        number(std::abs(m_drawing.viewHeight()));
        text("\r\n41\r\n");
        number(m_drawing.viewRatio());
        text("\r\n42\r\n50.0\r\n43\r\n0.0\r\n44\r\n0.0\r\n50\r\n0.0\r\n51\r\n");
        number(m_drawing.viewTwist);
        text("\r\n71\r\n0."
             "0\r\n72\r\n100\r\n73\r\n1\r\n74\r\n3\r\n75\r\n0\r\n76\r\n0\r\n77\r\n0\r\n78\r\n0\r\n");
    }

    void writeImage(const Placed& picture, unsigned handles) {
        text("0\r\nIMAGE\r\n5\r\n");
        handle(handles);
        text(
            "\r\n330\r\n2\r\n100\r\nAcDbEntity\r\n8\r\n0\r\n160\r\n140\r\n100\r\nAcDbRasterImage\r\n90\r\n0");
        point(picture.corner, "\r\n10\r\n", "\r\n20\r\n", "\r\n30\r\n");
        point(picture.pixelU(), "\r\n11\r\n", "\r\n21\r\n", "\r\n31\r\n");
        point(picture.pixelV(), "\r\n12\r\n", "\r\n22\r\n", "\r\n32\r\n");
        text("\r\n13\r\n");
        number(picture.pixelWidth);
        text("\r\n23\r\n");
        number(picture.pixelHeight);
        text("\r\n340\r\n");
        handle(handles + 1);
        text("\r\n70\r\n15\r\n280\r\n0\r\n281\r\n50\r\n282\r\n50\r\n283\r\n0\r\n290\r\n0\r\n360\r\n");
        handle(handles + 2);
        text("\r\n71\r\n1\r\n91\r\n2\r\n14\r\n-0.5\r\n24\r\n-0.5\r\n14\r\n");
        number(picture.pixelWidth - 0.5);
        text("\r\n24\r\n");
        number(picture.pixelHeight - 0.5);
        text("\r\n");
    }

    void writeLine(unsigned lineHandle, const Point& start, const Point& end) {
        text("0\r\nLINE\r\n5\r\n");
        handle(lineHandle);
        text("\r\n100\r\nAcDbEntity\r\n8\r\n0\r\n100\r\nAcDbLine");
        point(start, "\r\n10\r\n", "\r\n20\r\n", "\r\n30\r\n");
        point(end, "\r\n11\r\n", "\r\n21\r\n", "\r\n31\r\n");
        text("\r\n");
    }

    void writeDictionary() {
        text("0\r\nDICTIONARY\r\n5\r\n5A\r\n102\r\n{ACAD_REACTORS\r\n330\r\n9\r\n102\r\n}\r\n330\r\n9\r\n"
             "100\r\nAcDbDictionary\r\n281\r\n1\r\n");
        m_drawing.forEachPicture([this](const Placed& picture, unsigned handles) {
            text("3\r\n");
            text(std::string_view(picture.path).substr(picture.path.find_last_of('\\') + 1));
            text("\r\n350\r\n");
            handle(handles + 1);
            text("\r\n");
        });
    }

    void writeDefinition(const Placed& picture, unsigned handles) {
        text("0\r\nIMAGEDEF\r\n5\r\n");
        handle(handles + 1);
        text("\r\n102\r\n{ACAD_REACTORS\r\n330\r\n5A\r\n330\r\n");
        handle(handles + 2);
        text("\r\n102\r\n}\r\n330\r\n5A\r\n100\r\nAcDbRasterImageDef\r\n90\r\n0\r\n1\r\n");
        text(picture.path);
        text("\r\n10\r\n");
        number(picture.pixelWidth);
        text("\r\n20\r\n");
        number(picture.pixelHeight);
        text("\r\n11\r\n");
        number(picture.pixelMillimetres);
        text("\r\n21\r\n");
        number(picture.pixelMillimetres);
        text("\r\n280\r\n1\r\n281\r\n5\r\n");
    }

    void writeReactor(unsigned handles) {
        text("0\r\nIMAGEDEF_REACTOR\r\n5\r\n");
        handle(handles + 2);
        text("\r\n330\r\n");
        handle(handles);
        text("\r\n100\r\nAcDbRasterImageDefReactor\r\n90\r\n2\r\n330\r\n");
        handle(handles);
        text("\r\n");
    }

    const Drawing& m_drawing;
    std::FILE* m_file;
    std::unique_ptr<char[]> m_buffer;
    char* m_end;
};

// Copies the template line by line, expanding those that begin with '#'.
template <typename Numbers>
void write(const Drawing& drawing, std::FILE* templateFile, std::FILE* output) {
    Writer<Numbers> writer(drawing, output);
    std::string line;
    for (int c = 0; c != EOF;) {
        line.clear();
        while ((c = std::fgetc(templateFile)) != EOF && c != '\n')
            if (c != '\r')
                line += static_cast<char>(c);
        if (line.starts_with('#'))
            writer.expand(line);
        else
            writer.copy(line);
    }
}

} // namespace

int main(int argc, char** argv) {
    const std::string_view numbers = argc == 5 ? argv[1] : "";
    if (numbers != "to_chars" && numbers != "own") {
        std::fputs("usage: plain_export {to_chars|own} COUNT OUTPUT TEMPLATE\n", stderr);
        return 2;
    }
    const Drawing drawing(static_cast<std::size_t>(std::atoi(argv[2])));
    std::FILE* const output = std::fopen(argv[3], "wb");
    std::FILE* const templateFile = std::fopen(argv[4], "rb");
    if (!output || !templateFile || drawing.pictures().empty())
        return 1;
    if (numbers == "own")
        write<WithFormatFixed>(drawing, templateFile, output);
    else
        write<WithToChars>(drawing, templateFile, output);
    return std::fclose(templateFile) == 0 && std::fclose(output) == 0 ? 0 : 1;
}
