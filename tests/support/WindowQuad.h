#pragma once

#include "vtl/gl/GLHandle.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/shader/VertexAttributeLocation.h"

#include <GL/glew.h>
#include <array>
#include <cstddef>

namespace Vantrel::Tests {

/** One corner of `WindowQuad`. */
struct QuadCorner {
    std::array<float, 3> position{};
    std::array<float, 3> normal{0.0F, 0.0F, 1.0F};
    std::array<float, 2> textureCoord{};
    std::array<float, 4> color{1.0F, 1.0F, 1.0F, 1.0F};
    std::array<float, 3> tangent{};
};

/**
 * A square that fills the window while all matrices are the identity, in the plane z = 0, with texture
 * coordinates from (0, 0) at the bottom left to (1, 1). Drawn with whatever is bound, by the means of the
 * context.
 */
class WindowQuad {
public:
    WindowQuad() {
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const auto u = static_cast<float>(i % 2);
            const auto v = static_cast<float>(i / 2);
            corners[i].position = {2.0F * u - 1.0F, 2.0F * v - 1.0F, 0.0F};
            corners[i].textureCoord = {u, v};
        }
    }

    void setNormal(std::array<float, 3> normal) {
        for (QuadCorner& corner : corners) {
            corner.normal = normal;
        }
    }
    void setColor(std::array<float, 4> color) {
        for (QuadCorner& corner : corners) {
            corner.color = color;
        }
    }

    /** `tangent`: where the program takes the tangents; -1 for nowhere. */
    void draw(GLint tangent = -1) const {
        if (ManagerOpenGLState::isVersion32OrGreater()) {
            drawWithShader(tangent);
        } else {
            drawFixedFunction(tangent);
        }
    }

    std::array<QuadCorner, 4> corners;

private:
    void drawWithShader(GLint tangent) const {
        const GLVertexArray vertexArray = GLVertexArray::create();
        const GLBuffer buffer = GLBuffer::create();
        glBindVertexArray(vertexArray.get());
        glBindBuffer(GL_ARRAY_BUFFER, buffer.get());
        glBufferData(GL_ARRAY_BUFFER, sizeof(corners), corners.data(), GL_STREAM_DRAW);
        enable(VertexAttributeLocation::position, 3, offsetof(QuadCorner, position));
        enable(VertexAttributeLocation::normal, 3, offsetof(QuadCorner, normal));
        enable(VertexAttributeLocation::textureCoord, 2, offsetof(QuadCorner, textureCoord));
        enable(VertexAttributeLocation::color, 4, offsetof(QuadCorner, color));
        if (tangent >= 0) {
            enable(static_cast<GLuint>(tangent), 3, offsetof(QuadCorner, tangent));
        }
        glDrawArrays(GL_TRIANGLE_STRIP, 0, static_cast<GLsizei>(corners.size()));
        glBindBuffer(GL_ARRAY_BUFFER, 0);
        glBindVertexArray(0);
    }

    static void enable(GLuint location, GLint components, std::size_t offset) {
        glEnableVertexAttribArray(location);
        glVertexAttribPointer(location, components, GL_FLOAT, GL_FALSE, sizeof(QuadCorner),
                              reinterpret_cast<const void*>(offset));
    }

    void drawFixedFunction(GLint tangent) const {
        glBegin(GL_TRIANGLE_STRIP);
        for (const QuadCorner& corner : corners) {
            glColor4fv(corner.color.data());
            glNormal3fv(corner.normal.data());
            glTexCoord2fv(corner.textureCoord.data());
            if (tangent >= 0) {
                glVertexAttrib3fv(static_cast<GLuint>(tangent), corner.tangent.data());
            }
            glVertex3fv(corner.position.data());
        }
        glEnd();
    }
};

} // namespace Vantrel::Tests
