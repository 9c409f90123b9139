#include "dxf/DxfSectionRegistry.h"

#include "base/Error.h"
#include "math/MathError.h"
#include "support/Images.h"
#include "support/StrictDxf.h"
#include "support/WrittenBytes.h"
#include "template/DxfError.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

using namespace rasterplan;
using namespace rasterplan::test;
using enum TopLevelKey;

namespace {

using Texts = std::vector<std::string>;

const ReferencePlane level{{}, {1, 0, 0}, {0, 1, 0}};

// Beside an origin so far away coordinates are multiples of 2, and oblique images are left out.
const ReferencePlane far{{1e16, 0, 0}, {1, 0, 0}, {0, 1, 0}};

ImageParam oblique(const wchar_t* path) {
    return imageAt({-1.6, 1.2, 0}, {0, 0, 0}, {1.2, 1.6, 0}, 100.0, path);
}

class DxfSectionRegistryTest : public testing::Test {
protected:
    // Adds images of 4 x 2, the first one at zero and each 10 to the right of the last.
    void addImages(int count) {
        for (int i = 0; i < count; ++i)
            add(levelImage({10.0 * drawing.images.count(), 0, 0}, 4, 2));
    }
    void add(const ImageParam& image) { ASSERT_TRUE(drawing.add(image)); }

    std::string text(TopLevelKey key) const {
        return writtenBytes([&](OutputBuffer& out) { registry.renderPlaceholder(key, out); });
    }
    Texts allTexts() const {
        Texts texts;
        for (std::size_t key = 0; key < topLevelKeyTexts.size(); ++key)
            texts.push_back(text(static_cast<TopLevelKey>(key)));
        return texts;
    }

    // The values of a code in the records of a key.
    Texts values(TopLevelKey key, int code) const {
        Texts found;
        for (const DxfGroup& group : strictGroups(text(key)))
            if (group.code == code)
                found.push_back(group.value);
        return found;
    }

    std::string messageOfWrite(const std::optional<ReferencePlane>& plane = std::nullopt) {
        try {
            registry.addDocument(plane);
        } catch (const DxfError& error) {
            return error.what();
        }
        return "none";
    }

    Drawing drawing;
    DxfSectionRegistry registry{drawing};
};

} // namespace

TEST_F(DxfSectionRegistryTest, WithoutImagesHasOnlyTheFixedRecords) {
    registry.addDocument(std::nullopt);
    for (const TopLevelKey key : {ObjectImageDefReactor, ObjectImageDef, EntityLine, EntityImage})
        EXPECT_EQ(text(key), "");
    for (const TopLevelKey key : {ClassImageDef, ClassImageDefReactor, ClassImage})
        EXPECT_EQ(values(key, 91), Texts{"0"});
    EXPECT_TRUE(text(ObjectDictionary).ends_with("\r\n281\r\n1\r\n"));
    const std::string largest =
        "17976931348623157081452742373170435679807056752584499659891747680315726078002853"
        "8760589558632766878";
    EXPECT_EQ(text(HeaderExtMin),
              "9\r\n$EXTMIN\r\n10\r\n" + largest + "\r\n20\r\n" + largest + "\r\n30\r\n" + largest + "\r\n");
    EXPECT_EQ(text(HeaderExtMax), "9\r\n$EXTMAX\r\n10\r\n0.00000000000000000\r\n20\r\n0.00000000000000000\r\n"
                                  "30\r\n0.00000000000000000\r\n");
    EXPECT_EQ(text(HeaderInsUnits), "9\r\n$INSUNITS\r\n70\r\n6\r\n");
    EXPECT_EQ(text(HeaderHandSeed), "9\r\n$HANDSEED\r\n5\r\n7E\r\n");
    EXPECT_EQ(values(TableVPort, 40), Texts{"8589934590.00000000000000000"});
}

TEST_F(DxfSectionRegistryTest, RecordsOfAnImageReferToEachOther) {
    add(imageAt({1, 9.5, 3}, {1, 2, 3}, {11, 2, 3}, 64.0, L"C:\\site\\S\u00FCd.png"));
    registry.addDocument(std::nullopt);
    EXPECT_EQ(values(EntityLine, 5), (Texts{"7E", "7F", "80", "81", "82", "83"}));
    EXPECT_EQ(values(EntityImage, 5), Texts{"84"});
    EXPECT_EQ(values(EntityImage, 340), Texts{"85"});
    EXPECT_EQ(values(EntityImage, 360), Texts{"86"});
    EXPECT_EQ(text(ObjectImageDef),
              "0\r\nIMAGEDEF\r\n5\r\n85\r\n102\r\n{ACAD_REACTORS\r\n330\r\n5A\r\n330\r\n86\r\n102\r\n}\r\n"
              "330\r\n5A\r\n100\r\nAcDbRasterImageDef\r\n90\r\n0\r\n1\r\nC:\\site\\S\xC3\xBC"
              "d.png\r\n10\r\n640.00000000000000000\r\n20\r\n480.00000000000000000\r\n"
              "11\r\n15.62500000000000000\r\n21\r\n15.62500000000000000\r\n280\r\n1\r\n281\r\n5\r\n");
    EXPECT_EQ(text(ObjectImageDefReactor), "0\r\nIMAGEDEF_REACTOR\r\n5\r\n86\r\n330\r\n84\r\n"
                                           "100\r\nAcDbRasterImageDefReactor\r\n90\r\n2\r\n330\r\n84\r\n");
    EXPECT_TRUE(text(ObjectDictionary)
                    .ends_with("\r\n281\r\n1\r\n3\r\nS\xC3\xBC"
                               "d.png\r\n350\r\n85\r\n"));
    EXPECT_EQ(text(HeaderExtMin), "9\r\n$EXTMIN\r\n10\r\n1.00000000000000000\r\n20\r\n2.00000000000000000\r\n"
                                  "30\r\n3.00000000000000000\r\n");
    EXPECT_EQ(text(HeaderExtMax),
              "9\r\n$EXTMAX\r\n10\r\n11.00000000000000000\r\n20\r\n9.50000000000000000\r\n"
              "30\r\n3.00000000000000000\r\n");
}

TEST_F(DxfSectionRegistryTest, NumbersImagesInTheirOrder) {
    addImages(12);
    registry.addDocument(std::nullopt);
    Texts handles;
    Texts places;
    for (unsigned i = 0; i < 12; ++i) {
        char text[10];
        std::snprintf(text, sizeof text, "%X", 126 + 6 * 12 + 3 * i);
        handles.push_back(text);
        places.push_back(std::to_string(10 * i) + ".00000000000000000");
    }
    EXPECT_EQ(values(EntityImage, 5), handles);
    EXPECT_EQ(values(EntityImage, 10), places);
    EXPECT_EQ(values(EntityLine, 5).size(), 72u);
    EXPECT_EQ(values(ObjectImageDef, 5).front(), "C7");
    EXPECT_EQ(values(ObjectImageDef, 5), values(ObjectDictionary, 350));
    EXPECT_EQ(values(ObjectImageDefReactor, 5).back(), "E9");
    EXPECT_EQ(values(HeaderHandSeed, 5), Texts{"EA"});
    for (const TopLevelKey key : {ClassImageDef, ClassImageDefReactor, ClassImage})
        EXPECT_EQ(values(key, 91), Texts{"12"});
}

TEST_F(DxfSectionRegistryTest, ClassRecordsNameTheirClasses) {
    addImages(2);
    registry.addDocument(std::nullopt);
    const auto record = [](const std::string& name, const std::string& className, const std::string& proxy,
                           const std::string& entity) {
        return "0\r\nCLASS\r\n1\r\n" + name + "\r\n2\r\n" + className + "\r\n3\r\nISM\r\n90\r\n" + proxy +
               "\r\n91\r\n2\r\n280\r\n0\r\n281\r\n" + entity + "\r\n";
    };
    EXPECT_EQ(text(ClassImage), record("IMAGE", "AcDbRasterImage", "2175", "1"));
    EXPECT_EQ(text(ClassImageDef), record("IMAGEDEF", "AcDbRasterImageDef", "0", "0"));
    EXPECT_EQ(text(ClassImageDefReactor), record("IMAGEDEF_REACTOR", "AcDbRasterImageDefReactor", "1", "0"));
}

TEST_F(DxfSectionRegistryTest, WithoutPathWritesNoNames) {
    add(imageAt({0, 1, 0}, {0, 0, 0}, {1, 0, 0}, 100.0, nullptr));
    add(imageAt({0, 1, 0}, {0, 0, 0}, {1, 0, 0}, 100.0, L""));
    registry.addDocument(std::nullopt);
    EXPECT_EQ(values(ObjectImageDef, 1), (Texts{"", ""}));
    EXPECT_EQ(values(ObjectDictionary, 3), (Texts{"", ""}));
}

TEST_F(DxfSectionRegistryTest, SecondDocumentContinuesNumbersAndHandles) {
    addImages(2);
    registry.addDocument(std::nullopt);
    const std::string images = text(EntityImage);
    const std::string lines = text(EntityLine);
    EXPECT_EQ(values(EntityImage, 5), (Texts{"8A", "8D"}));
    EXPECT_EQ(values(HeaderHandSeed, 5), Texts{"90"});
    registry.addDocument(ReferencePlane{{0, 0, 7}, {0, 1, 0}, {-1, 0, 0}});

    EXPECT_TRUE(text(EntityImage).starts_with(images));
    EXPECT_TRUE(text(EntityLine).starts_with(lines));
    EXPECT_EQ(values(EntityImage, 5), (Texts{"8A", "8D", "9D", "A0"}));
    EXPECT_EQ(values(EntityImage, 340), (Texts{"8B", "8E", "9E", "A1"}));
    EXPECT_EQ(values(EntityImage, 360), (Texts{"8C", "8F", "9F", "A2"}));
    EXPECT_EQ(values(EntityLine, 5).size(), 24u);
    EXPECT_EQ(values(EntityLine, 5)[12], "91");
    EXPECT_EQ(values(HeaderHandSeed, 5), Texts{"A3"});
}

TEST_F(DxfSectionRegistryTest, SecondDocumentFillsTheFirstDefinitionsAgain) {
    addImages(2);
    registry.addDocument(std::nullopt);
    registry.addDocument(level);
    EXPECT_EQ(values(ObjectImageDef, 5), (Texts{"9E", "A1", "59", "59"}));
    EXPECT_EQ(values(ObjectImageDef, 1), (Texts{"plan.png", "plan.png", "", ""}));
    EXPECT_EQ(values(ObjectImageDef, 11)[2], "10.0");
    EXPECT_EQ(values(ObjectImageDefReactor, 5), (Texts{"9F", "A2", "5B", "5B"}));
    EXPECT_EQ(values(ObjectImageDefReactor, 330)[6], "58");
    EXPECT_EQ(values(ObjectDictionary, 350), (Texts{"9E", "A1"}));
    for (const TopLevelKey key : {ClassImageDef, ClassImageDefReactor, ClassImage})
        EXPECT_EQ(values(key, 91), Texts{"2"});
}

TEST_F(DxfSectionRegistryTest, ExtentsAreThoseOfAllDocumentsAndTheViewThatOfTheLast) {
    add(imageAt({1, 2, 5}, {1, 2, 3}, {5, 2, 3}));
    registry.addDocument(std::nullopt);
    EXPECT_EQ(values(TableVPort, 51), Texts{"-90.00000000000000000"});
    registry.addDocument(ReferencePlane{{0, 0, 10}, {1, 0, 0}, {0, 0, 1}});
    EXPECT_EQ(text(HeaderExtMin), "9\r\n$EXTMIN\r\n10\r\n1.00000000000000000\r\n20\r\n2.00000000000000000\r\n"
                                  "30\r\n-2.00000000000000000\r\n");
    EXPECT_EQ(text(HeaderExtMax), "9\r\n$EXTMAX\r\n10\r\n5.00000000000000000\r\n20\r\n5.00000000000000000\r\n"
                                  "30\r\n5.00000000000000000\r\n");
    EXPECT_NE(text(TableVPort)
                  .find("\r\n16\r\n0.00000000000000000\r\n26\r\n0.00000000000000000\r\n"
                        "36\r\n1.00000000000000000\r\n17\r\n3.00000000000000000\r\n"
                        "27\r\n4.00000000000000000\r\n37\r\n-2.00000000000000000\r\n"),
              std::string::npos);
    EXPECT_EQ(values(TableVPort, 51), Texts{"0.00000000000000000"});
}

TEST_F(DxfSectionRegistryTest, DefinitionHasTheSizeOfTheFlattenedImage) {
    addImages(1);
    registry.addDocument(ReferencePlane{{}, {1, 0, 0}, {1, 1, 0}}); // stretches heights
    EXPECT_EQ(values(ObjectImageDef, 20), values(EntityImage, 23));
    EXPECT_TRUE(values(ObjectImageDef, 20).front().starts_with("346.41"));
}

TEST_F(DxfSectionRegistryTest, ImageOnEdgeDoesNotTwistTheFlattenedView) {
    addImages(1);
    registry.addDocument(ReferencePlane{{}, {1, 0, 0}, {0, 0, 1}});
    EXPECT_EQ(values(TableVPort, 26), Texts{"1.00000000000000000"});
    EXPECT_EQ(values(TableVPort, 51), Texts{"0.00000000000000000"});
}

TEST_F(DxfSectionRegistryTest, ImagesLeftOutByFlatteningAreNotNumbered) {
    add(oblique(L"left.png"));
    addImages(2);
    registry.addDocument(far);
    EXPECT_EQ(values(EntityImage, 5), (Texts{"8A", "8D"}));
    EXPECT_EQ(values(EntityLine, 5).size(), 12u);
    EXPECT_EQ(values(ObjectDictionary, 3), (Texts{"plan.png", "plan.png"}));
    EXPECT_EQ(values(ClassImage, 91), Texts{"2"});
    EXPECT_EQ(values(HeaderHandSeed, 5), Texts{"90"});
}

TEST_F(DxfSectionRegistryTest, ImageAddedAfterADocumentHasNoEntryInTheDictionary) {
    addImages(1);
    registry.addDocument(std::nullopt);
    add(oblique(L"second.png"));
    add(oblique(L"third.png"));
    EXPECT_EQ(messageOfWrite(), "Failure while setting Map:#VEXO_OBJECT_IMAGEDEF#2");

    // What was filled until then shows in a document that does without the two.
    EXPECT_EQ(messageOfWrite(far), "none");
    EXPECT_EQ(values(EntityImage, 5), (Texts{"84", "9A", "9D", "", "A6"}));
    EXPECT_EQ(values(ObjectImageDef, 5), (Texts{"A7", "9E", "59", "59", "59"}));
    EXPECT_EQ(values(ObjectImageDef, 1), (Texts{"plan.png", "second.png", "", "", ""}));
    EXPECT_EQ(values(ObjectImageDefReactor, 5), (Texts{"A8", "9F", "5B", "5B", "5B"}));
    EXPECT_EQ(values(ObjectDictionary, 350), Texts{"A7"});
    EXPECT_EQ(values(EntityLine, 5).size(), 6u + 18u + 6u);
    for (const TopLevelKey key : {ClassImageDef, ClassImageDefReactor, ClassImage})
        EXPECT_EQ(values(key, 91), Texts{"1"});
    EXPECT_EQ(values(HeaderHandSeed, 5), Texts{"A9"});
}

TEST_F(DxfSectionRegistryTest, DocumentThatFailsWidensTheExtentsByWhatItFilled) {
    addImages(1);
    registry.addDocument(std::nullopt);
    add(levelImage({-7, 0, 0}, 4, 2));
    add(levelImage({-70, 0, 0}, 4, 2));
    EXPECT_NE(messageOfWrite(), "none");
    EXPECT_EQ(values(HeaderExtMin, 10), Texts{"-7.00000000000000000"});
}

TEST_F(DxfSectionRegistryTest, EveryFurtherDocumentWithTheImageFails) {
    registry.addDocument(std::nullopt);
    addImages(1);
    for (int attempt = 0; attempt < 3; ++attempt) {
        EXPECT_EQ(messageOfWrite(), "Failure while setting Map:#VEXO_OBJECT_IMAGEDEF#1");
        EXPECT_EQ(messageOfWrite(level), "Failure while setting Map:#VEXO_OBJECT_IMAGEDEF#1");
    }
    EXPECT_EQ(values(EntityImage, 5).size(), 6u);
    EXPECT_EQ(values(ClassImage, 91), Texts{"0"});
    EXPECT_TRUE(text(ObjectDictionary).ends_with("\r\n281\r\n1\r\n"));
}

TEST_F(DxfSectionRegistryTest, NothingChangesWhenFlatteningThrows) {
    addImages(2);
    add(levelImage({0, 0, 0}, 0.5, 2)); // has no width beside the far origin
    registry.addDocument(std::nullopt);
    const Texts before = allTexts();
    EXPECT_THROW(registry.addDocument(ReferencePlane{{}, {0, 0, 0}, {0, 1, 0}}), MathErrorZerovector);
    EXPECT_THROW(registry.addDocument(ReferencePlane{{}, {1, 0, 0}, {1, 0, 0}}), ErrorNR);
    EXPECT_THROW(registry.addDocument(far), MathErrorZerovector);
    EXPECT_EQ(allTexts(), before);

    DxfSectionRegistry undisturbed(drawing);
    undisturbed.addDocument(std::nullopt);
    undisturbed.addDocument(level);
    registry.addDocument(level);
    EXPECT_EQ(text(EntityImage),
              writtenBytes([&](OutputBuffer& out) { undisturbed.renderPlaceholder(EntityImage, out); }));
}

TEST_F(DxfSectionRegistryTest, MissingImageIsAnError) {
    addImages(1);
    drawing.images.appendEmpty();
    for (const auto& plane : {std::optional<ReferencePlane>(), std::optional(level)}) {
        try {
            registry.addDocument(plane);
            ADD_FAILURE() << "the missing image was not missed";
        } catch (const ZelkBase::Error& error) {
            EXPECT_EQ(error.message(), ZelkBase::Text(L"Null pointer dereferenced"));
        }
    }
}

TEST_F(DxfSectionRegistryTest, PathBeyondUnicodeIsRefusedBeforeAnythingIsAppended) {
    if (sizeof(wchar_t) == 2)
        GTEST_SKIP() << "every wide character converts here";
    addImages(1);
    const std::wstring path(1, static_cast<wchar_t>(0x110000));
    add(imageAt({0, 1, 0}, {0, 0, 0}, {1, 0, 0}, 100.0, path.c_str()));
    registry.addDocument(std::nullopt);
    for (const TopLevelKey key : {ObjectDictionary, ObjectImageDef})
        EXPECT_EQ(writtenBytes([&](OutputBuffer& out) {
                      EXPECT_THROW(registry.renderPlaceholder(key, out), std::range_error);
                  }),
                  "");
}
