#include "vtl/geometry/VantrelGeometryFrustum.h"

#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ManagerWindowing.h"

#include <cmath>
#include <limits>

namespace Vantrel {
namespace {

constexpr float radiansPerDegree = 0.017453292F;

/** The rectangle that is seen at one distance; left is against `right` of the look. */
struct Section {
    Section(const Vector& center, const Vector& halfUp, const Vector& halfRight)
        : topLeft(center + halfUp - halfRight)
        , topRight(center + halfUp + halfRight)
        , bottomLeft(center - halfUp - halfRight)
        , bottomRight(center - halfUp + halfRight) {}

    Vector topLeft;
    Vector topRight;
    Vector bottomLeft;
    Vector bottomRight;
};

/** The unit normal of the plane through `corner` and the ends of two edges from there. */
Vector normalAt(const Vector& corner, const Vector& firstEnd, const Vector& secondEnd) {
    Vector normal = (firstEnd - corner).crossProduct(secondEnd - corner);
    normal.normalize();
    return normal;
}

/** Half of what a box covers along one axis of the world, from its three half sides along that axis. */
float halfCover(float a, float b, float c) {
    return std::abs(a) + std::abs(b) + std::abs(c);
}

/** One coordinate's bounds. */
struct Bounds {
    /** What isn't a number leaves bounds that no plane lets in. */
    Bounds(float center, float half) {
        constexpr float most = std::numeric_limits<float>::max();
        low = center - half < most ? center - half : most;
        high = center + half > -most ? center + half : -most;
    }

    /** The bound that is furthest against a normal of that component. */
    float innermost(float normalComponent) const { return normalComponent >= 0.0F ? low : high; }

    float low;
    float high;
};

} // namespace

VantrelGeometryFrustum::VantrelGeometryFrustum()
    : VantrelGeometryFrustum(static_cast<float>(ManagerWindowing::getWindowWidth()) /
                                 static_cast<float>(ManagerWindowing::getWindowHeight()),
                             ManagerOpenGLState::getFovy(), ManagerOpenGLState::getNearPlane(),
                             ManagerOpenGLState::getFarPlane(), unitX, unitZ, Vector()) {
}

VantrelGeometryFrustum::VantrelGeometryFrustum(float aspect, float fovy, float nearPlane, float farPlane,
                                               const Vector& look, const Vector& up, const Vector& position) {
    const float halfHeight = std::tan(fovy * radiansPerDegree * 0.5F);
    Vector right = look.crossProduct(up);
    right.normalize();
    const auto sectionAt = [&](float distance) {
        return Section(position + look * distance, up * (halfHeight * distance),
                       right * (halfHeight * distance * aspect));
    };
    const Section n = sectionAt(nearPlane);
    const Section f = sectionAt(farPlane);
    const auto through = [](const Vector& normal, const Vector& point) {
        return Plane{normal, normal.dotProduct(point)};
    };
    planes = {through(normalAt(f.topLeft, n.topLeft, f.topRight), n.topRight),
              through(normalAt(f.bottomLeft, f.bottomRight, n.bottomLeft), n.bottomLeft),
              through(normalAt(f.topLeft, f.bottomLeft, n.topLeft), n.topLeft),
              through(normalAt(f.topRight, n.topRight, f.bottomRight), n.bottomRight),
              through(look * -1.0F, n.bottomLeft),
              through(look, f.bottomLeft)};
}

void VantrelGeometryFrustum::refusePlane(std::uint32_t i, const char* operation) {
    Report() << "ERROR: VantrelGeometryFrustum::" << operation << "( unsigned int i )\n"
             << "User must pass value such that i is [0,5]. Invalid value was\n"
             << "passed in of " << i << "...\n"
             << "Press ENTER to exit...\n";
    Pause::exitAfterKey();
}

bool intersectFrustumOBB(const VantrelGeometryFrustum& frustum, const VantrelGeometryOBB& obb) {
    const Vector a = obb.axes[0] * obb.halfExtents.x;
    const Vector b = obb.axes[1] * obb.halfExtents.y;
    const Vector c = obb.axes[2] * obb.halfExtents.z;
    // The extreme corners of the eight, without looking at each.
    const Bounds x(obb.center.x, halfCover(a.x, b.x, c.x));
    const Bounds y(obb.center.y, halfCover(a.y, b.y, c.y));
    const Bounds z(obb.center.z, halfCover(a.z, b.z, c.z));
    for (std::uint32_t i = 0; i < 6; ++i) {
        const Vector normal = frustum.getPlaneNormal(i);
        const Vector corner(x.innermost(normal.x), y.innermost(normal.y), z.innermost(normal.z));
        if (corner.dotProduct(normal) > frustum.getPlaneCoef(i)) {
            return false;
        }
    }
    return true;
}

} // namespace Vantrel
