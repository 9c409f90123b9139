// A host of its own process, in a folder with the library and a template: the places where templates and
// drawings can lie, the templates that cannot be used, and what a host may have set before.

#include "HostFolder.h"
#include "support/OrdinaryUser.h"
#include "support/StructureWalk.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace rasterplan::test;
namespace fs = std::filesystem;

constexpr const char* oneImage = "image 6 100  0 2 0  0 0 0  3 0 0  picture.png\n";

std::string sceneWriting(const std::string& path = {}) {
    return "drawing " + path + '\n' + oneImage + "write3d\n";
}

// What the library answers to that scene with this template.
std::string answerWith(const HostFolder& host) {
    const HostRun run = host.play(sceneWriting());
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(run.out.starts_with("image Success\nwrite3d ")) << run.out;
    return run.out.substr(std::string("image Success\nwrite3d ").size());
}

std::string answerWith(std::string_view templateText) {
    return answerWith(HostFolder(templateText));
}

} // namespace

TEST(HostFolder, AHostBesideTheLibraryWritesAWholeDrawing) {
    const HostFolder host(deliveredTemplate());
    EXPECT_EQ(answerWith(host), "Success\n");
    EXPECT_EQ(structureFindings(host.drawing(), framedImages(1)), std::vector<std::string>());
}

TEST(HostFolder, TheTemplateIsFoundFromEveryCurrentFolder) {
    const HostFolder host(deliveredTemplate());
    create_directory(host.folder() / "elsewhere");
    const HostRun run = host.play("chdir elsewhere\n" + sceneWriting());
    EXPECT_EQ(run.out, "image Success\nwrite3d Success\n") << run.err;
    EXPECT_EQ(structureFindings(readBytes(host.folder() / "elsewhere/drawing.dxf"), framedImages(1)),
              std::vector<std::string>());
}

TEST(HostFolder, WithoutAPathTheDrawingIsTestDxfInTheCurrentFolder) {
    const HostFolder host(deliveredTemplate());
    const HostRun run = host.play("default-drawing\n" + std::string(oneImage) + "write3d\n");
    EXPECT_EQ(run.out, "image Success\nwrite3d Success\n") << run.err;
    EXPECT_TRUE(exists(host.folder() / "test.dxf"));
}

TEST(HostFolder, OutputPathMayHoldAnyLetters) {
    const HostFolder host(deliveredTemplate());
    const HostRun run = host.play(sceneWriting("Pläne für 東京 🏠.dxf"));
    EXPECT_EQ(run.out, "image Success\nwrite3d Success\n") << run.err;
    EXPECT_TRUE(exists(host.folder() / "Pläne für 東京 🏠.dxf"));
}

TEST(HostFolder, AnExistingDrawingIsReplacedAsAWhole) {
    const HostFolder host(deliveredTemplate());
    EXPECT_EQ(answerWith(host), "Success\n");
    const std::string good = host.drawing();
    writeBytes(host.folder() / "drawing.dxf", std::string(100000, 'x'));
    EXPECT_EQ(answerWith(host), "Success\n");
    EXPECT_EQ(host.drawing(), good);
}

TEST(HostTemplate, Missing) {
    const HostFolder host(std::nullopt);
    writeBytes(host.folder() / "drawing.dxf", "before");
    EXPECT_EQ(answerWith(host), "CannotOpenTemplate\n");
    EXPECT_EQ(host.drawing(), "");
}

TEST(HostTemplate, NotLookedForWhenTheOutputCannotBeOpened) {
    const HostFolder host(std::nullopt);
    EXPECT_EQ(host.play(sceneWriting("missing/drawing.dxf")).out,
              "image Success\nwrite3d CannotOpenOutput\n");
}

TEST(HostTemplate, IsAFolder) {
    const HostFolder host(std::nullopt);
    create_directory(host.templateFile());
#ifdef _WIN32
    EXPECT_EQ(answerWith(host), "CannotOpenTemplate\n");
#else
    EXPECT_EQ(answerWith(host), "DxfFailure\n"); // a folder opens but cannot be read
#endif
    EXPECT_EQ(host.drawing(), "");
}

TEST(HostTemplate, IsTheOutputAndIsDestroyed) {
    const HostFolder host(deliveredTemplate());
    const std::string name = utf8FromPath(host.templateFile().filename());
    EXPECT_EQ(host.play(sceneWriting(name)).out, "image Success\nwrite3d Success\n");
    EXPECT_NE(readBytes(host.templateFile()), deliveredTemplate());
}

TEST(HostTemplate, Empty) {
    const HostFolder host("");
    EXPECT_EQ(answerWith(host), "Success\n");
    EXPECT_EQ(host.drawing(), "\r\n");
}

TEST(HostTemplate, WithoutPlaceholdersOfImagesNeedsNone) {
    const HostFolder host("#VEXO_HEADER_INSUNITS#\n#VEXO_CLASS_IMAGE#\n#VEXO_OBJECT_DICTIONARY#\nEOF");
    EXPECT_EQ(host.play("drawing\nwrite3d\n").out, "write3d Success\n");
    EXPECT_TRUE(host.drawing().ends_with("281\r\n1\r\nEOF\r\n"));
    for (const char* key : {"#VEXO_ENTITY_LINE#", "#VEXO_ENTITY_IMAGE#", "#VEXO_OBJECT_IMAGEDEF#",
                            "#VEXO_OBJECT_IMAGEDEFREACTOR#"}) {
        const HostFolder other(key);
        EXPECT_EQ(other.play("drawing\nwrite3d\n").out, "write3d DxfFailure\n") << key;
        EXPECT_EQ(other.drawing(), "") << key;
    }
}

TEST(HostTemplate, UnknownPlaceholderStopsTheDrawingThere) {
    for (const std::string key : {"#", "#VEXO_UNKNOWN#", "#VEXO_ENTITY_IMAGE# ", "#VEXO_ENTITY_IMAGE#1",
                                  "#vexo_entity_image#", "# a remark", "#VEXO_ENTITY_IMAGE"}) {
        const HostFolder host("0\nSECTION\n" + key + "\n0\nEOF\n");
        EXPECT_EQ(answerWith(host), "DxfFailure\n") << key;
        EXPECT_EQ(host.drawing(), "0\r\nSECTION\r\n") << key;
    }
}

TEST(HostTemplate, PlaceholderTwiceIsExpandedTwice) {
    const HostFolder host("#VEXO_HEADER_INSUNITS#\n#VEXO_HEADER_INSUNITS#");
    EXPECT_EQ(answerWith(host), "Success\n");
    EXPECT_EQ(host.drawing(), "9\r\n$INSUNITS\r\n70\r\n6\r\n9\r\n$INSUNITS\r\n70\r\n6\r\n");
}

TEST(HostTemplate, BlanksBeforeANumberSignMakeAnOrdinaryLine) {
    const HostFolder host(" #VEXO_HEADER_INSUNITS#\n\t#");
    EXPECT_EQ(answerWith(host), "Success\n");
    EXPECT_EQ(host.drawing(), " #VEXO_HEADER_INSUNITS#\r\n\t#\r\n");
}

TEST(HostTemplate, BytesOutsideAsciiAreCopied) {
    std::string all;
    for (int byte = 1; byte < 256; ++byte)
        all += byte == '\n' || byte == '\r' ? ' ' : static_cast<char>(byte);
    const HostFolder host(all);
    EXPECT_EQ(answerWith(host), "Success\n");
    EXPECT_EQ(host.drawing(), all + "\r\n");
}

TEST(HostTemplate, TooLongLineIsCutAndEndsTheDrawing) {
    const std::string longest(511, 'x');
    std::string text = longest;
    EXPECT_EQ(answerWith(text.append("\r\nend")), "Success\n");
    text = longest;
    const HostFolder host(text.append("y\nend"));
    EXPECT_EQ(answerWith(host), "DxfFailure\n");
    text = longest;
    EXPECT_EQ(host.drawing(), text.append("\r\n"));
}

TEST(HostLocale, GermanHostWritesTheSameBytes) {
    const std::string scene =
        "drawing\n"
        "image 6 33.3  1234567.5 2.25 0.125  1234567.5 0.5 0.125  1234570.75 0.5 0.125  süd.png\n"
        "plane proposed\n";
    for (const char* write : {"write3d\n", "write2d\n"}) {
        const HostFolder plain(deliveredTemplate());
        const HostFolder german(deliveredTemplate());
        const HostRun expected = plain.play(scene + write);
        const HostRun run =
            german.play("locale " RASTERPLAN_GERMAN_LOCALE "\n" + scene + write, RASTERPLAN_LOCALE_SETTING);
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.out, expected.out);
        EXPECT_EQ(german.drawing(), plain.drawing());
        EXPECT_NE(plain.drawing().find("\r\n108.22"), std::string::npos); // pixels along the width
    }
}

TEST(HostLocale, AHostWhoseLocaleIsMissingFails) {
    const HostFolder host(deliveredTemplate());
    const HostRun run = host.play("locale xx_NOWHERE.UTF-8\n" + sceneWriting());
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.err, "");
}

#ifndef _WIN32

TEST(HostPermissions, TemplateMayNotBeRead) {
    const HostFolder host(deliveredTemplate());
    fs::permissions(host.folder().path(), fs::perms::all);
    fs::permissions(host.templateFile(), fs::perms::none);
    const HostRun run = host.play(sceneWriting(), OrdinaryUser::shellPrefix());
    EXPECT_EQ(run.out, "image Success\nwrite3d CannotOpenTemplate\n") << run.err;
    EXPECT_EQ(host.drawing(), "");
}

TEST(HostPermissions, TemplateMayBeReadOnly) {
    const HostFolder host(deliveredTemplate());
    fs::permissions(host.folder().path(), fs::perms::all);
    fs::permissions(host.templateFile(), fs::perms::owner_read | fs::perms::others_read);
    EXPECT_EQ(host.play(sceneWriting(), OrdinaryUser::shellPrefix()).out, "image Success\nwrite3d Success\n");
}

TEST(HostPermissions, FolderOfTheOutputMayNotBeWrittenTo) {
    const HostFolder host(deliveredTemplate());
    create_directory(host.folder() / "closed");
    fs::permissions(host.folder() / "closed", fs::perms::owner_read | fs::perms::owner_exec |
                                                  fs::perms::others_read | fs::perms::others_exec);
    const HostRun run = host.play(sceneWriting("closed/drawing.dxf"), OrdinaryUser::shellPrefix());
    EXPECT_EQ(run.out, "image Success\nwrite3d CannotOpenOutput\n") << run.err;
    EXPECT_TRUE(is_empty(host.folder() / "closed"));
}

TEST(HostPermissions, OutputMayNotBeWrittenTo) {
    const HostFolder host(deliveredTemplate());
    writeBytes(host.folder() / "drawing.dxf", "kept");
    fs::permissions(host.folder() / "drawing.dxf", fs::perms::owner_read | fs::perms::others_read);
    const HostRun run = host.play(sceneWriting(), OrdinaryUser::shellPrefix());
    EXPECT_EQ(run.out, "image Success\nwrite3d CannotOpenOutput\n") << run.err;
    EXPECT_EQ(host.drawing(), "kept");
}

#endif
