#pragma once

#include "vtl/base/ManagerSDLTime.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/scene/object/WO.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Vantrel {

/**
 * Draws objects one after the other with `draw(WO&)`, each from the engine's default GL state, but for those
 * outside of `frustum`, unless that is null. Adds the times to the objects' records and the totals, and
 * reports GL errors with the object that made them.
 */
template <class Draw>
void drawTimed(const std::vector<WO*>& objects, const VantrelGeometryFrustum* frustum,
               std::int32_t ObjectTimes::*milliseconds, std::int32_t ObjectTimes::*count, Draw&& draw) {
    StageTotals& totals = ManagerSDLTime::totals();
    ManagerSDLTime::startStopwatch(Stopwatch::object);
    for (std::size_t i = 0; i < objects.size(); ++i) {
        WO& object = *objects[i];
        ManagerOpenGLState::restorePerObjectState();
        totals.preservingStateMs += ManagerSDLTime::restartStopwatch(Stopwatch::object);
        if (frustum == nullptr || object.isInFrustum(*frustum)) {
            draw(object);
        }
        ObjectTimes& times = ManagerSDLTime::timesOf(object);
        times.*milliseconds += ManagerSDLTime::restartStopwatch(Stopwatch::object);
        ++(times.*count);
        checkGLError(static_cast<std::int32_t>(i), &object);
        totals.errorsMs += ManagerSDLTime::restartStopwatch(Stopwatch::object);
    }
}

} // namespace Vantrel
