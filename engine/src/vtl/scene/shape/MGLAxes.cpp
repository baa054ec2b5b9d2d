#include "vtl/scene/shape/MGLAxes.h"

#include "vtl/geometry/IndexedGeometryAxes.h"
#include "vtl/gl/LineWidth.h"
#include "vtl/scene/camera/Camera.h"

namespace Vantrel {

std::unique_ptr<MGLAxes> MGLAxes::New(WO* parent, const Vector& extent, float lineWidth) {
    return std::make_unique<MGLAxes>(parent, extent, lineWidth);
}

MGLAxes::MGLAxes(WO* parent, const Vector& extent, float lineWidth_)
    : MGL(parent), axes(IndexedGeometryAxes::New(extent)), lineWidth(lineWidth_) {
}

MGLAxes::~MGLAxes() = default;

void MGLAxes::render(Camera* camera) {
    axes->renderAt(camera->getShaderCamera(), getModelMatrix(), lineWidth);
}

void MGLAxes::renderSelection(Camera* camera, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    Vantrel::setLineWidth(lineWidth);
    renderGeometrySelection(*camera, *axes, r, g, b);
    Vantrel::setLineWidth(1.0F);
}

} // namespace Vantrel
