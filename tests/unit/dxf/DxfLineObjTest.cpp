#include "dxf/DxfLineObj.h"

#include "dxf/DxfSectionLineEntity.h"
#include "template/DxfError.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace rasterplan;

namespace {

std::shared_ptr<const MathMatrix> shared(const MathMatrix& matrix) {
    return std::make_shared<const MathMatrix>(matrix);
}

DxfLineObj line(const MathPoint3d& start, const MathPoint3d& end, std::uint32_t number = 1) {
    return DxfLineObj({start, end, shared(MathMatrix::identity4())}, number);
}

/// Scales x, y and z.
MathMatrix scaling(double x, double y, double z) {
    return MathMatrix::placement({}, {x, 0, 0}, {0, y, 0}, {0, 0, z});
}

/// Files a new section for the line, as the assembly of a document does.
void fileSection(DxfSectionRegistry& registry, DxfLineObj& object) {
    const SectionKey key = registry.makeInstanceKey(TopLevelKey::entityLine);
    registry.fileSection(key, object.createSection());
    object.setSectionKey(key);
}

std::wstring rendered(const DxfSectionRegistry& registry) {
    return registry.renderPlaceholder(L"#VEXO_ENTITY_LINE#");
}

} // namespace

TEST(DxfLineObj, CreatesALineSection) {
    EXPECT_EQ(line({}, {}).createSection().render(), DxfSectionLineEntity().render());
}

TEST(DxfLineObj, FillsHandleAndEndPoints) {
    DxfSectionRegistry registry;
    DxfLineObj object = line({0, 0, 0}, {1, 2, 3});
    fileSection(registry, object);
    object.assignHandles(registry);
    object.fillSections(registry);
    EXPECT_EQ(rendered(registry), L"0\nLINE\n"
                                  L"5\n7E\n"
                                  L"100\nAcDbEntity\n"
                                  L"8\n0\n"
                                  L"100\nAcDbLine\n"
                                  L"10\n0.00000000000000000\n"
                                  L"20\n0.00000000000000000\n"
                                  L"30\n0.00000000000000000\n"
                                  L"11\n1.00000000000000000\n"
                                  L"21\n2.00000000000000000\n"
                                  L"31\n3.00000000000000000\n");
}

TEST(DxfLineObj, WritesItsNumberUntilAHandleIsAssigned) {
    DxfSectionRegistry registry;
    DxfLineObj object = line({}, {}, 18);
    fileSection(registry, object);
    object.fillSections(registry);
    EXPECT_EQ(registry.getSectionValue(object.sectionKey(), L"#VEXO_ENTITYLINEHANDLE#"), L"18");
    object.assignHandles(registry);
    object.fillSections(registry);
    EXPECT_EQ(registry.getSectionValue(object.sectionKey(), L"#VEXO_ENTITYLINEHANDLE#"), L"7E");
}

TEST(DxfLineObj, TakesOneHandleAtATime) {
    DxfSectionRegistry registry;
    DxfLineObj object = line({}, {});
    fileSection(registry, object);
    object.assignHandles(registry);
    object.assignHandles(registry);
    object.fillSections(registry);
    EXPECT_EQ(registry.getSectionValue(object.sectionKey(), L"#VEXO_ENTITYLINEHANDLE#"), L"7F");
    EXPECT_EQ(registry.nextHandle(), 128);
}

TEST(DxfLineObj, IdentityTransformChangesNothing) {
    DxfLineObj object = line({1, 2, 3}, {-4, 5, -6});
    object.transform(MathMatrix::identity4());
    EXPECT_EQ(object.start(), MathPoint3d(1, 2, 3));
    EXPECT_EQ(object.end(), MathPoint3d(-4, 5, -6));
}

TEST(DxfLineObj, OnlyXComesFromTheMatrixGiven) {
    DxfLineObj object = line({1, 2, 3}, {-4, 5, -6});
    object.transform(scaling(2, 7, 7));
    EXPECT_EQ(object.start(), MathPoint3d(2, 2, 3));
    EXPECT_EQ(object.end(), MathPoint3d(-8, 5, -6));
}

TEST(DxfLineObj, YAndZComeFromItsOwnFrame) {
    DxfLineObj object({{1, 2, 3}, {-4, 5, -6}, shared(scaling(9, 10, 100))}, 1);
    object.transform(MathMatrix::placement({1, 9, 9}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}));
    EXPECT_EQ(object.start(), MathPoint3d(1 + 4 + 9 + 1, 20, 300));
    EXPECT_EQ(object.end(), MathPoint3d(-4 + 10 - 18 + 1, 50, -600));
}

TEST(DxfLineObj, EachMatrixDividesByItsOwnWeight) {
    MathMatrix given = MathMatrix::identity4();
    given(3, 3) = 2;
    MathMatrix frame = MathMatrix::identity4();
    frame(3, 3) = 4;
    DxfLineObj object({{8, 8, 8}, {16, 16, 16}, shared(frame)}, 1);
    object.transform(given);
    EXPECT_EQ(object.start(), MathPoint3d(4, 2, 2));
    EXPECT_EQ(object.end(), MathPoint3d(8, 4, 4));
}

TEST(DxfLineObj, TranslationMovesBothEnds) {
    DxfLineObj object = line({0, 0, 0}, {1, 2, 3});
    object.translate({1, 1, 1});
    EXPECT_EQ(object.start(), MathPoint3d(1, 1, 1));
    EXPECT_EQ(object.end(), MathPoint3d(2, 3, 4));
}

TEST(DxfLineObj, MissingSectionIsNamed) {
    DxfSectionRegistry registry;
    DxfLineObj object = line({}, {});
    const auto messageOfFill = [&]() -> std::wstring {
        try {
            object.fillSections(registry);
        } catch (const DxfError& error) {
            return error.message();
        }
        return L"none";
    };
    EXPECT_EQ(messageOfFill(), L"Failure while setting Map:");
    object.setSectionKey({TopLevelKey::entityLine, 12});
    EXPECT_EQ(messageOfFill(), L"Failure while setting Map:#VEXO_ENTITY_LINE#12");
}

TEST(DxfLineObj, AllValuesAreTriedBeforeAFailureIsReported) {
    static constexpr RecordTable lastRow({{L"#VEXO_ENTITYLINE_ENDPNTZ#", "", filled}});
    static constexpr SectionTable lastLine = lastRow.table();
    DxfSectionRegistry registry;
    DxfLineObj object = line({}, {1, 2, 3});
    const SectionKey key = registry.makeInstanceKey(TopLevelKey::entityLine);
    registry.fileSection(key, DxfSection(lastLine));
    object.setSectionKey(key);
    EXPECT_THROW(object.fillSections(registry), DxfError);
    EXPECT_EQ(rendered(registry), L"3.00000000000000000\n");
}

TEST(DxfLineObj, CloneIsIndependent) {
    DxfSectionRegistry registry;
    DxfLineObj object({{1, 2, 3}, {4, 5, 6}, shared(scaling(1, 10, 100))}, 5);
    fileSection(registry, object);
    object.assignHandles(registry);
    const std::unique_ptr<DxfEntity> clone = object.clone();
    auto& copy = dynamic_cast<DxfLineObj&>(*clone);
    object.translate({100, 100, 100});

    EXPECT_EQ(copy.sectionKey(), object.sectionKey());
    copy.transform(MathMatrix::identity4());
    EXPECT_EQ(copy.start(), MathPoint3d(1, 20, 300));
    EXPECT_EQ(copy.end(), MathPoint3d(4, 50, 600));
    EXPECT_EQ(object.start(), MathPoint3d(101, 102, 103));
    copy.fillSections(registry);
    EXPECT_EQ(registry.getSectionValue(copy.sectionKey(), L"#VEXO_ENTITYLINEHANDLE#"), L"7E");
    EXPECT_EQ(registry.getSectionValue(copy.sectionKey(), L"#VEXO_ENTITYLINE_ENDPNTZ#"),
              L"600.00000000000000000");
}
