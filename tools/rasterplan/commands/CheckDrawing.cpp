#include "commands/CheckDrawing.h"

#include "base/Failure.h"
#include "base/PathText.h"
#include "reader/DxfForm.h"
#include "report/DrawingCheckFiles.h"
#include "report/DrawingCheckReport.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

std::string readBytes(const fs::path& file) {
    if (std::error_code ignored; fs::is_directory(file, ignored))
        throw BadInput(quoted(file) + " is a folder; name a drawing in it");
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    if (!stream.is_open()) {
        throwIfExhausted(errno);
        throw BadInput(quoted(file) + " cannot be opened; correct the path or the file's permissions");
    }
    std::string bytes;
    std::array<char, 65536> block;
    do {
        stream.read(block.data(), block.size());
        bytes.append(block.data(), static_cast<std::size_t>(stream.gcount()));
    } while (stream);
    if (stream.bad())
        throw BadInput(quoted(file) + " cannot be read to its end; copy it to another disk");
    return bytes;
}

void demandText(const fs::path& file, DxfForm form) {
    if (form == DxfForm::Dwg) {
        throw BadInput(quoted(file) +
                       " is a DWG drawing, which this program does not read; save it as a text DXF");
    }
    if (form == DxfForm::Binary) {
        throw BadInput(quoted(file) +
                       " is a binary DXF, which this program does not read; save it as a text DXF");
    }
}

std::string allRightText(const fs::path& file, const DxfDrawing& drawing) {
    const auto images = std::count_if(drawing.records.begin(), drawing.records.end(),
                                      [](const DxfRecord& record) { return record.type == "IMAGE"; });
    if (images == 0)
        return shownText(file) + ": the drawing holds no image\n";
    return shownText(file) + ": " + std::to_string(images) + (images == 1 ? " image" : " images") +
           ", and nothing that hides one\n";
}

} // namespace

void execute(const CheckDrawing& command, Console& console, const MemoryWatch& memory) {
    const std::string bytes = readBytes(command.drawing);
    memory.require();
    demandText(command.drawing, formOf(bytes));
    const DxfDrawing drawing = readDrawing(bytes);
    if (drawing.records.empty() && !bytes.empty())
        throw BadInput(quoted(command.drawing) + " is no DXF drawing; name one, such as plan.dxf");
    std::vector<Finding> findings = checkRecords(drawing);
    std::vector<Finding> ofFiles = checkFiles(drawing, command.drawing);
    std::move(ofFiles.begin(), ofFiles.end(), std::back_inserter(findings));
    sortByWeight(findings);

    std::ostringstream report; // all of it or nothing
    if (command.json)
        printFindingsAsJson(report, findings);
    else if (findings.empty())
        report << allRightText(command.drawing, drawing);
    else
        printFindings(report, command.drawing, findings);
    memory.require();
    console.out << report.view();
    console.flush();
    if (!findings.empty()) {
        throw FaultsFound(quoted(command.drawing) + ": " + std::to_string(findings.size()) +
                          (findings.size() == 1 ? " reason" : " reasons") +
                          " why pictures may not show; mend the first one first");
    }
}

} // namespace rasterplan_tool
