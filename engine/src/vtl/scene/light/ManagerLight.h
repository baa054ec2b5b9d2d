#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Vantrel {

class Camera;
class WOLight;

/**
 * Knows every light of the process and takes them to the card: as lights of the fixed functions below 3.2,
 * from 3.2 on in the block "LightInfo". Main thread.
 */
class ManagerLight {
public:
    /** With the context there. */
    static void init();
    /** Forgets all lights. */
    static void clear();
    static void shutdown();

    /** Gives the light the next number; it leaves when it dies. */
    static void addLight(WOLight* light);
    static void removeLight(const WOLight* light);
    /** Tells the fixed functions of every visible light; the view must be the current matrix. */
    static void writeLights();
    /** Numbers the visible lights anew and sends them, as `camera` sees them; the same holds for the view. */
    static void synchronize(Camera* camera);
    /** Draws the lens flares of all lights that have one enabled; when the scene is drawn. */
    static void renderLensFlares(Camera* camera);

    /** Of those that have been made, whether visible or not. */
    static std::size_t size() { return state.lights.size(); }
    static const std::vector<WOLight*>& getLights() { return state.lights; }
    /** The visible ones of the latest `synchronize`. */
    static const std::vector<WOLight*>& getEnabledLights() { return state.enabledLights; }
    /** The light from everywhere of the shader path: red, green, blue, alpha. */
    static const std::array<float, 4>& getGlobalAmbient() { return state.globalAmbient; }
    static void setGlobalAmbient(const std::array<float, 4>& color) { state.globalAmbient = color; }

private:
    struct State {
        std::vector<WOLight*> lights;
        std::vector<WOLight*> enabledLights;
        std::array<float, 4> globalAmbient{};
        std::int32_t lastLightIndex = -1;
    };

    static void collectVisible();
    static void synchronizeFixedFunction();
    static void synchronizeWithShader(const Camera& camera);

    static State state;
};

} // namespace Vantrel
