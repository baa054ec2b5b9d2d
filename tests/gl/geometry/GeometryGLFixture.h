#pragma once

#include "vtl/geometry/IndexedGeometry.h"
#include "vtl/gl/shader/ManagerShader.h"
#include "vtl/math/Mat4.h"

#include "tests/support/GLContextFixture.h"
#include "tests/support/PixelReading.h"

#include <array>
#include <initializer_list>

namespace Vantrel::Tests {

constexpr int windowWidth = 200;
constexpr int windowHeight = 100;
constexpr Pixel black{0, 0, 0};

/** A context with the default shaders and a black picture. */
class GeometryGLFixture : public GLContextFixture {
protected:
    void SetUp() override {
        GLContextFixture::SetUp();
        clearPicture();
    }

    static void clearPicture() {
        glClearColor(0, 0, 0, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    }
    static PixelPicture picture() { return readPixels(windowWidth, windowHeight); }

    /** What the fixed-function path draws with. */
    static void loadMatrix(const Mat4& mvp) {
        if (!ManagerOpenGLState::isVersion32OrGreater()) {
            glMatrixMode(GL_PROJECTION);
            glLoadMatrixf(mvp.m.data());
            glMatrixMode(GL_MODELVIEW);
            glLoadIdentity();
        }
    }

    /** Draws it alone, in the colours of its vertices. */
    static void draw(const IndexedGeometry& geometry, const Mat4& mvp = {}) {
        clearPicture();
        loadMatrix(mvp);
        if (ManagerOpenGLState::isVersion32OrGreater()) {
            ManagerShader::getDefaultIndexedGeometryLinesShader()->bind(mvp);
        } else {
            glDisable(GL_LIGHTING);
        }
        geometry.render();
        ManagerShader::useProgram(0);
        expectNothingBound();
    }

    static void expectNothingBound() {
        for (const GLenum binding :
             std::initializer_list<GLenum>{GL_CURRENT_PROGRAM, GL_VERTEX_ARRAY_BINDING,
                                           GL_ARRAY_BUFFER_BINDING, GL_ELEMENT_ARRAY_BUFFER_BINDING}) {
            if (binding != GL_VERTEX_ARRAY_BINDING || ManagerOpenGLState::isVersion32OrGreater()) {
                GLint bound = -1;
                glGetIntegerv(binding, &bound);
                EXPECT_EQ(bound, 0) << binding;
            }
        }
    }
};

/** Switches on, on the fixed-function path, all that could spoil a colour, and sees that it stays on. */
class SpoiledColors {
public:
    SpoiledColors() {
        if (!isFixedFunction) {
            return;
        }
        constexpr std::array<float, 4> magenta{1, 0, 1, 1};
        constexpr std::array<GLubyte, 4> grey{99, 99, 99, 255};
        glFogi(GL_FOG_MODE, GL_LINEAR);
        glFogf(GL_FOG_START, -1000);
        glFogf(GL_FOG_END, -999);
        glFogfv(GL_FOG_COLOR, magenta.data());
        glBindTexture(GL_TEXTURE_2D, texture.get());
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, grey.data());
        for (const GLenum spoiler : spoilers) {
            glEnable(spoiler);
        }
        glColor4ub(10, 20, 30, 40);
    }
    SpoiledColors(const SpoiledColors&) = delete;
    SpoiledColors& operator=(const SpoiledColors&) = delete;
    ~SpoiledColors() {
        if (!isFixedFunction) {
            return;
        }
        for (const GLenum spoiler : spoilers) {
            EXPECT_TRUE(glIsEnabled(spoiler)) << spoiler;
            glDisable(spoiler);
        }
        for (const GLenum array : std::initializer_list<GLenum>{GL_VERTEX_ARRAY, GL_COLOR_ARRAY,
                                                                GL_NORMAL_ARRAY, GL_TEXTURE_COORD_ARRAY}) {
            EXPECT_FALSE(glIsEnabled(array)) << array;
        }
        std::array<float, 4> color{};
        glGetFloatv(GL_CURRENT_COLOR, color.data());
        EXPECT_NEAR(color[2] * 255, 30, 0.01F);
    }

private:
    static constexpr std::array<GLenum, 3> spoilers{GL_TEXTURE_2D, GL_FOG, GL_LIGHTING};
    bool isFixedFunction = !ManagerOpenGLState::isVersion32OrGreater();
    GLTexture texture = GLTexture::create();
};

} // namespace Vantrel::Tests
