#include "facade/MiddledImagePlane.h"

#include "base/AssoArray.h"
#include "math/MathMatrix.h"
#include "math/MathPlane.h"

namespace rasterplan {
namespace {

constexpr double aboveEveryCoordinate = 2147483647.0;

} // namespace

ReferencePlane middledImagePlane(const Drawing& drawing) {
    const ImageParam& first = drawing.images.begin()->getImageParam();
    const MathPoint3d base = first.getLeftBottomCorner();
    if (drawing.images.count() == 1)
        return {base, first.getImgUVector(), first.getImgVVector()};
    const double count = drawing.images.count();

    MathVector3d normalSum;
    for (const DxfImageObj& image : drawing.images)
        normalSum = normalSum + image.getImagePlane().normal().normalized();
    const MathVector3d normal = (normalSum / count).normalized();

    // Relative to the first corner, so that survey coordinates lose no digits.
    const auto cornerOf = [&](const DxfImageObj& image) {
        return MathPoint3d() + (MathPoint3d(image.getImageParam().getLeftBottomCorner()) - base);
    };
    MathVector3d offsetSum;
    MathVector3d xAxisSum;
    for (const DxfImageObj& image : drawing.images) {
        offsetSum = offsetSum + (MathPlane(cornerOf(image), normal).project(MathPoint3d()) - MathPoint3d());
        xAxisSum = xAxisSum + MathVector3d(image.getImageParam().getImgUVector());
    }
    const MathPoint3d planePoint = MathPoint3d() + offsetSum / count;
    const MathVector3d xAxis = (xAxisSum / count).normalized();
    const MathVector3d yAxis = cross(normal, xAxis);
    const MathVector3d zAxis = cross(xAxis, yAxis).normalized();

    const MathPlane plane(planePoint, normal);
    const MathMatrix worldToLocal = MathMatrix::placement(planePoint, xAxis, yAxis, zAxis).inverse();
    ZelkBase::AssoArray<MathPoint3d, MathPoint3d> projectedByLocal;
    MathPoint3d leftmost(aboveEveryCoordinate, aboveEveryCoordinate, aboveEveryCoordinate);
    for (const DxfImageObj& image : drawing.images) {
        const MathPoint3d projected = plane.project(cornerOf(image));
        const MathPoint3d local = worldToLocal.transform(projected);
        projectedByLocal.append(local, projected);
        if (leftmost.x > local.x)
            leftmost = local;
    }
    const MathPoint3d* const origin = projectedByLocal.find(leftmost);
    return {base + ((origin ? *origin : MathPoint3d()) - MathPoint3d()), xAxis, yAxis};
}

} // namespace rasterplan
