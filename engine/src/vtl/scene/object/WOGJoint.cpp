#include "vtl/scene/object/WOGJoint.h"

#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/geometry/IndexedGeometryAxes.h"
#include "vtl/math/MatrixBuilders.h"
#include "vtl/scene/camera/Camera.h"
#include "vtl/scene/model/Model.h"
#include "vtl/scene/object/WO.h"

#include <cmath>

namespace Vantrel {
namespace {

/** `v` of the world in the frame of `parent`, as a direction. */
Vector inFrameOf(const WO& parent, const Vector& v) {
    const Model* const model = parent.getModel();
    return model != nullptr ? model->inverseRotateVector(v) : v;
}

} // namespace

WOGJoint::WOGJoint(WO* jointChild) : child(jointChild), parent(jointChild->getParentWorldObject()) {
    checkParent();
    offset = inFrameOf(*parent, child->getPosition() - parent->getPosition());
}

WOGJoint::WOGJoint(WO* jointChild, const Vector& anchorPoint, const Vector& lookAxis,
                   const Vector& normalAxis)
    : child(jointChild), parent(jointChild->getParentWorldObject()) {
    checkParent();
    constexpr float perpendicular = 0.001F;
    if (std::abs(lookAxis.dotProduct(normalAxis)) >= perpendicular) {
        Report() << "WARNING!!! User created a WOGJoint such that the normal vector \n   and lookDir vector"
                 << "are NOT PERPENDICULAR (orthogonal)!\n"
                 << "   Joint Rotations will probably behave unexpectedly unless\n"
                 << "   the user knows what he is doing and wants this behavior.\n"
                 << "Press a key to continue loading\n\n\n";
        Pause::waitForKey();
    }
    anchor = inFrameOf(*parent, anchorPoint);
    offset = inFrameOf(*parent, child->getPosition() - getAnchorWorld());
}

WOGJoint::~WOGJoint() = default;

void WOGJoint::checkParent() const {
    if (!parent) {
        Report() << "MUST SET A WO PARENT BEFORE CREATING A JOINT! EXITING\n";
        Pause::exitAfterKey();
    }
}

void WOGJoint::rotateAbout(std::size_t column, float radians) {
    rotateAboutAxis(columnOf(column).normalizeMe(), radians, jointMatrix);
}

void WOGJoint::updateChildPose() {
    Model* const model = child ? child->getModel() : nullptr;
    if (model == nullptr || !parent) {
        return;
    }
    const Mat4 parentMatrix = parent->getDisplayMatrix();
    model->setDisplayMatrix(parentMatrix * jointMatrix);
    child->setPosition(getAnchorWorld() + parentMatrix * (jointMatrix * offset));
}

void WOGJoint::render(Camera* camera) {
    constexpr float extent = 10.0F;
    if (!axes) {
        axes = IndexedGeometryAxes::New(extent);
    }
    Mat4 place = parent ? parent->getDisplayMatrix() * jointMatrix : jointMatrix;
    const Vector origin = getAnchorWorld();
    place[12] = origin.x;
    place[13] = origin.y;
    place[14] = origin.z;
    axes->renderAt(camera->getShaderCamera(), place);
}

Vector WOGJoint::getAnchorWorld() const {
    return parent ? parent->getPosition() + parent->getDisplayMatrix() * anchor : anchor;
}

Vector WOGJoint::axisInWorld(std::size_t column) const {
    return parent ? parent->getDisplayMatrix() * columnOf(column) : columnOf(column);
}

} // namespace Vantrel
