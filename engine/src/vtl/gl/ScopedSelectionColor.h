#pragma once

#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ScopedEnabled.h"
#include "vtl/gl/ScopedModelMatrix.h"
#include "vtl/gl/shader/ManagerShader.h"
#include "vtl/gl/shader/ShaderCamera.h"

#include <GL/glew.h>
#include <cstdint>
#include <optional>

namespace Vantrel {

/**
 * Lets whatever is drawn while it lives come out at the place of a model and in exactly one colour, without
 * light, fog, texture and blending: by the selection shader, or below 3.2 by the fixed functions.
 */
class ScopedSelectionColor {
public:
    ScopedSelectionColor(const ShaderCamera& camera, const Mat4& modelMatrix, std::uint8_t r, std::uint8_t g,
                         std::uint8_t b)
        : shader(ManagerShader::getDefaultSelectionShader()) {
        if (isFixedFunction) {
            setFixedFunction(modelMatrix, r, g, b);
        } else if (shader != nullptr) {
            blending.emplace(GL_BLEND, false);
            shader->bind(camera.getViewProjectionMatrix() * modelMatrix, r, g, b);
        }
    }
    ScopedSelectionColor(const ScopedSelectionColor&) = delete;
    ScopedSelectionColor& operator=(const ScopedSelectionColor&) = delete;
    ~ScopedSelectionColor() {
        if (isFixedFunction) {
            glPopAttrib();
        } else if (shader != nullptr) {
            shader->unbind();
        }
    }

private:
    void setFixedFunction(const Mat4& modelMatrix, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
        constexpr std::uint8_t opaque = 255;
        matrix.emplace(modelMatrix);
        glPushAttrib(GL_ENABLE_BIT | GL_CURRENT_BIT);
        glDisable(GL_LIGHTING);
        glDisable(GL_TEXTURE_2D);
        glDisable(GL_FOG);
        glDisable(GL_BLEND);
        glColor4ub(r, g, b, opaque);
    }

    bool isFixedFunction = !ManagerOpenGLState::isVersion32OrGreater();
    GLSLShaderDefaultSelectionGL32* shader;
    std::optional<ScopedModelMatrix> matrix;
    std::optional<ScopedEnabled> blending;
};

} // namespace Vantrel
