#include "vtl/mesh/ModelMeshRenderData.h"

#include "vtl/base/Report.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/IndexArray.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/shader/VertexAttributeLocation.h"
#include "vtl/math/VectorT.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <utility>

namespace Vantrel {
namespace {

/** A place in the bound buffer, in the form in which GL takes it. */
const void* bufferOffset(std::uint32_t offset) {
    return reinterpret_cast<const void*>(std::uintptr_t{offset});
}

/** 6 floats for each vertex of `block`: the position, then the position plus the normal. */
std::vector<float> normalLineVerticesOf(std::span<const std::byte> block, const ModelMeshRenderData& layout) {
    std::vector<float> lines(std::size_t{6} * layout.numVertices);
    for (std::size_t i = 0; i < layout.numVertices; ++i) {
        float* const ends = lines.data() + 6 * i;
        const std::byte* const vertex = block.data() + i * layout.stride;
        std::memcpy(ends, vertex + layout.positionOffset, 3 * sizeof(float));
        std::memcpy(ends + 3, vertex + layout.normalOffset, 3 * sizeof(float));
        for (std::size_t axis = 0; axis < 3; ++axis) {
            ends[3 + axis] += ends[axis];
        }
    }
    return lines;
}

} // namespace

std::span<const std::byte> ModelMeshRenderData::getClientBlock() const {
    if (vertexData == nullptr) {
        return {};
    }
    return {vertexData.get(), std::size_t{numVertices} * stride};
}

GLint ModelMeshRenderData::floatsFrom(std::uint32_t offset, GLint wanted) const {
    const std::size_t there = stride > offset ? (stride - offset) / sizeof(float) : 0;
    return static_cast<GLint>(std::min(static_cast<std::size_t>(wanted), there));
}

void ModelMeshRenderData::createBuffers() {
    if (!ManagerOpenGLState::areVertexBuffersSupported() || vertexData == nullptr) {
        return;
    }
    VBOVtx = GLBuffer::create();
    VBOIdx = GLBuffer::create();
    glBindBuffer(GL_ARRAY_BUFFER, VBOVtx.get());
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(getClientBlock().size()), vertexData.get(),
                 GL_STATIC_DRAW);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, VBOIdx.get());
    glBufferData(GL_ELEMENT_ARRAY_BUFFER, GLsizeiptr{numIndices} * sizeOfIndexType(indexType), indices.get(),
                 GL_STATIC_DRAW);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
    if (ManagerOpenGLState::isVersion32OrGreater()) {
        vertexArrayObject = GLVertexArray::create();
        glBindVertexArray(vertexArrayObject.get());
        describeVertexArray();
        glBindVertexArray(0);
        glBindBuffer(GL_ARRAY_BUFFER, 0);
    }
    if (checkGLError(420001) > 0) { // no memory on the card, say: client memory stays
        vertexArrayObject.reset();
        VBOIdx.reset();
        VBOVtx.reset();
    }
}

/** Tells the bound vertex array what a vertex consists of. Other attributes have no location of their own. */
void ModelMeshRenderData::describeVertexArray() const {
    const auto enable = [this](GLuint location, GLint count, GLenum type, std::uint32_t offset) {
        glEnableVertexAttribArray(location);
        glVertexAttribPointer(location, count, type, type == GL_UNSIGNED_BYTE ? GL_TRUE : GL_FALSE,
                              static_cast<GLsizei>(stride), bufferOffset(offset));
    };
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, VBOIdx.get());
    glBindBuffer(GL_ARRAY_BUFFER, VBOVtx.get());
    enable(VertexAttributeLocation::position, 3, GL_FLOAT, positionOffset);
    if (hasNormals) {
        enable(VertexAttributeLocation::normal, 3, GL_FLOAT, normalOffset);
    }
    const GLint coords = textureCoordOffsets.empty() ? 0 : floatsFrom(textureCoordOffsets[0], 2);
    if (coords > 0) {
        enable(VertexAttributeLocation::textureCoord, coords, GL_FLOAT, textureCoordOffsets[0]);
    }
    if (hasColors) {
        enable(VertexAttributeLocation::color, colorFormat == GL_RGBA ? 4 : 3, GL_UNSIGNED_BYTE, colorOffset);
    }
}

void ModelMeshRenderData::releaseClientData() {
    indices.reset();
    vertexData.reset();
}

void ModelMeshRenderData::releaseAll() {
    *this = ModelMeshRenderData();
}

bool ModelMeshRenderData::mapVBODataToClientMemory(GLenum access) {
    if (!VBOVtx) {
        Report() << "ERROR: VBOVtx handle is 0. Server-side VBO does not exist.\n"
                    "   cannot map non-existant VBO to client-side memory...\n";
        return false;
    }
    if (numVertices == 0) {
        return true; // nothing to map
    }
    unmapVBODataFromClientMemory(); // it may have been mapped for another access
    glBindBuffer(GL_ARRAY_BUFFER, VBOVtx.get());
    mappedVertexData = static_cast<std::byte*>(glMapBuffer(GL_ARRAY_BUFFER, access));
    if (mappedVertexData == nullptr) {
        glBindBuffer(GL_ARRAY_BUFFER, 0);
        Report() << "ERROR: glMapBuffer failed to map a valid server-side VBO\n"
                    "   to client-side memory. This could result from low virtual\n"
                    "   memory.\n";
        return false;
    }
    return true;
}

void ModelMeshRenderData::unmapVBODataFromClientMemory() {
    if (mappedVertexData == nullptr) {
        return;
    }
    glBindBuffer(GL_ARRAY_BUFFER, VBOVtx.get());
    glUnmapBuffer(GL_ARRAY_BUFFER);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    mappedVertexData = nullptr;
}

bool ModelMeshRenderData::setColorArrayAtIndexInVertexList(std::uint32_t index, const std::uint8_t* color) {
    if (VBOIdx && mappedVertexData == nullptr) {
        Report() << "bool ModelMeshRenderData::setColorArrayAtIndexInVertexList(...)\n"
                    "   mapVBODataToClientMemory() must be invoked prior to calling this method...\n";
        return false;
    }
    std::byte* const block = VBOVtx && mappedVertexData != nullptr ? mappedVertexData : vertexData.get();
    if (index >= numVertices || block == nullptr) {
        Report() << "ModelMeshRenderData::setColorArrayAtIndexInVertexList()... Index out of range,\n"
                    "not setting color array...\n";
        return false;
    }
    if (!hasColors) {
        Report() << "ModelMeshRenderData::setColorArrayAtIndexInVertexList()... The mesh has no colors,\n"
                    "not setting color array...\n";
        return false;
    }
    const std::size_t bytes = colorFormat == GL_RGBA ? 4 : colorFormat == GL_RGB ? 3 : 0;
    std::memcpy(block + std::size_t{index} * stride + colorOffset, color, bytes);
    return true;
}

/** A copy of the vertex block on the card. */
std::vector<std::byte> ModelMeshRenderData::readBlock() const {
    std::vector<std::byte> block(std::size_t{numVertices} * stride);
    glBindBuffer(GL_ARRAY_BUFFER, VBOVtx.get());
    glGetBufferSubData(GL_ARRAY_BUFFER, 0, static_cast<GLsizeiptr>(block.size()), block.data());
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    return block;
}

void ModelMeshRenderData::buildNormalLines() {
    if (!hasNormals || mappedVertexData != nullptr) { // a mapped block may be there for writing alone
        return;
    }
    std::vector<std::byte> copy;
    std::span<const std::byte> block = getClientBlock();
    if (VBOVtx) {
        copy = readBlock();
        block = copy;
    }
    normalLineVertices = normalLineVerticesOf(block, *this);
    normalLineNumVertices = static_cast<std::uint32_t>(normalLineVertices.size() / 3);
    normalLineLength = 1.0F;
    isNormalLineBufferCurrent = false;
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
    normalLineLength = length;
    isNormalLineBufferCurrent = false;
}

bool ModelMeshRenderData::prepareNormalLines(float length) {
    const bool areBuilt = !normalLineVertices.empty();
    if (areBuilt && normalLineLength == length) {
        return true;
    }
    // From the block: short lines have lost their direction.
    buildNormalLines();
    if (length != normalLineLength) {
        scaleNormalLines(length);
    }
    return !normalLineVertices.empty();
}

void ModelMeshRenderData::bindNormalLineArray() {
    if (!normalLineArray) {
        normalLineArray = GLVertexArray::create();
        normalLineBuffer = GLBuffer::create();
    }
    glBindVertexArray(normalLineArray.get());
    if (isNormalLineBufferCurrent) {
        return;
    }
    glBindBuffer(GL_ARRAY_BUFFER, normalLineBuffer.get());
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(normalLineVertices.size() * sizeof(float)),
                 normalLineVertices.data(), GL_STATIC_DRAW);
    glEnableVertexAttribArray(VertexAttributeLocation::position);
    glVertexAttribPointer(VertexAttributeLocation::position, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    isNormalLineBufferCurrent = true;
}

} // namespace Vantrel
