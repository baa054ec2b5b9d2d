#pragma once

#include <optional>
#include <string>

namespace Vantrel {

/**
 * The text of a stage as the current context takes it, every line ended; none when the file can't be read.
 *
 * A context below 3.2 takes GLSL 1.20 at most, and a core context nothing below 1.40: so that one file serves
 * both, `#version 150` is lowered to 120 for the former, and the file tells the two apart by `__VERSION__`.
 */
std::optional<std::string> readGLSLSource(const std::string& path);

} // namespace Vantrel
