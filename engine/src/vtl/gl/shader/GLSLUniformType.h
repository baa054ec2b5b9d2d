#pragma once

#include <cstdint>

namespace Vantrel {

/** The GLSL type of a uniform. */
enum GLSLUniformType : std::uint8_t {
    utFLOAT = 0,
    utINT,
    utBOOL,
    utVEC2,
    utVEC3,
    utVEC4,
    utIVEC2,
    utIVEC3,
    utIVEC4,
    utBVEC2,
    utBVEC3,
    utBVEC4,
    utMAT2,
    utMAT3,
    utMAT4,
    utSAMPLER,
    utSAMPLER1D,
    utSAMPLER2D,
    utSAMPLER3D,
    utSAMPLERCUBE,
    utSAMPLER1DSHADOW,
    utSAMPLER2DSHADOW,
};

} // namespace Vantrel
