#include "vtl/scene/shape/MGLCylinder.h"

#include "vtl/geometry/IndexedGeometryCylinder.h"
#include "vtl/geometry/IndexedGeometryDisc.h"
#include "vtl/scene/camera/Camera.h"

#include <algorithm>

namespace Vantrel {

std::unique_ptr<MGLCylinder> MGLCylinder::New(WO* parent, float radiusAtTop, float radiusAtBottom,
                                              float height, std::uint32_t slices, std::uint32_t stacks,
                                              bool useNormals, bool useTextureCoords) {
    return std::make_unique<MGLCylinder>(parent, radiusAtTop, radiusAtBottom, height, slices, stacks,
                                         useNormals, useTextureCoords);
}

MGLCylinder::MGLCylinder(WO* parent, float radiusAtTop, float radiusAtBottom, float height_,
                         std::uint32_t slices, std::uint32_t stacks, bool useNormals, bool useTextureCoords)
    : MGL(parent)
    , body(IndexedGeometryCylinder::New(radiusAtTop, radiusAtBottom, height_, slices, stacks, useNormals,
                                        useTextureCoords))
    , capTop(IndexedGeometryDisc::New(0.0F, radiusAtTop, slices, useNormals, useTextureCoords))
    , capBottom(IndexedGeometryDisc::New(0.0F, radiusAtBottom, slices, useNormals, useTextureCoords))
    , height(height_) {
    const float larger = std::max(radiusAtTop, radiusAtBottom);
    skins.list.push_back(shapeSkin());
    mglBoundingBox.addPoint(Vector());
    mglBoundingBox.addPoint(Vector(larger, larger, height));
}

MGLCylinder::~MGLCylinder() = default;

void MGLCylinder::render(Camera* camera) {
    renderGeometry(*camera, *body);
    renderBoundingBox(*camera);
    renderGeometry(*camera, *capTop, placeOfTop());
    renderGeometry(*camera, *capBottom, placeOfBottom());
}

void MGLCylinder::renderSelection(Camera* camera, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    renderGeometrySelection(*camera, *body, r, g, b);
    renderGeometrySelection(*camera, *capTop, r, g, b, placeOfTop());
    renderGeometrySelection(*camera, *capBottom, r, g, b, placeOfBottom());
}

Mat4 MGLCylinder::placeOfTop() const {
    Mat4 place;
    place[14] = height * 0.5F;
    return place;
}

Mat4 MGLCylinder::placeOfBottom() const {
    Mat4 place;
    place[5] = place[10] = -1.0F; // half a turn about X, so that it faces outwards
    place[14] = height * -0.5F;
    return place;
}

} // namespace Vantrel
