#include "tools/assets/TileMap.h"

namespace Assets {

TileMap::TileMap(int side_)
    : side(side_), values(static_cast<std::size_t>(side_) * static_cast<std::size_t>(side_)) {
}

float TileMap::sample(float u, float v) const {
    const float x = u * static_cast<float>(side) - 0.5F;
    const float y = v * static_cast<float>(side) - 0.5F;
    const int left = wholeBelow(x);
    const int low = wholeBelow(y);
    const float across = x - static_cast<float>(left);
    return mix(mix(at(left, low), at(left + 1, low), across),
               mix(at(left, low + 1), at(left + 1, low + 1), across), y - static_cast<float>(low));
}

TileMap TileMap::halved() const {
    TileMap half(side / 2);
    for (int y = 0; y < half.side; ++y) {
        for (int x = 0; x < half.side; ++x) {
            half.values[half.indexOf(x, y)] =
                (at(2 * x, 2 * y) + at(2 * x + 1, 2 * y) + at(2 * x, 2 * y + 1) + at(2 * x + 1, 2 * y + 1)) /
                4;
        }
    }
    return half;
}

} // namespace Assets
