#pragma once

#include "vtl/geometry/IndexedGeometry.h"
#include "vtl/math/VectorT.h"

#include <cstdint>
#include <memory>

namespace Vantrel {

/** A rectangle about the origin in one of the planes of two axes, in one colour; its size can be changed. */
class IndexedGeometryQuad : public IndexedGeometry {
public:
    /**
     * `orientation` is 0 for the plane XY, 1 for XZ, 2 for YZ; anything else is as 0. `width` is along the
     * first of the two axes. Components of `color` are from 0 to 1.
     */
    static std::unique_ptr<IndexedGeometryQuad> New(std::uint8_t orientation, float width, float height,
                                                    const Vector& color, bool useTextureCoords,
                                                    bool useNormals, bool useColors);

    IndexedGeometryQuad(std::uint8_t orientation_, float width, float height, const Vector& color_,
                        bool useTextureCoords_, bool useNormals_, bool useColors_);

    /** Moves the corners, on the card too, after a change of the size or of `scale`. */
    virtual void updateCorners();

    /** Shows with the next `updateCorners`. */
    void setSize(float width, float height);
    float getWidth() const { return halfWidth * 2.0F; }
    float getHeight() const { return halfHeight * 2.0F; }

    /** Times the width (x) and the height (y). */
    Vector scale{1.0F, 1.0F, 1.0F};
    /** How often the image repeats across (x) and up (y), about its middle; `build` reads it. */
    Vector textureScale{1.0F, 1.0F, 1.0F};

protected:
    void buildVertices() override;
    void buildIndices() override;
    void buildTextureCoords() override;
    void buildNormals() override;
    void buildColors() override;

private:
    /** The point at `first` and `second` along the axes of the plane. */
    Vector inPlane(float first, float second) const;

    std::uint8_t orientation;
    float halfWidth = 0.0F;
    float halfHeight = 0.0F;
    Vector color;
};

} // namespace Vantrel
