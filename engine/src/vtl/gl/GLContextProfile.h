#pragma once

#include <cstdint>
#include <optional>
#include <ostream>

namespace Vantrel {

/** What kind of context GL gave the process. */
enum class VTL_GL_CONTEXT_PROFILE : std::uint8_t {
    COMPATIBILITY = 0,
    CORE = 1,
    ES = 2,
    UNINITIALIZED = 3,
};

std::ostream& operator<<(std::ostream& out, VTL_GL_CONTEXT_PROFILE profile);

constexpr bool isGLVersion32OrGreater(std::int32_t major, std::int32_t minor) {
    return major >= 3 && (minor >= 2 || major >= 4);
}

/**
 * The profile meant by a mask of SDL's `SDL_GL_CONTEXT_PROFILE_MASK` for a context of that version; none
 * where the pair means no profile: an empty or mixed mask, or core below 3.2.
 */
std::optional<VTL_GL_CONTEXT_PROFILE> contextProfileOfMask(int mask, std::int32_t major, std::int32_t minor);

} // namespace Vantrel
