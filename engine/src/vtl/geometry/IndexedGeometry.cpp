#include "vtl/geometry/IndexedGeometry.h"

#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ScopedClientArrays.h"
#include "vtl/gl/ScopedPlainColors.h"
#include "vtl/gl/ScopedUnlit.h"
#include "vtl/gl/shader/ManagerShader.h"
#include "vtl/gl/shader/VertexAttributeLocation.h"

#include <optional>

namespace Vantrel {
namespace {

/** Makes a buffer of `values`, which stays bound. */
template <class Value>
GLBuffer createBuffer(GLenum target, const std::vector<Value>& values) {
    GLBuffer buffer = GLBuffer::create();
    glBindBuffer(target, buffer.get());
    glBufferData(target, static_cast<GLsizeiptr>(values.size() * sizeof(Value)), values.data(),
                 GL_STATIC_DRAW);
    return buffer;
}

/** Lets an attribute read `buffer`; without either there is nothing to read. */
void pointAttribute(const GLBuffer& buffer, std::int32_t location, GLint components, GLenum type,
                    GLboolean isNormalized) {
    if (!buffer || location < 0) {
        return;
    }
    glBindBuffer(GL_ARRAY_BUFFER, buffer.get());
    glEnableVertexAttribArray(static_cast<GLuint>(location));
    glVertexAttribPointer(static_cast<GLuint>(location), components, type, isNormalized, 0, nullptr);
}

/** Rewrites `buffer` in place, where there is one. */
template <class Value>
void updateBuffer(const GLVertexArray& vertexArray, const GLBuffer& buffer,
                  const std::vector<Value>& values) {
    if (!buffer) {
        return;
    }
    glBindVertexArray(vertexArray.get());
    glBindBuffer(GL_ARRAY_BUFFER, buffer.get());
    glBufferSubData(GL_ARRAY_BUFFER, 0, static_cast<GLsizeiptr>(values.size() * sizeof(Value)),
                    values.data());
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glBindVertexArray(0);
}

} // namespace

void IndexedGeometry::render() const {
    if (ManagerOpenGLState::isVersion32OrGreater()) {
        renderVertexArrayObject();
    } else {
        renderClientArrays();
    }
}

void IndexedGeometry::renderVertexArrayObject() const {
    if (numIndices == 0) {
        return;
    }
    if (!useColors) {
        setCurrentVertexColor(plainColor);
    }
    if (!useNormals) {
        setCurrentVertexNormalToNone();
    }
    glBindVertexArray(vertexArrayObject.get());
    glDrawRangeElements(primitive, 0, numVertices, static_cast<GLsizei>(numIndices), indexType, nullptr);
    glBindVertexArray(0);
}

void IndexedGeometry::renderClientArrays() const {
    const ScopedClientArrays arrays;
    std::optional<ScopedUnlit> unlit;
    if (!useNormals) {
        unlit.emplace();
    }
    if (useColors) {
        glEnableClientState(GL_COLOR_ARRAY);
        glColorPointer(4, GL_UNSIGNED_BYTE, 0, colors.data());
    }
    if (useNormals) {
        glEnableClientState(GL_NORMAL_ARRAY);
        glNormalPointer(GL_FLOAT, 0, normals.data());
    }
    if (useTextureCoords) {
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
        glTexCoordPointer(2, GL_FLOAT, 0, textureCoords.data());
    }
    drawVertexArray();
}

void IndexedGeometry::drawVertexArray() const {
    if (numIndices == 0) {
        return;
    }
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, vertices.data());
    glDrawElements(primitive, static_cast<GLsizei>(numIndices), indexType, indices.data());
}

void IndexedGeometry::renderSelection(std::uint8_t r, std::uint8_t g, std::uint8_t b) const {
    if (ManagerOpenGLState::isVersion32OrGreater()) {
        renderVertexArrayObject();
        return;
    }
    constexpr GLubyte opaque = 255;
    const ScopedPlainColors plainColors;
    const ScopedClientArrays arrays;
    glColor4ub(r, g, b, opaque);
    drawVertexArray();
}

void IndexedGeometry::updateColorsOnCard() const {
    updateBuffer(vertexArrayObject, colorBuffer, colors);
}

void IndexedGeometry::updateVerticesOnCard() const {
    updateBuffer(vertexArrayObject, vertexBuffer, vertices);
}

void IndexedGeometry::build() {
    buildVertices();
    numVertices = static_cast<std::uint32_t>(vertices.size() / 3);
    buildIndices();
    if (useColors) {
        buildColors();
    }
    if (useNormals) {
        buildNormals();
    }
    if (useTextureCoords) {
        buildTextureCoords();
    }
    createBuffers();
}

void IndexedGeometry::createBuffers() {
    if (!ManagerOpenGLState::isVersion32OrGreater()) {
        return;
    }
    vertexArrayObject = GLVertexArray::create();
    glBindVertexArray(vertexArrayObject.get());
    fillBuffers();
    positionLocation = VertexAttributeLocation::position;
    normalLocation = VertexAttributeLocation::normal;
    textureCoordLocation = VertexAttributeLocation::textureCoord;
    colorLocation = VertexAttributeLocation::color;
    pointAttributes(GL_TRUE);
    glBindVertexArray(0);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

void IndexedGeometry::bindAttributesToDefaultShader() {
    const auto shader = ManagerShader::getDefaultShader();
    if (!shader || !vertexArrayObject) {
        return;
    }
    const auto locationOf = [&](const char* name) { return glGetAttribLocation(shader->getProgram(), name); };
    positionLocation = locationOf("VertexPosition");
    normalLocation = locationOf("VertexNormal");
    textureCoordLocation = locationOf("VertexTexCoord");
    colorLocation = locationOf("VertexColor");
    glBindVertexArray(vertexArrayObject.get());
    pointAttributes(GL_FALSE);
    glBindVertexArray(0);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

void IndexedGeometry::setIndices(const IndexArray& array) {
    const std::byte* const data = array.data.get();
    indices.assign(data, data + std::size_t{array.count} * sizeOfIndexType(array.type));
    numIndices = array.count;
    indexType = array.type;
}

void IndexedGeometry::fillBuffers() {
    vertexBuffer = createBuffer(GL_ARRAY_BUFFER, vertices);
    indexBuffer = createBuffer(GL_ELEMENT_ARRAY_BUFFER, indices);
    colorBuffer = useColors ? createBuffer(GL_ARRAY_BUFFER, colors) : GLBuffer();
    normalBuffer = useNormals ? createBuffer(GL_ARRAY_BUFFER, normals) : GLBuffer();
    textureCoordBuffer = useTextureCoords ? createBuffer(GL_ARRAY_BUFFER, textureCoords) : GLBuffer();
}

void IndexedGeometry::pointAttributes(GLboolean areColorsNormalized) const {
    pointAttribute(vertexBuffer, positionLocation, 3, GL_FLOAT, GL_FALSE);
    pointAttribute(colorBuffer, colorLocation, 4, GL_UNSIGNED_BYTE, areColorsNormalized);
    pointAttribute(normalBuffer, normalLocation, 3, GL_FLOAT, GL_FALSE);
    pointAttribute(textureCoordBuffer, textureCoordLocation, 2, GL_FLOAT, GL_FALSE);
}

} // namespace Vantrel
