// What one record costs to render, and what the placeholder lines with a record per picture cost.

#include "Pieces.h"

#include "dxf/DxfSectionRegistry.h"
#include "facade/MiddledImagePlane.h"
#include "template/OutputBuffer.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>
#include <optional>

namespace {

using namespace rasterplan;

// Bytes that go nowhere.
class Nowhere {
public:
    OutputBuffer& out() { return m_out; }

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Close> m_file{std::fopen("/dev/null", "wb")};
    OutputBuffer m_out{m_file.get()};
};

void renderSection(benchmark::State& state) {
    Nowhere nowhere;
    const DxfLineObj line({4468841.904, 5334971.055, 564.285}, {4468855.941, 5334971.055, 564.285});
    for (auto _ : state)
        line.createSection(Handle{0x12345}).render(nowhere.out());
}
BENCHMARK(renderSection);

void renderPlaceholder(benchmark::State& state, TopLevelKey key, bool flattened) {
    constexpr int pictures = 1000;
    Nowhere nowhere;
    const Drawing drawing = bench::drawingOf(pictures);
    DxfSectionRegistry registry(drawing);
    std::optional<ReferencePlane> plane;
    if (flattened)
        plane = middledImagePlane(drawing);
    registry.addDocument(plane);
    for (auto _ : state)
        registry.renderPlaceholder(key, nowhere.out());
    state.SetItemsProcessed(state.iterations() * pictures);
}
#define OF_EACH_PICTURE(name, key)                                                                           \
    BENCHMARK_CAPTURE(renderPlaceholder, name, key, false)->Unit(benchmark::kMicrosecond);                   \
    BENCHMARK_CAPTURE(renderPlaceholder, name##Flattened, key, true)->Unit(benchmark::kMicrosecond)

OF_EACH_PICTURE(images, TopLevelKey::EntityImage);
OF_EACH_PICTURE(lines, TopLevelKey::EntityLine);
OF_EACH_PICTURE(definitions, TopLevelKey::ObjectImageDef);
OF_EACH_PICTURE(reactors, TopLevelKey::ObjectImageDefReactor);
OF_EACH_PICTURE(dictionary, TopLevelKey::ObjectDictionary);

} // namespace
