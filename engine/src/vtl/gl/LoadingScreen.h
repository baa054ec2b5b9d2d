#pragma once

#include "vtl/gl/GLHandle.h"
#include "vtl/math/Mat4.h"

#include <array>

namespace Vantrel {

/** Draws the pictures of the loading time into the current buffer and leaves the showing to the caller. */
class LoadingScreen {
public:
    /** Red, green, blue from 0 to 1. */
    using Color = std::array<float, 3>;

    /** From GL 3.2 on draws with the shader that `ManagerShader` has for it. */
    LoadingScreen();

    /** False without a context, where entry points are missing, and where there is no shader yet. */
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

    void draw(const Picture& picture) const;
    void drawWithShader(const Picture& picture) const;
    void sendCorners(const Picture& picture) const;
    static void drawFixedFunction(const Picture& picture);

    bool drawable = false;
    GLVertexArray vertexArray;
    GLBuffer vertexBuffer;
};

} // namespace Vantrel
