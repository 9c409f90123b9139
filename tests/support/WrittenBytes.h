#pragma once

#include "platform/File.h"
#include "support/TestFolder.h"
#include "support/WideText.h"
#include "template/OutputBuffer.h"

#include <stdexcept>
#include <string>

namespace rasterplan::test {

/// The bytes of a file that `write` has filled by way of a buffer.
template <typename Write>
std::string writtenBytes(const Write& write) {
    const TestFolder folder;
    {
        const File file = openForWriting(wideTextOf(utf8FromPath(folder / "bytes")));
        if (!file)
            throw std::runtime_error("cannot write the file");
        OutputBuffer buffer(file.get());
        write(buffer);
    }
    return readBytes(folder / "bytes");
}

} // namespace rasterplan::test
