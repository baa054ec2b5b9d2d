#pragma once

#include <array>
#include <cstdint>

namespace Vantrel {

/** The GLSL type of a vertex attribute. */
enum GLSLAttributeType : std::uint32_t {
    atFLOAT = 0,
    atBOOL,
    atINT,
    atVEC2,
    atVEC3,
    atVEC4,
    atBVEC2,
    atBVEC3,
    atBVEC4,
    atIVEC2,
    atIVEC3,
    atIVEC4,
    atMAT2,
    atMAT3,
    atMAT4,
};

/** Bytes of one element in a vertex block; 0 for a number that is no type. */
constexpr std::uint32_t sizeOfAttributeType(std::uint32_t type) {
    constexpr std::array<std::uint8_t, 15> sizes{4, 1, 4, 8, 12, 16, 2, 3, 4, 8, 12, 16, 16, 36, 64};
    return type < sizes.size() ? sizes[type] : 0;
}

} // namespace Vantrel
