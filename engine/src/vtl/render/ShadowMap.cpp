#include "vtl/render/ShadowMap.h"

#include "vtl/base/Report.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/framebuffer/ScopedFramebufferBinding.h"
#include "vtl/gl/shader/GLSLShaderDataShared.h"
#include "vtl/scene/camera/CameraStandardEZNav.h"
#include "vtl/scene/light/WOLight.h"
#include "vtl/scene/object/WorldContainer.h"

#include <GL/glew.h>
#include <algorithm>
#include <array>

namespace Vantrel {
namespace {

/** Draws far sides alone, set back a little, so that a face that is lit doesn't shade itself. */
class ScopedFarSides {
public:
    ScopedFarSides() {
        glEnable(GL_CULL_FACE);
        glCullFace(GL_FRONT);
        glEnable(GL_POLYGON_OFFSET_FILL);
        glPolygonOffset(1.0F, 1.0F);
    }
    ScopedFarSides(const ScopedFarSides&) = delete;
    ScopedFarSides& operator=(const ScopedFarSides&) = delete;
    ~ScopedFarSides() {
        glPolygonOffset(0.0F, 0.0F);
        glDisable(GL_POLYGON_OFFSET_FILL);
        glCullFace(GL_BACK);
        glDisable(GL_CULL_FACE);
    }
};

} // namespace

ShadowMap::ShadowMap(int size_)
    : size(size_), camera(std::make_unique<CameraStandardEZNav>(nullptr, nullptr)) {
    constexpr float texelsPerUnit = 16.0F;
    const float extent = static_cast<float>(size) / texelsPerUnit;
    camera->isShadowMapCamera = true;
    camera->setCameraAspectRatio(1.0F);
    camera->setOrthographicExtent(extent, extent);
    camera->setViewport({0, 0, size, size});
}

ShadowMap::~ShadowMap() = default;

std::unique_ptr<ShadowMap> ShadowMap::New(int size_) {
    const int largest = ManagerOpenGLState::getCapabilities().maxTextureSize;
    std::unique_ptr<ShadowMap> map(new ShadowMap(std::min(size_, largest)));
    return map->build() ? std::move(map) : nullptr;
}

bool ShadowMap::build() {
    constexpr std::int32_t afterAttaching = 5201;
    depths = GLTexture::create();
    glBindTexture(GL_TEXTURE_2D, depths.get());
    glTexImage2D(GL_TEXTURE_2D, 0, GL_DEPTH_COMPONENT32, size, size, 0, GL_DEPTH_COMPONENT, GL_FLOAT,
                 nullptr);
    glBindTexture(GL_TEXTURE_2D, 0);
    framebuffer = GLFramebuffer::create();
    const ScopedFramebufferBinding former;
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer.get());
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_TEXTURE_2D, depths.get(), 0);
    constexpr GLenum none = GL_NONE;
    glDrawBuffers(1, &none);
    glReadBuffer(GL_NONE);
    checkGLError(afterAttaching);
    const GLenum status = glCheckFramebufferStatus(GL_FRAMEBUFFER);
    if (status != GL_FRAMEBUFFER_COMPLETE) {
        Report() << "ERROR: no shadow map of " << size << " x " << size << " texels, status " << status
                 << "\n";
    }
    return status == GL_FRAMEBUFFER_COMPLETE;
}

void ShadowMap::lookFrom(const WOLight& light, const Camera& viewer) {
    using Projection = Camera::PROJ_MATRIX_PROJ_TYPE;
    camera->setCameraNearClippingPlaneDistance(viewer.getCameraNearClippingPlaneDistance());
    camera->setCameraFarClippingPlaneDistance(viewer.getCameraFarClippingPlaneDistance());
    camera->setProjectionType(light.getIsPositional() ? Projection::pmptPERSPECTIVE
                                                      : Projection::pmptORTHOGRAPHIC);
    camera->setPosition(light.getPosition());
    camera->setCameraLookDirection(light.getLookDirection());
}

Mat4 ShadowMap::getMatrix() const {
    constexpr std::array toUnitCube = {0.5F, 0.0F, 0.0F, 0.0F, 0.0F, 0.5F, 0.0F, 0.0F,
                                       0.0F, 0.0F, 0.5F, 0.0F, 0.5F, 0.5F, 0.5F, 1.0F};
    return Mat4(toUnitCube.data()) * camera->getShaderCamera().getViewProjectionMatrix();
}

void ShadowMap::draw(WorldContainer& world) const {
    const ScopedFramebufferBinding former;
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer.get());
    const ScopedFarSides farSides;
    glClear(GL_DEPTH_BUFFER_BIT);
    world.render(camera.get());
}

void ShadowMap::bindTexture() const {
    constexpr std::array<float, 4> nothingInTheWay{1.0F, 0.0F, 0.0F, 0.0F};
    glActiveTexture(GL_TEXTURE0 + GLSLShaderDataShared::shadowMapUnit);
    glBindTexture(GL_TEXTURE_2D, depths.get());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_BORDER);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_BORDER);
    glTexParameterfv(GL_TEXTURE_2D, GL_TEXTURE_BORDER_COLOR, nothingInTheWay.data());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_COMPARE_MODE, GL_COMPARE_REF_TO_TEXTURE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_COMPARE_FUNC, GL_LESS);
    glActiveTexture(GL_TEXTURE0);
}

} // namespace Vantrel
