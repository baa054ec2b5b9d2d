#pragma once

#include "vtl/math/Mat4.h"

namespace Vantrel {

/** What drawing needs of a camera: its two matrices and their product. */
class ShaderCamera {
public:
    /** `projection` takes eye space to clip space, `view` takes the world to eye space. */
    constexpr ShaderCamera(const Mat4& projection_, const Mat4& view_)
        : projection(projection_), view(view_), viewProjection(projection_ * view_) {}

    constexpr const Mat4& getProjectionMatrix() const { return projection; }
    constexpr const Mat4& getViewMatrix() const { return view; }
    /** World to clip space. */
    constexpr const Mat4& getViewProjectionMatrix() const { return viewProjection; }

private:
    Mat4 projection;
    Mat4 view;
    Mat4 viewProjection;
};

} // namespace Vantrel
