#pragma once

#include "vtl/geometry/IndexedGeometry.h"
#include "vtl/math/VectorT.h"

#include <memory>

namespace Vantrel {

/** A box about the origin with four vertices of their own on each face, in the order +X, -X, +Y, -Y, +Z, -Z.
 */
class IndexedGeometryRectangularPrism : public IndexedGeometry {
public:
    /** `lengths` are the full lengths of the sides. */
    static std::unique_ptr<IndexedGeometryRectangularPrism> New(const Vector& lengths, bool useNormals,
                                                                bool useTextureCoords);

    IndexedGeometryRectangularPrism(const Vector& lengths, bool useNormals_, bool useTextureCoords_)
        : IndexedGeometry(useTextureCoords_, useNormals_, false), halfLengths(lengths / 2.0F) {}

protected:
    void buildVertices() override;
    void buildIndices() override;
    void buildTextureCoords() override;
    void buildNormals() override;

private:
    Vector halfLengths;
};

} // namespace Vantrel
