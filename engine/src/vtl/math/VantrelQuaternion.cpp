#include "vtl/math/VantrelQuaternion.h"

#include <cmath>

namespace Vantrel {
namespace {

constexpr float smallestTrace = 0.000001F;
constexpr float nearlyParallel = 0.9999F;

VantrelQuaternion fromTrace(const Mat4& m, float trace) {
    const float s = 2 * std::sqrt(trace);
    return {s / 4, (m[9] - m[6]) / s, (m[2] - m[8]) / s, (m[4] - m[1]) / s};
}

VantrelQuaternion fromLargestX(const Mat4& m) {
    const float s = 2 * std::sqrt(1 + m[0] - m[5] - m[10]);
    return {(m[9] - m[6]) / s, s / 4, (m[4] + m[1]) / s, (m[8] + m[2]) / s};
}

VantrelQuaternion fromLargestY(const Mat4& m) {
    const float s = 2 * std::sqrt(1 + m[5] - m[0] - m[10]);
    return {(m[2] - m[8]) / s, (m[4] + m[1]) / s, s / 4, (m[9] + m[6]) / s};
}

VantrelQuaternion fromLargestZ(const Mat4& m) {
    const float s = 2 * std::sqrt(1 + m[10] - m[0] - m[5]);
    return {(m[4] - m[1]) / s, (m[8] + m[2]) / s, (m[9] + m[6]) / s, s / 4};
}

VantrelQuaternion fromRotation(const Mat4& m) {
    const float trace = m[0] + m[5] + m[10] + m[15];
    if (trace > smallestTrace) {
        return fromTrace(m, trace);
    }
    if (m[0] > m[5] && m[0] > m[10]) {
        return fromLargestX(m);
    }
    return m[5] > m[10] ? fromLargestY(m) : fromLargestZ(m);
}

VantrelQuaternion mix(const VantrelQuaternion& a, float ka, const VantrelQuaternion& b, float kb) {
    return {ka * a.w + kb * b.w, ka * a.x + kb * b.x, ka * a.y + kb * b.y, ka * a.z + kb * b.z};
}

} // namespace

VantrelQuaternion::VantrelQuaternion(const Mat4& rotation)
    : VantrelQuaternion(fromRotation(rotation).normalized()) {
}

float VantrelQuaternion::magnitude() const {
    return std::sqrt(dot(*this));
}

void VantrelQuaternion::normalize() {
    *this = normalized();
}

VantrelQuaternion VantrelQuaternion::normalized() const {
    const float length = magnitude();
    return {w / length, x / length, y / length, z / length};
}

void VantrelQuaternion::toMatrix(Mat4& out) const {
    out.setIdentity();
    out[0] = w * w + x * x - y * y - z * z;
    out[1] = 2 * x * y - 2 * w * z;
    out[2] = 2 * x * z + 2 * w * y;
    out[4] = 2 * w * z + 2 * x * y;
    out[5] = w * w - x * x + y * y - z * z;
    out[6] = 2 * y * z - 2 * w * x;
    out[8] = 2 * x * z - 2 * w * y;
    out[9] = 2 * y * z + 2 * w * x;
    out[10] = w * w - x * x - y * y + z * z;
}

VantrelQuaternion VantrelQuaternion::slerp(const VantrelQuaternion& a, const VantrelQuaternion& b, float t) {
    const VantrelQuaternion from = a.normalized();
    VantrelQuaternion to = b.normalized();
    float d = from.dot(to);
    if (d < 0) {
        to = to.negated();
        d = -d;
    }
    if (d > nearlyParallel) {
        return mix(from, 1 - t, to, t).normalized();
    }
    const float s = std::sqrt(1 - d * d);
    const float angle = std::atan2(s, d);
    return mix(from, std::sin((1 - t) * angle) / s, to, std::sin(t * angle) / s).normalized();
}

} // namespace Vantrel
