#pragma once

#include "vtl/geometry/IndexedGeometry.h"

#include <memory>

namespace Vantrel {

/**
 * A cube about the origin that is seen from within. Its image is one strip of six squares: the sides at +Y,
 * +X, -Y and -X, the floor, the top.
 */
class IndexedGeometrySkyBox : public IndexedGeometry {
public:
    /** `halfEdge` is half the length of an edge. */
    static std::unique_ptr<IndexedGeometrySkyBox> New(float halfEdge);

    explicit IndexedGeometrySkyBox(float halfEdge_)
        : IndexedGeometry(true, false, false), halfEdge(halfEdge_) {}

protected:
    void buildVertices() override;
    void buildIndices() override;
    void buildTextureCoords() override;

private:
    float halfEdge;
};

} // namespace Vantrel
