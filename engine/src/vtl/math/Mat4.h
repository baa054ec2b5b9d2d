#pragma once

#include "vtl/math/VectorT.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace Vantrel {

/**
 * A 4 by 4 matrix in the order of OpenGL, column after column: element 4c + r is row r of column c, and the
 * translation stands in elements 12, 13 and 14. The columns of a rotation are the rotated X, Y and Z axes.
 * The address of a matrix's first element is what OpenGL takes.
 */
class Mat4 {
public:
    /** The identity. */
    constexpr Mat4() = default;
    /** From 16 floats in a row; null gives the identity. */
    constexpr explicit Mat4(const float* elements) {
        if (elements != nullptr) {
            std::copy_n(elements, m.size(), m.begin());
        }
    }
    /** Takes the elements alone: every matrix starts with the default tolerance. */
    constexpr Mat4(const Mat4& other) : m(other.m) {}
    /** Takes +X, +Y and +Z to `x`, `y` and `z`, and the origin to `place`. */
    static constexpr Mat4 fromAxes(const Vector& x, const Vector& y, const Vector& z,
                                   const Vector& place = Vector());

    /** Copies the elements; this matrix keeps its own tolerance. */
    constexpr Mat4& operator=(const Mat4& other) {
        m = other.m;
        return *this;
    }
    /** Element `i` from 0 to 15, unchecked. */
    constexpr float& operator[](std::size_t i) { return m[i]; }
    constexpr float operator[](std::size_t i) const { return m[i]; }

    constexpr Mat4 operator*(const Mat4& b) const;
    /** `v` turned by the upper left 3 by 3; the translation isn't applied. */
    constexpr Vector operator*(const Vector& v) const { return v * *this; }

    constexpr void setIdentity() { *this = Mat4(); }
    /** Writes the transposed matrix to `out`, which may be this one. */
    constexpr void transpose(Mat4& out) const;
    /**
     * Writes the inverse of `in` to `out`, which may be the same matrix. False for a singular matrix, and
     * `out` stays as it was.
     */
    static bool invert(const Mat4& in, Mat4& out);

    std::array<float, 16> m{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    float tolerance = 0.001F;
};

static_assert(std::is_standard_layout_v<Mat4> && offsetof(Mat4, m) == 0);

constexpr Mat4 Mat4::fromAxes(const Vector& x, const Vector& y, const Vector& z, const Vector& place) {
    const std::array elements{x.x, x.y, x.z, 0.0F, y.x,     y.y,     y.z,     0.0F,
                              z.x, z.y, z.z, 0.0F, place.x, place.y, place.z, 1.0F};
    return Mat4(elements.data());
}

constexpr Mat4 Mat4::operator*(const Mat4& b) const {
    Mat4 product;
    for (std::size_t column = 0; column < 16; column += 4) {
        for (std::size_t row = 0; row < 4; ++row) {
            product.m[column + row] = m[row] * b.m[column] + m[4 + row] * b.m[column + 1] +
                                      m[8 + row] * b.m[column + 2] + m[12 + row] * b.m[column + 3];
        }
    }
    return product;
}

constexpr void Mat4::transpose(Mat4& out) const {
    out = *this;
    for (std::size_t column = 0; column < 4; ++column) {
        for (std::size_t row = 0; row < column; ++row) {
            std::swap(out.m[4 * column + row], out.m[4 * row + column]);
        }
    }
}

template <class T>
constexpr VectorT<T> VectorT<T>::operator*(const Mat4& matrix) const {
    const auto row = [&](std::size_t r) {
        return static_cast<T>(matrix[r]) * x + static_cast<T>(matrix[4 + r]) * y +
               static_cast<T>(matrix[8 + r]) * z;
    };
    return {row(0), row(1), row(2)};
}

} // namespace Vantrel
