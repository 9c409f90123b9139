#include "facade/WriteDxf.h"

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

RasterPlanWriter::ErrorEnum writeDxf(DxfSectionRegistry& registry, const std::optional<ReferencePlane>& plane,
                                     std::wstring_view outputPath) {
    registry.addDocument(plane);

    const File output = openForWriting(outputPath);
    if (!output)
        return RasterPlanWriter::CannotOpenOutput;
    const File source = openTemplate();
    if (!source)
        return RasterPlanWriter::CannotOpenTemplate;
    OutputBuffer buffer(output.get());
    const auto expand = [&](TopLevelKey key) { registry.renderPlaceholder(key, buffer); };
    return streamTemplate(source.get(), buffer, expand) ? RasterPlanWriter::Success
                                                        : RasterPlanWriter::DxfFailure;
}

} // namespace rasterplan
