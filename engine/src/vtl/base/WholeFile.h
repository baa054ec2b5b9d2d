#pragma once

#include <cstddef>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace Vantrel {

/** The bytes of a file, read at once. */
class WholeFile {
public:
    /** None for what isn't there, can't be read, is no plain file or has more than `longest` bytes. */
    static std::optional<WholeFile> read(const std::string& fileName,
                                         std::size_t longest = std::numeric_limits<std::size_t>::max());

    std::span<const std::byte> bytes() const { return {content.get(), size}; }

private:
    WholeFile() = default;

    std::unique_ptr<std::byte[]> content;
    std::size_t size = 0;
};

} // namespace Vantrel
