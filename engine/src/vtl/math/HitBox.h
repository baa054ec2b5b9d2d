#pragma once

#include "vtl/math/TriangleList.h"

#include <array>
#include <limits>
#include <optional>

namespace Vantrel {

/**
 * The box in which `TriangleList` finds all its hits of some triangles. That is more than the box about their
 * corners: rounding puts hits beside the triangle, the more so the further from the origin all is and the
 * narrower the triangle.
 */
struct HitBox {
    /**
     * That of one triangle. Nothing if its hits may be anywhere: it is hardly wider than a line, or so large
     * or so small that single precision overflows or underflows.
     */
    static std::optional<HitBox> of(const TriangleList::Corners& corners);
    /** Whether boxes hold for a line from `start` along `direction`, the difference of its two points. */
    static bool holdsFor(const Vector& start, const Vector& direction);

    void add(const HitBox& other);

    std::array<float, 3> low{std::numeric_limits<float>::max(), std::numeric_limits<float>::max(),
                             std::numeric_limits<float>::max()};
    std::array<float, 3> high{std::numeric_limits<float>::lowest(), std::numeric_limits<float>::lowest(),
                              std::numeric_limits<float>::lowest()};
    /** To be added on every side, times the largest coordinate of the line's start. */
    float growth = 0.0F;
};

} // namespace Vantrel
