// The first byte says how many images the drawing has, the others are the template. The drawing is judged
// line by line against what the same library makes of each placeholder alone.

#include "fuzz/Fuzzing.h"
#include "support/Images.h"
#include "support/TestFolder.h"
#include "support/WideText.h"

#include <RasterPlanWriter/RasterPlanWriter.h>

#include <array>
#include <map>
#include <string_view>

namespace {

using namespace rasterplan::test;
using rasterplan::fuzz::demand;
using Result = RasterPlanWriter::ErrorEnum;

constexpr int mostImages = 2;
constexpr std::size_t longestLine = 511;
constexpr std::array placeholders{
    "#VEXO_HEADER_EXTMIN#",     "#VEXO_HEADER_EXTMAX#",
    "#VEXO_HEADER_HANDSEED#",   "#VEXO_HEADER_INSUNITS#",
    "#VEXO_CLASS_IMAGEDEF#",    "#VEXO_CLASS_IMAGEDEFREACTOR#",
    "#VEXO_CLASS_IMAGE#",       "#VEXO_TABLE_VPORT#",
    "#VEXO_OBJECT_DICTIONARY#", "#VEXO_OBJECT_IMAGEDEFREACTOR#",
    "#VEXO_OBJECT_IMAGEDEF#",   "#VEXO_ENTITY_LINE#",
    "#VEXO_ENTITY_IMAGE#",
};

// What a write answers, and the drawing.
struct Written {
    Result result = RasterPlanWriter::Success;
    std::string bytes;
};

Written write(int images, std::string_view templateText) {
    static const TestFolder folder;
    static const std::filesystem::path file = folder / "drawing.dxf";
    static const std::wstring widePath = wideTextOf(utf8FromPath(file));
    writeBytes(RASTERPLAN_TEMPLATE_BESIDE_LIBRARY, templateText);
    RasterPlanWriter facade(widePath.c_str());
    for (int i = 0; i < images; ++i)
        demand(facade.add(levelImage({5.0 * i, 0, 0}, 3, 2)) == RasterPlanWriter::Success, "no image");
    const Result result = facade.create3DDxf();
    return {result, readBytes(file)};
}

using Expansions = std::map<std::string, std::string, std::less<>>;

// What stands for each placeholder. Nothing is expected of it here but that it is of whole lines.
const Expansions& expansions(int images) {
    static const std::array<Expansions, mostImages + 1> all = [] {
        std::array<Expansions, mostImages + 1> expansions;
        for (int count = 0; count <= mostImages; ++count)
            for (const std::string key : placeholders) {
                const auto [result, bytes] = write(count, key);
                demand((result == RasterPlanWriter::Success) == bytes.ends_with("\r\n"), key + " is cut off");
                expansions[static_cast<std::size_t>(count)][key] = bytes;
            }
        return expansions;
    }();
    return all[static_cast<std::size_t>(images)];
}

Written expected(int images, std::string_view rest) {
    Written written;
    for (bool last = false; !last;) {
        const std::size_t end = rest.find('\n');
        last = end == std::string_view::npos;
        std::string_view line = rest.substr(0, end);
        rest.remove_prefix(last ? rest.size() : end + 1);
        if (!last && line.ends_with('\r'))
            line.remove_suffix(1);
        const bool tooLong = line.size() > longestLine;
        line = line.substr(0, longestLine);
        if (line.starts_with('#')) {
            const auto expansion = expansions(images).find(line);
            if (expansion == expansions(images).end() || expansion->second.empty()) {
                written.result = RasterPlanWriter::DxfFailure;
                return written;
            }
            written.bytes += expansion->second;
        } else {
            written.bytes += line;
            written.bytes += "\r\n";
        }
        if (tooLong) {
            written.result = RasterPlanWriter::DxfFailure;
            return written;
        }
    }
    return written;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const int images = data[0] % (mostImages + 1);
    const std::string_view templateText(reinterpret_cast<const char*>(data) + 1, size - 1);
    const Written should = expected(images, templateText);
    const Written is = write(images, templateText);
    demand(is.result == should.result,
           "result " + std::to_string(is.result) + " instead of " + std::to_string(should.result));
    demand(is.bytes == should.bytes, "the drawing is\n" + is.bytes + "\ninstead of\n" + should.bytes);
    return 0;
}
