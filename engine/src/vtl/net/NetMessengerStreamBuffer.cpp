#include "vtl/net/NetMessengerStreamBuffer.h"

#include "vtl/base/Report.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace Vantrel {
namespace {

constexpr std::uint32_t firstCapacity = 16384;
constexpr std::uint32_t growthFactor = 2;
constexpr std::uint32_t headerSize = 8;
constexpr std::uint32_t lengthOffset = 4;

} // namespace

NetMessengerStreamBuffer::NetMessengerStreamBuffer()
    : owned(std::make_unique_for_overwrite<std::byte[]>(firstCapacity))
    , memory(owned.get())
    , capacity(firstCapacity) {
}

NetMessengerStreamBuffer& NetMessengerStreamBuffer::operator>>(std::string& text) {
    if (remaining() == 0) {
        reportEmpty("std::string& s");
        return *this;
    }
    const auto* begin = reinterpret_cast<const char*>(memory + cursor);
    const auto* terminator = static_cast<const char*>(std::memchr(begin, 0, remaining()));
    if (terminator == nullptr) {
        text.assign(begin, remaining());
        cursor = capacity;
        reportEmpty("std::string& s");
        return *this;
    }
    text.assign(begin, terminator);
    cursor += static_cast<std::uint32_t>(text.size() + 1);
    return *this;
}

NetMessengerStreamBuffer& NetMessengerStreamBuffer::operator<<(const char* text) {
    for (const char* byte = text; makeRoom(1, "char* cString"); ++byte) {
        memory[cursor++] = static_cast<std::byte>(*byte);
        if (*byte == '\0') {
            break;
        }
    }
    return *this;
}

std::vector<float> NetMessengerStreamBuffer::extractFloats(std::size_t count) {
    return extractWords<float>(count, "float& val");
}

std::vector<std::uint32_t> NetMessengerStreamBuffer::extractUnsigneds(std::size_t count) {
    return extractWords<std::uint32_t>(count, "unsigned int& val");
}

void NetMessengerStreamBuffer::fixFrameLength() {
    if (cursor < headerSize) {
        return; // the memory has no room for a header, which has been reported
    }
    const std::uint32_t end = cursor;
    cursor = lengthOffset;
    put(end - headerSize);
    cursor = end;
}

std::string NetMessengerStreamBuffer::toString() const {
    std::string text;
    dump([&text](std::string_view piece) { text.append(piece); });
    return text;
}

void NetMessengerStreamBuffer::dump(const std::function<void(std::string_view)>& take) const {
    ReportText head;
    head << "Buffer Data, one byte at a time... (max buf len: " << capacity << ", cur buf len: " << cursor
         << ",)\n"
         << "Owns Internal Buffer: " << (owned != nullptr) << ":\n";
    take(head.str());
    constexpr std::uint32_t bytesPerPiece = 4096;
    for (std::uint32_t at = 0; at < capacity;) {
        ReportText piece;
        for (const std::uint32_t end = std::min(capacity - at, bytesPerPiece) + at; at < end; ++at) {
            piece << std::to_integer<unsigned>(memory[at]) << ' ';
        }
        take(piece.str());
    }
    take("\n");
}

bool NetMessengerStreamBuffer::makeRoom(std::size_t bytes, const char* argument) {
    if (remaining() >= bytes) {
        return true;
    }
    if (owned != nullptr && grow()) {
        return true;
    }
    Report() << "NetMessengerStreamBuffer::operator<< ( " << argument
             << " )... Buffer is full... Cannot insert into stream...\n";
    return false;
}

bool NetMessengerStreamBuffer::grow() {
    if (owned == nullptr) {
        Report()
            << "Cannot resize buffer, internal buffer is not owned by this instance, it was passed in as a "
               "constructor param...\n";
        return false;
    }
    if (capacity > std::numeric_limits<std::uint32_t>::max() / growthFactor) {
        return false;
    }
    const std::uint32_t newCapacity = capacity * growthFactor;
    Report() << "Resizing NetMessengerStreamBuffer from " << capacity << " to " << newCapacity << "...\n";
    auto larger = std::make_unique_for_overwrite<std::byte[]>(newCapacity);
    std::copy_n(memory, cursor, larger.get());
    owned = std::move(larger);
    memory = owned.get();
    capacity = newCapacity;
    return true;
}

template <class Word>
std::vector<Word> NetMessengerStreamBuffer::extractWords(std::size_t count, const char* argument) {
    const std::size_t held = remaining() / sizeof(Word);
    if (held < count) {
        reportEmpty(argument);
    }
    std::vector<Word> words(std::min(count, held));
    // A plain loop over plain pointers, which the compiler turns into wide byte swaps.
    const std::byte* const from = memory + cursor;
    for (std::size_t i = 0; i < words.size(); ++i) {
        words[i] = std::bit_cast<Word>(wireUnsigned(from + i * sizeof(Word)));
    }
    cursor += static_cast<std::uint32_t>(words.size() * sizeof(Word));
    return words;
}

void NetMessengerStreamBuffer::reportEmpty(const char* argument) {
    Report() << "NetMessengerStreamBuffer::operator>> ( " << argument
             << " )... Buffer is empty... Cannot extract from stream...\n";
}

} // namespace Vantrel
