#pragma once

#include <cstdint>

namespace Vantrel {

/** Which point of a text lies at its place. The numbers are those of `setTextAnchor`. */
enum class TextAnchor : std::uint8_t {
    centre = 0,
    left = 1,
    right = 2,
    top = 3,
    bottom = 4,
    topLeft = 5,
    topRight = 6,
    bottomLeft = 7,
    bottomRight = 8
};

/** How the lines of a text of several lie in its block. */
enum class TextJustification : std::uint8_t { centred = 0, left = 1, right = 2 };

/** -1, 0 or 1: the text goes left, stays or goes right by half its width. Unknown anchors stay. */
constexpr int getHorizontalShift(TextAnchor anchor) {
    switch (anchor) {
    case TextAnchor::left:
    case TextAnchor::topLeft:
    case TextAnchor::bottomLeft:
        return 1;
    case TextAnchor::right:
    case TextAnchor::topRight:
    case TextAnchor::bottomRight:
        return -1;
    default:
        return 0;
    }
}

/** -1, 0 or 1: the text goes down, stays or goes up by half its height. Unknown anchors stay. */
constexpr int getVerticalShift(TextAnchor anchor) {
    switch (anchor) {
    case TextAnchor::top:
    case TextAnchor::topLeft:
    case TextAnchor::topRight:
        return -1;
    case TextAnchor::bottom:
    case TextAnchor::bottomLeft:
    case TextAnchor::bottomRight:
        return 1;
    default:
        return 0;
    }
}

} // namespace Vantrel
