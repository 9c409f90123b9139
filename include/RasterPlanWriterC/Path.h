#pragma once

// How the classes over the C library keep a path and hand it over. No host includes it.

#include "RasterPlanWriterC.h"

#include <stddef.h>
#include <stdint.h>

#if WCHAR_MAX > 0xFFFF
#include <new>
#endif

namespace rasterplan_c {

inline size_t length(const wchar_t* text) noexcept {
    size_t count = 0;
    while (text[count])
        ++count;
    return count;
}

/// A copy of a path, or none.
class Path {
public:
    Path() noexcept
        : m_text(nullptr) {}
    explicit Path(const wchar_t* text)
        : m_text(text ? new wchar_t[length(text) + 1] : nullptr) {
        for (size_t i = 0; m_text && (i == 0 || text[i - 1]); ++i)
            m_text[i] = text[i];
    }
    Path(const Path& other)
        : Path(other.m_text) {}
    Path(Path&& other) noexcept
        : m_text(other.m_text) {
        other.m_text = nullptr;
    }
    Path& operator=(Path other) noexcept {
        wchar_t* const text = m_text;
        m_text = other.m_text;
        other.m_text = text;
        return *this;
    }
    ~Path() { delete[] m_text; }

    const wchar_t* text() const noexcept { return m_text; }

private:
    wchar_t* m_text;
};

#if WCHAR_MAX > 0xFFFF

/// A path in UTF-8, or none.
class Utf8Path {
public:
    explicit Utf8Path(const wchar_t* path) noexcept
        : m_text(path ? new (std::nothrow) char[4 * length(path) + 1] : nullptr)
        , m_failed(path && !m_text) {
        char* end = m_text;
        for (; m_text && *path; ++path)
            end = append(end, static_cast<uint32_t>(*path));
        if (m_text)
            *end = '\0';
    }
    Utf8Path(const Utf8Path&) = delete;
    Utf8Path& operator=(const Utf8Path&) = delete;
    ~Utf8Path() { delete[] m_text; }

    const char* text() const noexcept { return m_text; }
    bool failed() const noexcept { return m_failed; } ///< Out of memory.

private:
    /// A value beyond U+10FFFF gives bytes that the C library refuses.
    static char* append(char* end, uint32_t point) noexcept {
        static const unsigned leads[] = {0x00, 0xC0, 0xE0, 0xF0};
        int more = point < 0x80 ? 0 : point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
        if (point > 0x10FFFF)
            point = 0x1FFFFF;
        *end++ = static_cast<char>(leads[more] | (point >> 6 * more));
        while (more-- > 0)
            *end++ = static_cast<char>(0x80U | ((point >> 6 * more) & 0x3FU));
        return end;
    }

    char* m_text;
    bool m_failed;
};

inline RpwResult create(const wchar_t* outPath, RpwDrawing** drawing) noexcept {
    const Utf8Path path(outPath);
    return path.failed() ? RpwUnexpectedFailure : rpwCreateUtf8(path.text(), drawing);
}

inline RpwResult add(RpwDrawing* drawing, const wchar_t* picturePath, const double* leftTop,
                     const double* leftBottom, const double* rightBottom, double pixelsPerUnit,
                     int32_t unit) noexcept {
    const Utf8Path path(picturePath);
    return path.failed()
               ? RpwUnexpectedFailure
               : rpwAddUtf8(drawing, path.text(), leftTop, leftBottom, rightBottom, pixelsPerUnit, unit);
}

#else

inline RpwResult create(const wchar_t* outPath, RpwDrawing** drawing) noexcept {
    return rpwCreateUtf16(reinterpret_cast<const uint16_t*>(outPath), drawing);
}

inline RpwResult add(RpwDrawing* drawing, const wchar_t* picturePath, const double* leftTop,
                     const double* leftBottom, const double* rightBottom, double pixelsPerUnit,
                     int32_t unit) noexcept {
    return rpwAddUtf16(drawing, reinterpret_cast<const uint16_t*>(picturePath), leftTop, leftBottom,
                       rightBottom, pixelsPerUnit, unit);
}

#endif

} // namespace rasterplan_c
