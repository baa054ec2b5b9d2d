#pragma once

#include "vtl/geometry/IndexedGeometry.h"
#include "vtl/math/VectorT.h"

#include <memory>

namespace Vantrel {

class Mat4;
class ShaderCamera;

/** Three lines from the origin, along X in red, along Y in green, along Z in blue. */
class IndexedGeometryAxes : public IndexedGeometry {
public:
    /** `extent` holds the length of each line. */
    static std::unique_ptr<IndexedGeometryAxes> New(const Vector& extent);
    /** All three of one length. */
    static std::unique_ptr<IndexedGeometryAxes> New(float extent);

    explicit IndexedGeometryAxes(const Vector& extent_);

    /** Draws the axes of a model space, unlit, in lines of that many pixels. */
    void renderAt(const ShaderCamera& camera, const Mat4& modelMatrix, float lineWidth = 1.0F) const;

protected:
    void buildVertices() override;
    void buildIndices() override;
    void buildColors() override;

private:
    void renderFixedFunction(const Mat4& modelMatrix) const;
    void renderWithShader(const Mat4& mvp) const;

    Vector extent;
};

} // namespace Vantrel
