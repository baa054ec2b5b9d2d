#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace Vantrel {

/** What shaders read of the lights, laid out as the block "LightInfo" is (std140). */
struct GLSLUniformBlockLightInfo {
    static constexpr const char* name = "LightInfo";
    static constexpr std::uint32_t bindingPoint = 1;
    static constexpr std::size_t maxLights = 8;

    using Vec4 = std::array<float, 4>;

    /** In eye space: where a light is (w 1), or the direction that it shines to (w 0). */
    std::array<Vec4, maxLights> position{};
    std::array<Vec4, maxLights> color{};
    Vec4 globalAmbient{};
    /** From 0 to 8. */
    std::int32_t numLights = 0;
};

static_assert(sizeof(GLSLUniformBlockLightInfo) == 276);
static_assert(offsetof(GLSLUniformBlockLightInfo, color) == 128 &&
              offsetof(GLSLUniformBlockLightInfo, globalAmbient) == 256 &&
              offsetof(GLSLUniformBlockLightInfo, numLights) == 272);

} // namespace Vantrel
