#pragma once

#include "vtl/math/Mat4.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace Vantrel {

/** What shaders read of the camera, laid out as the block "CameraTransforms" is (std140). */
struct GLSLUniformBlockCameraTransforms {
    static constexpr const char* name = "CameraTransforms";
    static constexpr std::uint32_t bindingPoint = 0;

    enum PassMode : std::int32_t {
        normalPass = 0,
        shadowMapPass = 1,
        passAfterShadowMap = 2,
    };

    /** Of the current camera: the world to eye space. */
    std::array<float, 16> view = Mat4().m;
    /** Eye space to clip space. */
    std::array<float, 16> projection = Mat4().m;
    /** The world to the shadow map: bias * light projection * light view. */
    std::array<float, 16> shadow = Mat4().m;
    PassMode passMode = normalPass;
};

static_assert(sizeof(GLSLUniformBlockCameraTransforms) == 196);
static_assert(offsetof(GLSLUniformBlockCameraTransforms, projection) == 64 &&
              offsetof(GLSLUniformBlockCameraTransforms, shadow) == 128 &&
              offsetof(GLSLUniformBlockCameraTransforms, passMode) == 192);

} // namespace Vantrel
