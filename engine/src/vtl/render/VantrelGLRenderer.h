#pragma once

#include "vtl/render/VantrelGLRendererBase.h"

#include <memory>

namespace Vantrel {

class IndexedGeometryAxes;

/** The renderer of the viewer: the order of a frame. */
class VantrelGLRenderer : public VantrelGLRendererBase {
public:
    static std::unique_ptr<VantrelGLRenderer> New();

    VantrelGLRenderer();
    ~VantrelGLRenderer() override;

    void render(Camera* camera, WorldContainer* world) override;
    void renderSingleFrame(Camera* camera, WorldContainer* world) override;
    void renderScene(Camera* camera, WorldContainer* world, bool clear) override;
    void updateSelection(Camera* camera, WorldContainer* world, WO*& outObject,
                         std::optional<Vector>& outPlace, int x, int y) override;
    void renderSelectionDiscardResult(Camera* camera, WorldContainer* world) override;
    void renderSelectionFrame(Camera* camera, WorldContainer* world) override;
    void renderSelectionScene(Camera* camera, WorldContainer* world, bool clear) override;

private:
    static void startScene(Camera* camera, bool clear);
    static void sortWorld(Camera* camera, WorldContainer* world);
    static void flush();
    void drawAxes(const Camera& camera);

    /** The world's axes, made when they are first drawn. */
    std::unique_ptr<IndexedGeometryAxes> axes;
};

} // namespace Vantrel
