#pragma once

#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ScopedMatrix.h"
#include "vtl/render/VantrelGLRendererBase.h"

#include <GL/glew.h>
#include <array>
#include <optional>

namespace Vantrel {

/** Gives GL the camera's matrices and the viewport that it has now back at its end. */
class ScopedView {
public:
    explicit ScopedView(VantrelGLRendererBase& owner) : renderer(owner) {
        glGetIntegerv(GL_VIEWPORT, viewport.data());
        if (renderer.cameraTransforms) {
            transforms = renderer.cameraTransforms->data;
        }
        if (ManagerOpenGLState::isCompatibilityProfile()) {
            projection.emplace(static_cast<GLenum>(GL_PROJECTION));
            modelView.emplace(static_cast<GLenum>(GL_MODELVIEW));
        }
    }
    ScopedView(const ScopedView&) = delete;
    ScopedView& operator=(const ScopedView&) = delete;
    ~ScopedView() {
        if (renderer.cameraTransforms) {
            renderer.cameraTransforms->data = transforms;
            renderer.cameraTransforms->upload();
        }
        glViewport(viewport[0], viewport[1], viewport[2], viewport[3]);
    }

private:
    VantrelGLRendererBase& renderer;
    std::array<GLint, 4> viewport{};
    GLSLUniformBlockCameraTransforms transforms;
    std::optional<ScopedMatrix> projection;
    std::optional<ScopedMatrix> modelView;
};

} // namespace Vantrel
