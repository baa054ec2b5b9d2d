#include "vtl/scene/shape/MGLGridLinesRegular2D.h"

#include "vtl/base/Report.h"
#include "vtl/gl/LineWidth.h"

namespace Vantrel {
namespace {

constexpr std::uint64_t mostCrossings = 1U << 21U;

/** How many lines stand on a length; 0 where the two go different ways or there are too many. */
std::uint32_t countLines(float length, float step) {
    const double count = length / step + 1.0;
    const bool isPossible = count >= 1.0 && count <= mostCrossings;
    return isPossible ? static_cast<std::uint32_t>(count) : 0;
}

} // namespace

std::unique_ptr<MGLGridLinesRegular2D> MGLGridLinesRegular2D::New(WO* parent, float lengthX, float stepX,
                                                                  float lengthY, float stepY,
                                                                  const vtlColor4ub& color) {
    auto model = std::make_unique<MGLGridLinesRegular2D>(parent);
    model->build(lengthX, stepX, lengthY, stepY, color);
    return model;
}

void MGLGridLinesRegular2D::render(Camera* camera) {
    depthWritesEnabled = false;
    Vantrel::setLineWidth(lineWidth);
    Model::render(camera);
    Vantrel::setLineWidth(1.0F);
}

void MGLGridLinesRegular2D::buildIndices() {
    lists->indices.clear();
    for (std::uint32_t i = 0; i + 1 < gridWidth; ++i) {
        for (std::uint32_t j = 0; j < gridHeight; ++j) {
            appendLine(i * gridHeight + j, (i + 1) * gridHeight + j);
        }
    }
    for (std::uint32_t i = 0; i < gridWidth; ++i) {
        for (std::uint32_t j = 0; j + 1 < gridHeight; ++j) {
            appendLine(i * gridHeight + j, i * gridHeight + j + 1);
        }
    }
}

void MGLGridLinesRegular2D::buildVertices() {
    lists->vertices.clear();
    for (std::uint32_t i = 0; i < gridWidth; ++i) {
        for (std::uint32_t j = 0; j < gridHeight; ++j) {
            lists->vertices.emplace_back(stepX * static_cast<float>(i), stepY * static_cast<float>(j), 0.0F);
        }
    }
}

void MGLGridLinesRegular2D::buildTextureCoords() {
    lists->textureCoordSets = {{.coords = std::vector<Vector>(lists->vertices.size())}};
}

void MGLGridLinesRegular2D::makeMeshes(std::uint32_t /*depth*/) {
    ModelMeshSkin skin;
    skin.shadingType = MESH_SHADING_TYPE::mstNONE;
    skin.primitiveType = GL_LINES;
    lists->sourcePrimitive = GL_LINES;
    makeMesh(std::move(skin));
}

void MGLGridLinesRegular2D::build(float lengthX_, float stepX_, float lengthY_, float stepY_,
                                  const vtlColor4ub& color) {
    lengthX = lengthX_;
    stepX = stepX_;
    lengthY = lengthY_;
    stepY = stepY_;
    gridWidth = countLines(lengthX, stepX);
    gridHeight = countLines(lengthY, stepY);
    const std::uint64_t crossings = std::uint64_t{gridWidth} * gridHeight;
    if (crossings == 0 || crossings > mostCrossings) {
        Report() << "WARNING: MGLGridLinesRegular2D::build(): no grid of " << lengthX << " by " << lengthY
                 << " in steps of " << stepX << " and " << stepY << "...\n";
        gridWidth = gridHeight = 0;
    }
    buildVertices();
    buildIndices();
    buildTextureCoords();
    buildColors(&color);
    makeMeshes(0);
}

void MGLGridLinesRegular2D::appendLine(std::uint32_t from, std::uint32_t to) {
    lists->indices.insert(lists->indices.end(), {from, to});
}

} // namespace Vantrel
