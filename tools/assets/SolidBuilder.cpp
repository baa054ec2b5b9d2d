#include "tools/assets/SolidBuilder.h"

#include <cmath>
#include <numbers>

namespace Assets {
namespace {

constexpr float hair = 1e-4F;

OutlinePoint mix(const OutlinePoint& from, const OutlinePoint& to, float share) {
    return {from.radius + (to.radius - from.radius) * share, from.z + (to.z - from.z) * share};
}

} // namespace

void SolidBuilder::addTurnedSmooth(float x, float y, int sides, std::span<const OutlinePoint> outline) {
    const auto count = static_cast<std::uint32_t>(sides);
    const auto first = static_cast<std::uint32_t>(model.vertices.size());
    for (const OutlinePoint& point : outline) {
        for (int side = 0; side < sides; ++side) {
            const double angle = 2 * std::numbers::pi * side / sides;
            const Point place{x + point.radius * static_cast<float>(std::cos(angle)),
                              y + point.radius * static_cast<float>(std::sin(angle)), point.z};
            model.addVertex(place, {place.x, place.y});
        }
    }
    for (std::uint32_t ring = 1; ring < outline.size(); ++ring) {
        for (std::uint32_t side = 0; side < count; ++side) {
            const std::uint32_t before = first + (ring - 1) * count;
            const std::uint32_t next = (side + 1) % count;
            if (outline[ring].radius > 0) {
                model.addFace({before + side, before + next, before + count + next, before + count + side});
            } else {
                model.triangles.push_back({before + side, before + next, before + count + side});
            }
        }
    }
}

void SolidBuilder::addTurned(float x, float y, int sides, std::span<const OutlinePoint> outline) {
    for (std::size_t i = 1; i < outline.size(); ++i) {
        const float start = i == 1 ? 0 : hair;
        const float end = i + 1 == outline.size() ? 1 : 1 - hair;
        const std::array<OutlinePoint, 2> strip{mix(outline[i - 1], outline[i], start),
                                                mix(outline[i - 1], outline[i], end)};
        addTurnedSmooth(x, y, sides, strip);
    }
}

void SolidBuilder::addPost(float x, float y, float radius, float bottom, float top, int sides) {
    const std::array<OutlinePoint, 3> outline{{{radius, bottom}, {radius, top}, {0, top}}};
    addTurned(x, y, sides, outline);
}

void SolidBuilder::addBox(const Point& middle, const Point& along, const Point& across, const Point& up) {
    const std::array<Point, 3> edges{along, across, up};
    for (std::size_t i = 0; i < edges.size(); ++i) {
        for (const float sign : {1.0F, -1.0F}) {
            const Point face = middle + edges[i] * sign;
            const Point u = edges[(i + 1) % 3] * (sign * (1 - hair));
            const Point v = edges[(i + 2) % 3] * (1 - hair);
            model.addQuad({{face + u * -1 + v * -1, face + u + v * -1, face + u + v, face + u * -1 + v}});
        }
    }
}

} // namespace Assets
