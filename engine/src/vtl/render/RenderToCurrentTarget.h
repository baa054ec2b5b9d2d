#pragma once

namespace Vantrel {

class Camera;
class VantrelFrameBufferObject;
class VantrelGLRendererBase;
class WO;
class WorldContainer;

/**
 * Draws a world into whatever is bound, after clearing it, where `clear` says so, to the colour of `target`.
 * With `updateCamera` the camera moves and its viewport is drawn into, else all of what is bound. `pause`
 * shows the window and waits for a key. Camera and GL have their projection and view as before afterwards.
 * Main thread, with the context.
 */
void renderToCurrentTarget(const VantrelFrameBufferObject& target, VantrelGLRendererBase& renderer,
                           WorldContainer& world, Camera& camera, bool pause, bool clear, bool usePerspective,
                           bool updateCamera);

/** The same for one object, into all of what is bound: a widget in orthographic projection, anything else in
 * perspective. The camera moves. */
void renderToCurrentTarget(const VantrelFrameBufferObject& target, VantrelGLRendererBase& renderer,
                           WO& object, Camera& camera, bool pause, bool clear);

} // namespace Vantrel
