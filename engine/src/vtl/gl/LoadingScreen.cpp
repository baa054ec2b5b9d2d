#include "vtl/gl/LoadingScreen.h"

#include "vtl/gl/GLEntryPoints.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ScopedMatrix.h"
#include "vtl/gl/shader/ManagerShader.h"
#include "vtl/gl/shader/VertexAttributeLocation.h"
#include "vtl/math/MatrixBuilders.h"

#include <cstddef>

namespace Vantrel {
LoadingScreen::LoadingScreen() {
    if (!ManagerWindowing::hasContext() || !areGL21EntryPointsLoaded()) {
        return;
    }
    if (!ManagerOpenGLState::isVersion32OrGreater()) {
        drawable = ManagerOpenGLState::isCompatibilityProfile();
        return;
    }
    vertexArray = GLVertexArray::create();
    vertexBuffer = GLBuffer::create();
    drawable = ManagerShader::getDefaultLoadingScreenShader() != nullptr && vertexArray && vertexBuffer;
}

void LoadingScreen::drawPicture() const {
    constexpr float half = 1.95F * 0.5F;
    Picture picture{.projection = {},
                    .view = {},
                    .corners = {{
                        {{0.0F, half, half}, {0.0F, 1.0F, 0.0F}},
                        {{0.0F, -half, half}, {1.0F, 0.0F, 0.0F}},
                        {{0.0F, -half, -half}, {0.0F, 0.0F, 0.0F}},
                        {{0.0F, half, -half}, {0.0F, 0.0F, 1.0F}},
                    }}};
    buildOrthographic(-1.0F, 1.0F, -1.0F, 1.0F, 0.1F, 10.0F, picture.projection);
    buildLookAt(Vector(5.0F, 0.0F, 0.0F), Vector(), Vector(0.0F, 0.0F, 1.0F), picture.view);
    draw(picture);
}

void LoadingScreen::drawEyePicture(const Color& color) const {
    Picture picture{.projection = {},
                    .view = {},
                    .corners = {{
                        {{1.0F, 1.0F, 0.0F}, color},
                        {{-1.0F, 1.0F, 0.0F}, color},
                        {{-1.0F, -1.0F, 0.0F}, color},
                        {{1.0F, -1.0F, 0.0F}, color},
                    }}};
    buildOrthographic(0.0F, 1.0F, 0.0F, 1.0F, -1.0F, 1.0F, picture.projection);
    draw(picture);
}

void LoadingScreen::draw(const Picture& picture) const {
    if (!drawable) {
        return;
    }
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (ManagerOpenGLState::isVersion32OrGreater()) {
        drawWithShader(picture);
    } else {
        drawFixedFunction(picture);
    }
}

void LoadingScreen::drawWithShader(const Picture& picture) const {
    auto& shader = *ManagerShader::getDefaultLoadingScreenShader();
    shader.bind(picture.projection * picture.view);
    glBindVertexArray(vertexArray.get());
    glBindBuffer(GL_ARRAY_BUFFER, vertexBuffer.get());
    sendCorners(picture);
    glDrawArrays(GL_TRIANGLE_FAN, 0, static_cast<GLsizei>(picture.corners.size()));
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glBindVertexArray(0);
    shader.unbind();
}

void LoadingScreen::sendCorners(const Picture& picture) const {
    const auto* const colorOffset = reinterpret_cast<const void*>(offsetof(Corner, color));
    constexpr GLint componentCount = 3;
    constexpr GLsizei stride = sizeof(Corner);
    glBufferData(GL_ARRAY_BUFFER, sizeof(picture.corners), picture.corners.data(), GL_STREAM_DRAW);
    glEnableVertexAttribArray(VertexAttributeLocation::position);
    glEnableVertexAttribArray(VertexAttributeLocation::color);
    glVertexAttribPointer(VertexAttributeLocation::position, componentCount, GL_FLOAT, GL_FALSE, stride,
                          nullptr);
    glVertexAttribPointer(VertexAttributeLocation::color, componentCount, GL_FLOAT, GL_FALSE, stride,
                          colorOffset);
}

void LoadingScreen::drawFixedFunction(const Picture& picture) {
    const ScopedMatrix projection(GL_PROJECTION);
    glLoadMatrixf(picture.projection.m.data());
    const ScopedMatrix modelView(GL_MODELVIEW);
    glLoadMatrixf(picture.view.m.data());

    glPushAttrib(GL_CURRENT_BIT);
    glBegin(GL_TRIANGLE_FAN);
    for (const Corner& corner : picture.corners) {
        glColor3fv(corner.color.data());
        glVertex3fv(corner.position.data());
    }
    glEnd();
    glPopAttrib();
}

} // namespace Vantrel
