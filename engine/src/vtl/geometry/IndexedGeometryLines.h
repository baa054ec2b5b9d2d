#pragma once

#include "vtl/geometry/IndexedGeometry.h"
#include "vtl/math/VectorT.h"
#include "vtl/math/vtlColor4ub.h"

#include <memory>
#include <vector>

namespace Vantrel {

/** Any number of separate lines between given points. */
class IndexedGeometryLines : public IndexedGeometry {
public:
    /**
     * Each two of `lines` are the ends of one; a last one without a partner isn't drawn. `colors` has one for
     * each end, or is null; where it is too short the ends are white.
     */
    static std::unique_ptr<IndexedGeometryLines> New(const std::vector<Vector>& lines,
                                                     const std::vector<vtlColor4ub>* colors);

    IndexedGeometryLines();

    using IndexedGeometry::build;
    virtual void build(const std::vector<Vector>& lines, const std::vector<vtlColor4ub>* colors);
    /** Leaves lines one pixel wide behind. */
    void render() const override;

    /** In pixels, as far as the context can. */
    float lineWidth = 1.0F;

protected:
    virtual void setVertices(const std::vector<Vector>& lines);
    using IndexedGeometry::setIndices;
    /** Numbers the points as they come; reports when there are too many, and draws none then. */
    virtual void setIndices(const std::vector<Vector>& lines);
    /** Null drops the colours. */
    virtual void setColors(const std::vector<vtlColor4ub>* list);
    /** Moves as many points as there are vertices, and no more than `lines` has. */
    virtual void writeVertices(const std::vector<Vector>& lines);

    /** The points come from outside. */
    void buildVertices() override {}
    void buildIndices() override {}
};

} // namespace Vantrel
