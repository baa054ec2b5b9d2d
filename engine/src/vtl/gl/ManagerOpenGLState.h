#pragma once

#include "vtl/gl/GLCapabilities.h"
#include "vtl/gl/GLContextProfile.h"

#include <array>
#include <cstdint>
#include <deque>
#include <string>

namespace Vantrel {

/**
 * Knows what kind of context the process got and the default GL state of the engine, and keeps the stack of
 * depth-test settings and the view volume that cameras start from. Everything is safe without a context.
 * Main thread.
 */
class ManagerOpenGLState {
public:
    /** Answers how many lights there are. */
    using LightCountSource = std::size_t (*)();

    /** Sets the start state for the context that `ManagerWindowing` made; warns of a window without area. */
    static void init();
    /** Puts everything back to its start value. */
    static void shutdown();
    /** Reads the context, stubs missing functions, sets the start state and reports; also after a resize. */
    static void reInitOpenGLState();

    /** Stores what the context is. Anything but CORE from 3.2 on is stored as COMPATIBILITY, with a warning.
     */
    static void setContextProfile(VTL_GL_CONTEXT_PROFILE profile, std::int32_t major, std::int32_t minor);
    static VTL_GL_CONTEXT_PROFILE getContextProfile() { return state.contextProfile; }
    /** -1 until known. */
    static std::int32_t getMajorVersion() { return state.glMajorVersion; }
    static std::int32_t getMinorVersion() { return state.glMinorVersion; }
    /** Guards matrix-mode calls and other fixed-function state. */
    static bool isCompatibilityProfile() {
        return state.contextProfile == VTL_GL_CONTEXT_PROFILE::COMPATIBILITY;
    }
    static bool isCoreProfile() { return state.contextProfile == VTL_GL_CONTEXT_PROFILE::CORE; }
    /** Chooses between the fixed-function path and the shader path; true also for compatibility contexts. */
    static bool isVersion32OrGreater() {
        return isGLVersion32OrGreater(state.glMajorVersion, state.glMinorVersion);
    }
    static bool isVersion40OrGreater() { return state.glMajorVersion >= 4; }
    /** What the driver can do; nothing without a context. */
    static const GLCapabilities& getCapabilities() { return state.capabilities; }
    /** Guards every buffer of vertices or indices. */
    static bool areVertexBuffersSupported() { return state.capabilities.areVertexBuffersSupported; }
    /** Guards every frame buffer object. */
    static bool areFramebufferObjectsSupported() { return state.capabilities.areFramebufferObjectsSupported; }

    /** Sets the depth test until the matching pop; `ScopedDepthTest` does both. */
    static void pushDepthTest(bool enabled);
    /** Back to the setting below; below the lowest the depth test is on, whatever it was before. */
    static void popDepthTest();
    /** The state that each object starts from: blending, depth test, no texture, no fog, lighting. */
    static void restorePerObjectState();
    /** Who knows the number of lights, for the lighting of the per-object state; null for no lights. */
    static void setLightCountSource(LightCountSource source) { state.lightCount = source; }
    static bool hasLights() { return state.lightCount != nullptr && state.lightCount() > 0; }

    /** A report of the context; the size of textures goes to the reports, not into the text. */
    static std::string toString();

    /** What `restorePerObjectState` does with GL_BLEND. */
    static bool isBlendEnabled() { return state.blendEnabled; }
    static void setBlendEnabled(bool enabled) { state.blendEnabled = enabled; }
    /** What `restorePerObjectState` does with GL_DEPTH_TEST. */
    static bool isDepthTestEnabled() { return state.depthTestEnabled; }
    static void setDepthTestEnabled(bool enabled) { state.depthTestEnabled = enabled; }
    /** Whether objects outside the view volume of the camera are skipped. */
    static bool isFrustumCullingEnabled() { return state.frustumCullingEnabled; }
    static void setFrustumCullingEnabled(bool enabled) { state.frustumCullingEnabled = enabled; }
    /** Whether GL_COLOR_MATERIAL goes with GL_LIGHTING. */
    static bool isColorMaterialEnabled() { return state.colorMaterialEnabled; }
    static void setColorMaterialEnabled(bool enabled) { state.colorMaterialEnabled = enabled; }
    static bool areAxesVisible() { return state.axesVisible; }
    static void setAxesVisible(bool visible) { state.axesVisible = visible; }
    /** Vertical field of view in degrees. */
    static float getFovy() { return state.fovy; }
    static void setFovy(float degrees) { state.fovy = degrees; }
    static float getNearPlane() { return state.nearPlane; }
    static void setNearPlane(float distance) { state.nearPlane = distance; }
    static float getFarPlane() { return state.farPlane; }
    static void setFarPlane(float distance) { state.farPlane = distance; }
    /** Red, green, blue, alpha of the light that comes from everywhere. */
    static const std::array<float, 4>& getGlobalAmbient() { return state.globalAmbient; }
    static void setGlobalAmbient(const std::array<float, 4>& color) { state.globalAmbient = color; }
    /** Whether every GL debug message waits for a key. */
    static bool isDebugCallbackHaltingOnEachMessage() { return state.debugCallbackHaltsOnEachMessage; }
    static void setDebugCallbackHaltsOnEachMessage(bool halts) {
        state.debugCallbackHaltsOnEachMessage = halts;
    }

private:
    struct State {
        std::int32_t glMajorVersion = -1;
        std::int32_t glMinorVersion = -1;
        VTL_GL_CONTEXT_PROFILE contextProfile = VTL_GL_CONTEXT_PROFILE::UNINITIALIZED;
        bool blendEnabled = true;
        bool depthTestEnabled = true;
        bool frustumCullingEnabled = true;
        bool colorMaterialEnabled = true;
        bool axesVisible = true;
        float fovy = 65.0F;
        float nearPlane = 0.1F;
        float farPlane = 1000.0F;
        std::array<float, 4> globalAmbient{0.2F, 0.2F, 0.2F, 1.0F};
        bool debugCallbackHaltsOnEachMessage = false;
        std::deque<bool> depthTestStack;
        LightCountSource lightCount = nullptr;
        GLCapabilities capabilities;
        /** The context that `capabilities` tells of. */
        std::uint32_t capabilitiesGeneration = 0;
    };

    static void readContext();
    static void readCapabilities();

    static State state;
};

} // namespace Vantrel
