#pragma once

#include <cstdint>

namespace Assets {

/** A number from 0 to below 1 that looks random and belongs to these three alone. */
float randomAt(int x, int y, std::uint32_t seed);

/**
 * Smooth noise between -1 and 1 with features of about the size 1, which repeats after `periodX` and
 * `periodY` (K. Perlin, "Improving noise", 2002).
 */
float noise(float x, float y, int periodX, int periodY, std::uint32_t seed);

/**
 * Noise at `octaves` scales, each twice as fine and `gain` times as strong as the one before; u and v repeat
 * after 1, and the coarsest has `cells` features on that.
 */
float fractalNoise(float u, float v, int cells, int octaves, float gain, std::uint32_t seed);

} // namespace Assets
