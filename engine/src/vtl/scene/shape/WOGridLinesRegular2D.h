#pragma once

#include "vtl/math/vtlColor4ub.h"
#include "vtl/scene/object/WO.h"

#include <memory>
#include <string>

namespace Vantrel {

class MGLGridLinesRegular2D;

/** A flat grid of lines with its corner at the object's position. */
class WOGridLinesRegular2D : public WO {
public:
    static std::string getClassName() { return "WOGridLinesRegular2D"; }
    /** The arguments are those of `MGLGridLinesRegular2D`. */
    static std::unique_ptr<WOGridLinesRegular2D> New(float lengthX, float stepX, float lengthY, float stepY,
                                                     const vtlColor4ub& color);

    using WO::onCreate;
    virtual void onCreate(float lengthX, float stepX, float lengthY, float stepY, const vtlColor4ub& color);
    /** In pixels. Without a grid reports and does nothing. */
    void setGlLineWidth(float width);
    /** Without a grid reports and gives 0. */
    float getGlLineWidth() const;

private:
    MGLGridLinesRegular2D* findGrid() const;
};

} // namespace Vantrel
