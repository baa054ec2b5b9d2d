#include "tools/assets/DefaultTexture.h"

namespace Assets {

Picture defaultTexturePicture() {
    constexpr int side = 64;
    constexpr int square = 8;
    return Picture::of(side, side, [](int x, int y) {
        constexpr Color light = bytes(200, 200, 200);
        constexpr Color dark = bytes(120, 120, 120);
        constexpr Color frame = bytes(255, 128, 0);
        const bool isFrame = x == 0 || y == 0 || x == side - 1 || y == side - 1;
        return isFrame ? frame : (x / square + y / square) % 2 == 0 ? light : dark;
    });
}

} // namespace Assets
