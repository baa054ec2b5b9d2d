#include "vtl/gl/IndexArray.h"

#include "vtl/base/Report.h"

#include <algorithm>
#include <cstring>

namespace Vantrel {
namespace {

template <class Number>
std::unique_ptr<std::byte[]> narrowed(std::span<const std::uint32_t> numbers) {
    auto bytes = std::make_unique_for_overwrite<std::byte[]>(numbers.size() * sizeof(Number));
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto number = static_cast<Number>(numbers[i]);
        std::memcpy(bytes.get() + i * sizeof(Number), &number, sizeof(Number));
    }
    return bytes;
}

/** The type for as many numbers, or a wider one that holds them all: a short list may name a late vertex. */
GLenum typeOf(std::span<const std::uint32_t> numbers) {
    const GLenum type = IndexArray::typeFor(numbers.size());
    if (numbers.empty() || (type != GL_UNSIGNED_BYTE && type != GL_UNSIGNED_SHORT)) {
        return type;
    }
    const std::uint32_t largest = *std::max_element(numbers.begin(), numbers.end());
    if (largest > 0xFFFF) {
        return GL_UNSIGNED_INT;
    }
    return largest > 0xFF ? GL_UNSIGNED_SHORT : type;
}

} // namespace

GLenum IndexArray::typeFor(std::uint64_t count) {
    if (count < 0xFF) {
        return GL_UNSIGNED_BYTE;
    }
    if (count < 0xFFFF) {
        return GL_UNSIGNED_SHORT;
    }
    return count < 0xFFFFFFFF ? GL_UNSIGNED_INT : GL_OUT_OF_MEMORY;
}

IndexArray IndexArray::pack(std::span<const std::uint32_t> numbers) {
    IndexArray array{.type = typeOf(numbers), .count = 0, .data = nullptr};
    if (array.type == GL_OUT_OF_MEMORY) {
        Report() << "Too many indices in mesh to fit in GL_UNSIGNED_INT, this behavior is unsupported.\n";
        return array;
    }
    array.count = static_cast<std::uint32_t>(numbers.size());
    array.data = array.type == GL_UNSIGNED_BYTE    ? narrowed<std::uint8_t>(numbers)
                 : array.type == GL_UNSIGNED_SHORT ? narrowed<std::uint16_t>(numbers)
                                                   : narrowed<std::uint32_t>(numbers);
    return array;
}

std::uint32_t sizeOfIndexType(GLenum type) {
    switch (type) {
    case GL_UNSIGNED_BYTE:
        return 1;
    case GL_UNSIGNED_SHORT:
        return 2;
    case GL_UNSIGNED_INT:
        return 4;
    default:
        return 0;
    }
}

} // namespace Vantrel
