#pragma once

#include "vtl/scene/model/MGL.h"

#include <cstdint>
#include <memory>
#include <string>

namespace Vantrel {

class IndexedGeometryQuad;

/** A model that is a rectangle with an image on it, about the model's origin. */
class MGLQuad : public MGL {
public:
    /**
     * `orientation` and the sizes are those of `IndexedGeometryQuad`. An image that can't be read is replaced
     * by the default one.
     */
    static std::unique_ptr<MGLQuad> New(WO* parent, std::uint8_t orientation, const std::string& imageFile,
                                        float width, float height);

    MGLQuad(WO* parent, std::uint8_t orientation, const std::string& imageFile, float width, float height);
    ~MGLQuad() override;

    /** Leaves the depth test on. */
    void render(Camera* camera) override;
    void renderSelection(Camera* camera, std::uint8_t r, std::uint8_t g, std::uint8_t b) override;

    IndexedGeometryQuad& getQuad() { return *quad; }

    bool blendEnabled = true;
    bool depthTestEnabled = true;
    /** Applied to the rectangle in model space, where `useTextureMatrix` is set. */
    Mat4 textureMatrix;
    bool useTextureMatrix = false;

private:
    Mat4 place() const { return useTextureMatrix ? textureMatrix : Mat4(); }

    std::unique_ptr<IndexedGeometryQuad> quad;
};

} // namespace Vantrel
