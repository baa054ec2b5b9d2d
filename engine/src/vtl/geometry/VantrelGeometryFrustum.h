#pragma once

#include "vtl/math/VantrelGeometryOBB.h"
#include "vtl/math/VectorT.h"

#include <array>
#include <cstdint>

namespace Vantrel {

/**
 * What a camera can see: the space between six planes, numbered top 0, bottom 1, left 2, right 3, near 4 and
 * far 5, with normals that point out of it. A point p is inside a plane when normal dot p is at most the
 * plane's coefficient.
 */
class VantrelGeometryFrustum {
public:
    /** Of the window's shape and the default view volume, from the origin along +X with +Z up. */
    VantrelGeometryFrustum();
    /**
     * `aspect` is width over height and `fovy` the vertical field of view in degrees; `look` and `up` are
     * unit vectors at right angles. An `up` along `look` leaves planes without a direction, which nothing is
     * outside of.
     */
    VantrelGeometryFrustum(float aspect, float fovy, float nearPlane, float farPlane, const Vector& look,
                           const Vector& up, const Vector& position);
    virtual ~VantrelGeometryFrustum() = default;

    /** Of plane `i` from 0 to 5; any other ends the process after a key. */
    Vector getPlaneNormal(std::uint32_t i) const { return planeOf(i, "getPlaneNormal").normal; }
    /** As for the normal. */
    float getPlaneCoef(std::uint32_t i) const { return planeOf(i, "getPlaneCoef").coefficient; }

private:
    struct Plane {
        Vector normal;
        float coefficient = 0.0F;
    };

    const Plane& planeOf(std::uint32_t i, const char* operation) const {
        if (i >= planes.size()) {
            refusePlane(i, operation);
        }
        return planes[i];
    }
    [[noreturn]] static void refusePlane(std::uint32_t i, const char* operation);

    std::array<Plane, 6> planes;
};

/**
 * Whether the hull of `obb` along the world's axes reaches, for each plane by itself, to its inside. So false
 * is sure, while a box near a corner of the frustum may be outside all the same. A box that has no finite
 * place, as that of nothing at all, isn't seen.
 */
bool intersectFrustumOBB(const VantrelGeometryFrustum& frustum, const VantrelGeometryOBB& obb);

} // namespace Vantrel
