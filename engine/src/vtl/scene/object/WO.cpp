#include "vtl/scene/object/WO.h"

#include "vtl/base/ManagerSDLTime.h"
#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/math/VantrelGeometryRayVsFace.h"
#include "vtl/scene/model/MGLNullModel.h"
#include "vtl/scene/model/Model.h"
#include "vtl/scene/object/WOGJoint.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cxxabi.h>
#include <limits>
#include <typeinfo>

namespace Vantrel {
namespace {

std::uint32_t lastID = 0;

void reportKey(const char* callback, const SDL_KeyboardEvent& event, const WO& object) {
    Report() << callback << " '" << static_cast<char>(event.keysym.sym & 0xFF) << "' woID " << object.getID()
             << " - '" << object.getLabel() << "'\n";
}

/** The name of the object's class without its namespace. */
std::string classNameOf(const WO& object) {
    int status = 0;
    const std::unique_ptr<char, void (*)(void*)> name(
        abi::__cxa_demangle(typeid(object).name(), nullptr, nullptr, &status), std::free);
    const std::string full = status == 0 ? name.get() : typeid(object).name();
    const std::size_t colons = full.rfind("::", full.find('<'));
    return colons == std::string::npos ? full : full.substr(colons + 2);
}

} // namespace

std::unique_ptr<WO> WO::New(const std::string& fileName, const Vector& scale, MESH_SHADING_TYPE shadingType) {
    auto object = std::make_unique<WO>();
    object->onCreate(fileName, scale, shadingType);
    return object;
}

WO::WO() : woID(++lastID) {
    childList.setParentWO(this);
}

WO::~WO() {
    notifyObservers();
    ManagerSDLTime::forget(*this);
    joint.reset();
    destroyChildren();
}

void WO::notifyObservers() {
    while (!observers.empty()) {
        WOObserver* const observer = observers.back();
        observers.pop_back();
        observer->onWODestroyed(*this);
    }
}

void WO::destroyChildren() {
    while (!childList.empty()) {
        if (WO* const last = childList.at(childList.size() - 1)) {
            delete last; // which takes it off the list
        } else {
            childList.pop_back();
        }
    }
}

void WO::removeObserver(WOObserver& observer) {
    const auto entry = std::find(observers.rbegin(), observers.rend(), &observer);
    if (entry != observers.rend()) {
        observers.erase(std::next(entry).base());
    }
}

std::string WO::toString(int indent) const {
    const std::string inset(static_cast<std::size_t>(std::max(indent, 0)) * 3, ' ');
    const WO* const parent = getParentWorldObject();
    ReportText out;
    out << inset << "|----------\n"
        << inset << "|woID:" << woID << "   Label: '" << label << "'   addr: '"
        << static_cast<const void*>(this) << "'\n"
        << inset << "|parentWO addr:" << static_cast<const void*>(parent)
        << "   parentWOID:" << (parent != nullptr ? parent->getID() : 0) << "   parentLabel: '"
        << (parent != nullptr ? parent->getLabel() : std::string()) << "'\n"
        << inset << "|Class Type: '" << classNameOf(*this) << "'   Num children: " << childList.size() << "\n"
        << inset << "|----------\n";
    return out.str();
}

std::string WO::toStringRecursive(int indent) const {
    std::string report = toString(indent);
    childList.forEach([&](const WO& child) { report += child.toStringRecursive(indent + 1); });
    return report;
}

std::unique_ptr<Model> WO::setModel(std::unique_ptr<Model> other) {
    if (other != nullptr && other->getParentWO() != this) {
        Report() << "ERROR: WO::setModel(). In passed model must\n"
                 << "   have been created using this WO as the parentWO\n"
                 << "   constructor parameter.\n"
                 << "   Press ENTER to exit.\n";
        Pause::exitAfterKey();
    }
    return std::exchange(model, std::move(other));
}

Mat4 WO::getDisplayMatrix() const {
    return model ? model->getDisplayMatrix() : Mat4();
}

void WO::getDisplayMatrix(float* out16) const {
    std::ranges::copy(getDisplayMatrix().m, out16);
}

Vector WO::getPosition() const {
    return model ? model->getTranslation() : Vector();
}

void WO::setPosition(const Vector& place) {
    if (model && !childList.empty()) {
        const Vector delta = place - getPosition();
        childList.forEach([&](WO& child) { child.moveRelative(delta); });
    }
    setPositionOfThisOnly(place);
}

void WO::setPositionOfThisOnly(const Vector& place) {
    if (model) {
        model->setTranslation(place);
    }
}

void WO::moveRelative(const Vector& amount) {
    moveRelativeThisOnly(amount);
    childList.forEach([&](WO& child) { child.moveRelative(amount); });
}

void WO::moveRelativeThisOnly(const Vector& amount) {
    if (model) {
        model->moveRelative(amount);
    }
}

Vector WO::getLookDirection() const {
    return model ? model->getLookDirection() : unitX;
}

Vector WO::getNormalDirection() const {
    return model ? model->getNormalDirection() : unitZ;
}

void WO::resetRotation() {
    if (model) {
        model->resetRotation();
    }
}

void WO::turnModel(void (Model::*turn)(float), float radians) {
    if (model && std::isfinite(radians)) {
        ((*model).*turn)(radians);
    }
}

void WO::rotateAboutRelX(float radians) {
    turnModel(&Model::rotateAboutRelX, radians);
}

void WO::rotateAboutRelY(float radians) {
    turnModel(&Model::rotateAboutRelY, radians);
}

void WO::rotateAboutRelZ(float radians) {
    turnModel(&Model::rotateAboutRelZ, radians);
}

void WO::rotateAboutGlobalX(float radians) {
    turnModel(&Model::rotateAboutGlobalX, radians);
}

void WO::rotateAboutGlobalY(float radians) {
    turnModel(&Model::rotateAboutGlobalY, radians);
}

void WO::rotateAboutGlobalZ(float radians) {
    turnModel(&Model::rotateAboutGlobalZ, radians);
}

void WO::onKeyDown(const SDL_KeyboardEvent& event) {
    reportKey("WO::onKeyDown()", event, *this);
}

void WO::onKeyUp(const SDL_KeyboardEvent& event) {
    reportKey("WO::onKeyUp()", event, *this);
}

void WO::onSelected(const SDL_MouseButtonEvent& event) {
    if (WO* const parent = getParentWorldObject()) {
        parent->onChildSelected(event);
    }
}

void WO::onChildSelected(const SDL_MouseButtonEvent& event) {
    if (WO* const parent = getParentWorldObject()) {
        parent->onChildSelected(event);
    }
}

void WO::render(Camera* camera) {
    if (visible && model) {
        model->render(camera);
    }
    if (joint && joint->visible) {
        joint->render(camera);
    }
    childList.forEach([&](WO& child) { child.render(camera); });
}

void WO::renderSelection(Camera* camera) {
    if (visible && model) {
        std::uint8_t r = 0;
        std::uint8_t g = 0;
        std::uint8_t b = 0;
        getSelectionColor(r, g, b);
        model->renderSelection(camera, r, g, b);
    }
    childList.forEach([&](WO& child) { child.renderSelection(camera); });
}

void WO::resetJoint() {
    if (joint) {
        joint->resetRotation();
    }
    childList.forEach([](WO& child) { child.resetJoint(); });
}

void WO::lockWRTparent(std::unique_ptr<WOGJoint> newJoint) {
    if (getParentWorldObject() == nullptr) {
        Report() << "NO PARENT IS SET YET, CANNOT LOCK WRT PARENT!\n";
        Pause::exitAfterKey();
    }
    isLockedWRTparent = true;
    joint = newJoint ? std::move(newJoint) : std::make_unique<WOGJoint>(this);
}

void WO::unLockWRTparent() {
    if (getParentWorldObject() != nullptr && isLockedWRTparent) {
        isLockedWRTparent = false;
        joint.reset();
    }
}

void WO::turnJoint(void (WOGJoint::*turn)(float), float radians) {
    if (isLockedWRTparent && joint && std::isfinite(radians)) {
        ((*joint).*turn)(radians);
    }
}

void WO::rotateJointAboutZ(float radians) {
    turnJoint(&WOGJoint::rotateAboutZ, radians);
}

void WO::rotateJointAboutY(float radians) {
    turnJoint(&WOGJoint::rotateAboutY, radians);
}

void WO::rotateJointAboutX(float radians) {
    turnJoint(&WOGJoint::rotateAboutX, radians);
}

bool WO::intersectRay(const Vector& start, const Vector& end, Vector& outPoint, bool segmentOnly,
                      VantrelGeometryRayVsFace* outFace, WO** outObject) {
    float nearest = std::numeric_limits<float>::max();
    bool isHit = false;
    const auto offer = [&](const Vector& point, const VantrelGeometryRayVsFace& face, WO* object) {
        const float distance = (point - start).magnitudeSquared();
        if (distance >= nearest) {
            return;
        }
        nearest = distance;
        isHit = true;
        outPoint = point;
        if (outFace != nullptr) {
            *outFace = face;
        }
        if (outObject != nullptr) {
            *outObject = object;
        }
    };
    Vector point;
    VantrelGeometryRayVsFace face;
    if (model && model->intersectRayOfOwner(start, end, point, segmentOnly, face)) {
        offer(point, face, this);
    }
    childList.forEach([&](WO& child) {
        WO* object = nullptr;
        if (child.intersectRay(start, end, point, segmentOnly, &face, &object)) {
            offer(point, face, object);
        }
    });
    return isHit;
}

bool WO::isInFrustum(const VantrelGeometryFrustum& frustum) const {
    if (!cullable || (visible && model && model->isInFrustum(frustum))) {
        return true;
    }
    for (std::size_t i = 0; i < childList.size(); ++i) {
        const WO* const child = childList.at(i);
        if (child != nullptr && child->isInFrustum(frustum)) {
            return true;
        }
    }
    return false;
}

void WO::updateGL() {
    timeAliveMs += ManagerSDLTime::getSimDeltaMs();
    childList.forEach([](WO& child) { child.updateGL(); });
}

void WO::updateForcesAndJoints() {
    childList.forEach([](WO& child) { child.updateForcesAndJoints(); });
}

void WO::updatePositionAndOrientation() {
    childList.forEach([](WO& child) { child.updatePositionAndOrientation(); });
}

void WO::onUpdate() {
    if (isLockedWRTparent && joint && getParentWorldObject() != nullptr) {
        joint->updateChildPose();
    }
    childList.forEach([](WO& child) { child.onUpdate(); });
}

void WO::checkModelNotNull() {
    if (!model) {
        Report() << "Model is NULL! This does not comform with VANTREL best standards and practices!\n"
                 << "Press ENTER to continue.\n";
        Pause::waitForKey();
    }
    childList.forEach([](WO& child) { child.checkModelNotNull(); });
}

void WO::onCreate(const std::string& fileName, const Vector& scale, MESH_SHADING_TYPE shadingType) {
    model = Model::New(this, fileName, scale, shadingType);
}

void WO::onCreate() {
    model = std::make_unique<MGLNullModel>(this);
}

void WO::setParentWorldObject(WO* parent) {
    if (!parentWO) { // a lock to one that has died is none to the next
        isLockedWRTparent = false;
        joint.reset();
    }
    parentWO = parent;
}

bool WO::isInTreeOf(const WO& upper) const {
    const WO* object = this;
    while (object != nullptr && object != &upper) {
        object = object->getParentWorldObject();
    }
    return object != nullptr;
}

void WO::getSelectionColor(std::uint8_t& r, std::uint8_t& g, std::uint8_t& b) const {
    selectionColorOf(woID, r, g, b);
}

void WO::selectionColorOf(std::uint32_t id, std::uint8_t& r, std::uint8_t& g, std::uint8_t& b) {
    r = static_cast<std::uint8_t>(id >> 16U);
    g = static_cast<std::uint8_t>(id >> 8U);
    b = static_cast<std::uint8_t>(id);
}

void WO::setVisible(bool isShown) {
    visible = isShown;
    for (std::size_t i = 0; i < childList.size(); ++i) {
        if (WO* const child = childList.at(i)) {
            child->setVisible(isShown);
        } else if (!isShown) {
            Report() << "NULL child!\n";
        }
    }
}

std::uint32_t WO::countRecursive(const WO* object) {
    std::uint32_t count = 0;
    object->childList.forEach([&](const WO& child) { count += 1 + countRecursive(&child); });
    return count;
}

} // namespace Vantrel
