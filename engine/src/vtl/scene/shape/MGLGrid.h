#pragma once

#include "vtl/math/VectorT.h"
#include "vtl/math/vtlColor4ub.h"
#include "vtl/mesh/ModelMeshRenderDataGenerator.h"
#include "vtl/scene/model/MGL.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace Vantrel {

/**
 * A model that is a surface over rows of points. It is filled step by step, in the order of the operations
 * below, and ends as a mesh, whose skins are the model's then. Where a row is shorter than the first one
 * there is no surface; what is longer doesn't count.
 */
class MGLGrid : public MGL {
public:
    using PointRows = std::vector<std::vector<VectorD>>;
    using ColorRows = std::vector<std::vector<vtlColor4ub>>;

    /**
     * Takes the points, which `pointScale` multiplies axis by axis. `colorRows` has a colour for each point,
     * white where it has none, or is null. A grid that lacks more than a million of its points has none.
     */
    static std::unique_ptr<MGLGrid> New(WO* parent, PointRows points, const VectorD& pointScale,
                                        const ColorRows* colorRows);

    /** Without points. */
    explicit MGLGrid(WO* parent);
    MGLGrid(WO* parent, PointRows points_, const VectorD& pointScale_, const ColorRows* colorRows_);
    ~MGLGrid() override;

    /** The surface is opaque, whatever the alpha of its colours. */
    void render(Camera* camera) override;

    /** Two triangles for each field of four points. */
    virtual void buildIndices();
    virtual void buildVertices();
    /**
     * The share of the way from the origin to the last point of the first row, and 1 less the share of the
     * way to the first point of the last row; 0 where that point is at the origin.
     */
    virtual void buildTextureCoords();
    /** Nothing: the shading of the mesh makes them. */
    virtual void buildNormals() {}
    /** Gives each point its own colour where there are any, and else `color`, or white for null. */
    virtual void buildColors(const vtlColor4ub* color);
    /** Makes one mesh of all that has been built and sends it to the card. */
    virtual void makeMeshes(std::uint32_t depth);

    /** Points of a row. */
    std::uint32_t getGridWidth() const { return gridWidth; }
    /** Rows. */
    std::uint32_t getGridHeight() const { return gridHeight; }

protected:
    void makeMesh(ModelMeshSkin skin);

    std::uint32_t gridWidth = 0;
    std::uint32_t gridHeight = 0;
    /** What has been built and isn't a mesh yet; never null. */
    std::unique_ptr<ModelMeshRenderDataGenerator> lists;

private:
    /** Null where the grid has no point of that number. */
    const VectorD* findPoint(std::size_t number) const;
    void appendTriangle(std::uint32_t a, std::uint32_t b, std::uint32_t c);
    std::size_t countPoints() const { return std::size_t{gridWidth} * gridHeight; }

    PointRows points;
    VectorD pointScale{1.0, 1.0, 1.0};
    ColorRows colorRows;
    bool hasColors = false;
};

} // namespace Vantrel
