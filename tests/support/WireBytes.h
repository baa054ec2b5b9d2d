#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

namespace Vantrel::Tests {

/** Bytes of the message protocol, put together by hand: what the code under test must agree with. */
class WireBytes : public std::vector<std::byte> {
public:
    WireBytes() = default;
    WireBytes(std::initializer_list<unsigned> values) {
        for (const unsigned value : values) {
            push_back(static_cast<std::byte>(value));
        }
    }
    explicit WireBytes(std::span<const std::byte> bytes) : vector(bytes.begin(), bytes.end()) {}

    /** A whole frame. */
    static WireBytes frame(std::uint32_t id, const WireBytes& body = {}) {
        return WireBytes().u32(id).u32(static_cast<std::uint32_t>(body.size())).raw(body);
    }

    /** The first `count` bytes. */
    WireBytes first(std::size_t count) const {
        return WireBytes{std::span<const std::byte>(*this).first(count)};
    }

    WireBytes& u32(std::uint32_t value) {
        for (const unsigned shift : {24U, 16U, 8U, 0U}) {
            push_back(static_cast<std::byte>(value >> shift));
        }
        return *this;
    }
    WireBytes& f32(float value) { return u32(std::bit_cast<std::uint32_t>(value)); }
    WireBytes& text(std::string_view value) { return raw(std::as_bytes(std::span(value))).raw(WireBytes{0}); }
    WireBytes& raw(std::span<const std::byte> bytes) {
        insert(end(), bytes.begin(), bytes.end());
        return *this;
    }
};

} // namespace Vantrel::Tests
