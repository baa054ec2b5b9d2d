#include "vtl/scene/object/WorldContainer.h"

#include "vtl/base/Report.h"
#include "vtl/base/SourceLocation.h"
#include "vtl/geometry/VantrelGeometryFrustum.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/scene/SceneHost.h"
#include "vtl/scene/camera/Camera.h"
#include "vtl/scene/gui/WOGUIRoot.h"
#include "vtl/scene/model/Model.h"
#include "vtl/scene/model/ModelDataShared.h"
#include "vtl/scene/object/ObjectList.h"
#include "vtl/scene/object/TimedObjectWalk.h"
#include "vtl/scene/object/WO.h"

#include <algorithm>

namespace Vantrel {
namespace {

/** Calls `visit` for `object` and everything below it that isn't null. */
template <class Visit>
void walkTree(WO& object, const Visit& visit) {
    visit(object);
    const WorldObjectChildContainer& children = object.getChildList();
    for (std::size_t i = 0; i < children.size(); ++i) {
        if (WO* const child = children.at(i)) {
            walkTree(*child, visit);
        }
    }
}

void toggleModelBoundingBox(WO& object) {
    if (Model* const model = object.getModel()) {
        model->boundingBoxVisible = !model->boundingBoxVisible;
    }
}

void toggleMeshBoundingBoxesOf(WO& object) {
    Model* const model = object.getModel();
    ModelDataShared* const data = model != nullptr ? model->getModelDataShared() : nullptr;
    if (data == nullptr) {
        return;
    }
    for (ModelMesh& mesh : data->getMeshes()) {
        mesh.boundingBoxVisible = !mesh.boundingBoxVisible;
    }
}

} // namespace

template <class Visit>
void WorldContainer::walkWidgets(Visit&& visit) const {
    if (!rootGUI) {
        return;
    }
    std::vector<WO*> waiting;
    const auto addChildrenOf = [&](const WO& widget) {
        const WorldObjectChildContainer& children = widget.getChildList();
        for (std::size_t i = children.size(); i > 0; --i) {
            waiting.push_back(children.at(i - 1));
        }
    };
    addChildrenOf(*rootGUI);
    while (!waiting.empty()) {
        WO* const widget = waiting.back();
        waiting.pop_back();
        if (widget == nullptr) {
            continue;
        }
        if (visit(widget)) {
            return;
        }
        addChildrenOf(*widget);
    }
}

WorldContainer::WorldContainer(GUIRoot guiRoot) {
    if (guiRoot == GUIRoot::made && ManagerOpenGLState::areFramebufferObjectsSupported()) {
        rootGUI = WOGUIRoot::New(nullptr, 1.0F, 1.0F);
        rootGUI->setVisible(true);
        rootGUI->setLabel(
            "Root WOGUI, internal worldList container for all WOGUI objects created by user...");
        rootGUI->getModel()->getSkin().setColor(255, 255, 255, 0);
    }
}

WorldContainer::~WorldContainer() {
    WorldContainer::clear();
}

std::size_t WorldContainer::sizeGUI() const {
    return rootGUI ? WO::countRecursive(rootGUI.get()) : 0;
}

int WorldContainer::getIndexOfWO(const WO* object) const {
    const auto index = ObjectList::find(woList, object);
    return index ? static_cast<int>(*index) : -1;
}

int WorldContainer::getIndexOfWORecursive(const WO* /*object*/) const {
    Report() << "WARNING: int Vantrel::WorldContainer::getIndexOfWORecursive( WO* wo )...\n"
             << "   Not Yet Implemented... Returning -1...\n\n";
    return -1;
}

WO* WorldContainer::getGUIWidgetAt(std::size_t i) const {
    WO* found = nullptr;
    walkWidgets([&](WO* widget) {
        found = i == 0 ? widget : nullptr;
        return i-- == 0;
    });
    return found;
}

int WorldContainer::getIndexOfGUIWidget(const WO* widget) const {
    if (!rootGUI) {
        return -1;
    }
    int index = -1;
    bool isFound = false;
    walkWidgets([&](const WO* candidate) {
        ++index;
        isFound = candidate == widget;
        return isFound;
    });
    if (!isFound) {
        Report() << "ERROR: widget " << (widget != nullptr ? widget->getLabel() : std::string())
                 << " not found in WorldContainer... Returning -1 for index...\n";
        return -1;
    }
    return index;
}

WOGUI* WorldContainer::getGUIWidgetAtPixel(int x, int y) const {
    WOGUI* const widget = rootGUI ? rootGUI->widgetAt(x, y) : nullptr;
    return widget != rootGUI.get() ? widget : nullptr;
}

void WorldContainer::push_back(WO* object) {
    if (object != nullptr && object->hasInterface(IFace::guiWidget)) {
        insertWidget(object);
    } else if (object != nullptr) {
        woList.push_back(object);
        object->addObserver(*this);
    }
    onListChanged();
}

void WorldContainer::insertWidget(WO* widget) {
    if (!rootGUI) {
        Report() << "ERROR: No rootGUI was created, not inserting WOGUI object..." << locationText() << "\n";
    } else if (widget->getParentWorldObject() != nullptr) {
        Report() << "WARNING: Cannot insert WOGUI* that has a parent into WorldList...\n"
                 << "   only top level WOGUI* can be inserted into the WorldList...\n"
                 << "   not inserting WO '" << widget->getLabel() << "'...\n";
    } else {
        rootGUI->getChildList().push_back(widget);
    }
}

bool WorldContainer::eraseViaWO(WO* object) {
    if (object == nullptr) {
        return false;
    }
    if (object->hasInterface(IFace::guiWidget)) {
        const bool isErased = rootGUI && rootGUI->getChildList().eraseViaWO(object);
        if (isErased) {
            onListChanged();
        }
        return isErased;
    }
    const auto index = ObjectList::find(woList, object);
    return index && eraseViaWOIndex(*index);
}

bool WorldContainer::eraseViaWOIndex(std::size_t index) {
    if (!ObjectList::checkIndex(woList, index, "WorldContainer")) {
        return false;
    }
    woList[index]->removeObserver(*this);
    woList.erase(woList.begin() + static_cast<std::ptrdiff_t>(index));
    onListChanged();
    return true;
}

void WorldContainer::clear() {
    for (WO* const object : woList) {
        object->removeObserver(*this);
    }
    woList.clear();
    onListChanged();
}

void WorldContainer::destroyAll() {
    while (!woList.empty()) {
        delete woList.back(); // which takes it off the list
    }
}

void WorldContainer::onWODestroyed(const WO& object) {
    ObjectList::dropLast(woList, object);
    onListChanged();
}

void WorldContainer::toggleModelBoundingBoxes() {
    for (WO* const object : woList) {
        walkTree(*object, toggleModelBoundingBox);
    }
    walkWidgets([](WO* widget) {
        toggleModelBoundingBox(*widget);
        return false;
    });
}

void WorldContainer::toggleMeshBoundingBoxes() {
    for (WO* const object : woList) {
        walkTree(*object, toggleMeshBoundingBoxesOf);
    }
}

void WorldContainer::renderGUI(Camera* camera) {
    ManagerSDLTime::startStopwatch(Stopwatch::object);
    ManagerOpenGLState::restorePerObjectState();
    ManagerSDLTime::totals().preservingStateMs += ManagerSDLTime::restartStopwatch(Stopwatch::object);
    if (!rootGUI) {
        return;
    }
    rootGUI->render(camera);
    ObjectTimes& times = timesOf(*rootGUI);
    times.renderMs += ManagerSDLTime::readStopwatch(Stopwatch::object);
    ++times.renderCount;
}

void WorldContainer::renderSelection(Camera* camera) {
    drawTimed(woList, findCullingFrustum(SceneHost::findCamera()), &ObjectTimes::renderSelectMs,
              &ObjectTimes::renderSelectCount, [camera](WO& object) { object.renderSelection(camera); });
}

std::string WorldContainer::toString() const {
    std::string report;
    for (const WO* const object : woList) {
        report += object->toStringRecursive(0);
    }
    return report;
}

std::string WorldContainer::toStringGUI() const {
    return rootGUI ? rootGUI->toStringRecursive(0) : std::string();
}

bool WorldContainer::contains(const WO* object) const {
    return ObjectList::find(woList, object).has_value() ||
           (rootGUI && rootGUI->getChildList().contains(object));
}

WO* WorldContainer::getWOByID(std::uint32_t id) const {
    const auto entry = std::ranges::find(woList, id, &WO::getID);
    return entry != woList.end() ? *entry : nullptr;
}

ObjectTimes& WorldContainer::timesOf(const WO& object) {
    return ManagerSDLTime::timesOf(object);
}

const VantrelGeometryFrustum* WorldContainer::findCullingFrustum(const Camera* camera) {
    return camera != nullptr && ManagerOpenGLState::isFrustumCullingEnabled() ? &camera->getFrustum()
                                                                              : nullptr;
}

} // namespace Vantrel
