#pragma once

#include "vtl/gl/shader/GLSLUniformBlockCameraTransforms.h"
#include "vtl/gl/shader/GLSLUniformBlockT.h"
#include "vtl/math/VectorT.h"

#include <SDL.h>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace Vantrel {

class Camera;
class ShadowMap;
class WO;
class WorldContainer;

/**
 * What renderers have in common: how a camera's view gets to GL, and what a pixel shows. Main thread, with
 * the context.
 */
class VantrelGLRendererBase {
public:
    VantrelGLRendererBase();
    VantrelGLRendererBase(const VantrelGLRendererBase&) = delete;
    VantrelGLRendererBase& operator=(const VantrelGLRendererBase&) = delete;
    virtual ~VantrelGLRendererBase();

    /** One whole frame, buffer swap included. */
    virtual void render(Camera* camera, WorldContainer* world) = 0;
    /** Makes the shadow map, unless there is one; below 3.2 only reports. */
    virtual void initShadowMapping();
    /**
     * Draws the shadow map of the first light that shines, if there is one, for the frame in progress, which
     * goes on in the view of `camera`. Does nothing below 3.2.
     */
    virtual void renderShadowMap(Camera* camera, WorldContainer* world);
    virtual void destroyShadowMapping();
    /** Both eyes, into the buffers of the right and the left. */
    virtual void renderStereoQuadBuffered(Camera* camera, WorldContainer* world) = 0;
    /** One view without the swap. */
    virtual void renderSingleFrame(Camera* camera, WorldContainer* world) = 0;
    /** The passes of one view. */
    virtual void renderScene(Camera* camera, WorldContainer* world, bool clear) = 0;
    /** Lets the camera move and gives its view to GL. */
    virtual void updateCamera(Camera* camera);
    /** Gives a camera's matrices to GL as they are. */
    void loadCamera(const Camera& camera, GLSLUniformBlockCameraTransforms::PassMode passMode =
                                              GLSLUniformBlockCameraTransforms::normalPass);

    /**
     * What shows at a pixel, counted from the top left of the camera's viewport: draws the world in the
     * colours of its ids into the back buffer, which the next frame overwrites. `outObject` becomes null
     * where there is no object; `outPlace`, in the world, is nothing where the view has no inverse.
     */
    virtual void updateSelection(Camera* camera, WorldContainer* world, WO*& outObject,
                                 std::optional<Vector>& outPlace, int x, int y) = 0;
    /** The same for the first pixel, for what the drawing itself does. */
    virtual void renderSelectionDiscardResult(Camera* camera, WorldContainer* world) = 0;
    virtual void renderSelectionFrame(Camera* camera, WorldContainer* world) = 0;
    virtual void renderSelectionScene(Camera* camera, WorldContainer* world, bool clear) = 0;
    /** The object whose colour the back buffer has where the mouse is; null for none. */
    virtual WO* pickWO(const SDL_MouseButtonEvent& event, Camera* camera, WorldContainer* world);
    virtual WO* pickWOAtPixel(int x, int y, Camera* camera, WorldContainer* world);
    /** The place in the world at a pixel, by the depth of what was drawn last. */
    virtual bool pickWorldCoordinate(int x, int y, Camera* camera, Vector& out);
    /** `object` itself or the first one below it with that colour of its id; null for none. */
    virtual WO* findWOByColor(WO* object, std::uint8_t r, std::uint8_t g, std::uint8_t b);
    /** What needs the window and the settings; part of every `New`. */
    virtual void init() = 0;

    /** Whether the next frame that is shown is kept by `ManagerFrameCapture`. */
    bool isCaptureNextFrame() const { return captureNextFrame; }
    void setCaptureNextFrame(bool wanted) { captureNextFrame = wanted; }
    /** Whether the next frame that is shown is saved. */
    bool isCaptureNamedFrame() const { return captureNamedFrame; }
    /** Under that name, or one that no file has where it is empty. */
    void setCaptureNamedFrame(bool wanted, const std::string& name) {
        captureNamedFrame = wanted;
        frameCaptureName = name;
    }
    void setCaptureNamedFrame(bool wanted) { captureNamedFrame = wanted; }

protected:
    friend class ScopedView;

    /** Gives a camera's matrices and its viewport to GL as they are. */
    void sendCamera(const Camera& camera, GLSLUniformBlockCameraTransforms::PassMode passMode =
                                              GLSLUniformBlockCameraTransforms::normalPass);

    /** Takes the pictures that have been asked for; when all of a frame is drawn, before its swap. */
    void captureRequestedFrames();

    /** Whether each frame draws a shadow map first; nothing in the viewer turns it on. */
    bool shadowMappingEnabled = false;
    /** Texels along each side. */
    std::int32_t shadowMapSize = 8192;
    /** What shaders know of the camera; null below 3.2. */
    std::unique_ptr<GLSLUniformBlockT<GLSLUniformBlockCameraTransforms>> cameraTransforms;

private:
    std::unique_ptr<ShadowMap> shadowMap;
    std::string frameCaptureName;
    bool captureNextFrame = false;
    bool captureNamedFrame = false;
};

} // namespace Vantrel
