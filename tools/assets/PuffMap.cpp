#include "tools/assets/PuffMap.h"

#include "tools/assets/Noise.h"
#include "tools/assets/Picture.h"

#include <array>
#include <cmath>

namespace Assets {
namespace {

/** One point in each cell of a grid that repeats. */
class Seeds {
public:
    Seeds(int cells_, std::uint32_t seed) : cells(cells_) {
        const int count = cells * cells * cells;
        for (int i = 0; i < count; ++i) {
            points.push_back({randomAt(i, 0, seed), randomAt(i, 1, seed), randomAt(i, 2, seed)});
        }
    }

    int getCells() const { return cells; }
    /** How near the nearest point is, in cells: 1 there and 0 from one cell on. */
    float nearness(const Point& place) const {
        const std::array<int, 3> cell{wholeBelow(place.x), wholeBelow(place.y), wholeBelow(place.z)};
        float least = 1;
        for (int neighbour = 0; neighbour < 27; ++neighbour) {
            const int x = cell[0] + neighbour % 3 - 1;
            const int y = cell[1] + neighbour / 3 % 3 - 1;
            const int z = cell[2] + neighbour / 9 - 1;
            const Point apart = pointOf(x, y, z) + place * -1;
            least = std::min(least, apart.x * apart.x + apart.y * apart.y + apart.z * apart.z);
        }
        return 1 - std::sqrt(least);
    }

private:
    Point pointOf(int x, int y, int z) const {
        const auto wrapped = [&](int i) { return (i + cells) % cells; };
        const int index = (wrapped(z) * cells + wrapped(y)) * cells + wrapped(x);
        return points[static_cast<std::size_t>(index)] +
               Point{static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
    }

    int cells;
    std::vector<Point> points;
};

} // namespace

PuffMap::PuffMap(std::uint32_t seed) : values(static_cast<std::size_t>(side) * side * side) {
    const std::array<Seeds, 3> sizes{Seeds(4, seed), Seeds(8, seed + 1), Seeds(16, seed + 2)};
    constexpr std::array weights{0.58F, 0.28F, 0.14F};
    forEachOnTwoThreads(side, [&](int z) {
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                const Point place{static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
                float sum = 0;
                for (std::size_t i = 0; i < sizes.size(); ++i) {
                    const float cell = static_cast<float>(sizes[i].getCells()) / static_cast<float>(side);
                    sum += weights[i] * sizes[i].nearness(place * cell);
                }
                values[indexOf(x, y, z)] = sum;
            }
        }
    });
}

float PuffMap::acrossRow(int x, int y, int z, float share) const {
    return mix(at(x, y, z), at(x + 1, y, z), share);
}

float PuffMap::sample(const Point& place) const {
    const Point cells = place * static_cast<float>(side);
    const int x = wholeBelow(cells.x);
    const int y = wholeBelow(cells.y);
    const int z = wholeBelow(cells.z);
    const float across = cells.x - static_cast<float>(x);
    const float along = cells.y - static_cast<float>(y);
    return mix(mix(acrossRow(x, y, z, across), acrossRow(x, y + 1, z, across), along),
               mix(acrossRow(x, y, z + 1, across), acrossRow(x, y + 1, z + 1, across), along),
               cells.z - static_cast<float>(z));
}

} // namespace Assets
