#include "vtl/scene/camera/LookAngles.h"

#include <cmath>
#include <numbers>

namespace Vantrel {
namespace {

float zeroWithin(float tolerance, float component) {
    return std::abs(component) <= tolerance ? 0.0F : component;
}

} // namespace

float azimuthOf(const Vector& v) {
    const float angle = std::atan2(zeroWithin(v.tolerance, v.y), zeroWithin(v.tolerance, v.x));
    return angle < 0.0F ? angle + 2 * std::numbers::pi_v<float> : angle;
}

float elevationOf(const Vector& v) {
    const float horizontal = Vector(v.x, v.y, 0).magnitude();
    return horizontal < v.tolerance ? 0.0F : std::atan(-v.z / horizontal);
}

} // namespace Vantrel
