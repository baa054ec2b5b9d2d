#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <memory>
#include <type_traits>

namespace Vantrel {

struct FreeTypeLibraryEnd {
    void operator()(FT_Library library) const { FT_Done_FreeType(library); }
};
struct FreeTypeFaceEnd {
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};

/** A FreeType library of its own; declare it before the faces that are opened in it. */
using FreeTypeLibrary = std::unique_ptr<std::remove_pointer_t<FT_Library>, FreeTypeLibraryEnd>;
using FreeTypeFace = std::unique_ptr<std::remove_pointer_t<FT_Face>, FreeTypeFaceEnd>;

} // namespace Vantrel
