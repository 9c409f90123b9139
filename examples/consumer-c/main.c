#include <RasterPlanWriterC/RasterPlanWriterC.h>

#include <stdio.h>

int main(void) {
    const double leftTop[3] = {0, 0, 3}, leftBottom[3] = {0, 0, 0}, rightBottom[3] = {5, 0, 0};
    const int32_t metres = 6;

    RpwDrawing* drawing;
    RpwResult result = rpwCreateUtf8("south.dxf", &drawing);
    if (result == RpwSuccess) /* the picture has 1000 x 600 pixels, 200 in a metre */
        result = rpwAddUtf8(drawing, "south.png", leftTop, leftBottom, rightBottom, 200, metres);
    if (result == RpwSuccess)
        result = rpwWrite3d(drawing);
    rpwDestroy(drawing);
    if (result != RpwSuccess)
        fprintf(stderr, "south.dxf: %s\n", rpwResultText(result));
    return result;
}
