#pragma once

#include <cstdint>

namespace Vantrel {

/** What kind of solid a primitive shape is; behind each, what its parameters are. */
enum class PRIMITIVE_SHAPE_TYPE : std::uint8_t {
    /** Side. */
    psCUBE = 0,
    /** Radius, height. */
    psCYLINDER = 1,
    /** Radius. */
    psSPHERE = 2,
    /** Lengths along X, Y and Z. */
    psBOX = 3,
    /** Lines between given points, which no parameters tell. */
    psLINES = 4,
};

} // namespace Vantrel
