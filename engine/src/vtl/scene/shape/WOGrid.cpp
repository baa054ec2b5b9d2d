#include "vtl/scene/shape/WOGrid.h"

#include <utility>

namespace Vantrel {

std::unique_ptr<WOGrid> WOGrid::New(MGLGrid::PointRows points, const VectorD& pointScale,
                                    const MGLGrid::ColorRows* colorRows, const vtlColor4ub* color,
                                    std::uint32_t depth) {
    auto object = std::make_unique<WOGrid>();
    object->onCreate(std::move(points), pointScale, colorRows, color, depth);
    return object;
}

void WOGrid::onCreate(MGLGrid::PointRows points, const VectorD& pointScale,
                      const MGLGrid::ColorRows* colorRows, const vtlColor4ub* color, std::uint32_t depth) {
    auto grid = MGLGrid::New(this, std::move(points), pointScale, colorRows);
    grid->buildVertices();
    grid->buildIndices();
    grid->buildTextureCoords();
    grid->buildNormals();
    grid->buildColors(color);
    grid->makeMeshes(depth);
    setModel(std::move(grid));
}

} // namespace Vantrel
