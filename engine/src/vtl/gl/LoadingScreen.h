#pragma once

#include "vtl/gl/GLHandle.h"
#include "vtl/math/Mat4.h"

#include <array>

namespace Vantrel {

/**
 * Draws the pictures of the loading time with nothing but what the program itself holds, so that they show
 * without any data file. Draws into the current buffer and leaves the showing to the caller. Needs a context.
 */
class LoadingScreen {
public:
    /** Red, green, blue from 0 to 1. */
    using Color = std::array<float, 3>;

    /** Makes a small program of its own from GL 3.2 on. */
    LoadingScreen();

    /** False where entry points are missing or the program can't be built. */
    bool isDrawable() const { return drawable; }

    /** Clears, then draws a square with corners in black, red, green and blue, clockwise from bottom left. */
    void drawPicture() const;
    /** Clears, then fills everything with one colour: what one eye sees in stereo. */
    void drawEyePicture(const Color& color) const;

private:
    struct Corner {
        std::array<float, 3> position;
        Color color;
    };
    struct Picture {
        Mat4 projection;
        Mat4 view;
        /** In the order of a triangle fan. */
        std::array<Corner, 4> corners;
    };

    void buildProgram();
    void draw(const Picture& picture) const;
    void drawWithShader(const Picture& picture) const;
    static void drawFixedFunction(const Picture& picture);

    bool drawable = false;
    GLProgram program;
    GLVertexArray vertexArray;
    GLBuffer vertexBuffer;
};

} // namespace Vantrel
