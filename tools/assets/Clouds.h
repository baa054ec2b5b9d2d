#pragma once

#include "tools/assets/Color.h"
#include "tools/assets/PuffMap.h"
#include "tools/assets/TileMap.h"

namespace Assets {

/** What clouds add to the sky behind them. */
struct CloudLight {
    Color added;
    /** How much of what is behind shows through. */
    float clear = 1;
};

/**
 * A layer of fair-weather clouds with flat bases under a sun at the zenith, and thin ones high above it.
 * Lengths are kilometres. Computing a view only reads, from any thread.
 */
class Clouds {
public:
    Clouds();

    /** Seen along a unit vector that points above the horizon; far things fade to `haze`. */
    CloudLight seenAlong(const Point& direction, const Color& haze) const;

private:
    /** How far inside of a cloud a place is, about; below 0 outside. Its z counts from the base. */
    float depthAt(const Point& place, float distance) const;
    /** The sun's light that gets there. */
    float sunAt(const Point& place, float depth) const;
    /** Where a cloud begins between two distances along a ray. */
    float surfaceBetween(const Point& direction, float outside, float inside) const;
    CloudLight layerAlong(const Point& direction, const Color& haze) const;
    float thinCloudsAlong(const Point& direction) const;

    TileMap cover;
    PuffMap puffs;
    TileMap streaks;
};

} // namespace Assets
