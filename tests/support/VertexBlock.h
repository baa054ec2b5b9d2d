#pragma once

#include "vtl/gl/IndexArray.h"
#include "vtl/math/VectorT.h"
#include "vtl/mesh/ModelMeshRenderData.h"

#include <array>
#include <cstring>
#include <gtest/gtest.h>
#include <vector>

namespace Vantrel::Tests {

/** Three floats of a vertex; a failure beyond the end of the block. */
inline Vector vectorInBlock(const ModelMeshRenderData& data, std::size_t vertex, std::uint32_t offset) {
    std::array<float, 3> components{};
    const std::size_t at = vertex * data.stride + offset;
    if (at + sizeof(components) > data.getClientBlock().size()) {
        ADD_FAILURE() << "vertex " << vertex << " of " << data.numVertices;
        return {};
    }
    std::memcpy(components.data(), data.getClientBlock().data() + at, sizeof(components));
    return Vector(components.data());
}

inline Vector positionInBlock(const ModelMeshRenderData& data, std::size_t vertex) {
    return vectorInBlock(data, vertex, data.positionOffset);
}

inline Vector normalInBlock(const ModelMeshRenderData& data, std::size_t vertex) {
    return vectorInBlock(data, vertex, data.normalOffset);
}

/** `count` bytes of a vertex from `offset` on. */
inline std::vector<std::uint8_t> bytesInBlock(const ModelMeshRenderData& data, std::size_t vertex,
                                              std::uint32_t offset, std::size_t count) {
    const auto bytes = data.getClientBlock().subspan(vertex * data.stride + offset, count);
    std::vector<std::uint8_t> values;
    for (const std::byte byte : bytes) {
        values.push_back(std::to_integer<std::uint8_t>(byte));
    }
    return values;
}

/** The index array as numbers, whatever its width. */
inline std::vector<std::uint32_t> indexNumbers(const ModelMeshRenderData& data) {
    const std::uint32_t width = sizeOfIndexType(data.indexType);
    std::vector<std::uint32_t> numbers(data.numIndices);
    for (std::uint32_t i = 0; i < data.numIndices; ++i) {
        std::memcpy(&numbers[i], data.indices.get() + i * width, width);
    }
    return numbers;
}

/** Equal to the last component's rounding. */
inline void expectNear(const Vector& vector, const Vector& expected) {
    constexpr float rounding = 2e-6F;
    EXPECT_NEAR(vector.x, expected.x, rounding);
    EXPECT_NEAR(vector.y, expected.y, rounding);
    EXPECT_NEAR(vector.z, expected.z, rounding);
}

} // namespace Vantrel::Tests
