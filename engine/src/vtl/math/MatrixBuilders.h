#pragma once

#include "vtl/math/Mat4.h"
#include "vtl/math/VectorT.h"

namespace Vantrel {

// Each builder overwrites 16 floats in the order of `Mat4`.

/** Maps the box between the six planes, given along the view's axes, to the cube from -1 to 1. */
void buildOrthographic(float left, float right, float bottom, float top, float nearPlane, float farPlane,
                       float* out);
void buildOrthographic(float left, float right, float bottom, float top, float nearPlane, float farPlane,
                       Mat4& out);

/**
 * A symmetric perspective with the vertical field of view in degrees and `aspect` as width through height.
 * The planes lie in front of the eye at positive distances.
 */
void buildPerspective(float fovYDegrees, float aspect, float nearPlane, float farPlane, float* out);
void buildPerspective(float fovYDegrees, float aspect, float nearPlane, float farPlane, Mat4& out);

/** The perspective whose view at the near plane is that rectangle, given along the view's axes. */
void buildFrustum(float left, float right, float bottom, float top, float nearPlane, float farPlane,
                  Mat4& out);

/**
 * The view of a camera at `eye` that looks at `center`: world to eye space, where -Z is ahead and +Y is up.
 * An `up` along the line of sight, or no line of sight at all, leaves axes of length zero, but no NaN.
 */
void buildLookAt(const Vector& eye, const Vector& center, const Vector& up, float* out);
void buildLookAt(const Vector& eye, const Vector& center, const Vector& up, Mat4& out);

/**
 * Turns the matrix `m` about `axis`, a unit vector in the parent's frame, whatever `m` was: `m` becomes the
 * rotation times `m`, so that its translation turns too. A model turns about its own axis when `axis` is that
 * axis's column of `m`. The formula is the one of O. Rodrigues (Des lois geometriques qui regissent les
 * deplacements d'un systeme solide, 1840).
 */
void rotateAboutAxis(const Vector& axis, float radians, float* m);
void rotateAboutAxis(const Vector& axis, float radians, Mat4& m);

} // namespace Vantrel
