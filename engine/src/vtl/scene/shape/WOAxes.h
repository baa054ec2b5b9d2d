#pragma once

#include "vtl/scene/object/WO.h"

#include <memory>
#include <string>

namespace Vantrel {

class MGLAxes;

/** Three lines along the axes of a place: X in red, Y in green, Z in blue. */
class WOAxes : public WO {
public:
    static std::string getClassName() { return "WOAxes"; }
    /** The arguments are those of `MGLAxes`. */
    static std::unique_ptr<WOAxes> New(const Vector& extent, float lineWidth = 1.0F);

    using WO::onCreate;
    virtual void onCreate(const Vector& extent, float lineWidth);
    /** In pixels. Does nothing without axes. */
    virtual void setLineWidth(float width);
    /** 0 without axes. */
    virtual float getLineWidth() const;

private:
    MGLAxes* findAxes() const;
};

} // namespace Vantrel
