#include "facade/Flatten.h"

#include "facade/AddImage.h"
#include "math/MathMatrix.h"

#include <utility>

namespace rasterplan {
namespace {

/// The same picture with all corners moved.
ImageParam moved(const ImageParam& image, const MathVector3d& offset) {
    const MathPoint3d leftBottom = image.getLeftBottomCorner();
    const MathPoint3d leftTop = leftBottom + image.getImgHeight() * MathVector3d(image.getImgVVector());
    const MathPoint3d rightBottom = leftBottom + image.getImgWidth() * MathVector3d(image.getImgUVector());
    ImageParam result = image;
    result.setImageCorners(leftTop + offset, leftBottom + offset, rightBottom + offset);
    return result;
}

} // namespace

Drawing flattened(const Drawing& drawing, const ReferencePlane& plane) {
    Drawing flat;
    const MathVector3d toOrigin = (plane.origin - MathPoint3d()) * -1.0;
    for (const DxfImageObj& image : drawing.images)
        addImage(flat, moved(image.getImageParam(), toOrigin));

    const MathVector3d xAxis = plane.xAxis.normalized();
    const MathVector3d yAxis = plane.yAxis.normalized();
    const MathMatrix worldToPlane =
        MathMatrix::placement(MathPoint3d(), xAxis, yAxis, cross(xAxis, yAxis)).inverse();

    // Always y, whatever the axes: it reads as height where the y axis points upwards.
    const MathVector3d lift(0.0, plane.origin.z, 0.0);
    for (DxfLineObj& line : flat.lines) {
        line.transform(worldToPlane);
        line.translate(lift);
    }
    flat.viewport = DxfViewPortObj();
    for (DxfImageObj& image : flat.images) {
        image.transform(worldToPlane);
        image.translate(lift);
        flat.viewport.addImageFlat(image.getImageParam());
    }
    return flat;
}

} // namespace rasterplan
