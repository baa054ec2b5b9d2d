#pragma once

#include "vtl/math/VectorT.h"

namespace Vantrel {

/**
 * The turn about +Z, in radians from 0 to 2 pi, that takes +X to the heading of `v`. A component within the
 * tolerance of `v` counts as zero; with both so it is 0.
 */
float azimuthOf(const Vector& v);

/**
 * The turn about +Y, in radians, that takes +X to the slope of `v`: negative upwards. 0 where the horizontal
 * part of `v` is shorter than its tolerance, straight up as well.
 */
float elevationOf(const Vector& v);

} // namespace Vantrel
