#pragma once

#include "vtl/base/ReportedObject.h"
#include "vtl/math/Mat4.h"
#include "vtl/math/VectorT.h"
#include "vtl/mesh/MeshShadingType.h"
#include "vtl/scene/object/IFace.h"
#include "vtl/scene/object/WORef.h"
#include "vtl/scene/object/WorldObjectChildContainer.h"

#include <SDL.h>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Vantrel {

class Camera;
class Model;
class VantrelGeometryFrustum;
class VantrelGeometryRayVsFace;
class WOGJoint;
class WOObserver;

/**
 * World object: base of everything that stands in the scene. It is identified, labelled and part of a tree;
 * where it stands and what it looks like is its model's, which it owns with its joint and its children.
 *
 * Made in two steps: the constructor sets the fields, `onCreate`, which every `New` calls, makes the model.
 * Without a model an object stands at the origin, unturned, and draws nothing. Main thread.
 */
class WO : public virtual IFace, public ReportedObject {
public:
    static std::string getClassName() { return "WO"; }
    /** An object that shows a model file; one that can't be loaded ends the process after a key. */
    static std::unique_ptr<WO> New(const std::string& fileName, const Vector& scale = Vector(1, 1, 1),
                                   MESH_SHADING_TYPE shadingType = MESH_SHADING_TYPE::mstAUTO);

    /** Takes the next id of the process-wide counter, which starts at 1 and is never reset. */
    WO();
    ~WO() override;

    virtual void setLabel(std::string name) { label = std::move(name); }
    /** A report of several lines, each behind `indent` times three blanks. */
    virtual std::string toString(int indent) const;
    /** The same, followed by the reports of the children, one step further in. */
    virtual std::string toStringRecursive(int indent) const;
    virtual Model* getModel() const { return model.get(); }
    /**
     * Takes a model that was made with this object as its owner; another one ends the process after a key.
     * Returns the old model, which dies unless the caller keeps it, and must die before this object.
     */
    virtual std::unique_ptr<Model> setModel(std::unique_ptr<Model> other);

    /** Columns are the object's own axes in the world's; the position isn't in it. */
    virtual Mat4 getDisplayMatrix() const;
    virtual void getDisplayMatrix(float* out16) const;
    /** Metres, in the world's axes. */
    virtual Vector getPosition() const;
    virtual void setPosition(float x, float y, float z) { setPosition(Vector(x, y, z)); }
    /** Moves the object, and its children by as much. */
    virtual void setPosition(const Vector& place);
    virtual void setPositionOfThisOnly(const Vector& place);
    virtual void moveRelative(const Vector& amount);
    virtual void moveRelativeThisOnly(const Vector& amount);
    /** Unit vector along the object's own +X, in the world's axes. */
    virtual Vector getLookDirection() const;
    /** Unit vector along the object's own +Z, in the world's axes. */
    virtual Vector getNormalDirection() const;
    /** Turning an object leaves its children alone, but for those that are locked to it by a joint. */
    virtual void resetRotation();
    virtual void rotateAboutRelX(float radians);
    virtual void rotateAboutRelY(float radians);
    virtual void rotateAboutRelZ(float radians);
    virtual void rotateAboutGlobalX(float radians);
    virtual void rotateAboutGlobalY(float radians);
    virtual void rotateAboutGlobalZ(float radians);

    virtual void onKeyDown(const SDL_KeyboardEvent& event);
    virtual void onKeyUp(const SDL_KeyboardEvent& event);
    virtual void onMouseDown(const SDL_MouseButtonEvent& /*event*/) {}
    virtual void onMouseUp(const SDL_MouseButtonEvent& /*event*/) {}
    virtual void onMouseWheelScroll(const SDL_MouseWheelEvent& /*event*/) {}
    virtual void onMouseMove(const SDL_MouseMotionEvent& /*event*/) {}
    /** A click in the scene hit this object. */
    virtual void onSelected(const SDL_MouseButtonEvent& event);
    /** A click hit a child, or a child of a child. */
    virtual void onChildSelected(const SDL_MouseButtonEvent& event);

    /** Draws the object, its joint where that is visible, and its children. */
    virtual void render(Camera* camera);
    /** Draws them in the colours of their ids. */
    virtual void renderSelection(Camera* camera);

    virtual void resetJoint();
    /**
     * Ties the pose to the parent's by `newJoint`, or else by a joint that keeps the present place in the
     * parent's frame; the object turns as the parent does. Without a parent the process ends after a key.
     */
    virtual void lockWRTparent(std::unique_ptr<WOGJoint> newJoint = nullptr);
    virtual void unLockWRTparent();
    /** Whether the pose is tied to the parent's; it no longer is when the parent has died. */
    virtual bool getIsLockedWRTparent() const { return isLockedWRTparent && parentWO; }
    virtual void rotateJointAboutZ(float radians);
    virtual void rotateJointAboutY(float radians);
    virtual void rotateJointAboutX(float radians);
    /** Null without a joint, and when the parent that it hung on has died. */
    virtual WOGJoint* getJoint() const { return parentWO ? joint.get() : nullptr; }

    /**
     * The nearest point, seen from `start`, where a line of the world meets a triangle of this object or of
     * its children. Without `segmentOnly` the line has no end to either side. `outFace` and `outObject` tell
     * the triangle, in the model space of its object, and that object. False and nothing written where the
     * line hits nothing.
     */
    virtual bool intersectRay(const Vector& start, const Vector& end, Vector& outPoint, bool segmentOnly,
                              VantrelGeometryRayVsFace* outFace = nullptr, WO** outObject = nullptr);
    /** Whether the object or one of its children may be seen; always so for one that isn't cullable. */
    virtual bool isInFrustum(const VantrelGeometryFrustum& frustum) const;

    /** Runs once per simulation step, before `onUpdate`. */
    virtual void updateGL();
    virtual void updateForcesAndJoints();
    virtual void updatePositionAndOrientation();
    /** Runs once per frame: the pose follows the parent where it is locked, then the children's do. */
    virtual void onUpdate();
    /** Reports every object of the tree that has no model, each with a pause. */
    virtual void checkModelNotNull();

    virtual void onCreate(const std::string& fileName, const Vector& scale, MESH_SHADING_TYPE shadingType);
    virtual void onCreate();

    std::uint32_t getID() const override { return woID; }
    const std::string& getLabel() const override { return label; }
    WO* getParentWorldObject() const { return parentWO.get(); }
    void setParentWorldObject(WO* parent);
    /** Whether this is `upper` or stands somewhere below it. */
    bool isInTreeOf(const WO& upper) const;
    WorldObjectChildContainer& getChildList() { return childList; }
    const WorldObjectChildContainer& getChildList() const { return childList; }
    /** Hands a child over; the object stays good as long as it is one. */
    template <class Child>
    Child& addChild(std::unique_ptr<Child> child) {
        Child& kept = *child;
        childList.push_back(child.release()); // the list's from here on
        return kept;
    }
    /** The low 24 bits of the id, the highest of them in red. */
    void getSelectionColor(std::uint8_t& r, std::uint8_t& g, std::uint8_t& b) const;
    /** The same of any id. */
    static void selectionColorOf(std::uint32_t id, std::uint8_t& r, std::uint8_t& g, std::uint8_t& b);
    /** Sum of the simulation steps seen so far, in milliseconds. */
    std::uint32_t getTimeAliveMs() const { return timeAliveMs; }
    bool isVisible() const { return visible; }
    /** Shows or hides the object and everything below it. */
    void setVisible(bool isShown);
    /** How many objects there are below `object`. */
    static std::uint32_t countRecursive(const WO* object);

    /** `observer` hears of this object's end, once for each time that it was added. */
    void addObserver(WOObserver& observer) { observers.push_back(&observer); }
    /** Takes back one `addObserver`. */
    void removeObserver(WOObserver& observer);

    /** Whether `isInFrustum` looks at all. */
    bool cullable = true;
    /** Place in a sorted list: 0 and 1 come first, 3 by distance, 4 last. */
    std::uint8_t renderOrderType = 3;

private:
    void turnModel(void (Model::*turn)(float), float radians);
    void turnJoint(void (WOGJoint::*turn)(float), float radians);
    void notifyObservers();
    void destroyChildren();

    bool visible = true;
    bool isLockedWRTparent = false;
    std::unique_ptr<WOGJoint> joint;
    std::uint32_t woID;
    std::string label;
    std::unique_ptr<Model> model;
    WORef<WO> parentWO;
    WorldObjectChildContainer childList;
    std::uint32_t timeAliveMs = 0;
    std::vector<WOObserver*> observers;
};

} // namespace Vantrel
