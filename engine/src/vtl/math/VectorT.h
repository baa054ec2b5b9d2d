#pragma once

#include <cmath>
#include <string>
#include <string_view>

namespace Vantrel {

class Mat4;

/**
 * A point, a direction or an extent in three dimensions. Axes are right-handed with +Z up; lengths are metres
 * where nothing else is told.
 */
template <class T>
class VectorT {
public:
    constexpr VectorT() = default;
    constexpr VectorT(T x_, T y_, T z_) : x(x_), y(y_), z(z_) {}
    /** Takes the components alone: every vector starts with the default tolerance. */
    constexpr VectorT(const VectorT& other) : x(other.x), y(other.y), z(other.z) {}
    /** From three values in a row; null gives zero. */
    constexpr explicit VectorT(const T* xyz) {
        if (xyz != nullptr) {
            *this = VectorT(xyz[0], xyz[1], xyz[2]);
        }
    }
    /**
     * From the first three decimal numbers in `text`, whatever stands between them and behind them. What is
     * missing is 0. A number too large for `T` gives the largest finite value of its sign and ends the
     * reading, as it would in a text stream; one too small gives what is nearest, down to zero.
     */
    explicit VectorT(std::string_view text);

    /** Copies the components; this vector keeps its own tolerance. */
    constexpr VectorT& operator=(const VectorT& other) {
        x = other.x;
        y = other.y;
        z = other.z;
        return *this;
    }
    constexpr VectorT operator+(const VectorT& v) const { return {x + v.x, y + v.y, z + v.z}; }
    constexpr VectorT operator-(const VectorT& v) const { return {x - v.x, y - v.y, z - v.z}; }
    constexpr VectorT operator*(T scalar) const { return {x * scalar, y * scalar, z * scalar}; }
    constexpr VectorT operator/(T scalar) const { return {x / scalar, y / scalar, z / scalar}; }
    /** Adds in place and returns a copy of the sum. */
    constexpr VectorT operator+=(const VectorT& v) { return *this = *this + v; }

    /** True when every component differs by less than the tolerance of this vector, the left side. */
    constexpr bool operator==(const VectorT& v) const {
        return isWithinTolerance(x - v.x) && isWithinTolerance(y - v.y) && isWithinTolerance(z - v.z);
    }

    constexpr T dotProduct(const VectorT& v) const { return x * v.x + y * v.y + z * v.z; }
    /** Right-handed: X cross Y gives Z. */
    constexpr VectorT crossProduct(const VectorT& v) const {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }
    /** The root is taken in double precision and rounded to `T`. */
    T magnitude() const { return static_cast<T>(std::sqrt(static_cast<double>(magnitudeSquared()))); }
    constexpr T magnitudeSquared() const { return dotProduct(*this); }
    T distanceFrom(const VectorT& v) const { return (v - *this).magnitude(); }

    /** Makes this vector one long; one shorter than 0.00001 stays as it is. */
    void normalize() {
        if (const T length = magnitude(); !isTooShort(length)) {
            *this = *this / length;
        }
    }
    /** A copy of length one; zero when this vector is shorter than 0.00001. */
    VectorT normalizeMe() const {
        const T length = magnitude();
        return isTooShort(length) ? VectorT() : *this / length;
    }

    /** "(1.000, 2.000, 3.000)", with `precision` decimals. */
    std::string toString(int precision = 3) const;

    /** This vector turned by the upper left 3 by 3 of `matrix`, whose translation isn't applied (Mat4.h). */
    constexpr VectorT operator*(const Mat4& matrix) const;

    T x{};
    T y{};
    T z{};
    /** How far apart the components of equal vectors may be. */
    T tolerance = static_cast<T>(0.001);

private:
    constexpr bool isWithinTolerance(T difference) const {
        return (difference < 0 ? -difference : difference) < tolerance;
    }
    static constexpr bool isTooShort(T length) { return length < static_cast<T>(0.00001); }
};

using Vector = VectorT<float>;
using VectorD = VectorT<double>;

inline constexpr Vector unitX{1.0F, 0.0F, 0.0F};
inline constexpr Vector unitY{0.0F, 1.0F, 0.0F};
inline constexpr Vector unitZ{0.0F, 0.0F, 1.0F};

} // namespace Vantrel
