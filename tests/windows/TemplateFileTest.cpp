#include "FileHolder.h"
#include "LibraryCopy.h"
#include "LoadedLibrary.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <RasterPlanWriter/RasterPlanWriter.h>

using namespace rasterplan::test;

namespace {

class TemplateFile : public ::testing::Test {
protected:
    int result() const { return LoadedLibrary(m_copy.library()).writeDrawing((m_test / "out.dxf").c_str()); }

    const TestFolder m_test;
    const LibraryCopy m_copy{(m_test / "library").wstring()};
};

} // namespace

TEST_F(TemplateFile, MayBeReadOnly) {
    ASSERT_TRUE(SetFileAttributesW(m_copy.templateFile().c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(result(), RasterPlanWriter::Success);
}

TEST_F(TemplateFile, MayBeOpenInAnotherProcess) {
    const FileHolder holder(m_copy.templateFile(), FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_EQ(result(), RasterPlanWriter::Success);
}

TEST_F(TemplateFile, MayBeOpenInAnotherProcessThatAllowsReadingOnly) {
    const FileHolder holder(m_copy.templateFile(), FILE_SHARE_READ);
    EXPECT_EQ(result(), RasterPlanWriter::Success);
}

TEST_F(TemplateFile, HeldByAnotherProcessAloneGivesCannotOpenTemplate) {
    const FileHolder holder(m_copy.templateFile(), 0);
    EXPECT_EQ(result(), RasterPlanWriter::CannotOpenTemplate);
}
