#pragma once

#include "vtl/geometry/IndexedGeometry.h"
#include "vtl/math/VectorT.h"

#include <memory>

namespace Vantrel {

/** Three lines from the origin, along X in red, along Y in green, along Z in blue. */
class IndexedGeometryAxes : public IndexedGeometry {
public:
    /** `extent` holds the length of each line. */
    static std::unique_ptr<IndexedGeometryAxes> New(const Vector& extent);
    /** All three of one length. */
    static std::unique_ptr<IndexedGeometryAxes> New(float extent);

    explicit IndexedGeometryAxes(const Vector& extent_);

protected:
    void buildVertices() override;
    void buildIndices() override;
    void buildColors() override;

private:
    Vector extent;
};

} // namespace Vantrel
