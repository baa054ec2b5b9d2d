#pragma once

#include "vtl/math/vtlColor4f.h"

#include <GL/glew.h>
#include <array>

namespace Vantrel {

/** Where every program from 3.2 on takes the four common attributes. */
namespace VertexAttributeLocation {

constexpr GLuint position = 0;
constexpr GLuint normal = 1;
constexpr GLuint textureCoord = 2;
constexpr GLuint color = 3;

/** The names of the attributes in the order of their locations. */
constexpr std::array<const char*, 4> names{"VertexPosition", "VertexNormal", "VertexTexCoord", "VertexColor"};

} // namespace VertexAttributeLocation

/** The colour of what is drawn without colours of its own; a draw from a colour array may forget it. */
inline void setCurrentVertexColor(const vtlColor4f& color) {
    glVertexAttrib4f(VertexAttributeLocation::color, color.r, color.g, color.b, color.a);
}

/** Makes what is drawn without normals unlit; a draw from a normal array may forget it. */
inline void setCurrentVertexNormalToNone() {
    glVertexAttrib3f(VertexAttributeLocation::normal, 0.0F, 0.0F, 0.0F);
}

} // namespace Vantrel
