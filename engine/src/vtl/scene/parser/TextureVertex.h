#pragma once

#include "vtl/scene/parser/ModelFileFaults.h"

#include <string_view>

namespace Vantrel {

/** A texture coordinate of a model file. */
class TextureVertex {
public:
    TextureVertex() = default;
    TextureVertex(float horizontal, float vertical) : u(horizontal), v(vertical) {}
    /**
     * From two decimal numbers with white space between them; what stands behind them doesn't count. A number
     * too large for a float is 0. So is what isn't a number, with all behind it. Both are counted; a missing
     * number, which is 0 too, isn't.
     */
    TextureVertex(std::string_view text, ModelFileFaults& faults);

    /** Exactly; 0 and -0 are equal. */
    bool operator==(const TextureVertex&) const = default;

    float u = 0;
    float v = 0;
};

} // namespace Vantrel
