// The decoder of systems that bring libpng and libjpeg.

#include "picture/PictureDecoder.h"

#include "base/Resources.h"

#include <cerrno>
#include <csetjmp>
#include <cstdio>
#include <string>

#include <jpeglib.h>
#include <png.h>

namespace rasterplan_tool {
namespace {

PixelSize decodePng(std::FILE* file) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    const bool readable = png_image_begin_read_from_stdio(&image, file) != 0;
    const int systemError = errno;
    const PixelSize size{image.width, image.height};
    const std::string message = image.message;
    png_image_free(&image);
    if (!readable) {
        throwIfExhausted(systemError);
        throw damagedHeader(PictureFormat::Png, message);
    }
    return size;
}

// libjpeg leaves a damaged file through this jump; no object with a destructor may live where it passes.
struct JpegErrors {
    jpeg_error_mgr manager;
    std::jmp_buf leave;
    char message[JMSG_LENGTH_MAX];
};

[[noreturn]] void leaveJpeg(j_common_ptr codec) {
    auto* const errors = reinterpret_cast<JpegErrors*>(codec->err);
    errors->manager.format_message(codec, errors->message);
    std::longjmp(errors->leave, 1);
}

void ignoreJpegWarning(j_common_ptr, int) {}

bool readJpegHeader(std::FILE* file, jpeg_decompress_struct& codec, JpegErrors& errors) {
    if (setjmp(errors.leave) != 0)
        return false;
    jpeg_create_decompress(&codec);
    jpeg_stdio_src(&codec, file);
    jpeg_read_header(&codec, TRUE);
    return true;
}

PixelSize decodeJpeg(std::FILE* file) {
    JpegErrors errors{};
    jpeg_decompress_struct codec{};
    codec.err = jpeg_std_error(&errors.manager);
    errors.manager.error_exit = leaveJpeg;
    errors.manager.emit_message = ignoreJpegWarning;
    const bool readable = readJpegHeader(file, codec, errors);
    const int systemError = errno;
    const PixelSize size{codec.image_width, codec.image_height};
    jpeg_destroy_decompress(&codec);
    if (!readable) {
        throwIfExhausted(systemError);
        throw damagedHeader(PictureFormat::Jpeg, errors.message);
    }
    return size;
}

} // namespace

PixelSize decodePixelSize(std::FILE* file, PictureFormat format) {
    std::rewind(file);
    errno = 0;
    return format == PictureFormat::Png ? decodePng(file) : decodeJpeg(file);
}

} // namespace rasterplan_tool
