#include "picture/PictureDecoder.h"

#include "picture/PictureHeader.h"
#include "tool/TestFiles.h"

#include <gtest/gtest.h>

namespace rasterplan_tool {

TEST(PictureDecoder, FileThatIsGoneMeanwhileIsAnError) {
    const TestFolder folder;
    for (const PictureFormat format : {PictureFormat::Png, PictureFormat::Jpeg})
        EXPECT_THROW(decodePixelSize(folder / "gone", format), PictureError);
}

} // namespace rasterplan_tool
