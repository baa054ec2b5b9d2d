#pragma once

#include "vtl/math/vtlColor4ub.h"
#include "vtl/scene/model/MGL.h"
#include "vtl/scene/shape/PrimitiveShapeType.h"

#include <memory>
#include <vector>

namespace Vantrel {

class IndexedGeometry;

/**
 * A model that is a simple solid of one flat colour about its origin, or lines. It has unit size; its
 * parameters are its scale. A cylinder stands along Z and is open at its ends.
 */
class MGLPrimitiveShape : public MGL {
public:
    /** A missing parameter is 1. `psLINES` ends the process after a key; an unknown type is a box. */
    static std::unique_ptr<MGLPrimitiveShape> New(WO* parent, PRIMITIVE_SHAPE_TYPE type,
                                                  const std::vector<float>& parameters);
    /** Lines, as in `IndexedGeometryLines`. */
    static std::unique_ptr<MGLPrimitiveShape> New(WO* parent, const std::vector<Vector>& lines,
                                                  const std::vector<vtlColor4ub>* colors);

    MGLPrimitiveShape(WO* parent, PRIMITIVE_SHAPE_TYPE type, const std::vector<float>& parameters);
    MGLPrimitiveShape(WO* parent, const std::vector<Vector>& lines, const std::vector<vtlColor4ub>* colors);
    ~MGLPrimitiveShape() override;

    void render(Camera* camera) override;
    void renderSelection(Camera* camera, std::uint8_t r, std::uint8_t g, std::uint8_t b) override;

    /** Of the current skin; lines with colours of their own keep those. */
    void setColor(const vtlColor4ub& color) { skins.current().setColor(color); }
    /** Without the scale. */
    const IndexedGeometry& getGeometry() const { return *geometry; }

private:
    MGLPrimitiveShape(WO* parent, std::unique_ptr<IndexedGeometry> shape);

    std::unique_ptr<IndexedGeometry> geometry;
};

} // namespace Vantrel
