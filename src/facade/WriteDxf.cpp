#include "facade/WriteDxf.h"

#include "dxf/DocumentAssembly.h"
#include "platform/File.h"
#include "platform/ModulePath.h"
#include "template/OutputBuffer.h"
#include "template/TemplateStream.h"

namespace rasterplan {
namespace {

constexpr const char* templateName = "PrepImageAbschnitte_2010.template";

File openTemplate() {
    const std::filesystem::path module = modulePath();
    return module.empty() ? nullptr : openForReading(module.parent_path() / templateName);
}

} // namespace

RasterPlanWriter::ErrorEnum writeDxf(DxfSectionRegistry& registry, Drawing& drawing,
                                     std::wstring_view outputPath) {
    buildSections(registry, drawing);
    populateSections(registry, drawing);

    const File output = openForWriting(outputPath);
    if (!output)
        return RasterPlanWriter::CannotOpenOutput;
    const File source = openTemplate();
    if (!source)
        return RasterPlanWriter::CannotOpenTemplate;
    OutputBuffer buffer(output.get());
    return streamTemplate(source.get(), registry, buffer) ? RasterPlanWriter::Success
                                                          : RasterPlanWriter::DxfFailure;
}

} // namespace rasterplan
