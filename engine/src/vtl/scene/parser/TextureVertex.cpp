#include "vtl/scene/parser/TextureVertex.h"

#include "vtl/scene/parser/NumberText.h"

namespace Vantrel {

TextureVertex::TextureVertex(std::string_view text, ModelFileFaults& faults) {
    for (float* const component : {&u, &v}) {
        if (!takeLeadingFloat(text, *component, faults)) {
            return;
        }
    }
}

} // namespace Vantrel
