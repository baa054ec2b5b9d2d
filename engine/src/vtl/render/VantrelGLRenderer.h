#pragma once

#include "vtl/render/VantrelGLRendererBase.h"

#include <memory>

namespace Vantrel {

class IndexedGeometryAxes;
class IndexedGeometryQuad;
class VantrelFrameBufferObject;

/** The renderer of the viewer: the order of a frame, for one eye or two. */
class VantrelGLRenderer : public VantrelGLRendererBase {
public:
    static std::unique_ptr<VantrelGLRenderer> New();

    VantrelGLRenderer();
    ~VantrelGLRenderer() override;

    void render(Camera* camera, WorldContainer* world) override;
    void renderStereoQuadBuffered(Camera* camera, WorldContainer* world) override;
    void renderSingleFrame(Camera* camera, WorldContainer* world) override;
    void renderScene(Camera* camera, WorldContainer* world, bool clear) override;
    void updateSelection(Camera* camera, WorldContainer* world, WO*& outObject,
                         std::optional<Vector>& outPlace, int x, int y) override;
    void renderSelectionDiscardResult(Camera* camera, WorldContainer* world) override;
    void renderSelectionFrame(Camera* camera, WorldContainer* world) override;
    void renderSelectionScene(Camera* camera, WorldContainer* world, bool clear) override;
    void init() override;

    /**
     * Moves the camera from where the eye before it was, the first one's being the middle between both, and
     * gives GL its view with that rectangle at the near plane. `separation` is half the distance of the eyes.
     */
    virtual void setStereoEyeFrustum(float left, float right, float bottom, float top, float near, float far,
                                     bool firstEye, float separation, Camera* camera);
    /** Both eyes' pictures in one window. */
    virtual void renderStereoSplit(Camera* camera, WorldContainer* world);
    /** The left eye's picture below the right one's. */
    virtual void composeSplitVertical(Camera* camera);
    /** The left eye's picture to the left of the right one's. */
    virtual void composeSplitHorizontal(Camera* camera);

    float getStereoPlane() const { return stereoPlane; }

protected:
    /** Half the distance between the eyes, in metres. */
    float stereoSeparation;
    /** Metres. What is twice as far shows at the same place of the window for both eyes. */
    float stereoPlane;

private:
    /** What one eye sees, in split stereo, and where it shows. */
    struct EyePicture {
        std::unique_ptr<VantrelFrameBufferObject> buffer;
        std::unique_ptr<IndexedGeometryQuad> quad;
    };

    /** Clears, sends the lights and sorts. */
    static void startScene(Camera* camera, WorldContainer* world, bool clear);
    /** Counts from the last start of `Stopwatch::stageOfObjects`. */
    static void flush();
    void drawAxes(const Camera& camera);
    static EyePicture newEyePicture();
    /** Calls `drawFirst` and `drawSecond` with the view of the right and of the left eye set. */
    template <class DrawFirst, class DrawSecond>
    void renderBothEyes(Camera* camera, DrawFirst&& drawFirst, DrawSecond&& drawSecond);
    void renderEyePicture(EyePicture& eye, Camera* camera, WorldContainer* world);
    /** With the left eye's picture at `firstPlace` of the window, whose sides are 1 long. */
    void composeSplit(const Vector& firstPlace, const Vector& secondPlace);

    EyePicture leftEye;
    EyePicture rightEye;
    /** The world's axes, made when they are first drawn. */
    std::unique_ptr<IndexedGeometryAxes> axes;
};

} // namespace Vantrel
