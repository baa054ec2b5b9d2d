#include "vtl/gl/ManagerOpenGLState.h"

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/base/Report.h"
#include "vtl/base/SourceLocation.h"
#include "vtl/gl/DebugView.h"
#include "vtl/gl/GLDebugCallback.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/GLStubs.h"
#include "vtl/gl/ManagerWindowing.h"
#include "vtl/gl/ProjectionMatrix.h"
#include "vtl/gl/SetEnabled.h"

#include <GL/glew.h>
#include <SDL.h>

namespace Vantrel {
namespace {

void applyDepthTest(bool enabled) {
    if (ManagerWindowing::hasContext()) {
        setEnabled(GL_DEPTH_TEST, enabled);
    }
}

void loadStartProjection() {
    const int width = ManagerWindowing::getWindowWidth();
    const int height = ManagerWindowing::getWindowHeight();
    constexpr float aspectWithoutArea = 16.0F / 9.0F;
    const float aspect = width != 0 && height != 0 ? static_cast<float>(width) / static_cast<float>(height)
                                                   : aspectWithoutArea;
    loadPerspective(ManagerOpenGLState::getFovy(), aspect, ManagerOpenGLState::getNearPlane(),
                    ManagerOpenGLState::getFarPlane());
}

void setClearColor() {
    glClearColor(0.195489F, 0.345865F, 0.684210F, 1.0F);
}

void enableBlending() {
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

bool isDebugCallbackWanted() {
    return ManagerEnvironmentConfiguration::isGLDebugMessageCallbackEnabled();
}

void applyCompatibilityStartState() {
    installDebugCallback(isDebugCallbackWanted());
    glEnable(GL_DEPTH_TEST);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    loadStartProjection();
    setClearColor();
    glMatrixMode(GL_MODELVIEW);
    enableBlending();
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
}

void applyCoreStartState() {
    constexpr std::int32_t code = -859603558;
    checkGLError(code);
    installDebugCallback(isDebugCallbackWanted());
    checkGLError(code);
    glEnable(GL_DEPTH_TEST);
    checkGLError(code);
    loadStartProjection();
    checkGLError(code);
    setClearColor();
    enableBlending();
    checkGLError(code);
}

} // namespace

ManagerOpenGLState::State ManagerOpenGLState::state;

void ManagerOpenGLState::init() {
    if (ManagerWindowing::getWindowWidth() == 0 || ManagerWindowing::getWindowHeight() == 0) {
        Report() << "ERROR: ManagerOpenGLState: Window Width or Window Height is 0...\n"
                    "The aspect ratio may divide by zero...\n";
    }
    reInitOpenGLState();
}

void ManagerOpenGLState::shutdown() {
    state = State{};
    debugViewEnabled = false;
}

void ManagerOpenGLState::reInitOpenGLState() {
    if (ManagerWindowing::hasContext()) {
        readContext();
    }
    checkGLError(510010);
    stubMissingGLFunctions();
    checkGLError(510011);
    areGLErrorsOfDrawsChecked = isDebugCallbackWanted();
    Report() << "Unsupported functions stubified.\n";
    if (ManagerWindowing::hasContext()) {
        readCapabilities();
        isCoreProfile() ? applyCoreStartState() : applyCompatibilityStartState();
    }
    Report() << toString();
}

void ManagerOpenGLState::readContext() {
    int mask = 0;
    SDL_GL_GetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, &state.glMajorVersion);
    SDL_GL_GetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, &state.glMinorVersion);
    SDL_GL_GetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, &mask);
    const auto profile = contextProfileOfMask(mask, state.glMajorVersion, state.glMinorVersion);
    if (!profile) {
        Report() << "WARNING: " << locationText() << "\n"
                 << " ManagerOpenGLState::reInitOpenGLState() has been called but\n"
                 << "SDL Reports the created GL Context is invalid (ie, not COMPATIBILITY, CORE, or ES)...\n"
                 << "Press ENTER to continue...\n";
    }
    state.contextProfile = profile.value_or(VTL_GL_CONTEXT_PROFILE::COMPATIBILITY);
}

void ManagerOpenGLState::readCapabilities() {
    const std::uint32_t generation = ManagerWindowing::getContextGeneration();
    if (state.capabilitiesGeneration != generation) {
        state.capabilities = GLCapabilities::read();
        state.capabilitiesGeneration = generation;
    }
}

void ManagerOpenGLState::setContextProfile(VTL_GL_CONTEXT_PROFILE profile, std::int32_t major,
                                           std::int32_t minor) {
    state.glMajorVersion = major;
    state.glMinorVersion = minor;
    if (profile == VTL_GL_CONTEXT_PROFILE::CORE && isVersion32OrGreater()) {
        state.contextProfile = VTL_GL_CONTEXT_PROFILE::CORE;
        return;
    }
    state.contextProfile = VTL_GL_CONTEXT_PROFILE::COMPATIBILITY;
    Report() << "WARNING: " << locationText() << "\n"
             << "   Cannot set OpenGL Context Profile to CORE unless OpenGL is Version 3.2 or greater.\n"
             << "   Setting profile to COMPATIBILITY for earlier versions..."
             << "   NOTE: The OpenGL Context is created ONCE at startup using the variables in the\n"
             << "   vantrel.conf file, setting this after creation will have no effect unless the context is "
                "recreated...\n";
}

void ManagerOpenGLState::pushDepthTest(bool enabled) {
    state.depthTestStack.push_back(enabled);
    applyDepthTest(enabled);
}

void ManagerOpenGLState::popDepthTest() {
    if (state.depthTestStack.empty()) {
        Report() << "Error: Depth Test Stack empty, not popping.\n";
        return;
    }
    state.depthTestStack.pop_back();
    applyDepthTest(state.depthTestStack.empty() || state.depthTestStack.back());
}

void ManagerOpenGLState::restorePerObjectState() {
    if (!ManagerWindowing::hasContext()) {
        return;
    }
    setEnabled(GL_BLEND, state.blendEnabled);
    setEnabled(GL_DEPTH_TEST, state.depthTestEnabled);
    if (!isCompatibilityProfile()) {
        return;
    }
    if (glTexImage3D != nullptr) {
        glDisable(GL_TEXTURE_3D);
    }
    glDisable(GL_TEXTURE_2D);
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, state.globalAmbient.data());
    glDisable(GL_FOG);
    setEnabled(GL_LIGHTING, hasLights());
    setEnabled(GL_COLOR_MATERIAL, hasLights() && state.colorMaterialEnabled);
}

std::string ManagerOpenGLState::toString() {
    if (state.glMajorVersion <= 1) {
        return "GL Major Version is 1, ignoring state query to avoid glew null pointers...\n";
    }
    Report() << "Graphics driver supports glGetString()...\n";
    const GLCapabilities& driver = state.capabilities;
    ReportText text;
    text << "ManagerOpenGLState::toString():\n"
         << "Current OpenGL Context Information:\n"
         << "   Current Context GL Version    : " << state.glMajorVersion << "." << state.glMinorVersion
         << "\n"
         << "   Current OpenGL Context Profile: " << state.contextProfile << "\n"
         << "OpenGL VENDOR '" << driver.vendor << "'...\n"
         << "OpenGL RENDERER '" << driver.renderer << "'...\n"
         << "OpenGL VERSION '" << driver.version << "'...\n"
         << "OpenGL SHADING LANG VERSION '" << driver.shadingLanguageVersion << "'...\n";
    for (std::size_t i = 0; i < driver.shadingLanguageVersions.size(); ++i) {
        text << "OpenGL SHADER LANG VERSION [" << i << "] '" << driver.shadingLanguageVersions[i] << "'...\n";
    }
    Report() << "ManagerOpenGLState GL_MAX_TEXTURE_SIZE is " << driver.maxTextureSize << "...\n";
    return text.str();
}

} // namespace Vantrel
