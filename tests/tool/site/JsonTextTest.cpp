#include "site/JsonText.h"

#include <gtest/gtest.h>

namespace rasterplan_tool {
namespace {

std::size_t errorLine(std::string_view text) {
    try {
        parseJson(text);
    } catch (const JsonError& error) {
        return error.place().line;
    }
    return 0;
}

std::string errorText(std::string_view text) {
    try {
        parseJson(text);
    } catch (const JsonError& error) {
        return error.what();
    }
    return {};
}

} // namespace

TEST(JsonText, EveryValueKnowsItsLine) {
    const JsonValue root = parseJson("\n"
                                     "{\n"
                                     "\"a\": 1\n"
                                     ",\n"
                                     "\"b\":\n"
                                     "[1,\n"
                                     "-2.5\n"
                                     ",3,true\n"
                                     ",null, \"x\\ny\"\n"
                                     "], \"c\": {}\n"
                                     "}");
    EXPECT_EQ(root.line, 2U);
    const auto& members = *root.as<JsonValue::Object>();
    ASSERT_EQ(members.size(), 3U);
    EXPECT_EQ(members[0].line, 3U);
    EXPECT_EQ(members[0].value.line, 3U);
    EXPECT_EQ(members[1].line, 5U);
    EXPECT_EQ(members[1].value.line, 6U);
    EXPECT_EQ(members[2].line, 10U);
    const auto& elements = *members[1].value.as<JsonValue::Array>();
    const std::size_t lines[] = {6, 7, 8, 8, 9, 9};
    ASSERT_EQ(elements.size(), std::size(lines));
    for (std::size_t i = 0; i < elements.size(); ++i)
        EXPECT_EQ(elements[i].line, lines[i]) << i;
    EXPECT_EQ(*elements[1].as<double>(), -2.5);
    EXPECT_EQ(*elements[5].as<std::string>(), "x\ny");
}

TEST(JsonText, LineEndsOfWindowsCountOnce) {
    EXPECT_EQ((*parseJson("[1,\r\n2\r\n,\r\n3]").as<JsonValue::Array>())[2].line, 4U);
}

TEST(JsonText, LoneValues) {
    EXPECT_EQ(*parseJson("12345678901234567890").as<double>(), 12345678901234567890.0);
    EXPECT_EQ(*parseJson("-7").as<double>(), -7.0);
    EXPECT_EQ(*parseJson("0.1").as<double>(), 0.1);
    EXPECT_EQ(*parseJson("false").as<bool>(), false);
    EXPECT_EQ(*parseJson("\"\\ud83d\\ude00\"").as<std::string>(), "\xF0\x9F\x98\x80");
}

TEST(JsonText, ByteOrderMarkIsSkipped) {
    EXPECT_EQ(*parseJson("\xEF\xBB\xBF"
                         "7")
                   .as<double>(),
              7.0);
}

TEST(JsonText, SameNamesAreBothKept) {
    EXPECT_EQ(parseJson(R"({"a": 1, "a": 2})").as<JsonValue::Object>()->size(), 2U);
}

TEST(JsonText, KindsAreNamed) {
    const char* const texts[][2] = {{"null", "null"},   {"true", "true or false"}, {"1", "a number"},
                                    {"\"\"", "a text"}, {"[]", "a list"},          {"{}", "an object"}};
    for (const auto& text : texts)
        EXPECT_EQ(parseJson(text[0]).kind(), text[1]);
}

TEST(JsonText, ErrorsTellTheirLine) {
    EXPECT_EQ(errorLine(""), 1U);
    EXPECT_EQ(errorLine("[1,\n2,\n]"), 3U);
    EXPECT_EQ(errorLine("[1,\n2"), 2U);
    EXPECT_EQ(errorLine("{\"a\": 1,\n\"b\" 2}"), 2U);
    EXPECT_EQ(errorLine("[\n\"open\n]"), 2U);
    EXPECT_EQ(errorLine("[1]\n\nx"), 3U);
    EXPECT_EQ(errorLine("[\n\n1e999]"), 3U);
    EXPECT_EQ(errorLine("[\n\"\xFF\"]"), 2U);
    EXPECT_EQ(errorLine("[\n\"\\ud83d\"]"), 2U);
    EXPECT_EQ(errorLine("[NaN]"), 1U);
}

TEST(JsonText, EveryCutIsAnError) {
    const std::string_view text =
        R"({"unit": "Meters", "images": [{"path": "s\u00fcd.png", "leftTop": [1, -2.5e3, true]}]})";
    for (std::size_t length = 0; length < text.size(); ++length)
        EXPECT_NE(errorLine(text.substr(0, length)), 0U) << length;
    EXPECT_EQ(errorLine(text), 0U);
}

TEST(JsonText, DeepNestingIsAnErrorAndNoCrash) {
    EXPECT_EQ(errorLine(std::string(32, '[') + std::string(32, ']')), 0U);
    EXPECT_EQ(errorText(std::string(33, '[') + std::string(33, ']')),
              "the values are nested too deeply; no site needs more than six levels");
    EXPECT_EQ(errorText(std::string(1000000, '[')),
              "the values are nested too deeply; no site needs more than six levels");
}

} // namespace rasterplan_tool
