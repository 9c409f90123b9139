/* A host in C: plays three golden scenes and asks for every answer that is no success. Status 0 when all is as it
   should be, otherwise the line that is not is printed. */

#include <RasterPlanWriterC.h>

#include <stdio.h>
#include <string.h>

static int failures = 0;

static void expect(int holds, const char* what, int line) {
    if (!holds) {
        printf("host.c:%d: %s\n", line, what);
        ++failures;
    }
}

#define EXPECT(condition) expect(condition, #condition, __LINE__)
#define METRES 6

static const double origin[3] = {0, 0, 0};
static const double xAxis[3] = {1, 0, 0};
static const double yAxis[3] = {0, 1, 0};

typedef struct Image {
    const char* path;
    double pixelsPerUnit;
    double leftTop[3];
    double leftBottom[3];
    double rightBottom[3];
} Image;

static RpwDrawing* createdWith(const char* path, const Image* images, int count) {
    RpwDrawing* drawing = NULL;
    int i;
    EXPECT(rpwCreateUtf8(path, &drawing) == RpwSuccess);
    for (i = 0; i < count; ++i)
        EXPECT(rpwAddUtf8(drawing, images[i].path, images[i].leftTop, images[i].leftBottom, images[i].rightBottom,
                          images[i].pixelsPerUnit, METRES) == RpwSuccess);
    return drawing;
}

static void writeFlattened(void) {
    static const Image images[] = {
        {"middle.png", 40, {4.330127018922194, 2.5, 7}, {4.330127018922194, 2.5, 2}, {12.99038105676658, 7.5, 2}},
        {"left.png", 40, {0.01, 0, 8}, {0.01, 0, 3}, {4.340127018922194, 2.5, 3}},
        {"top.png", 40, {0.02, 0.01, 12}, {0.02, 0.01, 8}, {8.68025403784439, 5.01, 8}}};
    RpwDrawing* drawing = createdWith("flat-proposed.dxf", images, 3);
    double o[3], x[3], y[3];
    EXPECT(rpwProposePlane(drawing, o, x, y) == RpwSuccess);
    rpwShare(drawing);
    rpwDestroy(drawing); /* one owner is left */
    EXPECT(rpwWrite2d(drawing, o, x, y) == RpwSuccess);
    rpwDestroy(drawing);
}

static void writeUtf8Paths(void) {
    static const Image images[] = {
        {"D:\\Aufnahmen\\S\xC3\xBC" "d fassade gr\xC3\xB6\xC3\x9F" "e.png", 100, {0, 1, 0}, {0, 0, 0}, {1, 0, 0}},
        {"/\xE3\x83\x87\xE3\x83\xBC\xE3\x82\xBF/\xE7\xAB\x8B\xE9\x9D\xA2\xE5\x9B\xB3/\xE6\x9D\xB1.png", 100,
         {2, 1, 0}, {2, 0, 0}, {3, 0, 0}},
        {"C:\xD1\x84\xD0\xB0\xD1\x81\xD0\xB0\xD0\xB4.png", 100, {4, 1, 0}, {4, 0, 0}, {5, 0, 0}},
        {"pictures/nothing/", 100, {6, 1, 0}, {6, 0, 0}, {7, 0, 0}},
        {NULL, 100, {8, 1, 0}, {8, 0, 0}, {9, 0, 0}}};
    RpwDrawing* drawing = createdWith("paths.dxf", images, 5);
    EXPECT(rpwWrite3d(drawing) == RpwSuccess);
    rpwDestroy(drawing);
}

static const uint16_t* utf16(const char* ascii) {
    static uint16_t text[64];
    size_t i;
    for (i = 0; i <= strlen(ascii); ++i)
        text[i] = (uint16_t)ascii[i];
    return text;
}

static void writeUtf16Paths(void) {
    static const double leftTop[3] = {0, 2, 0};
    static const double rightBottom[3] = {3, 0, 0};
    RpwDrawing* drawing = NULL;
    EXPECT(rpwCreateUtf16(utf16("one.dxf"), &drawing) == RpwSuccess);
    EXPECT(rpwAddUtf16(drawing, utf16("pictures/plan.png"), leftTop, origin, rightBottom, 100, METRES) == RpwSuccess);
    EXPECT(rpwWrite3d(drawing) == RpwSuccess);
    rpwDestroy(drawing);
}

static void seeFailures(void) {
    RpwDrawing* drawing = NULL;
    RpwPlace place = {0};
    EXPECT(rpwCreateUtf8("no such folder/plan.dxf", &drawing) == RpwSuccess);
    EXPECT(rpwWrite2d(drawing, origin, xAxis, yAxis) == RpwNoImage);
    EXPECT(rpwAddUtf8(drawing, "a.png", yAxis, origin, yAxis, 100, METRES) == RpwInvalidGeometry);
    EXPECT(rpwAddUtf8(drawing, "a.png", origin, origin, xAxis, 100, METRES) == RpwInvalidGeometry);
    EXPECT(rpwAddUtf8(drawing, "a.png", yAxis, origin, xAxis, 100, 22) == RpwInvalidArgument);
    EXPECT(rpwAddUtf8(drawing, "\xFF.png", yAxis, origin, xAxis, 100, METRES) == RpwInvalidArgument);
    EXPECT(rpwAddUtf8(drawing, "a.png", NULL, origin, xAxis, 100, METRES) == RpwInvalidArgument);
    EXPECT(rpwAddUtf8(drawing, "a.png", yAxis, origin, xAxis, 100, METRES) == RpwSuccess);
    EXPECT(rpwWrite2d(drawing, origin, origin, yAxis) == RpwInvalidPlane);
    EXPECT(rpwWrite3d(drawing) == RpwCannotOpenOutput);
    EXPECT(rpwMeasure(yAxis, origin, xAxis, &place) == RpwSuccess && place.width == 1 && place.rightTop[1] == 1);
    EXPECT(rpwMeasure(origin, origin, xAxis, &place) == RpwInvalidGeometry && place.width == 1);
    rpwDestroy(drawing);
}

int main(void) {
    EXPECT(strcmp(rpwVersion(), RASTERPLANWRITER_VERSION) == 0);
    EXPECT(rpwMillimeters(1) == 25.4);
    writeFlattened();
    writeUtf8Paths();
    writeUtf16Paths();
    seeFailures();
    return failures == 0 ? 0 : 1;
}
