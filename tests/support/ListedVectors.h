#pragma once

#include "vtl/math/VectorT.h"

#include <sstream>
#include <string>
#include <vector>

namespace Vantrel::Tests {

/** "(x, y, z)(x, y, z)", as short as a text stream writes numbers. */
inline std::string listed(const std::vector<Vector>& vectors) {
    std::ostringstream text;
    for (const Vector& v : vectors) {
        text << "(" << v.x << ", " << v.y << ", " << v.z << ")";
    }
    return text.str();
}

} // namespace Vantrel::Tests
