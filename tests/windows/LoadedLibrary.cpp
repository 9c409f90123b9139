#include "LoadedLibrary.h"

#include <cstdint>
#include <stdexcept>

namespace rasterplan::test {
namespace {

struct Triple {
    double x, y, z;
};

// Room for an object that is constructed and destroyed by functions that were looked up.
struct alignas(16) Room {
    unsigned char bytes[256];
};

} // namespace

LoadedLibrary::LoadedLibrary(const std::wstring& file)
    : m_module(LoadLibraryW(file.c_str())) {
    if (!m_module)
        throw std::runtime_error("the library cannot be loaded: error " + std::to_string(GetLastError()));
}

LoadedLibrary::~LoadedLibrary() {
    FreeLibrary(m_module);
}

template <typename Function>
Function* LoadedLibrary::find(const char* name) const {
    const auto address = reinterpret_cast<std::uintptr_t>(GetProcAddress(m_module, name));
    if (!address)
        throw std::runtime_error(std::string("the library lacks ") + name);
    return reinterpret_cast<Function*>(address);
}

std::wstring LoadedLibrary::path() const {
    std::wstring text(32768, L'\0');
    text.resize(GetModuleFileNameW(m_module, text.data(), static_cast<DWORD>(text.size())));
    return text;
}

int LoadedLibrary::call() const {
    return find<int()>("_Z18fnRasterPlanWriterv")();
}

int LoadedLibrary::spareVariable() const {
    return *find<int>("nRasterPlanWriter");
}

int LoadedLibrary::writeDrawing(const wchar_t* output) const {
    const Triple leftTop{0, 0, 3};
    const Triple leftBottom{0, 0, 0};
    const Triple rightBottom{5, 0, 0};
    Room image;
    Room drawing;

    find<void(Room*, const wchar_t*)>("_ZN10ImageParamC1EPKw")(&image, L"south.png");
    find<void(Room*, const Triple&, const Triple&, const Triple&)>(
        "_ZN10ImageParam15setImageCornersERK12TripleDoubleS2_S2_")(&image, leftTop, leftBottom, rightBottom);
    find<void(Room*, const wchar_t*)>("_ZN16RasterPlanWriterC1EPKw")(&drawing, output);
    int result = find<int(Room*, const Room&)>("_ZN16RasterPlanWriter3addERK10ImageParam")(&drawing, image);
    if (result == 0)
        result = find<int(Room*)>("_ZN16RasterPlanWriter11create3DDxfEv")(&drawing);
    find<void(Room*)>("_ZN16RasterPlanWriterD1Ev")(&drawing);
    find<void(Room*)>("_ZN10ImageParamD1Ev")(&image);
    return result;
}

} // namespace rasterplan::test
