#include "support/StrictDxf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

namespace {

using rasterplan::test::DxfGroup;
using rasterplan::test::DxfRecord;
using rasterplan::test::DxfVariable;
using rasterplan::test::headerVariables;
using rasterplan::test::isPointerCode;
using rasterplan::test::strictGroups;
using rasterplan::test::strictHandle;
using rasterplan::test::strictRecords;
using rasterplan::test::valueFitsCode;

constexpr std::size_t longestLine = 511;           // what the writer reads of a line
constexpr unsigned long lastTemplateHandle = 0x7D; // the writer numbers its records from 7E

// Handles of the records that stand in the place of a placeholder and are named from elsewhere.
const std::set<std::string> generatedHandles = {"29", "5A"};

// The generated records carry 29, 5A, and as long as nothing fills them 58, 59, 5B. On 1F and B one of the
// readers puts records of its own.
const std::set<std::string> reservedHandles = {"29", "5A", "58", "59", "5B", "1F", "B"};

std::string templateText() {
    std::ifstream file(RASTERPLAN_TEMPLATE_FILE, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot open " RASTERPLAN_TEMPLATE_FILE);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> templateLines() {
    const std::string text = templateText();
    std::vector<std::string> lines;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

bool isPlaceholder(const std::string& line) {
    return line.starts_with('#');
}

// The template's pairs. A placeholder line stands for whole header variables or whole records, and so
// becomes the pair that begins one: code 9 or 0 with the key as value. The text between two of them must be
// whole pairs.
std::vector<DxfGroup> templateGroups() {
    std::vector<DxfGroup> groups;
    std::string text;
    std::size_t textLine = 1;
    std::size_t line = 0;
    const auto take = [&] {
        const std::vector<DxfGroup> read = strictGroups(text, textLine);
        groups.insert(groups.end(), read.begin(), read.end());
        text.clear();
        textLine = line + 1;
    };
    for (const std::string& content : templateLines()) {
        ++line;
        if (isPlaceholder(content)) {
            take();
            groups.push_back({content.starts_with("#VEXO_HEADER_") ? 9 : 0, content, line});
        } else {
            text += content + '\n';
        }
    }
    take();
    return groups;
}

class Template : public ::testing::Test {
protected:
    std::vector<DxfRecord> all(const std::string& type) const {
        std::vector<DxfRecord> found;
        std::copy_if(records.begin(), records.end(), std::back_inserter(found),
                     [&](const DxfRecord& record) { return record.type == type; });
        return found;
    }

    const DxfRecord& withHandle(const std::string& handle) const {
        const auto found = std::find_if(records.begin(), records.end(),
                                        [&](const DxfRecord& record) { return record.handle() == handle; });
        if (found == records.end())
            throw std::runtime_error("no record has the handle " + handle);
        return *found;
    }

    // The names in a table, in small letters: names of records do not differ by case alone.
    std::set<std::string> namesIn(const std::string& type) const {
        std::set<std::string> names;
        for (const DxfRecord& record : all(type))
            names.insert(lower(record.value(2)));
        return names;
    }

    static std::string lower(std::string text) {
        std::transform(text.begin(), text.end(), text.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        return text;
    }

    // The entries of a dictionary by name. Throws where a name stands twice or has no handle beside it.
    static std::map<std::string, std::string> entries(const DxfRecord& dictionary) {
        const std::vector<std::string> names = dictionary.values(3);
        const std::vector<std::string> handles = dictionary.values(350);
        std::map<std::string, std::string> found;
        for (std::size_t i = 0; i < names.size(); ++i)
            found.emplace(names[i], handles.at(i));
        if (found.size() != handles.size())
            throw std::runtime_error("entries of " + dictionary.handle() + " clash");
        return found;
    }

    const std::vector<DxfGroup> groups = templateGroups();
    const std::vector<DxfRecord> records = strictRecords(groups);
};

TEST_F(Template, IsAsciiInLinesThatTheWriterReadsWhole) {
    for (const std::string& line : templateLines()) {
        EXPECT_LE(line.size(), longestLine) << line;
        EXPECT_TRUE(std::all_of(line.begin(), line.end(), [](char c) { return ' ' <= c && c <= '~'; }))
            << line;
    }
}

// The writer ends the last line itself; a line end here would add an empty line behind EOF.
TEST_F(Template, EndsWithEofAndNoLineEnd) {
    EXPECT_TRUE(templateText().ends_with("\n0\nEOF"));
    EXPECT_EQ(all("EOF").size(), 1U);
}

TEST_F(Template, HoldsEveryPlaceholderOnceInItsPlace) {
    using Place = std::tuple<std::string, std::string, std::string>; // key, section, table
    const std::multiset<Place> expected = {
        {"#VEXO_HEADER_EXTMIN#", "HEADER", ""},      {"#VEXO_HEADER_EXTMAX#", "HEADER", ""},
        {"#VEXO_HEADER_HANDSEED#", "HEADER", ""},    {"#VEXO_HEADER_INSUNITS#", "HEADER", ""},
        {"#VEXO_CLASS_IMAGEDEF#", "CLASSES", ""},    {"#VEXO_CLASS_IMAGEDEFREACTOR#", "CLASSES", ""},
        {"#VEXO_CLASS_IMAGE#", "CLASSES", ""},       {"#VEXO_TABLE_VPORT#", "TABLES", "VPORT"},
        {"#VEXO_OBJECT_DICTIONARY#", "OBJECTS", ""}, {"#VEXO_OBJECT_IMAGEDEFREACTOR#", "OBJECTS", ""},
        {"#VEXO_OBJECT_IMAGEDEF#", "OBJECTS", ""},   {"#VEXO_ENTITY_LINE#", "ENTITIES", ""},
        {"#VEXO_ENTITY_IMAGE#", "ENTITIES", ""},
    };
    std::multiset<Place> found;
    for (const DxfRecord& record : records) {
        if (isPlaceholder(record.type)) {
            found.emplace(record.type, record.section, record.table);
            EXPECT_TRUE(record.groups.empty()) << record.type << " cuts the record of line " << record.line;
        }
        for (const DxfGroup& group : record.groups)
            if (group.code == 9 && isPlaceholder(group.value))
                found.emplace(group.value, record.section, "");
    }
    EXPECT_EQ(found, expected);
    for (const DxfVariable& variable : headerVariables(records))
        EXPECT_EQ(variable.groups.empty(), isPlaceholder(variable.name)) << variable.name;
}

// Readers paint in file order, and only so do the lines lie on the pictures; some resolve a definition only
// where its dictionary stands before it.
TEST_F(Template, OrdersThePlaceholders) {
    std::vector<std::string> inEntities;
    std::vector<std::string> inObjects;
    for (const DxfRecord& record : records) {
        if (!isPlaceholder(record.type))
            continue;
        if (record.section == "ENTITIES")
            inEntities.push_back(record.type);
        if (record.section == "OBJECTS")
            inObjects.push_back(record.type);
    }
    EXPECT_EQ(inEntities, (std::vector<std::string>{"#VEXO_ENTITY_IMAGE#", "#VEXO_ENTITY_LINE#"}));
    EXPECT_EQ(inObjects, (std::vector<std::string>{"#VEXO_OBJECT_DICTIONARY#", "#VEXO_OBJECT_IMAGEDEF#",
                                                   "#VEXO_OBJECT_IMAGEDEFREACTOR#"}));
}

TEST_F(Template, HasTheSectionsInTheOrderThatReadersDemand) {
    std::vector<std::string> sections;
    for (const DxfRecord& record : all("SECTION"))
        sections.push_back(record.section);
    EXPECT_EQ(sections,
              (std::vector<std::string>{"HEADER", "CLASSES", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"}));
}

TEST_F(Template, HasAllNineTables) {
    struct TableMarker {
        const char* name;
        const char* marker;
    };
    constexpr std::array<TableMarker, 9> tables = {{{"VPORT", ""}, // its record is generated
                                                    {"LTYPE", "AcDbLinetypeTableRecord"},
                                                    {"LAYER", "AcDbLayerTableRecord"},
                                                    {"STYLE", "AcDbTextStyleTableRecord"},
                                                    {"VIEW", "AcDbViewTableRecord"},
                                                    {"UCS", "AcDbUCSTableRecord"},
                                                    {"APPID", "AcDbRegAppTableRecord"},
                                                    {"DIMSTYLE", "AcDbDimStyleTableRecord"},
                                                    {"BLOCK_RECORD", "AcDbBlockTableRecord"}}};
    const std::vector<DxfRecord> heads = all("TABLE");
    EXPECT_EQ(all("ENDTAB").size(), tables.size());
    ASSERT_EQ(heads.size(), tables.size());
    for (std::size_t i = 0; i < tables.size(); ++i) {
        const DxfRecord& head = heads[i];
        const std::string name = tables[i].name;
        SCOPED_TRACE(name);
        EXPECT_EQ(head.table, name);
        EXPECT_FALSE(head.handle().empty());
        EXPECT_EQ(head.value(330), "0");
        EXPECT_EQ(head.value(100), "AcDbSymbolTable");
        EXPECT_EQ(head.values(100).back(), name == "DIMSTYLE" ? "AcDbDimStyleTable" : "AcDbSymbolTable");

        int count = 0;
        std::set<std::string> names;
        for (const DxfRecord& record : records) {
            if (record.table != name || record.type == "TABLE" || record.type == "ENDTAB")
                continue;
            ++count;
            if (isPlaceholder(record.type))
                continue;
            EXPECT_EQ(record.type, name) << record.line;
            EXPECT_FALSE(record.handle().empty()) << record.line;
            EXPECT_EQ(record.value(330), head.handle()) << record.line;
            EXPECT_EQ(record.values(100),
                      (std::vector<std::string>{"AcDbSymbolTableRecord", tables[i].marker}));
            EXPECT_TRUE(names.insert(lower(record.value(2))).second) << record.line;
        }
        EXPECT_EQ(head.value(70), std::to_string(count));
    }
}

TEST_F(Template, NamesInTheTablesWhatEveryDrawingHas) {
    EXPECT_EQ(namesIn("LTYPE"), (std::set<std::string>{"byblock", "bylayer", "continuous"}));
    EXPECT_EQ(namesIn("LAYER"), (std::set<std::string>{"0"}));
    EXPECT_EQ(namesIn("STYLE"), (std::set<std::string>{"standard"}));
    EXPECT_EQ(namesIn("APPID"), (std::set<std::string>{"acad"}));
    EXPECT_EQ(namesIn("DIMSTYLE"), (std::set<std::string>{"standard"}));
    EXPECT_EQ(namesIn("BLOCK_RECORD"), (std::set<std::string>{"*model_space", "*paper_space"}));
}

TEST_F(Template, HasValuesOfTheKindThatTheirCodesDemand) {
    for (const DxfGroup& group : groups) {
        EXPECT_TRUE(valueFitsCode(group))
            << "line " << group.line << ": " << group.code << " / " << group.value;
    }
}

TEST_F(Template, LeavesTheGeneratedRecordsTheirHandles) {
    std::set<std::string> seen;
    for (const DxfRecord& record : records) {
        const std::string handle = record.handle();
        if (handle.empty())
            continue;
        EXPECT_TRUE(seen.insert(handle).second) << handle << " stands twice, again in line " << record.line;
        EXPECT_GT(strictHandle(handle), 0U) << record.line;
        EXPECT_LE(strictHandle(handle), lastTemplateHandle) << record.line;
        EXPECT_EQ(reservedHandles.count(handle), 0U) << handle << " in line " << record.line;
    }
}

TEST_F(Template, GivesAHandleToEveryRecordThatReadersLookUp) {
    for (const DxfRecord& record : records) {
        const bool isBracket = record.type == "SECTION" || record.type == "ENDSEC" ||
                               record.type == "ENDTAB" || record.type == "EOF";
        const bool isNumbered = !isBracket && record.section != "CLASSES" && !isPlaceholder(record.type);
        EXPECT_EQ(record.handle().empty(), !isNumbered) << record.type << " in line " << record.line;
    }
}

TEST_F(Template, PointsOnlyAtRecordsThatTheFilledDrawingHas) {
    std::set<std::string> known = generatedHandles;
    known.insert("0");
    for (const DxfRecord& record : records)
        known.insert(record.handle());
    for (const DxfRecord& record : records) {
        for (const DxfGroup& group : record.groups) {
            if (!isPointerCode(group.code))
                continue;
            EXPECT_EQ(known.count(group.value), 1U) << "line " << group.line << ": " << group.value;
        }
    }
}

TEST_F(Template, BeginsItsObjectsWithTheRootDictionary) {
    const auto first = std::find_if(records.begin(), records.end(), [](const DxfRecord& record) {
        return record.section == "OBJECTS" && record.type != "SECTION";
    });
    ASSERT_NE(first, records.end());
    EXPECT_EQ(first->type, "DICTIONARY");
    EXPECT_EQ(first->handle(), "9");
    EXPECT_EQ(first->value(330), "0");
    const std::map<std::string, std::string> root = entries(*first);
    EXPECT_EQ(root.at("ACAD_IMAGE_DICT"), "5A");
    const std::map<std::string, std::string> typeOf = {
        {"ACAD_GROUP", "DICTIONARY"},        {"ACAD_IMAGE_VARS", "RASTERVARIABLES"},
        {"ACAD_LAYOUT", "DICTIONARY"},       {"ACAD_MLINESTYLE", "DICTIONARY"},
        {"ACAD_PLOTSETTINGS", "DICTIONARY"}, {"ACAD_PLOTSTYLENAME", "ACDBDICTIONARYWDFLT"},
    };
    for (const auto& [name, type] : typeOf) {
        SCOPED_TRACE(name);
        ASSERT_EQ(root.count(name), 1U);
        EXPECT_EQ(withHandle(root.at(name)).type, type);
    }
    EXPECT_EQ(root.size(), typeOf.size() + 1);
}

// Every object but the root stands in the dictionary that it names as its owner, and in no other.
TEST_F(Template, OwnsEveryObjectThroughOneDictionary) {
    std::map<std::string, std::string> ownerOf;
    for (const DxfRecord& record : records) {
        if (record.type != "DICTIONARY" && record.type != "ACDBDICTIONARYWDFLT")
            continue;
        EXPECT_EQ(record.value(100), "AcDbDictionary") << record.line;
        EXPECT_EQ(record.value(281), "1") << record.line;
        for (const auto& [name, handle] : entries(record)) {
            EXPECT_TRUE(ownerOf.emplace(handle, record.handle()).second)
                << name << " in line " << record.line;
        }
    }
    for (const DxfRecord& record : records) {
        if (record.section != "OBJECTS" || record.handle().empty() || record.handle() == "9")
            continue;
        SCOPED_TRACE(record.type + " in line " + std::to_string(record.line));
        ASSERT_EQ(ownerOf.count(record.handle()), 1U);
        EXPECT_EQ(record.value(330), ownerOf.at(record.handle()));
        ownerOf.erase(record.handle());
    }
    EXPECT_EQ(ownerOf, (std::map<std::string, std::string>{{"5A", "9"}}));
}

TEST_F(Template, BindsBlocksAndLayoutsToTheirBlockRecords) {
    const std::vector<DxfRecord> blockRecords = all("BLOCK_RECORD");
    const std::vector<DxfRecord> blocks = all("BLOCK");
    const std::vector<DxfRecord> ends = all("ENDBLK");
    const std::vector<DxfRecord> layouts = all("LAYOUT");
    ASSERT_EQ(blockRecords.size(), 2U);
    ASSERT_EQ(blocks.size(), 2U);
    ASSERT_EQ(ends.size(), 2U);
    ASSERT_EQ(layouts.size(), 2U);
    EXPECT_EQ(blockRecords[0].value(2), "*Model_Space");
    EXPECT_EQ(blockRecords[0].handle(), "2"); // every generated picture names it as its owner
    EXPECT_EQ(blockRecords[1].value(2), "*Paper_Space");

    const std::map<std::string, std::string> layoutNames =
        entries(withHandle(entries(withHandle("9")).at("ACAD_LAYOUT")));
    const std::array<std::string, 2> names = {"Model", "Layout1"};
    for (std::size_t i = 0; i < 2; ++i) {
        SCOPED_TRACE(names[i]);
        const std::string space = blockRecords[i].handle();
        const std::vector<std::string> paper =
            i == 0 ? std::vector<std::string>{} : std::vector<std::string>{"1"};
        EXPECT_EQ(blocks[i].section, "BLOCKS");
        EXPECT_EQ(blocks[i].value(2), blockRecords[i].value(2));
        EXPECT_EQ(blocks[i].value(3), blockRecords[i].value(2));
        EXPECT_EQ(blocks[i].value(330), space);
        EXPECT_EQ(blocks[i].values(100), (std::vector<std::string>{"AcDbEntity", "AcDbBlockBegin"}));
        EXPECT_EQ(blocks[i].values(67), paper);
        EXPECT_EQ(ends[i].value(330), space);
        EXPECT_EQ(ends[i].values(100), (std::vector<std::string>{"AcDbEntity", "AcDbBlockEnd"}));
        EXPECT_EQ(ends[i].values(67), paper);

        const DxfRecord& layout = withHandle(layoutNames.at(names[i]));
        EXPECT_EQ(layout.type, "LAYOUT");
        EXPECT_EQ(layout.values(1).back(), names[i]);
        EXPECT_EQ(layout.value(71), std::to_string(i));
        EXPECT_EQ(layout.values(330).back(), space);
        EXPECT_EQ(blockRecords[i].value(340), layout.handle());
    }
}

TEST_F(Template, NamesOnlyLayersLinetypesAndStylesThatItHolds) {
    for (const DxfRecord& record : records) {
        SCOPED_TRACE(record.type + " in line " + std::to_string(record.line));
        if (record.section == "BLOCKS" && !record.handle().empty()) {
            EXPECT_EQ(namesIn("LAYER").count(lower(record.value(8))), 1U);
        }
        if (record.type == "LAYER") {
            EXPECT_EQ(namesIn("LTYPE").count(lower(record.value(6))), 1U);
            EXPECT_EQ(withHandle(record.value(390)).type, "ACDBPLACEHOLDER");
        }
        if (record.type == "DIMSTYLE") {
            EXPECT_EQ(withHandle(record.value(340)).type, "STYLE");
        }
        if (record.type == "ACDBDICTIONARYWDFLT") {
            EXPECT_EQ(withHandle(record.value(340)).type, "ACDBPLACEHOLDER");
        }
        if (record.type == "MLINESTYLE") {
            const std::vector<std::string> linetypes = record.values(6);
            EXPECT_EQ(record.value(71), std::to_string(linetypes.size()));
            for (const std::string& name : linetypes)
                EXPECT_EQ(namesIn("LTYPE").count(lower(name)), 1U) << name;
        }
    }
}

TEST_F(Template, HasHeaderVariablesThatNameWhatExists) {
    std::map<std::string, std::vector<DxfGroup>> variables;
    for (const DxfVariable& variable : headerVariables(records)) {
        EXPECT_TRUE(variables.emplace(variable.name, variable.groups).second)
            << variable.name << " stands twice";
        EXPECT_TRUE(isPlaceholder(variable.name) || variable.name.starts_with('$')) << variable.name;
    }
    const auto value = [&](const std::string& name) { return lower(variables.at(name).at(0).value); };
    EXPECT_EQ(value("$ACADVER"), "ac1024"); // from AC1021 on readers take the text for UTF-8
    EXPECT_EQ(value("$DWGCODEPAGE"), "ansi_1252");
    EXPECT_EQ(namesIn("LAYER").count(value("$CLAYER")), 1U);
    EXPECT_EQ(namesIn("LTYPE").count(value("$CELTYPE")), 1U);
    EXPECT_EQ(namesIn("STYLE").count(value("$TEXTSTYLE")), 1U);
    EXPECT_EQ(namesIn("DIMSTYLE").count(value("$DIMSTYLE")), 1U);
    EXPECT_EQ(namesIn("MLINESTYLE").count(value("$CMLSTYLE")), 1U);
    for (const char* generated : {"$EXTMIN", "$EXTMAX", "$HANDSEED", "$INSUNITS"})
        EXPECT_EQ(variables.count(generated), 0U) << generated << " would stand twice in the drawing";
}

// A building at 1:100 in metres: a sheet of 42 x 29.7, letters and arrows that come out 2.5 mm high. With the
// sizes of a sheet in millimetres "zoom all" would make a dot of the building.
TEST_F(Template, SuitsABuildingInMetres) {
    std::map<std::string, std::vector<std::string>> variables;
    for (const DxfVariable& variable : headerVariables(records))
        for (const DxfGroup& group : variable.groups)
            variables[variable.name].push_back(group.value);
    using Values = std::vector<std::string>;
    EXPECT_EQ(variables["$LIMMIN"], (Values{"0.0", "0.0"}));
    EXPECT_EQ(variables["$LIMMAX"], (Values{"42.0", "29.7"}));
    EXPECT_EQ(variables["$LTSCALE"], Values{"0.1"});
    EXPECT_EQ(variables["$TEXTSIZE"], Values{"0.25"});
    const DxfRecord style = all("STYLE").at(0);
    EXPECT_EQ(style.value(40), "0.0"); // no fixed height: every text has its own
    EXPECT_EQ(style.value(42), "0.25");

    const DxfRecord& model =
        withHandle(entries(withHandle(entries(withHandle("9")).at("ACAD_LAYOUT"))).at("Model"));
    EXPECT_EQ((Values{model.value(10), model.value(20)}), variables["$LIMMIN"]);
    EXPECT_EQ((Values{model.value(11), model.value(21)}), variables["$LIMMAX"]);
}

// A drawing's dimensions follow the header until somebody picks the style, and the style from then on.
TEST_F(Template, DrawsDimensionsAlikeByHeaderAndStyle) {
    struct Size {
        const char* variable;
        int code;
        const char* value;
    };
    constexpr std::array<Size, 6> sizes = {{{"$DIMSCALE", 40, "1.0"},
                                            {"$DIMASZ", 41, "0.25"},
                                            {"$DIMEXO", 42, "0.0625"},
                                            {"$DIMEXE", 44, "0.125"},
                                            {"$DIMTXT", 140, "0.25"},
                                            {"$DIMGAP", 147, "0.0625"}}};
    std::map<std::string, std::string> variables;
    for (const DxfVariable& variable : headerVariables(records))
        if (!variable.groups.empty())
            variables[variable.name] = variable.groups.front().value;
    const DxfRecord style = all("DIMSTYLE").at(0);
    for (const Size& size : sizes) {
        SCOPED_TRACE(size.variable);
        EXPECT_EQ(variables[size.variable], size.value);
        EXPECT_EQ(style.value(size.code), size.value);
    }
}

TEST_F(Template, DeclaresTheClassesOfItsObjects) {
    // These types are part of the format and need no declaration.
    const std::set<std::string> builtIn = {"DICTIONARY", "MLINESTYLE"};
    std::map<std::string, int> used;
    for (const DxfRecord& record : records) {
        if (record.section != "OBJECTS" || record.handle().empty() || builtIn.count(record.type) != 0)
            continue;
        ++used[record.type];
    }
    std::map<std::string, int> declared;
    for (const DxfRecord& record : all("CLASS")) {
        EXPECT_TRUE(declared.emplace(record.value(1), std::stoi(record.value(91))).second) << record.line;
        EXPECT_EQ(record.value(280), "0") << record.line;
        EXPECT_EQ(record.value(281), "0") << record.line;
    }
    EXPECT_EQ(declared, used);
}

} // namespace
