#pragma once

#include "vtl/scene/object/WO.h"

namespace Vantrel {

/** The runway of the scene. */
class WORunway : public WO {
public:
    static std::string getClassName() { return "WORunway"; }
};

} // namespace Vantrel
