#pragma once

#include "vtl/scene/model/MGL.h"

#include <memory>

namespace Vantrel {

class IndexedGeometryAxes;

/** A model that is three lines along its axes: X in red, Y in green, Z in blue. */
class MGLAxes : public MGL {
public:
    /** `extent` holds the length of each line, `lineWidth` is in pixels. */
    static std::unique_ptr<MGLAxes> New(WO* parent, const Vector& extent, float lineWidth);

    MGLAxes(WO* parent, const Vector& extent, float lineWidth_);
    ~MGLAxes() override;

    void render(Camera* camera) override;
    void renderSelection(Camera* camera, std::uint8_t r, std::uint8_t g, std::uint8_t b) override;

    /** Drawn as near to it as the context comes. */
    virtual void setLineWidth(float width) { lineWidth = width; }
    virtual float getLineWidth() const { return lineWidth; }

private:
    std::unique_ptr<IndexedGeometryAxes> axes;
    float lineWidth;
};

} // namespace Vantrel
