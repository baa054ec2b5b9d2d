#include "vtl/geometry/IndexedGeometryAxes.h"

#include "vtl/gl/LineWidth.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ScopedModelMatrix.h"
#include "vtl/gl/ScopedPlainColors.h"
#include "vtl/gl/shader/ManagerShader.h"
#include "vtl/gl/shader/ShaderCamera.h"

#include <array>

namespace Vantrel {

std::unique_ptr<IndexedGeometryAxes> IndexedGeometryAxes::New(const Vector& extent) {
    return newBuilt<IndexedGeometryAxes>(extent);
}

std::unique_ptr<IndexedGeometryAxes> IndexedGeometryAxes::New(float extent) {
    return New(Vector(extent, extent, extent));
}

IndexedGeometryAxes::IndexedGeometryAxes(const Vector& extent_)
    : IndexedGeometry(false, false, true), extent(extent_) {
    primitive = GL_LINES;
}

void IndexedGeometryAxes::buildVertices() {
    vertices.assign(18, 0.0F); // the three ends, then the origin for each
    vertices[0] = extent.x;
    vertices[4] = extent.y;
    vertices[8] = extent.z;
}

void IndexedGeometryAxes::buildIndices() {
    setIndices(std::array<std::uint16_t, 6>{3, 0, 4, 1, 5, 2});
}

void IndexedGeometryAxes::buildColors() {
    constexpr std::array<std::uint8_t, 12> redGreenBlue{255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255};
    colors.assign(redGreenBlue.begin(), redGreenBlue.end());
    colors.insert(colors.end(), redGreenBlue.begin(), redGreenBlue.end());
}

void IndexedGeometryAxes::renderAt(const ShaderCamera& camera, const Mat4& modelMatrix,
                                   float lineWidth) const {
    setLineWidth(lineWidth);
    if (ManagerOpenGLState::isVersion32OrGreater()) {
        renderWithShader(camera.getViewProjectionMatrix() * modelMatrix);
    } else {
        renderFixedFunction(modelMatrix);
    }
    setLineWidth(1.0F);
}

void IndexedGeometryAxes::renderFixedFunction(const Mat4& modelMatrix) const {
    const ScopedModelMatrix matrix(modelMatrix);
    const ScopedPlainColors plainColors;
    render();
}

void IndexedGeometryAxes::renderWithShader(const Mat4& mvp) const {
    auto* const shader = ManagerShader::getDefaultIndexedGeometryLinesShader();
    if (shader == nullptr) {
        return;
    }
    shader->bind(mvp);
    render();
    shader->unbind();
}

} // namespace Vantrel
