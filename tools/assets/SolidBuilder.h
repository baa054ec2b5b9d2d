#pragma once

#include "tools/assets/TriangleModel.h"

#include <span>

namespace Assets {

/** A point of an outline that is turned about an upright axis. */
struct OutlinePoint {
    float radius = 0;
    float z = 0;
};

/** Adds solids to a model. Faces that meet in an edge stay a hair apart, so that they share no normals. */
class SolidBuilder {
public:
    explicit SolidBuilder(TriangleModel& model_) : model(model_) {}

    /**
     * What an outline makes, turned about the axis through (x, y) in `sides` steps; where it goes up is its
     * outside. Its points are edges; texture coordinates are the places on the ground. Only its last point
     * may be on the axis.
     */
    void addTurned(float x, float y, int sides, std::span<const OutlinePoint> outline);
    /** The same without edges between the points. */
    void addTurnedSmooth(float x, float y, int sides, std::span<const OutlinePoint> outline);
    /** A closed upright cylinder. */
    void addPost(float x, float y, float radius, float bottom, float top, int sides);
    /** A box about `middle`; `along`, `across` and `up`, right-handed, are half its edges. */
    void addBox(const Point& middle, const Point& along, const Point& across, const Point& up);

private:
    TriangleModel& model;
};

} // namespace Assets
