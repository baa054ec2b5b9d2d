#pragma once

#include "vtl/scene/object/WO.h"
#include "vtl/scene/shape/MGLGrid.h"

#include <cstdint>
#include <memory>
#include <string>

namespace Vantrel {

/** A surface over rows of points. */
class WOGrid : public WO {
public:
    static std::string getClassName() { return "WOGrid"; }
    /**
     * The points and what multiplies them; the colour of each point, or null; the colour of all where those
     * are null, white for null; into how small parts the surface may be split.
     */
    static std::unique_ptr<WOGrid> New(MGLGrid::PointRows points, const VectorD& pointScale,
                                       const MGLGrid::ColorRows* colorRows = nullptr,
                                       const vtlColor4ub* color = nullptr, std::uint32_t depth = 0);

    using WO::onCreate;
    virtual void onCreate(MGLGrid::PointRows points, const VectorD& pointScale,
                          const MGLGrid::ColorRows* colorRows, const vtlColor4ub* color, std::uint32_t depth);
};

} // namespace Vantrel
