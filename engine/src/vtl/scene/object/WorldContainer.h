#pragma once

#include "vtl/base/ManagerSDLTime.h"
#include "vtl/scene/object/ObjectList.h"
#include "vtl/scene/object/WOObserver.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Vantrel {

class Camera;
class Model;
class VantrelGeometryFrustum;
class WOGUI;
class WOGUIRoot;

/** Whether a list of world objects has a tree of widgets. */
enum class GUIRoot : std::uint8_t { none, made };

/**
 * An ordered list of world objects, and the tree of widgets that stand with them. It owns none of the
 * objects: who made one destroys it, and one that dies leaves the list. It owns the widgets. Main thread.
 */
class WorldContainer : private WOObserver {
public:
    /** Makes a root for widgets where it is asked for one and frame buffer objects are supported. */
    explicit WorldContainer(GUIRoot guiRoot = GUIRoot::none);
    WorldContainer(const WorldContainer&) = delete;
    WorldContainer& operator=(const WorldContainer&) = delete;
    /** Destroys all widgets. */
    virtual ~WorldContainer();

    /** Prepares the order for a frame. */
    virtual void sort(Camera* camera) = 0;
    virtual std::size_t size() const { return woList.size(); }
    /** All widgets below the root. */
    virtual std::size_t sizeGUI() const;
    /** Entry `i`, which must be below `size()`. */
    virtual WO* at(std::size_t i) const { return woList[i]; }
    /** Place of a top-level object, -1 when it isn't one. */
    virtual int getIndexOfWO(const WO* object) const;
    /** Not implemented: reports that and answers -1. */
    virtual int getIndexOfWORecursive(const WO* object) const;
    /** Widget `i` of the tree, parents before their children, without the root; null past the end. */
    virtual WO* getGUIWidgetAt(std::size_t i) const;
    virtual WOGUIRoot* getRootGUI() const { return rootGUI.get(); }
    /** Place in the same order; -1 for another object, which is reported where there is a root. */
    virtual int getIndexOfGUIWidget(const WO* widget) const;
    /** The topmost widget at a pixel of the window, counted from its top left; null when there is none. */
    virtual WOGUI* getGUIWidgetAtPixel(int x, int y) const;
    /** Appends an object. A widget becomes a child of the root, which owns it from then on. Null is ignored;
     * a widget with a parent and one without a root to go to are refused with a report. */
    virtual void push_back(WO* object);
    /** Removes the first entry equal to `object`, or a widget from the root; says whether there was one. */
    virtual bool eraseViaWO(WO* object);
    /** Removes entry `index`, keeping the order; one out of bounds is reported and answered with false. */
    virtual bool eraseViaWOIndex(std::size_t index);
    virtual void clear();
    /** Flips whether the boxes of all models are drawn, of children and widgets too. */
    virtual void toggleModelBoundingBoxes();
    /** The same for the boxes of all meshes, but for those of widgets. */
    virtual void toggleMeshBoundingBoxes();
    /** Draws all objects. */
    virtual void render(Camera* camera) = 0;
    /** Draws the widgets. */
    virtual void renderGUI(Camera* camera);
    /** Draws all objects in the colours of their ids, but for those outside of the view where culling is on.
     */
    virtual void renderSelection(Camera* camera);
    /** The reports of all objects with their children. */
    virtual std::string toString() const;
    /** Those of the widgets. */
    virtual std::string toStringGUI() const;
    /** Whether it is a top-level object or a widget directly below the root. */
    virtual bool contains(const WO* object) const;
    /** Hooks: a model with meshes has moved or turned, a child has been erased from or joined a tree. */
    virtual void onModelTranslated(Model* /*model*/) {}
    virtual void onModelRotated(Model* /*model*/) {}
    virtual void onChildErased(WO* /*child*/) {}
    virtual void onChildInserted(WO* /*child*/, WO* /*root*/) {}
    /** The top-level object with this id, null when there is none. */
    virtual WO* getWOByID(std::uint32_t id) const;

    /** Destroys every object of the list, the last one first. */
    void destroyAll();
    /**
     * Calls `work(WO&)` for every object in order and adds the time it took to that field of the object's
     * record. Objects may leave the list, and die, while it works; while they are drawn they may not.
     */
    template <class Work>
    void forEachTimed(Stopwatch stopwatch, std::int32_t ObjectTimes::*field, Work&& work) {
        for (std::size_t i = 0; i < woList.size();) {
            WO* const object = woList[i];
            ManagerSDLTime::startStopwatch(stopwatch);
            work(*object);
            const ObjectList::Step step = ObjectList::stepOn(woList, i, object);
            if (step.isObjectThere) {
                timesOf(*object).*field += ManagerSDLTime::readStopwatch(stopwatch);
            }
            i = step.next;
        }
    }

protected:
    static ObjectTimes& timesOf(const WO& object);
    /** The camera's frustum where culling is on, else null. */
    static const VantrelGeometryFrustum* findCullingFrustum(const Camera* camera);
    /** Something has been added, if only in vain, or has gone. */
    virtual void onListChanged() {}

    std::vector<WO*> woList;

private:
    /** Calls `visit(WO*)` for the widgets in the order of `getGUIWidgetAt` until it answers true. */
    template <class Visit>
    void walkWidgets(Visit&& visit) const;
    void insertWidget(WO* widget);
    void onWODestroyed(const WO& object) override;

    std::unique_ptr<WOGUIRoot> rootGUI;
};

} // namespace Vantrel
