#include "vtl/gl/GLContextProfile.h"

#include "vtl/base/SourceLocation.h"

#include <SDL.h>
#include <array>

namespace Vantrel {

std::ostream& operator<<(std::ostream& out, VTL_GL_CONTEXT_PROFILE profile) {
    constexpr std::array<const char*, 4> names{
        "VTL_GL_CONTEXT_PROFILE::COMPATIBILITY",
        "VTL_GL_CONTEXT_PROFILE::CORE",
        "VTL_GL_CONTEXT_PROFILE::ES",
        "VTL_GL_CONTEXT_PROFILE::UNINITIALIZED",
    };
    const auto value = static_cast<std::size_t>(profile);
    if (value < names.size()) {
        return out << names[value];
    }
    return out << "VTL_GL_CONTEXT_PROFILE::  ERROR type not found for " << value << ", " << locationText()
               << "\n";
}

std::optional<VTL_GL_CONTEXT_PROFILE> contextProfileOfMask(int mask, std::int32_t major, std::int32_t minor) {
    switch (mask) {
    case SDL_GL_CONTEXT_PROFILE_COMPATIBILITY:
        return VTL_GL_CONTEXT_PROFILE::COMPATIBILITY;
    case SDL_GL_CONTEXT_PROFILE_ES:
        return VTL_GL_CONTEXT_PROFILE::ES;
    case SDL_GL_CONTEXT_PROFILE_CORE:
        if (isGLVersion32OrGreater(major, minor)) {
            return VTL_GL_CONTEXT_PROFILE::CORE;
        }
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

} // namespace Vantrel
