// What one section costs to fill and to render, and what a placeholder line with many sections costs.

#include "Pieces.h"

#include "dxf/DocumentAssembly.h"
#include "dxf/DxfSectionLineEntity.h"
#include "template/OutputBuffer.h"

#include <benchmark/benchmark.h>

#include <cstdio>

namespace {

using namespace rasterplan;

void fill(DxfSection& section) {
    constexpr auto& rows = lineEntityRows;
    section.setPlaceholderValue(rows[L"#VEXO_ENTITYLINEHANDLE#"], Handle{0x12345});
    section.setPlaceholderValue(rows[L"#VEXO_ENTITYLINE_STARTPNTX#"], 4468841.904);
    section.setPlaceholderValue(rows[L"#VEXO_ENTITYLINE_STARTPNTY#"], 5334971.055);
    section.setPlaceholderValue(rows[L"#VEXO_ENTITYLINE_STARTPNTZ#"], 564.285);
    section.setPlaceholderValue(rows[L"#VEXO_ENTITYLINE_ENDPNTX#"], 4468855.941);
    section.setPlaceholderValue(rows[L"#VEXO_ENTITYLINE_ENDPNTY#"], 5334971.055);
    section.setPlaceholderValue(rows[L"#VEXO_ENTITYLINE_ENDPNTZ#"], 564.285);
}

void fillSection(benchmark::State& state) {
    for (auto _ : state) {
        DxfSectionLineEntity section;
        fill(section);
        benchmark::DoNotOptimize(section);
    }
}
BENCHMARK(fillSection);

void renderSection(benchmark::State& state) {
    std::FILE* const nowhere = std::fopen("/dev/null", "wb");
    DxfSectionLineEntity section;
    fill(section);
    {
        OutputBuffer out(nowhere);
        for (auto _ : state)
            section.render(out);
    }
    std::fclose(nowhere);
}
BENCHMARK(renderSection);

/// IMAGE entities, one per picture.
void renderPlaceholder(benchmark::State& state) {
    std::FILE* const nowhere = std::fopen("/dev/null", "wb");
    const auto sections = static_cast<int>(state.range(0));
    Drawing drawing = bench::drawingOf(sections);
    DxfSectionRegistry registry;
    buildSections(registry, drawing);
    populateSections(registry, drawing);
    {
        OutputBuffer out(nowhere);
        for (auto _ : state)
            registry.renderPlaceholder(L"#VEXO_ENTITY_IMAGE#", out);
    }
    std::fclose(nowhere);
    state.SetItemsProcessed(state.iterations() * sections);
}
BENCHMARK(renderPlaceholder)->Arg(1000)->Unit(benchmark::kMicrosecond);

} // namespace
