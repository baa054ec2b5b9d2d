#include "tools/assets/Gui.h"

#include "tools/assets/Shapes.h"

namespace Assets {
namespace {

constexpr int side = 256;
constexpr float pixel = 2.0F / side;
constexpr float corner = 0.09F;

/** How far a pixel is outside of the rounded square; the whole picture is 2 wide. */
float outside(int x, int y, float half) {
    const auto middle = [](int i) { return (static_cast<float>(i) + 0.5F) * pixel - 1; };
    return outsideBox(middle(x), middle(y), half, half, corner);
}

Color withOpacity(const Color& color, float opacity) {
    return {color.r, color.g, color.b, opacity};
}

} // namespace

Picture panelPicture() {
    return Picture::of(side, side, [](int x, int y) {
        constexpr Color foot = bytes(22, 28, 38);
        constexpr Color head = bytes(52, 64, 82);
        constexpr Color rim = bytes(136, 158, 186);
        constexpr float opacity = 0.82F;
        const float edge = outside(x, y, 1);
        const float up = static_cast<float>(y) / side;
        const Color face = mix(foot, head, up * up);
        const float onRim = smoothStep(-0.045F, -0.012F, edge) * (0.35F + 0.45F * up);
        return withOpacity(mix(face, rim, onRim), coverage(edge, pixel) * mix(opacity, 0.95F, onRim));
    });
}

Picture focusBorderPicture() {
    return Picture::of(side, side, [](int x, int y) {
        constexpr Color amber = bytes(255, 184, 46);
        constexpr float line = 0.045F;
        const float edge = outside(x, y, 1);
        const float whole = coverage(edge, pixel) * coverage(-edge - line, pixel);
        const float glow = edge < 0 ? 0.4F * smoothStep(-0.17F, -line, edge) : 0.0F;
        return withOpacity(amber, std::max(whole, glow));
    });
}

} // namespace Assets
