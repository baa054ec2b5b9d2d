#pragma once

#include "vtl/gl/GLHandle.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace Vantrel {

/**
 * The finished vertices and indices of one mesh for one shading type and primitive type: an interleaved block
 * whose layout the offsets tell, in client memory or on the card. Main thread.
 */
class ModelMeshRenderData {
public:
    /** Whether there is something to draw and it lies in client memory or on the card. */
    bool isDrawable() const { return numVertices > 0 && numIndices > 0 && (VBOVtx || vertexData != nullptr); }
    /** Client memory of the vertex block; empty when there is none. */
    std::span<const std::byte> getClientBlock() const;
    /** How many floats of a vertex there are from `offset` on, up to `wanted`. */
    GLint floatsFrom(std::uint32_t offset, GLint wanted) const;

    /**
     * Sends the client data to the card, from 3.2 on with a vertex array for it. Does nothing without support
     * for buffers or without client data.
     */
    void createBuffers();
    /** Frees indices and vertices in client memory. */
    void releaseClientData();
    /** Frees everything, in client memory and on the card. */
    void releaseAll();

    /**
     * Maps the vertex block on the card, which stays bound until it is unmapped; `access` is GL_READ_ONLY,
     * GL_WRITE_ONLY or GL_READ_WRITE. False when there is none or the driver can't, which is reported.
     */
    bool mapVBODataToClientMemory(GLenum access);
    void unmapVBODataFromClientMemory();
    /**
     * Writes the colour of one vertex, 3 or 4 bytes by the format, into the mapped block or the one in client
     * memory. False where there is no such place, which is reported.
     */
    bool setColorArrayAtIndexInVertexList(std::uint32_t index, const std::uint8_t* color);

    /**
     * Makes the normal lines, one for each vertex and as long as its normal, out of the block, wherever it
     * is. Does nothing without normals.
     */
    void buildNormalLines();
    /** Gives every normal line that length; one shorter than 0.00001 isn't made one long before. */
    void scaleNormalLines(float length);
    /** Sees to it that the normal lines are there and have that length; false without normals. */
    bool prepareNormalLines(float length);
    /** Binds a vertex array of the normal lines, as they are now, for location 0. From 3.2 on. */
    void bindNormalLineArray();

    /** Vertex block while it is mapped. */
    std::byte* mappedVertexData = nullptr;
    /** Positions, normals, first texture coordinates and colours at their fixed locations; from 3.2 on. */
    GLVertexArray vertexArrayObject;
    std::unique_ptr<std::byte[]> indices;
    std::unique_ptr<std::byte[]> vertexData;
    GLBuffer VBOIdx;
    GLBuffer VBOVtx;
    std::uint32_t numIndices = 0;
    std::uint32_t numVertices = 0;
    GLenum indexType = GL_UNSIGNED_BYTE;
    /** The normal lines, built when they are first drawn: tail and head of each, 6 floats. */
    std::vector<float> normalLineVertices;
    std::uint32_t normalLineNumVertices = 0;
    /** Bytes of a vertex; any number, not only multiples of 4. */
    std::uint32_t stride = 0;
    bool hasColors = false;
    /** GL_RGB: 3 bytes, GL_RGBA: 4. */
    GLenum colorFormat = GL_RGB;
    /** Byte offsets within a vertex. */
    std::uint32_t positionOffset = 0;
    std::uint32_t colorOffset = 0;
    bool hasNormals = false;
    std::uint32_t normalOffset = 0;
    std::vector<std::uint32_t> textureCoordOffsets;
    std::vector<std::uint32_t> attributeOffsets;
    /** A `GLSLAttributeType` for each attribute. */
    std::vector<std::uint32_t> attributeTypes;
    /** From the name of an attribute to its place in the two lists above. */
    std::map<std::string, std::uint32_t> attributeIndexByName;

private:
    std::vector<std::byte> readBlock() const;
    void describeVertexArray() const;

    /** Length to which the normal lines were scaled last. */
    float normalLineLength = 1.0F;
    GLVertexArray normalLineArray;
    GLBuffer normalLineBuffer;
    bool isNormalLineBufferCurrent = false;
};

} // namespace Vantrel
