#include "vtl/geometry/BoundingBox.h"

#include "vtl/geometry/IndexedGeometryRectangularPrism.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ScopedClientArrays.h"
#include "vtl/gl/ScopedPlainColors.h"
#include "vtl/gl/shader/ManagerShader.h"
#include "vtl/gl/shader/ShaderCamera.h"
#include "vtl/gl/shader/VertexAttributeLocation.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <numeric>

namespace Vantrel {
namespace {

constexpr float largest = std::numeric_limits<float>::max();

bool hasNoCoordinate(float least, float greatest) {
    return least == largest && greatest == -largest;
}

void widen(float coordinate, float& least, float& greatest) {
    if (coordinate < least) {
        least = coordinate;
    }
    if (coordinate > greatest) {
        greatest = coordinate;
    }
}

/** Writes `values` to the bound buffer, in place where it has held as many before. */
template <class Value>
void fillBuffer(GLenum target, const std::vector<Value>& values, bool isNew) {
    const auto size = static_cast<GLsizeiptr>(values.size() * sizeof(Value));
    if (isNew) {
        glBufferData(target, size, values.data(), GL_STATIC_DRAW);
    } else {
        glBufferSubData(target, 0, size, values.data());
    }
}

} // namespace

BoundingBox::BoundingBox() {
    reset();
}

BoundingBox::~BoundingBox() = default;

BoundingBox::BoundingBox(const BoundingBox& other) : minCorner(other.minCorner), maxCorner(other.maxCorner) {
}

BoundingBox& BoundingBox::operator=(const BoundingBox& other) {
    if (this != &other) {
        vao.reset();
        vbo.reset();
        ibo.reset();
        reset();
        minCorner = other.minCorner;
        maxCorner = other.maxCorner;
    }
    return *this;
}

void BoundingBox::reset() {
    vertices.clear();
    indices.clear();
    solid.reset();
    minCorner = Vector(largest, largest, largest);
    maxCorner = minCorner * -1.0F;
    dirty = true;
}

void BoundingBox::addPoint(const Vector& point) {
    widen(point.x, minCorner.x, maxCorner.x);
    widen(point.y, minCorner.y, maxCorner.y);
    widen(point.z, minCorner.z, maxCorner.z);
    dirty = true;
}

void BoundingBox::addPoints(const float* xyz, std::uint32_t count) {
    for (const float* const end = xyz + std::size_t{3} * count; xyz != end; xyz += 3) {
        addPoint(Vector(xyz));
    }
}

void BoundingBox::addBox(const BoundingBox& other) {
    if (!other.isEmpty()) {
        addPoint(other.minCorner);
        addPoint(other.maxCorner);
    }
}

bool BoundingBox::isEmpty() const {
    return hasNoCoordinate(minCorner.x, maxCorner.x) || hasNoCoordinate(minCorner.y, maxCorner.y) ||
           hasNoCoordinate(minCorner.z, maxCorner.z);
}

void BoundingBox::setLxLyLz(const Vector& lengths, const Vector& center) {
    const Vector half = lengths / 2.0F;
    minCorner = center - half;
    maxCorner = half + center;
    dirty = true;
}

void BoundingBox::getCorners(std::span<Vector, 8> out) const {
    const Vector h = getLxLyLz() / 2.0F;
    const Vector c = getCenter();
    for (std::size_t i = 0; i < out.size(); ++i) {
        out[i] =
            c + Vector((i & 4U) == 0 ? h.x : -h.x, (i & 2U) == 0 ? h.y : -h.y, (i & 1U) == 0 ? h.z : -h.z);
    }
}

void BoundingBox::renderLines(const Mat4& mvp) {
    if (!prepareDrawing()) {
        return;
    }
    if (ManagerOpenGLState::isVersion32OrGreater()) {
        renderLinesWithShader(mvp);
    } else {
        renderLinesFixedFunction();
    }
}

void BoundingBox::render(const ShaderCamera& camera, const Mat4& modelMatrix) {
    renderLines(camera.getViewProjectionMatrix() * modelMatrix);
}

void BoundingBox::renderSolid(const ShaderCamera& /*camera*/, std::uint8_t r, std::uint8_t g,
                              std::uint8_t b) {
    if (prepareDrawing()) {
        solid->renderSelection(r, g, b);
    }
}

bool BoundingBox::prepareDrawing() {
    const Vector lengths = getLxLyLz();
    if (isEmpty() || !std::isfinite(lengths.x) || !std::isfinite(lengths.y) || !std::isfinite(lengths.z)) {
        return false;
    }
    if (dirty) {
        dirty = false;
        rebuild();
    }
    return true;
}

void BoundingBox::rebuild() {
    buildEdges();
    indices.resize(indexCount);
    std::iota(indices.begin(), indices.end(), std::uint8_t{0});
    if (ManagerOpenGLState::isVersion32OrGreater()) {
        sendToCard();
    }
    solid = IndexedGeometryRectangularPrism::New(getLxLyLz(), false, false);
}

void BoundingBox::buildEdges() {
    const Vector c = getCenter();
    const Vector h = getLxLyLz() / 2.0F;
    const float xl = c.x - std::abs(h.x);
    const float xh = c.x + std::abs(h.x);
    const float yl = c.y - std::abs(h.y);
    const float yh = c.y + std::abs(h.y);
    const float zl = c.z - std::abs(h.z);
    const float zh = c.z + std::abs(h.z);
    vertices.clear();
    vertices.reserve(vertexCount);
    for (const auto& [x, y] : {std::pair(xh, yh), {xh, yl}, {xl, yh}, {xl, yl}}) {
        addEdge({x, y, zl}, {x, y, zh}, {0, 0, 255});
    }
    for (const auto& [x, z] : {std::pair(xh, zh), {xh, zl}, {xl, zh}, {xl, zl}}) {
        addEdge({x, yh, z}, {x, yl, z}, {0, 255, 0});
    }
    for (const auto& [y, z] : {std::pair(yh, zh), {yl, zh}, {yh, zl}, {yl, zl}}) {
        addEdge({xh, y, z}, {xl, y, z}, {255, 0, 0});
    }
}

void BoundingBox::addEdge(const std::array<float, 3>& from, const std::array<float, 3>& to,
                          const std::array<std::uint8_t, 3>& color) {
    vertices.push_back({.position = from, .color = color});
    vertices.push_back({.position = to, .color = color});
}

void BoundingBox::sendToCard() {
    const bool isNew = !vao;
    if (isNew) {
        vao = GLVertexArray::create();
        vbo = GLBuffer::create();
        ibo = GLBuffer::create();
    }
    glBindVertexArray(vao.get());
    glBindBuffer(GL_ARRAY_BUFFER, vbo.get());
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, ibo.get());
    fillBuffer(GL_ARRAY_BUFFER, vertices, isNew);
    fillBuffer(GL_ELEMENT_ARRAY_BUFFER, indices, isNew);
    glEnableVertexAttribArray(VertexAttributeLocation::position);
    glVertexAttribPointer(VertexAttributeLocation::position, 3, GL_FLOAT, GL_FALSE, sizeof(LineVertex),
                          nullptr);
    glEnableVertexAttribArray(VertexAttributeLocation::color);
    glVertexAttribPointer(VertexAttributeLocation::color, 3, GL_UNSIGNED_BYTE, GL_TRUE, sizeof(LineVertex),
                          reinterpret_cast<const void*>(offsetof(LineVertex, color)));
    glBindVertexArray(0);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

void BoundingBox::renderLinesWithShader(const Mat4& mvp) const {
    auto* const shader = ManagerShader::getDefaultBoundingBoxLinesShader();
    if (shader == nullptr) {
        return;
    }
    shader->bind(mvp);
    glBindVertexArray(vao.get());
    glDrawElements(GL_LINES, indexCount, GL_UNSIGNED_BYTE, nullptr);
    glBindVertexArray(0);
    shader->unbind();
}

void BoundingBox::renderLinesFixedFunction() const {
    const ScopedPlainColors plainColors;
    const ScopedClientArrays arrays;
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, sizeof(LineVertex), vertices[0].position.data());
    glEnableClientState(GL_COLOR_ARRAY);
    glColorPointer(3, GL_UNSIGNED_BYTE, sizeof(LineVertex), vertices[0].color.data());
    glDrawElements(GL_LINES, indexCount, GL_UNSIGNED_BYTE, indices.data());
}

} // namespace Vantrel
