// An export as a host makes it: every picture is added, then the drawing is written.

#include "HostImage.h"
#include "Scene.h"

#include <RasterPlanWriter/RasterPlanWriter.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <new>
#include <string>
#include <string_view>

namespace {

long allocations = 0;

// Prints the CPU time and the allocations of each step on its way.
class StepClock {
public:
    void endOfStep(const char* name) {
        const std::clock_t now = std::clock();
        std::printf("%s %.6f\n%s_allocations %ld\n", name,
                    static_cast<double>(now - m_start) / CLOCKS_PER_SEC, name, allocations - m_allocations);
        m_start = now;
        m_allocations = allocations;
    }

private:
    std::clock_t m_start = std::clock();
    long m_allocations = allocations;
};

} // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* const memory = std::malloc(size != 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

int main(int argc, char** argv) {
    const std::string_view mode = argc == 4 ? argv[1] : "";
    if (mode != "3d" && mode != "twice" && mode != "flat" && mode != "plane") {
        std::fputs("usage: library_export {3d|twice|flat|plane} COUNT OUTPUT\n", stderr);
        return 2;
    }
    const int count = std::atoi(argv[2]);
    const std::string_view output = argv[3];

    StepClock clock;
    auto writer = std::make_unique<RasterPlanWriter>(std::wstring(output.begin(), output.end()).c_str());
    bench::Scene scene;
    for (int i = 0; i < count; ++i)
        if (writer->add(bench::hostImage(scene.next())) != RasterPlanWriter::Success)
            return 1;
    clock.endOfStep("add");

    if (mode == "flat" || mode == "plane") {
        TripleDouble origin;
        TripleDouble xAxis;
        TripleDouble yAxis;
        if (writer->calcMiddledImagePlaneReferenceCoordSystem3D(origin, xAxis, yAxis) !=
            RasterPlanWriter::Success)
            return 1;
        clock.endOfStep("plane");
        if (mode == "flat" && writer->create2DDxf(origin, xAxis, yAxis) != RasterPlanWriter::Success)
            return 1;
    } else if (writer->create3DDxf() != RasterPlanWriter::Success) {
        return 1;
    }
    if (mode != "plane")
        clock.endOfStep("write");
    if (mode == "twice" && writer->create3DDxf() != RasterPlanWriter::Success)
        return 1;

    writer.reset();
    clock.endOfStep("destroy");
    return 0;
}
