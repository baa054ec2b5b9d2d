#pragma once

namespace Vantrel {

/**
 * Loads a symmetric perspective into the selected fixed-function matrix; from GL 3.2 on GL is left alone. The
 * vertical field of view is in degrees.
 */
void loadPerspective(float fovYDegrees, float aspect, float nearPlane, float farPlane);

/**
 * Multiplies the selected fixed-function matrix by a parallel projection with depths from -1 to 1. GL is left
 * alone where the context has no fixed function.
 */
void loadOrthographic2D(float left, float right, float bottom, float top);

} // namespace Vantrel
