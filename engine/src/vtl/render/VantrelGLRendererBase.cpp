#include "vtl/render/VantrelGLRendererBase.h"

#include "vtl/base/ManagerSDLTime.h"
#include "vtl/base/Report.h"
#include "vtl/base/SourceLocation.h"
#include "vtl/gl/LoadMatrices.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/capture/ManagerFrameCapture.h"
#include "vtl/render/ShadowMap.h"
#include "vtl/render/Unproject.h"
#include "vtl/scene/camera/Camera.h"
#include "vtl/scene/light/ManagerLight.h"
#include "vtl/scene/object/WorldContainer.h"

#include <GL/glew.h>
#include <array>
#include <utility>

namespace Vantrel {
namespace {

/** The row of GL, from the bottom, of a pixel `y` rows below the top. */
int rowOf(int y, int height) {
    return height - 1 - y;
}

} // namespace

VantrelGLRendererBase::VantrelGLRendererBase() {
    if (ManagerOpenGLState::isVersion32OrGreater()) {
        cameraTransforms = std::make_unique<GLSLUniformBlockT<GLSLUniformBlockCameraTransforms>>();
    }
}

VantrelGLRendererBase::~VantrelGLRendererBase() = default;

void VantrelGLRendererBase::updateCamera(Camera* camera) {
    ManagerSDLTime::startStopwatch(Stopwatch::stage);
    camera->update();
    camera->updateCameraMatrices();
    sendCamera(*camera);
    ManagerSDLTime::totals().updatingCameraMs += ManagerSDLTime::readStopwatch(Stopwatch::stage);
    ManagerLight::writeLights();
}

void VantrelGLRendererBase::loadCamera(const Camera& camera,
                                       GLSLUniformBlockCameraTransforms::PassMode passMode) {
    if (cameraTransforms) {
        cameraTransforms->data.view = camera.getViewMatrix().m;
        cameraTransforms->data.projection = camera.getProjectionMatrix().m;
        cameraTransforms->data.passMode = passMode;
        cameraTransforms->upload();
    }
    loadMatrices(camera.getProjectionMatrix(), camera.getViewMatrix());
}

void VantrelGLRendererBase::sendCamera(const Camera& camera,
                                       GLSLUniformBlockCameraTransforms::PassMode passMode) {
    loadCamera(camera, passMode);
    const CameraViewport& viewport = camera.getViewport();
    glViewport(viewport.x, viewport.y, viewport.width, viewport.height);
}

void VantrelGLRendererBase::initShadowMapping() {
    if (!ManagerOpenGLState::isVersion32OrGreater()) {
        Report() << locationText() << "ERROR: SHADOW MAPPING REQUIRES GL 3.2+ or greater\n";
    } else if (!shadowMap) {
        shadowMap = ShadowMap::New(shadowMapSize);
        shadowMappingEnabled = shadowMap != nullptr; // what can't be had isn't tried in every frame
    }
}

void VantrelGLRendererBase::renderShadowMap(Camera* camera, WorldContainer* world) {
    const std::vector<WOLight*>& lights = ManagerLight::getEnabledLights();
    if (!cameraTransforms || lights.empty()) {
        return;
    }
    initShadowMapping();
    if (!shadowMap) {
        return;
    }
    Camera* const atLight = shadowMap->getCamera();
    shadowMap->lookFrom(*lights.front(), *camera);
    atLight->updateCameraMatrices();
    shadowMap->bindTexture();
    cameraTransforms->data.shadow = shadowMap->getMatrix().m;
    sendCamera(*atLight, GLSLUniformBlockCameraTransforms::shadowMapPass);
    const bool isCulling = ManagerOpenGLState::isFrustumCullingEnabled();
    ManagerOpenGLState::setFrustumCullingEnabled(false); // what isn't seen throws shadows too
    shadowMap->draw(*world);
    ManagerOpenGLState::setFrustumCullingEnabled(isCulling);
    sendCamera(*camera, GLSLUniformBlockCameraTransforms::passAfterShadowMap);
}

void VantrelGLRendererBase::destroyShadowMapping() {
    shadowMap.reset();
}

void VantrelGLRendererBase::captureRequestedFrames() {
    if (std::exchange(captureNextFrame, false)) {
        ManagerFrameCapture::captureFrame();
    }
    if (std::exchange(captureNamedFrame, false)) {
        ManagerFrameCapture::saveFrame(std::exchange(frameCaptureName, {}), true, nullptr);
    }
}

WO* VantrelGLRendererBase::pickWO(const SDL_MouseButtonEvent& event, Camera* camera, WorldContainer* world) {
    return pickWOAtPixel(event.x, event.y, camera, world);
}

WO* VantrelGLRendererBase::pickWOAtPixel(int x, int y, Camera* /*camera*/, WorldContainer* world) {
    std::array<GLint, 4> viewport{};
    glGetIntegerv(GL_VIEWPORT, viewport.data());
    std::array<std::uint8_t, 3> color{};
    glReadBuffer(GL_BACK);
    glReadPixels(x, rowOf(y, viewport[3]), 1, 1, GL_RGB, GL_UNSIGNED_BYTE, color.data());
    const auto findIn = [&](WO* root) { return findWOByColor(root, color[0], color[1], color[2]); };
    for (std::size_t i = 0; WO* const widget = world->getGUIWidgetAt(i); ++i) {
        if (WO* const found = findIn(widget)) {
            return found;
        }
    }
    for (std::size_t i = 0; i < world->size(); ++i) {
        if (WO* const found = findIn(world->at(i))) {
            return found;
        }
    }
    return nullptr;
}

bool VantrelGLRendererBase::pickWorldCoordinate(int x, int y, Camera* camera, Vector& out) {
    const CameraViewport& rectangle = camera->getViewport();
    const int row = rowOf(y, rectangle.height);
    float depth = 0.0F;
    glReadBuffer(GL_BACK);
    glReadPixels(x, row, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depth);
    constexpr float middle = 0.5F; // of the pixel, where its depth was taken
    const std::array<int, 4> viewport{rectangle.x, rectangle.y, rectangle.width, rectangle.height};
    Vector place;
    if (!vtlGluUnProject(static_cast<float>(x) + middle, static_cast<float>(row) + middle, depth,
                         camera->getViewMatrix(), camera->getProjectionMatrix(), viewport.data(), &place.x,
                         &place.y, &place.z)) {
        Report() << locationText() << " Failed to invert PROJECTION-VIEW matrix within vtlGluUnProject...\n";
        return false;
    }
    out = place;
    return true;
}

WO* VantrelGLRendererBase::findWOByColor(WO* object, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    std::array<std::uint8_t, 3> own{};
    object->getSelectionColor(own[0], own[1], own[2]);
    if (own == std::array{r, g, b}) {
        return object;
    }
    const WorldObjectChildContainer& children = object->getChildList();
    for (std::size_t i = 0; i < children.size(); ++i) {
        WO* const child = children.at(i);
        WO* const found = child != nullptr ? findWOByColor(child, r, g, b) : nullptr;
        if (found != nullptr) {
            return found;
        }
    }
    return nullptr;
}

} // namespace Vantrel
