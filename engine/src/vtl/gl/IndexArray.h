#pragma once

#include <GL/glew.h>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace Vantrel {

/** An index array: of bytes below 255 indices, of shorts below 65535, and wider where an index needs it. */
struct IndexArray {
    /** GL_UNSIGNED_BYTE, GL_UNSIGNED_SHORT or GL_UNSIGNED_INT; GL_OUT_OF_MEMORY when there are too many. */
    GLenum type = GL_UNSIGNED_BYTE;
    std::uint32_t count = 0;
    std::unique_ptr<std::byte[]> data;

    /** The type for that many indices. */
    static GLenum typeFor(std::uint64_t count);
    /**
     * Packs `numbers` by their count, or wider where one of them needs it; reports when they are too many and
     * is empty then.
     */
    static IndexArray pack(std::span<const std::uint32_t> numbers);
};

/** Bytes of one index of that type; 0 for anything that is no index type. */
std::uint32_t sizeOfIndexType(GLenum type);

} // namespace Vantrel
