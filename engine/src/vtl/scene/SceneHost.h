#pragma once

namespace Vantrel {

class Camera;
class WorldContainer;

/** What the scene asks of the application that it is part of. Main thread. */
class SceneHost {
public:
    /** The camera in use; null before there is one. */
    virtual Camera* getCamera() = 0;
    /** The world; null before there is one. */
    virtual WorldContainer* getWorldContainer() = 0;

    /** Who answers from now on; null for nobody. */
    static void set(SceneHost* host) { current = host; }
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
