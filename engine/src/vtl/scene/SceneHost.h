#pragma once

#include "vtl/math/VectorT.h"

namespace Vantrel {

class Camera;
class WO;
class WorldContainer;

/** What the scene asks of the application that it is part of. Main thread. */
class SceneHost {
public:
    /** The camera in use; null before there is one. */
    virtual Camera* getCamera() = 0;
    /** The world; null before there is one. */
    virtual WorldContainer* getWorldContainer() = 0;
    /** Finds what that camera sees at a pixel of the window, y downwards; the next two tell what it was. */
    virtual void processSelection(int /*x*/, int /*y*/, Camera* /*camera*/) {}
    /** What the last selection hit; null for nothing. */
    virtual WO* getSelectedWO() { return nullptr; }
    /** Where in the world the last selection hit; null for nowhere. */
    virtual const Vector* getSelectedWorldCoord() { return nullptr; }

    /** Who answers from now on; null for nobody. */
    static void set(SceneHost* host) { current = host; }
    /** Who answers; null for nobody. */
    static SceneHost* find() { return current; }
    /** The world of who answers, if there is one. */
    static WorldContainer* findWorld() { return current != nullptr ? current->getWorldContainer() : nullptr; }
    /** The camera of who answers, if there is one. */
    static Camera* findCamera() { return current != nullptr ? current->getCamera() : nullptr; }

protected:
    ~SceneHost() = default;

private:
    static inline SceneHost* current = nullptr;
};

} // namespace Vantrel
