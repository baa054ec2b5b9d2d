#pragma once

#include "vtl/gl/shader/GLSLShaderDefaultGL32.h"

namespace Vantrel {

/** Draws text from a map of distances to the glyphs' edges. */
class GLSLShaderFontDistanceFieldGL32
    : public GLSLShaderOfFiles<GLSLShaderFontDistanceFieldGL32, GLSLShaderDefaultGL32> {
public:
    static constexpr const char* vertexFile = "shaders/fontDistanceFieldGL32.vert";
    static constexpr const char* fragmentFile = "shaders/fontDistanceFieldGL32.frag";
    explicit GLSLShaderFontDistanceFieldGL32(const GLSLShaderDataShared* data);

    using GLSLShaderDefaultGL32::bind;
    /** Also sends the colour again: another string may have drawn with the program since. */
    void bind() override;
    /** Keeps the colour and sends it. */
    void setFontColor(const vtlColor4f& color);

private:
    vtlColor4f fontColor;
};

} // namespace Vantrel
