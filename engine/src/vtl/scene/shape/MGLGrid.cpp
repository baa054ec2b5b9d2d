#include "vtl/scene/shape/MGLGrid.h"

#include "vtl/base/Report.h"
#include "vtl/scene/model/ModelDataShared.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Vantrel {
namespace {

constexpr std::uint64_t mostMissingPoints = 1U << 20U;

/** Whether the rows come near to filling the rectangle; each missing point takes memory like another. */
bool isFilled(const MGLGrid::PointRows& points) {
    std::uint64_t missing = 0;
    for (const std::vector<VectorD>& row : points) {
        missing += points[0].size() - std::min(row.size(), points[0].size());
    }
    return missing <= mostMissingPoints;
}

/** The nearest float; what is beyond them becomes the largest. */
float narrowed(double number) {
    constexpr double largest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(number, -largest, largest));
}

/** How far `point` is on the way from the origin to `end`; 0 where that is no way. */
double shareOfWay(const VectorD& point, const VectorD* end) {
    const double length = end != nullptr ? end->dotProduct(*end) : 0.0;
    return length > 0.0 ? point.dotProduct(*end) / length : 0.0;
}

} // namespace

std::unique_ptr<MGLGrid> MGLGrid::New(WO* parent, PointRows points, const VectorD& pointScale,
                                      const ColorRows* colorRows) {
    return std::make_unique<MGLGrid>(parent, std::move(points), pointScale, colorRows);
}

MGLGrid::MGLGrid(WO* parent) : MGL(parent), lists(std::make_unique<ModelMeshRenderDataGenerator>()) {
}

MGLGrid::MGLGrid(WO* parent, PointRows points_, const VectorD& pointScale_, const ColorRows* colorRows_)
    : MGLGrid(parent) {
    points = std::move(points_);
    pointScale = pointScale_;
    hasColors = colorRows_ != nullptr;
    if (hasColors) {
        colorRows = *colorRows_;
    }
    if (!points.empty() && isFilled(points)) {
        gridWidth = static_cast<std::uint32_t>(points[0].size());
        gridHeight = static_cast<std::uint32_t>(points.size());
    }
}

MGLGrid::~MGLGrid() = default;

void MGLGrid::render(Camera* camera) {
    glBlendFunc(GL_ONE, GL_ZERO); // a model enables blending while it draws
    Model::render(camera);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

void MGLGrid::buildIndices() {
    lists->indices.clear();
    for (std::uint32_t column = 0; column + 1 < gridWidth; ++column) {
        for (std::uint32_t row = 0; row + 1 < gridHeight; ++row) {
            const std::uint32_t p = row * gridWidth + column;
            appendTriangle(p + gridWidth, p + 1, p);
            appendTriangle(p + 1, p + gridWidth, p + gridWidth + 1);
        }
    }
}

void MGLGrid::buildVertices() {
    constexpr float none = std::numeric_limits<float>::quiet_NaN(); // which no box counts
    lists->vertices.assign(countPoints(), Vector(none, none, none));
    for (std::size_t i = 0; i < lists->vertices.size(); ++i) {
        if (const VectorD* const point = findPoint(i)) {
            lists->vertices[i] = Vector(narrowed(point->x * pointScale.x), narrowed(point->y * pointScale.y),
                                        narrowed(point->z * pointScale.z));
        }
    }
}

void MGLGrid::buildTextureCoords() {
    ModelMeshTextureCoordSet set{.coords = std::vector<Vector>(countPoints())};
    const VectorD* const endOfRow = findPoint(std::size_t{gridWidth} - 1);
    const VectorD* const endOfColumn = findPoint(countPoints() - gridWidth);
    const bool hasColumn = endOfColumn != nullptr && endOfColumn->dotProduct(*endOfColumn) > 0.0;
    for (std::size_t i = 0; i < set.coords.size(); ++i) {
        if (const VectorD* const point = findPoint(i)) {
            set.coords[i].x = narrowed(shareOfWay(*point, endOfRow));
            set.coords[i].y = hasColumn ? narrowed(1.0 - shareOfWay(*point, endOfColumn)) : 0.0F;
        }
    }
    lists->textureCoordSets = {std::move(set)};
}

void MGLGrid::buildColors(const vtlColor4ub* color) {
    lists->colors.assign(countPoints(), color != nullptr && !hasColors ? *color : vtlColor4ub());
    if (!hasColors) {
        return;
    }
    Report() << "Colors are used.\n";
    for (std::size_t row = 0; row < std::min<std::size_t>(colorRows.size(), gridHeight); ++row) {
        const std::vector<vtlColor4ub>& colors = colorRows[row];
        std::copy_n(colors.begin(), std::min<std::size_t>(colors.size(), gridWidth),
                    lists->colors.begin() + static_cast<std::ptrdiff_t>(row * gridWidth));
    }
}

void MGLGrid::makeMeshes(std::uint32_t /*depth*/) {
    ModelMeshSkin skin = shapeSkin();
    skin.shadingType = MESH_SHADING_TYPE::mstSMOOTH;
    makeMesh(std::move(skin));
}

void MGLGrid::makeMesh(ModelMeshSkin skin) {
    if (getModelDataShared() != nullptr) {
        return; // the lists are the mesh's by now
    }
    Report() << "Making VBO\n";
    lists->colorFormat = GL_RGBA;
    std::vector<ModelMeshSource> sources;
    sources.push_back(
        {std::move(skin), std::exchange(lists, std::make_unique<ModelMeshRenderDataGenerator>())});
    points.clear();
    colorRows.clear();
    setModelData(std::make_unique<ModelDataShared>(std::move(sources)));
    getModelDataShared()->sendToServer();
}

const VectorD* MGLGrid::findPoint(std::size_t number) const {
    const std::size_t row = gridWidth != 0 ? number / gridWidth : 0;
    const std::size_t column = gridWidth != 0 ? number % gridWidth : 0;
    return row < points.size() && column < points[row].size() ? &points[row][column] : nullptr;
}

void MGLGrid::appendTriangle(std::uint32_t a, std::uint32_t b, std::uint32_t c) {
    if (findPoint(a) != nullptr && findPoint(b) != nullptr && findPoint(c) != nullptr) {
        lists->indices.insert(lists->indices.end(), {a, b, c});
    }
}

} // namespace Vantrel
