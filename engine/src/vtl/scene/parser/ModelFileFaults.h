#pragma once

#include "vtl/math/VectorT.h"

#include <cmath>
#include <cstddef>
#include <string_view>

namespace Vantrel {

/** What a reader of a model file leaves out or puts right; counted, so that a bad file gets one report each.
 */
struct ModelFileFaults {
    /** Prints what there is to say, in the name of the class `reader`. */
    void report(std::string_view reader, std::string_view fileName) const;

    /** Makes what isn't finite 0, and counts it. */
    void makeFinite(float& number) {
        if (!std::isfinite(number)) {
            number = 0;
            ++numbers;
        }
    }

    void makeFinite(Vector& point) {
        makeFinite(point.x);
        makeFinite(point.y);
        makeFinite(point.z);
    }

    /** Numbers that aren't finite, or none at all; they count as 0. */
    std::size_t numbers = 0;
    /** Faces that name what the file doesn't have, or don't name what they need; they are left out. */
    std::size_t faces = 0;
    /** Faces that a material names and the file doesn't have. */
    std::size_t facesOfMaterials = 0;
};

} // namespace Vantrel
