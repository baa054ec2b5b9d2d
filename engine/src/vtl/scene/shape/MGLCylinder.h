#pragma once

#include "vtl/scene/model/MGL.h"

#include <cstdint>
#include <memory>

namespace Vantrel {

class IndexedGeometryCylinder;
class IndexedGeometryDisc;

/** A model that is a cylinder or cone about the model's Z axis, closed at both ends. */
class MGLCylinder : public MGL {
public:
    /** The arguments are those of `IndexedGeometryCylinder`; half of the height is above the origin. */
    static std::unique_ptr<MGLCylinder> New(WO* parent, float radiusAtTop, float radiusAtBottom, float height,
                                            std::uint32_t slices, std::uint32_t stacks, bool useNormals,
                                            bool useTextureCoords);

    MGLCylinder(WO* parent, float radiusAtTop, float radiusAtBottom, float height_, std::uint32_t slices,
                std::uint32_t stacks, bool useNormals, bool useTextureCoords);
    ~MGLCylinder() override;

    void render(Camera* camera) override;
    void renderSelection(Camera* camera, std::uint8_t r, std::uint8_t g, std::uint8_t b) override;

    const IndexedGeometryCylinder& getBody() const { return *body; }

private:
    Mat4 placeOfTop() const;
    Mat4 placeOfBottom() const;

    std::unique_ptr<IndexedGeometryCylinder> body;
    std::unique_ptr<IndexedGeometryDisc> capTop;
    std::unique_ptr<IndexedGeometryDisc> capBottom;
    float height;
};

} // namespace Vantrel
