#include "dxf/DxfSectionClass.h"
#include "dxf/DxfSectionEntities.h"
#include "dxf/DxfSectionHeader.h"
#include "dxf/DxfSectionObjects.h"
#include "dxf/DxfSectionTable_VPORT.h"
#include "support/Images.h"
#include "support/WrittenBytes.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

using namespace rasterplan;
using namespace rasterplan::test;

namespace {

// A pair as records.txt has it.
struct Line {
    std::string code;
    std::string codeKey;
    std::string value;
    std::string valueKey;

    bool isFilled() const { return value.starts_with('<'); }
    std::string constant() const { return value.substr(0, value.find('<')); }
    std::string unfilled() const {
        const std::size_t begin = value.find('<') + 1; // 0 where there is none
        return begin == 0 ? value : value.substr(begin, value.size() - 1 - begin);
    }

    friend bool operator==(const Line&, const Line&) = default;
    friend void PrintTo(const Line& line, std::ostream* out) {
        *out << line.code << ' ' << line.codeKey << ' ' << line.value << ' ' << line.valueKey;
    }
};
using Lines = std::vector<Line>;

std::map<std::string, Lines> expectedRecords() {
    std::ifstream file(RASTERPLAN_RECORDS_FILE);
    if (!file)
        throw std::runtime_error("cannot open " RASTERPLAN_RECORDS_FILE);
    std::map<std::string, Lines> records;
    std::string record;
    for (std::string text; std::getline(file, text);) {
        Line line;
        std::istringstream words(text);
        if (text.starts_with('#') || !(words >> line.code))
            continue;
        if (words >> line.codeKey >> line.value >> line.valueKey)
            records[record].push_back(line);
        else
            record = line.code;
    }
    return records;
}

// A record of the product: its table, and what it writes.
struct Record {
    const char* name;
    Lines lines;
    std::function<void(OutputBuffer&)> write;
    std::function<void(OutputBuffer&)> writeUnfilled;

    friend void PrintTo(const Record& record, std::ostream* out) { *out << record.name; }
};

template <typename Section>
Record record(const char* name, const Section& section) {
    Lines lines;
    for (const Pair<Section>& pair : RecordLayout<Section>::pairs) {
        const std::string unfilled(pair.value.unfilled);
        std::string value = '<' + unfilled + '>';
        if (pair.value.isConstant()) {
            const std::string constant(std::get<0>(pair.value.source));
            value = constant == unfilled ? constant : constant + value;
        }
        lines.push_back({std::string(pair.code), std::string(pair.codeKey.begin(), pair.codeKey.end()), value,
                         std::string(pair.valueKey.begin(), pair.valueKey.end())});
    }
    return {name, lines, [=](OutputBuffer& out) { section.render(out); }, &Section::renderUnfilled};
}

const ImageParam image = levelImage({1, 2, 3}, 4, 5);
constexpr ImageHandles firstHandles{Handle{1}, Handle{2}, Handle{3}};

std::vector<Record> records() {
    return {
        record<DxfSectionImageEntity>("IMAGE", {image, firstHandles}),
        record<DxfSectionObjects_IMAGEDEF>("IMAGEDEF", {image, firstHandles}),
        record("IMAGEDEF_REACTOR", DxfSectionObjects_IMAGEDEFREACTOR(firstHandles)),
        record("DICTIONARY", DxfSectionObjects_DICTIONARY()),
        record<DxfSectionObjects_DICTIONARYEntry>("DICTIONARY_ENTRY", {image, firstHandles}),
        record<DxfSectionClass_INSTANCE>("CLASS", DxfSectionClass_IMAGE(7)),
        record<DxfSectionLineEntity>("LINE", {{1, 2, 3}, {4, 5, 6}, Handle{4}}),
        record<DxfSectionTable_VPORT>("VPORT", {{0, 0, 1}, {1, 2, 3}, 4, 5, 6}),
        record<DxfSectionHeaderVar>("HANDLE_VARIABLE", DxfHeaderSection_HANDSEED(Handle{5})),
        record<DxfSectionHeaderVarBox>("POINT_VARIABLE", DxfHeaderSection_EXTMIN({1, 2, 3})),
        record("INSUNITS", DxfHeaderSection_INSUNITS(4)),
    };
}

class RecordTable : public testing::TestWithParam<Record> {
protected:
    const Lines expected = expectedRecords()[GetParam().name];
};

} // namespace

TEST_P(RecordTable, HasTheseKeysCodesAndValues) {
    EXPECT_EQ(GetParam().lines, expected);
}

TEST_P(RecordTable, HasNoKeyTwice) {
    std::set<std::string> keys;
    for (const Line& line : GetParam().lines)
        for (const std::string& key : {line.codeKey, line.valueKey})
            EXPECT_TRUE(keys.insert(key).second) << key;
}

TEST_P(RecordTable, IsWrittenPairByPair) {
    std::istringstream written(writtenBytes(GetParam().write));
    std::string code;
    std::string value;
    for (const Line& line : expected) {
        ASSERT_TRUE(std::getline(written, code) && std::getline(written, value)) << line.codeKey;
        EXPECT_EQ(code, line.code + '\r') << line.codeKey;
        if (line.isFilled())
            EXPECT_GT(value.size(), 1u) << line.valueKey;
        else
            EXPECT_EQ(value, line.constant() + '\r') << line.valueKey;
    }
    EXPECT_FALSE(std::getline(written, code)) << code;
}

TEST_P(RecordTable, SaysItsFirstValuesUnfilled) {
    std::string text;
    for (const Line& line : expected)
        text += line.code + "\r\n" + line.unfilled() + "\r\n";
    EXPECT_EQ(writtenBytes(GetParam().writeUnfilled), text);
}

INSTANTIATE_TEST_SUITE_P(Records, RecordTable, testing::ValuesIn(records()),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST(RecordTables, AllAreCompared) {
    std::set<std::string> expected;
    for (const auto& [name, lines] : expectedRecords())
        expected.insert(name);
    std::set<std::string> found;
    for (const Record& record : records())
        found.insert(record.name);
    EXPECT_EQ(found, expected);
}
