#include "vtl/math/MatrixBuilders.h"

#include <algorithm>
#include <cmath>

namespace Vantrel {
namespace {

constexpr float radiansPerDegree = 0.017453292F;

void copyElements(const Mat4& from, float* to) {
    std::copy(from.m.begin(), from.m.end(), to);
}

Mat4 rotation(const Vector& axis, float radians) {
    const float x = axis.x;
    const float y = axis.y;
    const float z = axis.z;
    const float c = std::cos(radians);
    const float s = std::sin(radians);
    return Mat4::fromAxes({c * (1 - x * x) + x * x, s * z + (1 - c) * y * x, (1 - c) * z * x - s * y},
                          {(1 - c) * y * x - s * z, c * (1 - y * y) + y * y, s * x + (1 - c) * z * y},
                          {s * y + (1 - c) * z * x, (1 - c) * z * y - s * x, c * (1 - z * z) + z * z});
}

} // namespace

void buildOrthographic(float left, float right, float bottom, float top, float nearPlane, float farPlane,
                       float* out) {
    std::fill_n(out, 16, 0.0F);
    out[0] = 2 / (right - left);
    out[5] = 2 / (top - bottom);
    out[10] = -2 / (farPlane - nearPlane);
    out[12] = -(right + left) / (right - left);
    out[13] = -(top + bottom) / (top - bottom);
    out[14] = -(farPlane + nearPlane) / (farPlane - nearPlane);
    out[15] = 1;
}

void buildOrthographic(float left, float right, float bottom, float top, float nearPlane, float farPlane,
                       Mat4& out) {
    buildOrthographic(left, right, bottom, top, nearPlane, farPlane, &out[0]);
}

void buildPerspective(float fovYDegrees, float aspect, float nearPlane, float farPlane, float* out) {
    const float f = 1 / std::tan(fovYDegrees * radiansPerDegree * 0.5F);
    std::fill_n(out, 16, 0.0F);
    out[0] = f / aspect;
    out[5] = f;
    out[10] = (nearPlane + farPlane) / (nearPlane - farPlane);
    out[11] = -1;
    out[14] = 2 * farPlane * nearPlane / (nearPlane - farPlane);
}

void buildPerspective(float fovYDegrees, float aspect, float nearPlane, float farPlane, Mat4& out) {
    buildPerspective(fovYDegrees, aspect, nearPlane, farPlane, &out[0]);
}

void buildFrustum(float left, float right, float bottom, float top, float nearPlane, float farPlane,
                  Mat4& out) {
    out.m.fill(0.0F);
    out[0] = 2 * nearPlane / (right - left);
    out[5] = 2 * nearPlane / (top - bottom);
    out[8] = (right + left) / (right - left);
    out[9] = (top + bottom) / (top - bottom);
    out[10] = (nearPlane + farPlane) / (nearPlane - farPlane);
    out[11] = -1;
    out[14] = 2 * farPlane * nearPlane / (nearPlane - farPlane);
}

void buildLookAt(const Vector& eye, const Vector& center, const Vector& up, float* out) {
    Mat4 view;
    buildLookAt(eye, center, up, view);
    copyElements(view, out);
}

void buildLookAt(const Vector& eye, const Vector& center, const Vector& up, Mat4& out) {
    const Vector forward = (center - eye).normalizeMe();
    const Vector side = forward.crossProduct(up.normalizeMe()).normalizeMe();
    const Vector upward = side.crossProduct(forward).normalizeMe();
    out = Mat4::fromAxes({side.x, upward.x, -forward.x}, {side.y, upward.y, -forward.y},
                         {side.z, upward.z, -forward.z});
    const Vector turnedEye = eye * out;
    out[12] = -turnedEye.x;
    out[13] = -turnedEye.y;
    out[14] = -turnedEye.z;
}

void rotateAboutAxis(const Vector& axis, float radians, float* m) {
    copyElements(rotation(axis, radians) * Mat4(m), m);
}

void rotateAboutAxis(const Vector& axis, float radians, Mat4& m) {
    m = rotation(axis, radians) * m;
}

} // namespace Vantrel
