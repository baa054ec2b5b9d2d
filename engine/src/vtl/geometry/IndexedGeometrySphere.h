#pragma once

#include "vtl/geometry/IndexedGeometry.h"
#include "vtl/math/VectorT.h"

#include <cstdint>
#include <memory>

namespace Vantrel {

/** A sphere about the origin, with its poles on the Y axis. */
class IndexedGeometrySphere : public IndexedGeometry {
public:
    /**
     * `rings` of latitude from pole to pole, both of which count, with `sectors` vertices each, of which the
     * first and the last coincide. With fewer than 2 of either, or with millions, there is no sphere.
     */
    static std::unique_ptr<IndexedGeometrySphere>
    New(float radius, std::uint32_t rings, std::uint32_t sectors, bool useNormals, bool useTextureCoords);

    IndexedGeometrySphere(float radius_, std::uint32_t rings_, std::uint32_t sectors_, bool useNormals_,
                          bool useTextureCoords_);

protected:
    void buildVertices() override;
    void buildIndices() override;
    void buildTextureCoords() override;
    void buildNormals() override;

private:
    /** From the centre to a vertex, one long. */
    Vector direction(std::uint32_t ring, std::uint32_t sector) const;

    float radius;
    std::uint32_t rings;
    std::uint32_t sectors;
};

} // namespace Vantrel
