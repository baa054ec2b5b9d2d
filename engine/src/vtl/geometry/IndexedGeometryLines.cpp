#include "vtl/geometry/IndexedGeometryLines.h"

#include "vtl/gl/LineWidth.h"

#include <algorithm>
#include <numeric>

namespace Vantrel {

std::unique_ptr<IndexedGeometryLines> IndexedGeometryLines::New(const std::vector<Vector>& lines,
                                                                const std::vector<vtlColor4ub>* colors) {
    auto geometry = std::make_unique<IndexedGeometryLines>();
    geometry->build(lines, colors);
    return geometry;
}

IndexedGeometryLines::IndexedGeometryLines() : IndexedGeometry(false, false, true) {
    primitive = GL_LINES;
}

void IndexedGeometryLines::build(const std::vector<Vector>& lines, const std::vector<vtlColor4ub>* list) {
    setVertices(lines);
    setIndices(lines);
    if (useColors) {
        setColors(list);
    }
    createBuffers();
}

void IndexedGeometryLines::render() const {
    setLineWidth(lineWidth);
    IndexedGeometry::render();
    setLineWidth(1.0F);
}

void IndexedGeometryLines::setVertices(const std::vector<Vector>& lines) {
    vertices.resize(3 * lines.size());
    writeVertices(lines);
    numVertices = static_cast<std::uint32_t>(lines.size());
}

void IndexedGeometryLines::setIndices(const std::vector<Vector>& lines) {
    std::vector<std::uint32_t> numbers(lines.size());
    std::iota(numbers.begin(), numbers.end(), 0U);
    setIndices(IndexArray::pack(numbers));
}

void IndexedGeometryLines::setColors(const std::vector<vtlColor4ub>* list) {
    useColors = list != nullptr;
    colors.clear();
    if (list == nullptr) {
        return;
    }
    for (std::size_t point = 0; point < numVertices; ++point) {
        const vtlColor4ub color = point < list->size() ? (*list)[point] : vtlColor4ub();
        colors.insert(colors.end(), {color.r, color.g, color.b, color.a});
    }
}

void IndexedGeometryLines::writeVertices(const std::vector<Vector>& lines) {
    const std::size_t count = std::min(lines.size(), vertices.size() / 3);
    for (std::size_t point = 0; point < count; ++point) {
        vertices[3 * point] = lines[point].x;
        vertices[3 * point + 1] = lines[point].y;
        vertices[3 * point + 2] = lines[point].z;
    }
}

} // namespace Vantrel
