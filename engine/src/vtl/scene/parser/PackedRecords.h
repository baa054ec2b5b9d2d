#pragma once

#include <bit>
#include <cstddef>
#include <cstring>
#include <span>
#include <type_traits>

namespace Vantrel {

/**
 * Records that stand one behind the other in the bytes of a file, at any address, lowest byte first. The
 * bytes stay where they are and must outlive this object.
 */
template <class Record>
class PackedRecords {
public:
    static_assert(std::endian::native == std::endian::little && std::is_trivially_copyable_v<Record>);

    PackedRecords() = default;
    /** Of as many whole records as `packed` holds. */
    explicit PackedRecords(std::span<const std::byte> packed) : bytes(packed) {}

    std::size_t size() const { return bytes.size() / sizeof(Record); }
    Record operator[](std::size_t i) const {
        Record record;
        std::memcpy(&record, bytes.data() + i * sizeof(Record), sizeof(Record));
        return record;
    }

private:
    std::span<const std::byte> bytes;
};

} // namespace Vantrel
