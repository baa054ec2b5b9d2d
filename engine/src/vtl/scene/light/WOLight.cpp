#include "vtl/scene/light/WOLight.h"

#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/scene/light/MGLLight.h"
#include "vtl/scene/light/ManagerLight.h"

#include <array>

namespace Vantrel {

std::unique_ptr<WOLight> WOLight::New(const vtlColor4f& color, const vtlColor4f& diffuse,
                                      const vtlColor4f& ambient, const vtlColor4f& specular) {
    auto light = std::make_unique<WOLight>(color, diffuse, ambient, specular);
    light->onCreate();
    return light;
}

WOLight::WOLight(const vtlColor4f& color_, const vtlColor4f& diffuse_, const vtlColor4f& ambient_,
                 const vtlColor4f& specular_)
    : color(color_), diffuse(diffuse_), ambient(ambient_), specular(specular_) {
    cullable = false;
    renderOrderType = 0;
    ManagerLight::addLight(this);
}

WOLight::~WOLight() {
    ManagerLight::removeLight(this);
}

void WOLight::setPosition(const Vector& place) {
    WO::setPosition(place);
    send(GL_POSITION, {place.x, place.y, place.z, isPositional ? 1.0F : 0.0F});
}

void WOLight::onCreate() {
    setModel(std::make_unique<MGLLight>(this));
}

void WOLight::setAmbient(const vtlColor4f& value) {
    ambient = value;
    send(GL_AMBIENT, ambient);
}

void WOLight::setDiffuse(const vtlColor4f& value) {
    diffuse = value;
    send(GL_DIFFUSE, diffuse);
}

void WOLight::setSpecular(const vtlColor4f& value) {
    specular = value;
    send(GL_SPECULAR, specular);
}

void WOLight::setConstantAttenuation(float value) {
    constantAttenuation = value;
    send(GL_CONSTANT_ATTENUATION, constantAttenuation);
}

void WOLight::setLinearAttenuation(float value) {
    linearAttenuation = value;
    send(GL_LINEAR_ATTENUATION, linearAttenuation);
}

void WOLight::setQuadraticAttenuation(float value) {
    quadraticAttenuation = value;
    send(GL_QUADRATIC_ATTENUATION, quadraticAttenuation);
}

void WOLight::writeFixedFunction() {
    setPosition(getPosition());
    setAmbient(ambient);
    setDiffuse(diffuse);
    setSpecular(specular);
    setConstantAttenuation(constantAttenuation);
    setQuadraticAttenuation(quadraticAttenuation);
    setLinearAttenuation(linearAttenuation);
}

void WOLight::renderLensFlare(Camera* camera) {
    if (auto* const flaring = dynamic_cast<MGLLight*>(getModel())) {
        flaring->renderLensFlare(*camera);
    }
}

bool WOLight::isFixedFunctionLight() const {
    constexpr std::int32_t lightsOfGL = 8;
    return lightIndex < lightsOfGL && ManagerOpenGLState::isCompatibilityProfile() &&
           !ManagerOpenGLState::isVersion32OrGreater();
}

void WOLight::send(GLenum name, const vtlColor4f& value) const {
    if (isFixedFunctionLight()) {
        glLightfv(lightOfGL(), name, &value.r);
    }
}

void WOLight::send(GLenum name, float value) const {
    if (isFixedFunctionLight() && value >= 0.0F) {
        glLightf(lightOfGL(), name, value);
    }
}

} // namespace Vantrel
