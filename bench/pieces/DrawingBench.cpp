// What the steps around the writing cost, for a thousand pictures each.

#include "Pieces.h"

#include "dxf/DocumentAssembly.h"
#include "facade/Flatten.h"
#include "facade/ReferencePlane.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <optional>
#include <vector>

namespace {

using namespace rasterplan;

constexpr int pictures = 1000;

/// The pictures are there before; giving the drawing back is not counted.
void add(benchmark::State& state) {
    const std::vector<ImageParam> images = bench::imagesOf(pictures);
    for (auto _ : state) {
        std::optional<Drawing> drawing(std::in_place);
        for (const ImageParam& image : images)
            addImage(*drawing, image);
        state.PauseTiming();
        drawing.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * pictures);
}
BENCHMARK(add)->Unit(benchmark::kMicrosecond);

void buildAndPopulate(benchmark::State& state) {
    Drawing drawing = bench::drawingOf(pictures);
    for (auto _ : state) {
        auto registry = std::make_unique<DxfSectionRegistry>();
        buildSections(*registry, drawing);
        populateSections(*registry, drawing);
        state.PauseTiming();
        registry.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * pictures);
}
BENCHMARK(buildAndPopulate)->Unit(benchmark::kMicrosecond);

void proposePlane(benchmark::State& state) {
    const Drawing drawing = bench::drawingOf(pictures);
    for (auto _ : state)
        benchmark::DoNotOptimize(middledImagePlane(drawing));
    state.SetItemsProcessed(state.iterations() * pictures);
}
BENCHMARK(proposePlane)->Unit(benchmark::kMicrosecond);

/// With the giving back of the flattened drawing.
void flatten(benchmark::State& state) {
    const Drawing drawing = bench::drawingOf(pictures);
    const ReferencePlane plane = middledImagePlane(drawing);
    for (auto _ : state)
        benchmark::DoNotOptimize(flattened(drawing, plane));
    state.SetItemsProcessed(state.iterations() * pictures);
}
BENCHMARK(flatten)->Unit(benchmark::kMicrosecond);

/// A drawing and its filled sections.
void destroy(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        std::optional<Drawing> drawing(bench::drawingOf(pictures));
        auto registry = std::make_unique<DxfSectionRegistry>();
        buildSections(*registry, *drawing);
        populateSections(*registry, *drawing);
        state.ResumeTiming();
        registry.reset();
        drawing.reset();
    }
    state.SetItemsProcessed(state.iterations() * pictures);
}
BENCHMARK(destroy)->Unit(benchmark::kMicrosecond);

} // namespace
