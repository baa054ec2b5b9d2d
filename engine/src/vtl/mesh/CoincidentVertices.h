#pragma once

#include "vtl/math/VectorT.h"

#include <cstdint>
#include <span>
#include <vector>

namespace Vantrel {

/**
 * Which vertices of a mesh stand at exactly the same position. 0 and -0 are equal; a position with a NaN
 * coincides with nothing.
 */
class CoincidentVertices {
public:
    /** The group of a vertex that isn't used. */
    static constexpr std::uint32_t none = 0xFFFFFFFF;

    /** Groups the vertices that `indices` name; every index must be a number of a position. */
    CoincidentVertices(std::span<const Vector> vertexPositions, std::span<const std::uint32_t> indices);

    /** The group of each vertex, from 0 without gaps in the order of first vertices, or `none`. */
    const std::vector<std::uint32_t>& getGroups() const { return groups; }
    std::uint32_t getGroupCount() const { return groupCount; }
    /** Whether every vertex is in a group. */
    bool areAllUsed() const { return allUsed; }

private:
    std::vector<std::uint32_t> groups;
    std::uint32_t groupCount = 0;
    bool allUsed = true;
};

} // namespace Vantrel
