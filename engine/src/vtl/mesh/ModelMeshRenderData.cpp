#include "vtl/mesh/ModelMeshRenderData.h"

#include "vtl/base/Report.h"
#include "vtl/math/VectorT.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <utility>

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

} // namespace

GLenum ModelMeshIndexArray::typeFor(std::uint64_t count) {
    if (count < 0xFF) {
        return GL_UNSIGNED_BYTE;
    }
    if (count < 0xFFFF) {
        return GL_UNSIGNED_SHORT;
    }
    return count < 0xFFFFFFFF ? GL_UNSIGNED_INT : GL_OUT_OF_MEMORY;
}

ModelMeshIndexArray ModelMeshIndexArray::pack(std::span<const std::uint32_t> numbers) {
    ModelMeshIndexArray array{.type = typeFor(numbers.size()), .count = 0, .data = nullptr};
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

std::span<const std::byte> ModelMeshRenderData::getClientBlock() const {
    if (vertexData == nullptr) {
        return {};
    }
    return {vertexData.get(), std::size_t{numVertices} * stride};
}

void ModelMeshRenderData::buildNormalLines(std::span<const std::byte> block) {
    if (!hasNormals) {
        return;
    }
    normalLineVertices = normalLineVerticesOf(block, numVertices, stride, positionOffset, normalOffset);
    normalLineNumVertices = static_cast<std::uint32_t>(normalLineVertices.size() / 3);
    ModelMeshIndexArray ends = normalLineIndicesOf(normalLineNumVertices / 2);
    normalLineIndices = std::move(ends.data);
    normalLineNumIndices = ends.count;
    normalLineIndexType = ends.type;
}

void ModelMeshRenderData::scaleNormalLines(float length) {
    for (std::size_t line = 0; line + 6 <= normalLineVertices.size(); line += 6) {
        float* const ends = normalLineVertices.data() + line;
        const Vector tail(ends);
        Vector direction = Vector(ends + 3) - tail;
        direction.normalize();
        const Vector head = tail + direction * length;
        ends[3] = head.x;
        ends[4] = head.y;
        ends[5] = head.z;
    }
}

std::vector<float> normalLineVerticesOf(std::span<const std::byte> block, std::uint32_t vertexCount,
                                        std::uint32_t stride, std::uint32_t positionOffset,
                                        std::uint32_t normalOffset) {
    const std::size_t known = stride != 0 ? block.size() / stride : 0;
    const std::size_t count = std::min<std::size_t>(vertexCount, known);
    std::vector<float> lines(6 * count);
    for (std::size_t i = 0; i < count; ++i) {
        float* const ends = lines.data() + 6 * i;
        std::memcpy(ends, block.data() + i * stride + positionOffset, 3 * sizeof(float));
        std::memcpy(ends + 3, block.data() + i * stride + normalOffset, 3 * sizeof(float));
        for (std::size_t axis = 0; axis < 3; ++axis) {
            ends[3 + axis] += ends[axis];
        }
    }
    return lines;
}

ModelMeshIndexArray normalLineIndicesOf(std::uint32_t vertexCount) {
    std::vector<std::uint32_t> ends(2 * std::size_t{vertexCount});
    std::iota(ends.begin(), ends.end(), 0U);
    return ModelMeshIndexArray::pack(ends);
}

} // namespace Vantrel
