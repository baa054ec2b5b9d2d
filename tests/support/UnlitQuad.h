#pragma once

#include "vtl/gl/shader/GLSLUniformBlockCameraTransforms.h"
#include "vtl/gl/shader/GLSLUniformBlockLightInfo.h"
#include "vtl/gl/shader/GLSLUniformBlockT.h"
#include "vtl/gl/shader/ManagerShader.h"
#include "vtl/gl/texture/Texture.h"

#include "tests/support/WindowQuad.h"

namespace Vantrel::Tests {

/** Draws the square with a texture and without light, by the means of the context. */
inline void drawUnlit(const WindowQuad& quad, Texture& texture) {
    texture.bind();
    if (ManagerOpenGLState::isVersion32OrGreater()) {
        const GLSLUniformBlockT<GLSLUniformBlockCameraTransforms> camera;
        const GLSLUniformBlockT<GLSLUniformBlockLightInfo> lights;
        ShaderMaterial material;
        texture.getTextureMatrix(material.textureMatrix);
        const auto shader = ManagerShader::getDefaultShader();
        shader->bind(Mat4(), Mat4(), ShaderCamera(Mat4(), Mat4()), material);
        quad.draw();
        shader->unbind();
    } else {
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        quad.draw();
    }
    texture.unbind();
}

} // namespace Vantrel::Tests
