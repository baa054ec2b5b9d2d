#include "vtl/scene/shape/MGLPrimitiveShape.h"

#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/geometry/IndexedGeometryCylinder.h"
#include "vtl/geometry/IndexedGeometryLines.h"
#include "vtl/geometry/IndexedGeometryRectangularPrism.h"
#include "vtl/geometry/IndexedGeometrySphere.h"
#include "vtl/scene/camera/Camera.h"

#include <utility>

namespace Vantrel {
namespace {

[[noreturn]] void refuseLines() {
    constexpr int exitCode = -123;
    Report() << "ERROR: MGLPrimitiveShape( WO* parentWO, PRIMITIVE_SHAPE_TYPE type, "
                "std::vector<float> parameters)\n"
                "   This constructor does not support PRIMITIVE_SHAPE_TYPE of psLINES...\n"
                "   Invoke MGLPrimitiveShape( WO* parentWO, std::vector< Vector >* lines, "
                "std::vector< vtlColor4ub >* colors )\n"
                "   instead..."
                "   Press ENTER to exit...\n";
    Pause::exitAfterKey(exitCode);
}

std::unique_ptr<IndexedGeometry> solidOf(PRIMITIVE_SHAPE_TYPE type) {
    constexpr std::uint32_t cylinderParts = 10;
    constexpr std::uint32_t sphereParts = 40;
    switch (type) {
    case PRIMITIVE_SHAPE_TYPE::psCYLINDER:
        return IndexedGeometryCylinder::New(1, 1, 1, cylinderParts, cylinderParts, true, false);
    case PRIMITIVE_SHAPE_TYPE::psSPHERE:
        return IndexedGeometrySphere::New(1, sphereParts, sphereParts, true, false);
    case PRIMITIVE_SHAPE_TYPE::psLINES:
        refuseLines();
    default:
        return IndexedGeometryRectangularPrism::New(Vector(1, 1, 1), true, true);
    }
}

Vector scaleOf(PRIMITIVE_SHAPE_TYPE type, const std::vector<float>& parameters) {
    const auto parameter = [&](std::size_t i) { return i < parameters.size() ? parameters[i] : 1.0F; };
    switch (type) {
    case PRIMITIVE_SHAPE_TYPE::psCUBE:
    case PRIMITIVE_SHAPE_TYPE::psSPHERE:
        return {parameter(0), parameter(0), parameter(0)};
    case PRIMITIVE_SHAPE_TYPE::psCYLINDER:
        return {parameter(0), parameter(0), parameter(1)};
    default:
        return {parameter(0), parameter(1), parameter(2)};
    }
}

} // namespace

std::unique_ptr<MGLPrimitiveShape> MGLPrimitiveShape::New(WO* parent, PRIMITIVE_SHAPE_TYPE type,
                                                          const std::vector<float>& parameters) {
    return std::make_unique<MGLPrimitiveShape>(parent, type, parameters);
}

std::unique_ptr<MGLPrimitiveShape> MGLPrimitiveShape::New(WO* parent, const std::vector<Vector>& lines,
                                                          const std::vector<vtlColor4ub>* colors) {
    return std::make_unique<MGLPrimitiveShape>(parent, lines, colors);
}

MGLPrimitiveShape::MGLPrimitiveShape(WO* parent, PRIMITIVE_SHAPE_TYPE type,
                                     const std::vector<float>& parameters)
    : MGLPrimitiveShape(parent, solidOf(type)) {
    setScale(scaleOf(type, parameters));
}

MGLPrimitiveShape::MGLPrimitiveShape(WO* parent, const std::vector<Vector>& lines,
                                     const std::vector<vtlColor4ub>* colors)
    : MGLPrimitiveShape(parent, IndexedGeometryLines::New(lines, colors)) {
}

MGLPrimitiveShape::MGLPrimitiveShape(WO* parent, std::unique_ptr<IndexedGeometry> shape)
    : MGL(parent), geometry(std::move(shape)) {
    ModelMeshSkin skin = shapeSkin();
    skin.specular = vtlColor4f(0.0F, 0.0F, 0.0F, 1.0F);
    skins.list.push_back(skin);
    const std::span<const float> corners = geometry->getVertices();
    mglBoundingBox.addPoints(corners.data(), static_cast<std::uint32_t>(corners.size() / 3));
}

MGLPrimitiveShape::~MGLPrimitiveShape() = default;

void MGLPrimitiveShape::render(Camera* camera) {
    renderGeometry(*camera, *geometry);
    renderBoundingBox(*camera);
}

void MGLPrimitiveShape::renderSelection(Camera* camera, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    renderGeometrySelection(*camera, *geometry, r, g, b);
}

} // namespace Vantrel
