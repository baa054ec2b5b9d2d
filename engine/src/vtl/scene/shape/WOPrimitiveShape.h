#pragma once

#include "vtl/math/vtlColor4ub.h"
#include "vtl/scene/object/WO.h"
#include "vtl/scene/shape/PrimitiveShapeType.h"

#include <memory>
#include <string>
#include <vector>

namespace Vantrel {

/** A cube, box, cylinder or sphere in one flat colour, or lines; the colour is its skin's. */
class WOPrimitiveShape : public WO {
public:
    static std::string getClassName() { return "WOPrimitiveShape"; }
    /** The arguments are those of `MGLPrimitiveShape`. */
    static std::unique_ptr<WOPrimitiveShape> New(PRIMITIVE_SHAPE_TYPE type,
                                                 const std::vector<float>& parameters);
    static std::unique_ptr<WOPrimitiveShape> New(const std::vector<Vector>& lines,
                                                 const std::vector<vtlColor4ub>* colors);

    using WO::onCreate;
    virtual void onCreate(PRIMITIVE_SHAPE_TYPE type, const std::vector<float>& parameters);
    virtual void onCreate(const std::vector<Vector>& lines, const std::vector<vtlColor4ub>* colors);
};

} // namespace Vantrel
