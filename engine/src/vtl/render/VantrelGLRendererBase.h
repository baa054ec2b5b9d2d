#pragma once

namespace Vantrel {

class Camera;
class WorldContainer;

/** Draws the world for a camera, one frame at a time. Main thread. */
class VantrelGLRendererBase {
public:
    virtual ~VantrelGLRendererBase() = default;

    /** One whole frame, buffer swap included. */
    virtual void render(Camera* camera, WorldContainer* world) = 0;
    /** One view without the swap. */
    virtual void renderSingleFrame(Camera* camera, WorldContainer* world) = 0;
    /** The passes of one view. */
    virtual void renderScene(Camera* camera, WorldContainer* world, bool clear) = 0;
    /** Lets the camera move and gives its view to GL. */
    virtual void updateCamera(Camera* camera) = 0;
};

} // namespace Vantrel
