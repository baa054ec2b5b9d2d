#pragma once

#include "vtl/scene/model/MGL.h"

#include <memory>

namespace Vantrel {

class IndexedGeometrySphere;

/**
 * The model of a light: nothing, but for a red ball in the view for debugging and, where it is asked for, a
 * lens flare in the first four skins.
 */
class MGLLight : public MGL {
public:
    explicit MGLLight(WO* parent);
    ~MGLLight() override;

    void render(Camera* camera) override;
    void renderSelection(Camera* camera, std::uint8_t r, std::uint8_t g, std::uint8_t b) override;

    /**
     * Draws the flare over what the scene shows so far, unless that hides the light's place; waits for the
     * card to tell. Where there are no four skins by now, they are made.
     */
    void renderLensFlare(const Camera& camera);

private:
    struct Flare;

    void prepareFlare();
    bool isSeenBy(const Camera& camera) const;
    void renderFlareElement(std::size_t element, const Camera& camera, const Vector& place);

    std::unique_ptr<IndexedGeometrySphere> marker;
    ModelMeshSkin markerSkin = shapeSkin();
    std::unique_ptr<Flare> flare;
};

} // namespace Vantrel
