#pragma once

#include <source_location>
#include <string>

namespace Vantrel {

/** The source file's name without its folders and the line, joined by a colon: "GLView.cpp:42". */
std::string locationText(const std::source_location& where = std::source_location::current());

} // namespace Vantrel
