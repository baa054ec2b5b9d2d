#pragma once

#include "tools/assets/Picture.h"

#include <cstddef>
#include <vector>

namespace Assets {

/** Values on a square that repeats in both directions; its side is a power of two. */
class TileMap {
public:
    /** With what `valueAt(u, v)` says, u and v from 0 to 1 in the middle of each cell. It is called on two
     * threads. */
    template <class ValueAt>
    TileMap(int side_, const ValueAt& valueAt) : TileMap(side_) {
        const float cell = 1.0F / static_cast<float>(side);
        forEachOnTwoThreads(side, [&](int y) {
            for (int x = 0; x < side; ++x) {
                values[indexOf(x, y)] =
                    valueAt((static_cast<float>(x) + 0.5F) * cell, (static_cast<float>(y) + 0.5F) * cell);
            }
        });
    }

    int getSide() const { return side; }
    float at(int x, int y) const { return values[indexOf(x, y)]; }
    /** Between the values, u and v of any size. */
    float sample(float u, float v) const;
    /** Of half the side; each value is the mean of four. */
    TileMap halved() const;

private:
    explicit TileMap(int side);
    std::size_t indexOf(int x, int y) const {
        return static_cast<std::size_t>(y & (side - 1)) * static_cast<std::size_t>(side) +
               static_cast<std::size_t>(x & (side - 1));
    }

    int side;
    std::vector<float> values;
};

} // namespace Assets
