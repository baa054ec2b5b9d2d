#pragma once

#include "vtl/net/WireOrder.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Vantrel {

/**
 * The bytes of a message frame, written or read through one cursor (one instance does one of both).
 *
 * On the wire an unsigned int is 4 bytes, most significant first; a float is its IEEE 754 bits sent the same
 * way; a string is its bytes and one 0x00. There is no alignment and no padding. What doesn't fit is
 * reported, and the operation does nothing else: the caller goes on with the value that it had.
 */
class NetMessengerStreamBuffer {
public:
    /** An empty buffer that owns its memory and doubles it when it is full. */
    NetMessengerStreamBuffer();
    /** Reads or writes in memory that stays the caller's and never grows. */
    explicit NetMessengerStreamBuffer(std::span<std::byte> bytes)
        : memory(bytes.data()), capacity(static_cast<std::uint32_t>(bytes.size())) {}
    NetMessengerStreamBuffer(const NetMessengerStreamBuffer&) = delete;
    NetMessengerStreamBuffer& operator=(const NetMessengerStreamBuffer&) = delete;
    virtual ~NetMessengerStreamBuffer() = default;

    NetMessengerStreamBuffer& operator>>(std::uint32_t& value) {
        if (remaining() < sizeof(value)) {
            reportEmpty("unsigned int& val");
        } else {
            value = take();
        }
        return *this;
    }
    NetMessengerStreamBuffer& operator>>(float& value) {
        if (remaining() < sizeof(value)) {
            reportEmpty("float& val");
        } else {
            value = std::bit_cast<float>(take());
        }
        return *this;
    }
    /** A string without a terminator ends with the buffer and is reported. */
    NetMessengerStreamBuffer& operator>>(std::string& text);

    NetMessengerStreamBuffer& operator<<(std::uint32_t value) {
        if (makeRoom(sizeof(value), "unsigned int& val")) {
            put(value);
        }
        return *this;
    }
    NetMessengerStreamBuffer& operator<<(float value) {
        if (makeRoom(sizeof(value), "float& val")) {
            put(std::bit_cast<std::uint32_t>(value));
        }
        return *this;
    }
    /** Inserts the text up to its first 0x00, and a 0x00. */
    NetMessengerStreamBuffer& operator<<(const char* text);
    NetMessengerStreamBuffer& operator<<(const std::string& text) { return *this << text.c_str(); }

    /**
     * Extracts up to `count` numbers in one go: as many as the buffer holds whole. Fewer than `count` is
     * reported once. No memory is taken for more than the buffer holds.
     */
    std::vector<float> extractFloats(std::size_t count);
    std::vector<std::uint32_t> extractUnsigneds(std::size_t count);

    /** Writes the frame's length (everything behind the 8 bytes of the header) into its place at offset 4. */
    void fixFrameLength();

    /** Doubles the memory of an owning buffer; a wrapping one refuses with a report. */
    bool grow();

    /** The memory, from its start. */
    const std::byte* data() const { return memory; }
    /** Bytes inserted or extracted so far. */
    std::uint32_t length() const { return cursor; }
    /** Bytes between the cursor and the end of the memory. */
    std::uint32_t remaining() const { return capacity - cursor; }
    /** The bytes inserted or extracted so far. */
    std::span<const std::byte> bytes() const { return {memory, cursor}; }

    /** A dump of the whole memory, one decimal number a byte. */
    std::string toString() const;
    /** The same, piece by piece, for a memory of any size. */
    void dump(const std::function<void(std::string_view)>& take) const;

private:
    std::uint32_t take() {
        const std::uint32_t value = wireUnsigned(memory + cursor);
        cursor += static_cast<std::uint32_t>(sizeof(value));
        return value;
    }
    void put(std::uint32_t value) {
        putWireUnsigned(memory + cursor, value);
        cursor += static_cast<std::uint32_t>(sizeof(value));
    }

    /** True when `bytes` more fit, growing an owning buffer; a full wrapping buffer is reported. */
    bool makeRoom(std::size_t bytes, const char* argument);
    template <class Word>
    std::vector<Word> extractWords(std::size_t count, const char* argument);
    static void reportEmpty(const char* argument);

    std::unique_ptr<std::byte[]> owned;
    std::byte* memory = nullptr;
    std::uint32_t capacity = 0;
    std::uint32_t cursor = 0;
};

} // namespace Vantrel
