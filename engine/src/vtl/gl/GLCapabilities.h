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
    /** Longest side of a frame buffer object in pixels. */
    std::int32_t maxFramebufferSize = 0;
    /** Colour textures that a frame buffer object takes at most. */
    std::int32_t maxColorAttachments = 0;
    /** Samples for a pixel of a frame buffer object at most; 0 without multisampling. */
    std::int32_t maxSamples = 0;
    /** Whether vertices and indices can lie in buffers on the card. */
    bool areVertexBuffersSupported = false;
    /** Widest line in pixels that `glLineWidth` takes without an error. */
    float maxLineWidth = 1.0F;

    /** Asks the current context. */
    static GLCapabilities read();
};

} // namespace Vantrel
