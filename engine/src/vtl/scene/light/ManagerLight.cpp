#include "vtl/scene/light/ManagerLight.h"

#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/SetEnabled.h"
#include "vtl/gl/shader/GLSLUniformBlockLightInfo.h"
#include "vtl/gl/shader/GLSLUniformBlockT.h"
#include "vtl/scene/camera/Camera.h"
#include "vtl/scene/light/WOLight.h"

#include <GL/glew.h>
#include <algorithm>
#include <memory>

namespace Vantrel {
namespace {

using LightInfo = GLSLUniformBlockLightInfo;

/** Null below 3.2. */
std::unique_ptr<GLSLUniformBlockT<LightInfo>> lightInfoBlock;

/** All four rows and columns. */
LightInfo::Vec4 transformed(const Mat4& matrix, const Vector& v, float w) {
    LightInfo::Vec4 product{};
    for (std::size_t row = 0; row < product.size(); ++row) {
        product[row] =
            matrix[row] * v.x + matrix[4 + row] * v.y + matrix[8 + row] * v.z + matrix[12 + row] * w;
    }
    return product;
}

LightInfo::Vec4 placeOf(const WOLight& light, const Mat4& view) {
    return light.getIsPositional() ? transformed(view, light.getPosition(), 1.0F)
                                   : transformed(view, light.getLookDirection().normalizeMe(), 0.0F);
}

} // namespace

ManagerLight::State ManagerLight::state;

void ManagerLight::init() {
    constexpr std::array<float, 4> dimWhite{0.3F, 0.3F, 0.3F, 1.0F};
    state.globalAmbient = dimWhite;
    if (ManagerOpenGLState::isVersion32OrGreater()) {
        lightInfoBlock = std::make_unique<GLSLUniformBlockT<LightInfo>>();
    }
    ManagerOpenGLState::setLightCountSource(size);
}

void ManagerLight::clear() {
    state.lastLightIndex = -1;
    state.lights.clear();
    state.enabledLights.clear();
}

void ManagerLight::shutdown() {
    clear();
    lightInfoBlock.reset();
    ManagerOpenGLState::setLightCountSource(nullptr);
}

void ManagerLight::addLight(WOLight* light) {
    state.lights.push_back(light);
    light->setLightIndex(++state.lastLightIndex);
}

void ManagerLight::removeLight(const WOLight* light) {
    std::erase(state.lights, light);
    std::erase(state.enabledLights, light);
}

void ManagerLight::writeLights() {
    for (WOLight* const light : state.lights) {
        if (light->isVisible()) {
            light->writeFixedFunction();
        }
    }
}

void ManagerLight::synchronize(Camera* camera) {
    collectVisible();
    if (ManagerOpenGLState::isVersion32OrGreater()) {
        synchronizeWithShader(*camera);
    } else {
        synchronizeFixedFunction();
    }
}

void ManagerLight::renderLensFlares(Camera* camera) {
    for (WOLight* const light : state.lights) {
        if (light->isLensFlareEnabled()) {
            light->renderLensFlare(camera);
        }
    }
}

void ManagerLight::collectVisible() {
    state.enabledLights.clear();
    std::ranges::copy_if(state.lights, std::back_inserter(state.enabledLights),
                         [](const WOLight* light) { return light->isVisible(); });
}

void ManagerLight::synchronizeFixedFunction() {
    constexpr std::size_t lightsOfGL = 8;
    glEnable(GL_LIGHTING);
    const std::size_t count = state.enabledLights.size();
    for (std::size_t i = 0; i < lightsOfGL; ++i) { // also those of lights that have died
        setEnabled(static_cast<GLenum>(GL_LIGHT0 + i), i < count);
    }
    bool isRenumbered = false;
    for (std::int32_t index = 0; WOLight* const light : state.enabledLights) {
        isRenumbered = isRenumbered || light->getLightIndex() != index;
        light->setLightIndex(index++);
    }
    if (isRenumbered) {
        writeLights(); // some numbers have told of others so far
    }
    state.lastLightIndex = static_cast<std::int32_t>(count) - 1;
}

void ManagerLight::synchronizeWithShader(const Camera& camera) {
    if (!lightInfoBlock) {
        return;
    }
    LightInfo& info = lightInfoBlock->data;
    const std::size_t count = std::min(state.enabledLights.size(), LightInfo::maxLights);
    info.numLights = static_cast<std::int32_t>(count);
    info.globalAmbient = state.globalAmbient;
    for (std::size_t i = 0; i < count; ++i) {
        const WOLight& light = *state.enabledLights[i];
        info.position[i] = placeOf(light, camera.getViewMatrix());
        info.color[i] = {light.getColor().r, light.getColor().g, light.getColor().b, light.getColor().a};
    }
    lightInfoBlock->upload();
}

} // namespace Vantrel
