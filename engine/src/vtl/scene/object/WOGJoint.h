#pragma once

#include "vtl/math/Mat4.h"
#include "vtl/math/VectorT.h"
#include "vtl/scene/object/WORef.h"

#include <memory>

namespace Vantrel {

class Camera;
class IndexedGeometryAxes;

/**
 * Ties the pose of a world object to that of its parent: the child keeps its place relative to an anchor in
 * the parent and turns as the parent does, and the joint can turn it further about the anchor. Main thread.
 */
class WOGJoint {
public:
    /** At the parent's origin. A child without a parent ends the process after a key. */
    explicit WOGJoint(WO* jointChild);
    /**
     * At `anchorPoint`, as seen from the parent's position along the world's axes. `lookAxis` and
     * `normalAxis` should be at right angles; a person is warned when they aren't.
     */
    WOGJoint(WO* jointChild, const Vector& anchorPoint, const Vector& lookAxis, const Vector& normalAxis);
    WOGJoint(const WOGJoint&) = delete;
    WOGJoint& operator=(const WOGJoint&) = delete;
    virtual ~WOGJoint();

    /** Turns the joint about one of its present axes; the child follows in the next update. */
    void rotateAboutZ(float radians) { rotateAbout(2, radians); }
    void rotateAboutY(float radians) { rotateAbout(1, radians); }
    void rotateAboutX(float radians) { rotateAbout(0, radians); }
    void resetRotation() { jointMatrix.setIdentity(); }
    /** Puts the child where the joint holds it, with its own children. */
    void updateChildPose();
    /** Draws the joint's axes at its anchor. */
    void render(Camera* camera);
    /** Where the joint is in the world. */
    Vector getAnchorWorld() const;
    /** The joint's X and Z axes in the world. */
    Vector getLookDirection() const { return axisInWorld(0); }
    Vector getNormalDirection() const { return axisInWorld(2); }
    float getScale() const { return jointScale; }
    void setScale(float scale) { jointScale = scale; }

    /** Whether the axes are drawn. */
    bool visible = false;

private:
    void checkParent() const;
    Vector columnOf(std::size_t column) const { return Vector(&jointMatrix.m[4 * column]); }
    Vector axisInWorld(std::size_t column) const;
    void rotateAbout(std::size_t column, float radians);

    WORef<WO> child;
    WORef<WO> parent;
    /** From the anchor to the child, in the parent's frame, before the joint's rotation. */
    Vector offset;
    Vector anchor;
    float jointScale = 1.0F;
    Mat4 jointMatrix;
    /** Made when they are first drawn. */
    std::unique_ptr<IndexedGeometryAxes> axes;
};

} // namespace Vantrel
