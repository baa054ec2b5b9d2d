#pragma once

#include "vtl/geometry/IndexedGeometry.h"

#include <cstdint>
#include <memory>

namespace Vantrel {

/** A disc about the origin in the plane XY, or a ring where its inner radius isn't 0. */
class IndexedGeometryDisc : public IndexedGeometry {
public:
    /**
     * Without `slices`, or with more than 32768 of them, there is no disc. An image lies flat on it, its
     * sides along the outer edge.
     */
    static std::unique_ptr<IndexedGeometryDisc>
    New(float innerRadius, float outerRadius, std::uint32_t slices, bool useNormals, bool useTextureCoords);

    IndexedGeometryDisc(float innerRadius_, float outerRadius_, std::uint32_t slices_, bool useNormals_,
                        bool useTextureCoords_);

protected:
    void buildVertices() override;
    void buildIndices() override;
    void buildTextureCoords() override;
    void buildNormals() override;

private:
    float innerRadius;
    float outerRadius;
    std::uint32_t slices;
};

} // namespace Vantrel
