#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace Vantrel {

/** The images that a lens flare is made of, in the order in which its elements number them. */
enum class LensFlareImage : std::uint8_t { glow, ring, starburst, halo };

inline constexpr std::array lensFlareImages{LensFlareImage::glow, LensFlareImage::ring,
                                            LensFlareImage::starburst, LensFlareImage::halo};

/**
 * Computes one of them as `side` x `side` pixels of red, green, blue and alpha: white whose alpha tells the
 * shape, and is 0 from the inscribed circle on.
 */
std::vector<std::uint8_t> lensFlarePixels(LensFlareImage image, std::uint32_t side);

} // namespace Vantrel
