#include "site/JsonMistake.h"

#include "site/JsonText.h"

#include <gtest/gtest.h>

#include <string>

namespace rasterplan_tool {
namespace {

// "line:column, element: text" of the mistake in a text.
std::string mistakeIn(std::string_view text) {
    try {
        parseJson(text);
    } catch (const JsonError& error) {
        const JsonPlace place = error.place();
        return std::to_string(place.line) + ':' + std::to_string(place.column) + ", " +
               std::to_string(place.element) + ": " + error.what();
    }
    return "none";
}

struct Case {
    std::string_view text;
    const char* mistake;
};

void expectMistakes(std::initializer_list<Case> cases) {
    for (const Case& each : cases)
        EXPECT_EQ(mistakeIn(each.text).find(each.mistake), 0U) << each.text << "\n" << mistakeIn(each.text);
}

} // namespace

TEST(JsonMistake, CommasTooManyOrMissing) {
    expectMistakes({
        {"[1,]", "1:4, 0: there is a comma too many before ]; take it out"},
        {"[,1]", "1:2, 0: there is a comma too many before ,; take it out"},
        {"[1,,2]", "1:4, 0: there is a comma too many before ,; take it out"},
        {"{\"a\": 1,\n}", "2:1, 0: there is a comma too many before }; take it out"},
        {"{\"a\": 1\n \"b\": 2}", "2:2, 0: a comma is missing before \"b\"; write one"},
        {"[1 2]", "1:4, 0: a comma is missing before 2; write one"},
        {"[{} {}]", "1:5, 0: a comma is missing before {; write one"},
        {"[[1] true]", "1:6, 0: a comma is missing before true; write one"},
    });
}

TEST(JsonMistake, NumbersWithACommaOrOfOtherForms) {
    expectMistakes({
        {"{\"a\": 200,5}", "1:11, 0: a number has a point and no comma; write 200.5"},
        {"{\"a\": 0,05, \"b\": 1}", "1:9, 0: a number has a point and no comma; write 0.05"},
        {"[.5]", "1:2, 0: .5 is no number that fits; write digits, and others only behind a point"},
        {"[+1]", "1:2, 0: +1 is no number that fits"},
        {"[1.]", "1:2, 0: 1. is no number that fits"},
        {"[007]", "1:2, 0: "},
        {"[1e999]", "1:2, 0: 1e999 is no number that fits"},
    });
}

TEST(JsonMistake, CommentsAndWordsOfOtherLanguages) {
    expectMistakes({
        {"[1, // one\n2]", "1:5, 0: JSON has no comments; take it out, or make it a field"},
        {"[1 /* one */]", "1:4, 0: JSON has no comments"},
        {"{\n# unit\n}", "2:1, 0: JSON has no comments"},
        {"[NaN]", "1:2, 0: NaN is no value; write a number, true, false or null, and every text in"},
        {"[True]", "1:2, 0: True is no value"},
        {"{unit: 1}", "1:2, 0: a name stands in quotation marks; write \"unit\""},
        {"{'unit': 1}", "1:2, 0: texts stand in straight quotation marks; write \" in place"},
        {"[“a”]", "1:2, 0: texts stand in straight quotation marks; write \" in place of what begins “a”"},
        {"[\x1B]", "1:2, 0: \\x1b is no value"},
    });
}

TEST(JsonMistake, BracketsAndColons) {
    expectMistakes({
        {"", "1:1, 0: there is nothing in it; write {\"images\": [...]}"},
        {"{\"a\": [1", "1:9, 0: it ends too early: ] is missing; write the rest"},
        {"{\"a\": 1\n", "2:1, 0: it ends too early: } is missing; write the rest"},
        {"{\"a\": [1}", "1:9, 0: } closes what another bracket opened; write ] here"},
        {"{\"a\": 1]", "1:8, 0: ] closes what another bracket opened; write } here"},
        {"{\"a\" 1}", "1:6, 0: a colon is missing behind the name \"a\"; write : before 1"},
        {"{\"a\" = 1}", "1:6, 0: "},
        {"{\"a\": }", "1:7, 0: a value is missing before }; write it"},
        {"{\"a\": 1, 2: 3}", "1:10, 0: "},
        {"{[]}", "1:2, 0: a name in quotation marks is missing before [; write it"},
        {"[1: 2]", "1:3, 0: : is not expected here"},
        {"[1]\n x", "2:2, 0: there is more behind the end: x"},
        {"[1]]", "1:4, 0: there is more behind the end: ]"},
    });
}

TEST(JsonMistake, Texts) {
    using namespace std::string_view_literals;
    expectMistakes({
        {"[\"open\n]", "1:7, 0: a text begins before here and does not end in its line; close it"},
        {"[\"open", "1:7, 0: a text begins before here and does not end in its line; close it"},
        {"[\"C:\\pictures\\a.png\"]", "1:6, 0: a backslash in a text of JSON is written \\\\, or / in its"},
        {"[\"a\tb\"]", "1:4, 0: a text holds a tab; take it out"},
        {"[\"a\x01\"]", "1:4, 0: a text holds a control character; take it out"},
        {"[\"s\xFC"
         "d.png\"]",
         "1:4, 0: the file is not UTF-8; save it as UTF-8 in the editor"},
        {"[\"s\xC3"
         "d.png\"]",
         "1:5, 0: the file is not UTF-8"},
        {"[\0\"\0a\0"sv, "1:2, 0: the file is not UTF-8"},
        {"\xFF\xFE[\0]\0"sv, "1:1, 0: the file is not UTF-8"},
    });
}

TEST(JsonMistake, ColumnsCountCharactersAndElementsAreNumbered) {
    expectMistakes({
        {"\xEF\xBB\xBF[\"ü😀\" 1]", "1:7, 0: a comma is missing before 1"},
        {R"({"images": [{"path": "a", "up": [1, 2]}, {"path": "b" "up": 1}]})",
         "1:55, 2: a comma is missing before \"up\"; write one"},
        {R"({"images": [{"path": "a"} {"path": "b"}]})", "1:27, 1: a comma is missing before {; write one"},
        {R"({"unit": "m" "images": [{}]})", "1:14, 0: a comma is missing"},
        {R"({"images": [{}, {}], "a": [{}, 1 2]})", "1:34, 1: a comma is missing"},
    });
}

TEST(JsonMistake, LongWordsAreCut) {
    EXPECT_EQ(mistakeIn("[1 \"" + std::string(38, 'a') + "üb\"]"),
              "1:4, 0: a comma is missing before \"" + std::string(38, 'a') + "ü...; write one");
}

} // namespace rasterplan_tool
