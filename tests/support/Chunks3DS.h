#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Vantrel::Tests {

/** The bytes of values one behind the other. */
template <class... Values>
std::string packed(const Values&... values) {
    std::string bytes;
    (bytes.append(reinterpret_cast<const char*>(&values), sizeof values), ...);
    return bytes;
}

/** A list as chunks of a 3DS file have it, with a 16-bit count. */
template <class Record>
std::string packedList(const std::vector<Record>& records) {
    std::string bytes = packed(static_cast<std::uint16_t>(records.size()));
    for (const Record& record : records) {
        bytes += packed(record);
    }
    return bytes;
}

inline std::string chunk3DS(std::uint16_t id, std::string_view content) {
    return packed(id, static_cast<std::uint32_t>(content.size() + 6)).append(content);
}

/** A text with the zero that ends it. */
inline std::string zeroEnded(std::string_view text) {
    return std::string(text) += '\0';
}

inline std::string file3DS(std::string_view editorChunks) {
    return chunk3DS(0x4D4D, chunk3DS(0x0002, packed(3)) + chunk3DS(0x3D3D, editorChunks));
}

/** With `chunks` behind the name. */
inline std::string material3DS(std::string_view name, std::string_view chunks = {}) {
    return chunk3DS(0xAFFF, chunk3DS(0xA000, zeroEnded(name)) += chunks);
}

/** `id` says which map of a material. */
inline std::string map3DS(std::uint16_t id, std::string_view fileName) {
    return chunk3DS(id,
                    chunk3DS(0x0030, packed(std::uint16_t{100})) += chunk3DS(0xA300, zeroEnded(fileName)));
}

using Corners3DS = std::array<std::uint16_t, 3>;

/** The faces of a mesh with one material for all of them, or none where `material` is empty. */
inline std::string faces3DS(const std::vector<Corners3DS>& faces, std::string_view material) {
    std::vector<std::array<std::uint16_t, 4>> records;
    std::vector<std::uint16_t> numbers;
    for (const Corners3DS& face : faces) {
        numbers.push_back(static_cast<std::uint16_t>(records.size()));
        records.push_back({face[0], face[1], face[2], 7});
    }
    const std::string group = chunk3DS(0x4130, zeroEnded(material) += packedList(numbers));
    return chunk3DS(0x4120, packedList(records) += material.empty() ? std::string() : group);
}

inline std::string object3DS(const std::vector<std::array<float, 3>>& vertices,
                             std::string_view otherChunks) {
    return chunk3DS(0x4000, zeroEnded("object") +=
                            chunk3DS(0x4100, chunk3DS(0x4110, packedList(vertices)) += otherChunks));
}

} // namespace Vantrel::Tests
