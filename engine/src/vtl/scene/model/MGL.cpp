#include "vtl/scene/model/MGL.h"

#include "vtl/gl/ScopedSelectionColor.h"
#include "vtl/scene/camera/Camera.h"
#include "vtl/scene/model/ModelDataShared.h"

namespace Vantrel {

void MGL::renderSelection(Camera* camera, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    const ScopedSelectionColor color(camera->getShaderCamera(), getModelMatrix(), r, g, b);
    getBoundingBox().renderSolid(camera->getShaderCamera(), r, g, b);
}

BoundingBox& MGL::getBoundingBox() {
    ModelDataShared* const data = getModelDataShared();
    return data != nullptr ? data->boundingBox : mglBoundingBox;
}

void MGL::setBoundingBoxLengths(const Vector& lengths) {
    mglBoundingBox.setLxLyLz(lengths, Vector());
}

} // namespace Vantrel
