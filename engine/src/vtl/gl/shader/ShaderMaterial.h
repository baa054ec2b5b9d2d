#pragma once

#include "vtl/math/Mat4.h"
#include "vtl/math/vtlColor4f.h"

namespace Vantrel {

/** What a shader needs of a skin. */
struct ShaderMaterial {
    vtlColor4f ambient;
    vtlColor4f diffuse;
    vtlColor4f specular;
    float specularCoefficient = 1.0F;
    /** Of the skin's first texture. */
    Mat4 textureMatrix;
};

} // namespace Vantrel
