#pragma once

#include <optional>
#include <string>

namespace Vantrel {

/**
 * The text of a stage as the current context takes it, every line ended; none when the file can't be read.
 *
 * Below 3.2 a stage works beside the fixed functions, whose state GLSL 1.20 reads; a core context takes
 * nothing below 1.40. So that one file serves both, its line `#version 150` becomes `#version 120` for the
 * former, and the file tells the two apart by `__VERSION__`.
 */
std::optional<std::string> readGLSLSource(const std::string& path);

} // namespace Vantrel
