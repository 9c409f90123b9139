// The decoder of Windows: its own imaging component reads both formats.

#include "picture/PictureDecoder.h"

#include <memory>

#include <io.h>
#include <objbase.h>
#include <wincodec.h>

namespace rasterplan_tool {
namespace {

struct ReleaseObject {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <typename Interface>
using ComPointer = std::unique_ptr<Interface, ReleaseObject>;

class ComApartment {
public:
    ComApartment()
        : m_entered(SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED))) {}
    ~ComApartment() {
        if (m_entered)
            CoUninitialize();
    }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

private:
    bool m_entered;
};

ComPointer<IWICImagingFactory> createFactory() {
    void* created = nullptr;
    if (FAILED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IWICImagingFactory, &created)))
        throw PictureError("this system's picture decoder is missing");
    return ComPointer<IWICImagingFactory>(static_cast<IWICImagingFactory*>(created));
}

} // namespace

PixelSize decodePixelSize(std::FILE* file, PictureFormat format) {
    const ComApartment apartment;
    const ComPointer<IWICImagingFactory> factory = createFactory();

    const int descriptor = _fileno(file);
    _lseeki64(descriptor, 0, SEEK_SET);
    IWICBitmapDecoder* createdDecoder = nullptr;
    HRESULT result =
        factory->CreateDecoderFromFileHandle(static_cast<ULONG_PTR>(_get_osfhandle(descriptor)), nullptr,
                                             WICDecodeMetadataCacheOnDemand, &createdDecoder);
    const ComPointer<IWICBitmapDecoder> decoder(createdDecoder);

    IWICBitmapFrameDecode* createdFrame = nullptr;
    if (SUCCEEDED(result))
        result = decoder->GetFrame(0, &createdFrame);
    const ComPointer<IWICBitmapFrameDecode> frame(createdFrame);

    UINT width = 0;
    UINT height = 0;
    if (SUCCEEDED(result))
        result = frame->GetSize(&width, &height);
    if (FAILED(result))
        throw damagedHeader(format);
    return {width, height};
}

} // namespace rasterplan_tool
