#pragma once

#include "vtl/math/VectorT.h"
#include "vtl/scene/parser/File3DS.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Vantrel {

/** All triangles of a 3DS file that have one material. */
struct MaterialMesh3DS {
    /** Among the materials of the file. */
    std::size_t material = 0;
    std::vector<Vector> vertices;
    /** One for each vertex. */
    std::vector<Vector> textureCoords;
    /** Three for each triangle, into `vertices`. */
    std::vector<std::uint32_t> indices;

    /**
     * One mesh for each material that faces have, in the order of the materials. The middle of the common box
     * of all vertices of the file, used or not, comes to the origin; then they are multiplied by `scale`.
     * Faces without a material are left out, those that name a missing vertex are so and are counted in
     * `faults`.
     */
    static std::vector<MaterialMesh3DS> meshesOf(const File3DS& file, const Vector& scale,
                                                 ModelFileFaults& faults);
};

} // namespace Vantrel
