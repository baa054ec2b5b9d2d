#pragma once

#include "vtl/gl/GLHandle.h"
#include "vtl/math/Mat4.h"

#include <memory>

namespace Vantrel {

class Camera;
class WOLight;
class WorldContainer;

/** How far a light sees: a square map of depths, and the camera at the light that draws it. From 3.2 on. */
class ShadowMap {
public:
    /** `size_` texels wide and high, as far as the driver goes; null, with a report, when it can't be had. */
    static std::unique_ptr<ShadowMap> New(int size_);

    ShadowMap(const ShadowMap&) = delete;
    ShadowMap& operator=(const ShadowMap&) = delete;
    ~ShadowMap();

    /**
     * Puts the camera where the light is, looking as it does: in perspective for a light at a place, parallel
     * for one from afar, with a texel for each sixteenth of a metre. The planes are those of `viewer`.
     */
    void lookFrom(const WOLight& light, const Camera& viewer);
    Camera* getCamera() const { return camera.get(); }
    /** The world to the map: x, y and depth from 0 to 1. */
    Mat4 getMatrix() const;
    /** Draws the world's depths as the camera sees them, which must be the current one of GL already. */
    void draw(WorldContainer& world) const;
    /** Where shaders look for it, to be compared with depths of their own. */
    void bindTexture() const;

private:
    explicit ShadowMap(int size_);
    bool build();

    int size;
    GLTexture depths;
    GLFramebuffer framebuffer;
    std::unique_ptr<Camera> camera;
};

} // namespace Vantrel
