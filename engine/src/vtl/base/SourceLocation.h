#pragma once

#include <string>

namespace Vantrel {

/**
 * A place in the source. As a defaulted last parameter, `SourceLocation where = SourceLocation::current()`, it is the
 * caller's. (What std::source_location does, in a form that every compiler of the project has.)
 */
struct SourceLocation {
    const char* file = "";
    int line = 0;

    static constexpr SourceLocation current(const char* file = __builtin_FILE(), int line = __builtin_LINE()) {
        return {file, line};
    }
};

/** The source file's name without its folders and the line, joined by a colon: "GLView.cpp:42". */
std::string locationText(SourceLocation where = SourceLocation::current());

} // namespace Vantrel
