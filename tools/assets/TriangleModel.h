#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace Assets {

struct Point {
    float x = 0;
    float y = 0;
    float z = 0;
};

constexpr Point operator+(const Point& a, const Point& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr Point operator*(const Point& point, float factor) {
    return {point.x * factor, point.y * factor, point.z * factor};
}

constexpr Point mix(const Point& from, const Point& to, float share) {
    return from * (1 - share) + to * share;
}

struct TexturePoint {
    float u = 0;
    float v = 0;
};

/** Four corners, counter-clockwise as seen from outside. */
using Corners = std::array<Point, 4>;

/** Triangles, each corner with a place on the texture, in one material. */
struct TriangleModel {
    using Triangle = std::array<std::uint32_t, 3>;

    /** Adds a vertex and answers its number. */
    std::uint32_t addVertex(const Point& place, const TexturePoint& onTexture = {});
    /** The whole texture on four corners, or a part of it, from its lower left to its upper right. */
    void addQuad(const Corners& corners, const TexturePoint& lowerLeft = {0, 0},
                 const TexturePoint& upperRight = {1, 1});
    /** Two triangles between vertices that are there, in the order of `Corners`. */
    void addFace(const std::array<std::uint32_t, 4>& corners);

    std::vector<Point> vertices;
    std::vector<TexturePoint> texturePoints;
    std::vector<Triangle> triangles;
};

} // namespace Assets
