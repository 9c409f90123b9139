// What the steps around the writing cost, for a thousand pictures each.

#include "Pieces.h"

#include "dxf/DxfSectionRegistry.h"
#include "facade/MiddledImagePlane.h"

#include <benchmark/benchmark.h>

#include <optional>
#include <vector>

namespace {

using namespace rasterplan;

constexpr int pictures = 1000;

// The pictures are there before; giving the drawing back is not counted.
void add(benchmark::State& state) {
    const std::vector<ImageParam> images = bench::imagesOf(pictures);
    for (auto _ : state) {
        std::optional<Drawing> drawing(std::in_place);
        for (const ImageParam& image : images)
            drawing->add(image);
        state.PauseTiming();
        drawing.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * pictures);
}
BENCHMARK(add)->Unit(benchmark::kMicrosecond);

void addDocument(benchmark::State& state, bool flattened) {
    const Drawing drawing = bench::drawingOf(pictures);
    std::optional<ReferencePlane> plane;
    if (flattened)
        plane = middledImagePlane(drawing);
    for (auto _ : state)
        DxfSectionRegistry(drawing).addDocument(plane);
    state.SetItemsProcessed(state.iterations() * pictures);
}
BENCHMARK_CAPTURE(addDocument, inSpace, false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(addDocument, flattened, true)->Unit(benchmark::kMicrosecond);

void proposePlane(benchmark::State& state) {
    const Drawing drawing = bench::drawingOf(pictures);
    for (auto _ : state)
        benchmark::DoNotOptimize(middledImagePlane(drawing));
    state.SetItemsProcessed(state.iterations() * pictures);
}
BENCHMARK(proposePlane)->Unit(benchmark::kMicrosecond);

} // namespace
