#pragma once

#include "tools/assets/TriangleModel.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Assets {

/**
 * Round lumps of several sizes that fill space and repeat after 1 in each direction: 1 in the middle of a
 * lump and down to 0 between them (S. Worley, "A cellular texture basis function", 1996).
 */
class PuffMap {
public:
    explicit PuffMap(std::uint32_t seed);

    float sample(const Point& place) const;

private:
    static constexpr int side = 64;
    static std::size_t indexOf(int x, int y, int z) {
        constexpr int mask = side - 1;
        return static_cast<std::size_t>(((z & mask) * side + (y & mask)) * side + (x & mask));
    }
    float at(int x, int y, int z) const { return values[indexOf(x, y, z)]; }
    float acrossRow(int x, int y, int z, float share) const;

    std::vector<float> values;
};

} // namespace Assets
