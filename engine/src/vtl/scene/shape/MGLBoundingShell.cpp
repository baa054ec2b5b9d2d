#include "vtl/scene/shape/MGLBoundingShell.h"

#include "vtl/gl/ScopedModelMatrix.h"
#include "vtl/scene/camera/Camera.h"

namespace Vantrel {

std::unique_ptr<MGLBoundingShell> MGLBoundingShell::New(WO* parent, const Vector& lengths) {
    return std::make_unique<MGLBoundingShell>(parent, lengths);
}

MGLBoundingShell::MGLBoundingShell(WO* parent, const Vector& lengths) : MGL(parent) {
    mglBoundingBox.addPoint(Vector());
    mglBoundingBox.addPoint(lengths);
}

void MGLBoundingShell::render(Camera* camera) {
    const Mat4 modelMatrix = getModelMatrix();
    const ScopedModelMatrix matrix(modelMatrix);
    mglBoundingBox.render(camera->getShaderCamera(), modelMatrix);
}

} // namespace Vantrel
