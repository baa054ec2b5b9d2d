#pragma once

#include "vtl/geometry/IndexedGeometry.h"
#include "vtl/math/VectorT.h"

#include <cstdint>
#include <memory>

namespace Vantrel {

/** The mantle of a cylinder or cone about the Z axis, half of it above the origin; it has no caps. */
class IndexedGeometryCylinder : public IndexedGeometry {
public:
    /**
     * `slices` are around the axis, `stacks` along it; without either, or with millions, there is no mantle.
     * The normals are horizontal, even those of a cone. An image is wrapped once around, backwards in
     * the last slice, which ends where the first begins.
     */
    static std::unique_ptr<IndexedGeometryCylinder> New(float radiusAtTop, float radiusAtBottom, float height,
                                                        std::uint32_t slices, std::uint32_t stacks,
                                                        bool useNormals, bool useTextureCoords);

    IndexedGeometryCylinder(float radiusAtTop_, float radiusAtBottom_, float height_, std::uint32_t slices_,
                            std::uint32_t stacks_, bool useNormals_, bool useTextureCoords_);

protected:
    void buildVertices() override;
    void buildIndices() override;
    void buildTextureCoords() override;
    void buildNormals() override;

private:
    /** From the axis to the vertices of a slice, one long. */
    Vector direction(std::uint32_t slice) const;

    float radiusAtTop;
    float radiusAtBottom;
    float height;
    std::uint32_t slices;
    std::uint32_t stacks;
};

} // namespace Vantrel
