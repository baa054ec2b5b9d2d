#pragma once

#include "vtl/scene/model/MGL.h"

#include <memory>

namespace Vantrel {

class IndexedGeometrySphere;

/** The model of a light: nothing, but for a red ball in the view for debugging. */
class MGLLight : public MGL {
public:
    explicit MGLLight(WO* parent);
    ~MGLLight() override;

    void render(Camera* camera) override;
    void renderSelection(Camera* camera, std::uint8_t r, std::uint8_t g, std::uint8_t b) override;

private:
    std::unique_ptr<IndexedGeometrySphere> marker;
};

} // namespace Vantrel
