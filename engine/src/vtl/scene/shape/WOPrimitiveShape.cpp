#include "vtl/scene/shape/WOPrimitiveShape.h"

#include "vtl/scene/shape/MGLPrimitiveShape.h"

namespace Vantrel {

std::unique_ptr<WOPrimitiveShape> WOPrimitiveShape::New(PRIMITIVE_SHAPE_TYPE type,
                                                        const std::vector<float>& parameters) {
    auto object = std::make_unique<WOPrimitiveShape>();
    object->onCreate(type, parameters);
    return object;
}

std::unique_ptr<WOPrimitiveShape> WOPrimitiveShape::New(const std::vector<Vector>& lines,
                                                        const std::vector<vtlColor4ub>* colors) {
    auto object = std::make_unique<WOPrimitiveShape>();
    object->onCreate(lines, colors);
    return object;
}

void WOPrimitiveShape::onCreate(PRIMITIVE_SHAPE_TYPE type, const std::vector<float>& parameters) {
    setModel(MGLPrimitiveShape::New(this, type, parameters));
}

void WOPrimitiveShape::onCreate(const std::vector<Vector>& lines, const std::vector<vtlColor4ub>* colors) {
    setModel(MGLPrimitiveShape::New(this, lines, colors));
}

} // namespace Vantrel
