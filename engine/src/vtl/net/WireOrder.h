#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Vantrel {

/** A number between the processor's order of bytes and the wire's, most significant first; its own inverse.
 */
constexpr std::uint32_t swapWireOrder(std::uint32_t value) {
    return std::endian::native == std::endian::little ? __builtin_bswap32(value) : value;
}

/** The number whose four bytes on the wire stand at `bytes`, aligned or not. */
inline std::uint32_t wireUnsigned(const std::byte* bytes) {
    std::uint32_t raw = 0;
    std::memcpy(&raw, bytes, sizeof(raw));
    return swapWireOrder(raw);
}

/** Puts a number's four wire bytes at `bytes`, aligned or not. */
inline void putWireUnsigned(std::byte* bytes, std::uint32_t value) {
    const std::uint32_t raw = swapWireOrder(value);
    std::memcpy(bytes, &raw, sizeof(raw));
}

} // namespace Vantrel
