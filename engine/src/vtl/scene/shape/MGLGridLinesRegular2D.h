#pragma once

#include "vtl/scene/shape/MGLGrid.h"

#include <memory>

namespace Vantrel {

/**
 * A model that is a flat grid of lines in the plane XY, with its corner at the origin. It can't be picked,
 * and hides nothing that is drawn after it.
 */
class MGLGridLinesRegular2D : public MGLGrid {
public:
    /**
     * A line at every whole step of each length, the first at 0. Where a step leads away from the length's
     * end or is 0, or with more than two million crossings, there are no lines, and a report.
     */
    static std::unique_ptr<MGLGridLinesRegular2D> New(WO* parent, float lengthX, float stepX, float lengthY,
                                                      float stepY, const vtlColor4ub& color);

    explicit MGLGridLinesRegular2D(WO* parent) : MGLGrid(parent) {}

    void render(Camera* camera) override;
    void renderSelection(Camera* /*camera*/, std::uint8_t /*r*/, std::uint8_t /*g*/,
                         std::uint8_t /*b*/) override {}

    void buildIndices() override;
    void buildVertices() override;
    void buildTextureCoords() override;
    void makeMeshes(std::uint32_t depth) override;
    virtual void build(float lengthX_, float stepX_, float lengthY_, float stepY_, const vtlColor4ub& color);

    /** In pixels, drawn as near to it as the context comes. */
    void setLineWidth(float width) { lineWidth = width; }
    float getLineWidth() const { return lineWidth; }

private:
    void appendLine(std::uint32_t from, std::uint32_t to);

    float lengthX = 0.0F;
    float lengthY = 0.0F;
    float stepX = 0.0F;
    float stepY = 0.0F;
    float lineWidth = 1.0F;
};

} // namespace Vantrel
