#include "vtl/render/VantrelGLRenderer.h"

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/base/ManagerSDLTime.h"
#include "vtl/base/Report.h"
#include "vtl/geometry/IndexedGeometryAxes.h"
#include "vtl/geometry/IndexedGeometryQuad.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/LoadMatrices.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ManagerWindowing.h"
#include "vtl/gl/ScopedEnabled.h"
#include "vtl/gl/ScopedModelMatrix.h"
#include "vtl/gl/framebuffer/ScopedFrameBuffer.h"
#include "vtl/math/MatrixBuilders.h"
#include "vtl/mesh/ModelMeshSkin.h"
#include "vtl/scene/camera/Camera.h"
#include "vtl/scene/light/ManagerLight.h"
#include "vtl/scene/object/WorldContainer.h"

#include <GL/glew.h>
#include <algorithm>
#include <cmath>
#include <utility>

namespace Vantrel {
namespace {

using Configuration = ManagerEnvironmentConfiguration;

constexpr std::int32_t beforeFrame = 808080;
constexpr std::int32_t afterCamera = 70;

bool isStereoSplit() {
    return ManagerWindowing::isSplitHorizontal() || ManagerWindowing::isSplitVertical();
}

} // namespace

std::unique_ptr<VantrelGLRenderer> VantrelGLRenderer::New() {
    auto renderer = std::make_unique<VantrelGLRenderer>();
    renderer->init();
    return renderer;
}

VantrelGLRenderer::VantrelGLRenderer()
    : stereoSeparation(Configuration::getFloat("stereoseperation"))
    , stereoPlane(Configuration::getFloat("stereoplane")) {
    if (!(stereoPlane > 0.0F)) {
        stereoPlane = ManagerOpenGLState::getFarPlane() * 0.5F;
    }
}

VantrelGLRenderer::~VantrelGLRenderer() = default;

void VantrelGLRenderer::init() {
    if (isStereoSplit()) {
        leftEye = newEyePicture();
        rightEye = newEyePicture();
    }
    if (leftEye.buffer && rightEye.buffer) {
        Report() << "Initialized Stereoscopic Frame Buffers...\n";
    }
    if (shadowMappingEnabled) {
        initShadowMapping();
    }
}

VantrelGLRenderer::EyePicture VantrelGLRenderer::newEyePicture() {
    const bool isHorizontal = ManagerWindowing::isSplitHorizontal();
    return {VantrelFrameBufferObject::New(ManagerWindowing::getWindowWidth(),
                                          ManagerWindowing::getWindowHeight(), 1, true, true, false, false),
            IndexedGeometryQuad::New(0, isHorizontal ? 0.5F : 1.0F, isHorizontal ? 1.0F : 0.5F,
                                     Vector(1, 1, 1), true, false, true)};
}

void VantrelGLRenderer::render(Camera* camera, WorldContainer* world) {
    checkGLError(beforeFrame);
    if (!ManagerWindowing::isStereoEnabled()) {
        renderSingleFrame(camera, world);
    } else if (isStereoSplit()) {
        renderStereoSplit(camera, world);
    } else {
        renderStereoQuadBuffered(camera, world);
    }
    captureRequestedFrames();
    ManagerSDLTime::startStopwatch(Stopwatch::stage);
    SDL_GL_SwapWindow(ManagerWindowing::getWindow());
    ManagerSDLTime::totals().swappingMs += ManagerSDLTime::readStopwatch(Stopwatch::stage);
}

void VantrelGLRenderer::renderSingleFrame(Camera* camera, WorldContainer* world) {
    updateCamera(camera);
    checkGLError(afterCamera);
    renderScene(camera, world, true);
}

template <class DrawFirst, class DrawSecond>
void VantrelGLRenderer::renderBothEyes(Camera* camera, DrawFirst&& drawFirst, DrawSecond&& drawSecond) {
    constexpr float radiansPerDegree = 0.017453292F;
    camera->update();
    const Vector middle = camera->getPosition();
    const float near = camera->getCameraNearClippingPlaneDistance();
    const float far = camera->getCameraFarClippingPlaneDistance();
    const float top = std::tan(camera->getCameraFOVy() * radiansPerDegree / 2.0F) * near;
    const float right = top * camera->getCameraAspectRatio();
    const float shift = stereoSeparation / 2.0F / stereoPlane * near;
    setStereoEyeFrustum(-right - shift, right - shift, -top, top, near, far, true, stereoSeparation, camera);
    drawFirst();
    setStereoEyeFrustum(-right + shift, right + shift, -top, top, near, far, false, stereoSeparation, camera);
    drawSecond();
    camera->setPosition(middle);
    camera->updateCameraMatrices();
}

void VantrelGLRenderer::setStereoEyeFrustum(float left, float right, float bottom, float top, float near,
                                            float far, bool firstEye, float separation, Camera* camera) {
    ManagerSDLTime::startStopwatch(Stopwatch::stage);
    const Vector toLeft = camera->getNormalDirection().crossProduct(camera->getLookDirection());
    camera->moveRelative(toLeft * (firstEye ? -separation : 2.0F * separation));
    camera->updateFrustum();
    camera->updateViewMatrix();
    Mat4 projection;
    buildFrustum(left, right, bottom, top, near, far, projection);
    camera->setProjectionMatrix(projection);
    sendCamera(*camera);
    ManagerSDLTime::totals().updatingCameraMs += ManagerSDLTime::readStopwatch(Stopwatch::stage);
    ManagerLight::writeLights();
}

void VantrelGLRenderer::renderStereoQuadBuffered(Camera* camera, WorldContainer* world) {
    GLboolean hasBoth = GL_FALSE;
    glGetBooleanv(GL_STEREO, &hasBoth);
    const auto drawInto = [&](GLenum buffer) {
        glDrawBuffer(hasBoth == GL_TRUE ? buffer : GL_BACK);
        renderScene(camera, world, true);
    };
    renderBothEyes(
        camera, [&] { drawInto(GL_BACK_RIGHT); }, [&] { drawInto(GL_BACK_LEFT); });
    glDrawBuffer(GL_BACK);
}

void VantrelGLRenderer::renderStereoSplit(Camera* camera, WorldContainer* world) {
    if (!leftEye.buffer || !rightEye.buffer) {
        renderSingleFrame(camera, world);
        return;
    }
    renderBothEyes(
        camera, [&] { renderEyePicture(rightEye, camera, world); },
        [&] { renderEyePicture(leftEye, camera, world); });
    if (ManagerWindowing::isSplitHorizontal()) {
        composeSplitHorizontal(camera);
    } else {
        composeSplitVertical(camera);
    }
}

void VantrelGLRenderer::renderEyePicture(EyePicture& eye, Camera* camera, WorldContainer* world) {
    const int width = ManagerWindowing::getWindowWidth();
    const int height = ManagerWindowing::getWindowHeight();
    if (eye.buffer->getWidth() != width || eye.buffer->getHeight() != height) {
        eye.buffer->adjustSize(width, height);
    }
    const ScopedFrameBuffer target(*eye.buffer);
    renderScene(camera, world, true);
}

void VantrelGLRenderer::composeSplitHorizontal(Camera* /*camera*/) {
    composeSplit(Vector(0.25F, 0.5F, 0), Vector(0.75F, 0.5F, 0));
}

void VantrelGLRenderer::composeSplitVertical(Camera* /*camera*/) {
    composeSplit(Vector(0.5F, 0.25F, 0), Vector(0.5F, 0.75F, 0));
}

void VantrelGLRenderer::composeSplit(const Vector& firstPlace, const Vector& secondPlace) {
    Mat4 projection;
    buildOrthographic(0, 1, 0, 1, -1, 1, projection);
    const ShaderCamera window(projection, Mat4());
    loadMatrices(window.getProjectionMatrix(), window.getViewMatrix());
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glDisable(GL_STENCIL_TEST);
    glDisable(GL_BLEND);
    for (const auto& [eye, place] : {std::pair(&leftEye, firstPlace), std::pair(&rightEye, secondPlace)}) {
        Mat4 model;
        std::copy_n(&place.x, 3, &model[12]);
        const ScopedModelMatrix matrix(model);
        const ModelMeshMatrices matrices{model, model, window};
        ModelMeshSkin skin(eye->buffer->createColorTexture());
        skin.bind(&matrices);
        if (!ManagerOpenGLState::isVersion32OrGreater()) {
            glEnable(GL_TEXTURE_2D); // also in the view for debugging
        }
        eye->quad->render();
        skin.unbind();
    }
    ManagerOpenGLState::restorePerObjectState();
}

void VantrelGLRenderer::renderScene(Camera* camera, WorldContainer* world, bool clear) {
    startScene(camera, world, clear);
    if (ManagerOpenGLState::areAxesVisible()) {
        drawAxes(*camera);
    }
    if (shadowMappingEnabled) {
        ManagerSDLTime::startStopwatch(Stopwatch::stageOfObjects);
        renderShadowMap(camera, world);
        ManagerSDLTime::totals().shadowsMs += ManagerSDLTime::readStopwatch(Stopwatch::stageOfObjects);
    }
    world->render(camera);
    ManagerSDLTime::startStopwatch(Stopwatch::stageOfObjects);
    camera->render(camera);
    ManagerSDLTime::totals().renderingCameraMs += ManagerSDLTime::restartStopwatch(Stopwatch::stageOfObjects);
    ManagerLight::renderLensFlares(camera);
    world->renderGUI(camera);
    ManagerSDLTime::totals().guiMs += ManagerSDLTime::restartStopwatch(Stopwatch::stageOfObjects);
    flush();
}

void VantrelGLRenderer::updateSelection(Camera* camera, WorldContainer* world, WO*& outObject,
                                        std::optional<Vector>& outPlace, int x, int y) {
    checkGLError(beforeFrame);
    renderSelectionFrame(camera, world);
    outObject = pickWOAtPixel(x, y, camera, world);
    Vector place;
    outPlace = pickWorldCoordinate(x, y, camera, place) ? std::optional(place) : std::nullopt;
}

void VantrelGLRenderer::renderSelectionDiscardResult(Camera* camera, WorldContainer* world) {
    WO* object = nullptr;
    std::optional<Vector> place;
    updateSelection(camera, world, object, place, 0, 0);
}

void VantrelGLRenderer::renderSelectionFrame(Camera* camera, WorldContainer* world) {
    updateCamera(camera);
    checkGLError(afterCamera);
    renderSelectionScene(camera, world, true);
}

void VantrelGLRenderer::renderSelectionScene(Camera* camera, WorldContainer* world, bool clear) {
    // Every pixel is of one object, as its id needs it.
    const ScopedEnabled singleSample(GL_MULTISAMPLE, false);
    const ScopedEnabled hardEdges(GL_LINE_SMOOTH, false);
    startScene(camera, world, clear);
    world->renderSelection(camera);
    camera->renderSelection(camera);
    ManagerSDLTime::startStopwatch(Stopwatch::stageOfObjects);
    flush();
}

void VantrelGLRenderer::startScene(Camera* camera, WorldContainer* world, bool clear) {
    if (clear) {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
    }
    if (ManagerOpenGLState::isCompatibilityProfile()) {
        glMatrixMode(GL_MODELVIEW);
    }
    ManagerSDLTime::startStopwatch(Stopwatch::stage);
    ManagerLight::synchronize(camera);
    ManagerSDLTime::totals().lightsMs += ManagerSDLTime::restartStopwatch(Stopwatch::stage);
    world->sort(camera);
    ManagerSDLTime::totals().sortingMs += ManagerSDLTime::readStopwatch(Stopwatch::stage);
}

void VantrelGLRenderer::flush() {
    glFlush();
    ManagerSDLTime::totals().flushingMs += ManagerSDLTime::readStopwatch(Stopwatch::stageOfObjects);
}

void VantrelGLRenderer::drawAxes(const Camera& camera) {
    constexpr float extent = 200.0F;
    ManagerSDLTime::startStopwatch(Stopwatch::stage);
    if (!axes) {
        axes = IndexedGeometryAxes::New(extent);
    }
    axes->renderAt(camera.getShaderCamera(), Mat4());
    ManagerSDLTime::totals().renderingAxesMs += ManagerSDLTime::readStopwatch(Stopwatch::stage);
}

} // namespace Vantrel
