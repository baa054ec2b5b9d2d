#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Vantrel {

/** What the driver of the current context can do; read once per context. */
struct GLCapabilities {
    static constexpr const char* noAnswer = "glGetString() returned NULL";

    std::string vendor = noAnswer;
    std::string renderer = noAnswer;
    /** The driver's own version, which may be higher than the one asked for. */
    std::string version = noAnswer;
    std::string shadingLanguageVersion = noAnswer;
    /** Every version of the shading language that it takes; empty below 4.3. */
    std::vector<std::string> shadingLanguageVersions;
    /** Longest side of a texture in texels. */
    std::int32_t maxTextureSize = 0;
    bool areFramebufferObjectsSupported = false;
    /** Whether vertices and indices can lie in buffers on the card. */
    bool areVertexBuffersSupported = false;
    /** Widest line in pixels that `glLineWidth` takes without an error. */
    float maxLineWidth = 1.0F;

    /** Asks the current context. */
    static GLCapabilities read();
};

} // namespace Vantrel
