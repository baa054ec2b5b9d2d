#pragma once

#include "vtl/render/VantrelGLRendererBase.h"

#include <memory>

namespace Vantrel {

/** The renderer of the viewer. */
class VantrelGLRenderer : public VantrelGLRendererBase {
public:
    static std::unique_ptr<VantrelGLRenderer> New();

    void render(Camera* camera, WorldContainer* world) override;
    void renderSingleFrame(Camera* camera, WorldContainer* world) override;
    void renderScene(Camera* camera, WorldContainer* world, bool clear) override;
    void updateCamera(Camera* camera) override;
};

} // namespace Vantrel
