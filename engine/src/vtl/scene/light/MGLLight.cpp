#include "vtl/scene/light/MGLLight.h"

#include "vtl/geometry/IndexedGeometryLines.h"
#include "vtl/geometry/IndexedGeometryQuad.h"
#include "vtl/geometry/IndexedGeometrySphere.h"
#include "vtl/gl/DebugView.h"
#include "vtl/gl/ScopedEnabled.h"
#include "vtl/gl/ScopedNoWrites.h"
#include "vtl/gl/ScopedPointSize.h"
#include "vtl/math/VectorChecks.h"
#include "vtl/scene/camera/Camera.h"
#include "vtl/scene/light/LensFlareImages.h"

#include <array>

namespace Vantrel {
namespace {

struct FlareElement {
    /** Metres. */
    float size;
    Vector color;
    /** Place on the line from the light (0) through the middle of the view (1). */
    float scale;
    LensFlareImage image;
};

using enum LensFlareImage;

/** In the order in which they are drawn. */
constexpr std::array<FlareElement, 16> flareElements{{
    {1.7F, {0.5F, 0.5F, 0.7F}, 2.0F, ring},
    {2.0F, {0.4F, 0.1F, 0.9F}, 1.95F, glow},
    {1.4F, {0.7F, 0.5F, 0.5F}, 1.6F, ring},
    {0.6F, {0.8F, 0.5F, 0.1F}, 1.56F, glow},
    {1.8F, {0.7F, 0.8F, 0.3F}, 1.3F, glow},
    {1.4F, {0.4F, 0.3F, 0.2F}, 1.26F, glow},
    {1.4F, {0.7F, 0.6F, 0.7F}, 0.98F, ring},
    {1.0F, {0.93F, 0.82F, 0.73F}, 0.955F, glow},
    {1.6F, {0.7F, 0.5F, 0.5F}, 0.57F, ring},
    {0.8F, {0.9F, 0.9F, 0.2F}, 0.551F, glow},
    {0.83F, {0.9F, 0.2F, 0.1F}, 0.35F, ring},
    {1.7F, {0.8F, 0.5F, 0.6F}, 0.3F, ring},
    {0.6F, {0.9F, 0.6F, 0.4F}, 0.2F, glow},
    {16.0F, {0.6F, 0.6F, 0.8F}, 0.0F, starburst},
    {3.5F, {0.8F, 0.8F, 0.1F}, 0.0F, glow},
    {30.0F, {1.0F, 1.0F, 1.0F}, 0.0F, halo},
}};

/** Large enough for a light nearby, and with mipmaps for one far away. */
std::unique_ptr<TextureDataOwnsGLHandle> imageOnCard(LensFlareImage image) {
    constexpr std::uint32_t side = 256;
    return TextureDataOwnsGLHandle::fromPixels("LENS_FLARE", side, lensFlarePixels(image, side), true);
}

std::unique_ptr<Texture> textureOn(TextureDataOwnsGLHandle& data) {
    auto texture = std::make_unique<TextureSharesTexDataOwnsGLHandle>(&data);
    texture->setMinFilter(GL_LINEAR_MIPMAP_LINEAR);
    texture->setWrapS(GL_CLAMP_TO_EDGE);
    texture->setWrapT(GL_CLAMP_TO_EDGE);
    return texture;
}

} // namespace

/** Made with the first flare, since most lights never have one. */
struct MGLLight::Flare {
    Flare() {
        point->setPrimitive(GL_POINTS);
        for (std::size_t i = 0; i < quads.size(); ++i) {
            const FlareElement& element = flareElements[i];
            quads[i] =
                IndexedGeometryQuad::New(0, element.size, element.size, element.color, true, false, true);
        }
    }

    std::array<std::unique_ptr<IndexedGeometryQuad>, flareElements.size()> quads;
    std::array<std::unique_ptr<TextureDataOwnsGLHandle>, lensFlareImages.size()> images;
    std::unique_ptr<IndexedGeometryLines> point = IndexedGeometryLines::New({Vector()}, nullptr);
    GLQuery occlusionQuery = GLQuery::create();
};

MGLLight::MGLLight(WO* parent) : MGL(parent), marker(IndexedGeometrySphere::New(1.0F, 10, 10, false, false)) {
    markerSkin.setColor(1.0F, 0.0F, 0.0F, 0.75F);
}

MGLLight::~MGLLight() = default;

void MGLLight::render(Camera* camera) {
    if (debugViewEnabled) {
        renderGeometryIn(markerSkin, *camera, *marker, getModelMatrix(), getNormalMatrix(*camera));
    }
}

void MGLLight::renderSelection(Camera* camera, std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    if (debugViewEnabled) {
        renderGeometrySelection(*camera, *marker, r, g, b);
    }
}

void MGLLight::renderLensFlare(const Camera& camera) {
    if (debugViewEnabled) { // the marker stands for it; without images a flare would be plain squares
        return;
    }
    prepareFlare();
    if (!isSeenBy(camera)) {
        return;
    }
    const ScopedEnabled depthTest(GL_DEPTH_TEST, false);
    const ScopedEnabled blending(GL_BLEND, true);
    const Vector& light = getTranslation();
    const float distance = camera.getPosition().distanceFrom(light);
    const Vector toMiddle = camera.getPosition() + camera.getLookDirection() * distance - light;
    for (std::size_t i = 0; i < flareElements.size(); ++i) {
        renderFlareElement(i, camera, light + toMiddle * flareElements[i].scale);
    }
}

void MGLLight::prepareFlare() {
    if (!flare) {
        flare = std::make_unique<Flare>();
    }
    if (skins.list.size() >= lensFlareImages.size()) {
        return;
    }
    skins.list.clear();
    for (std::size_t i = 0; i < lensFlareImages.size(); ++i) {
        flare->images[i] = imageOnCard(lensFlareImages[i]);
        skins.list.push_back(shapeSkin(ModelMeshSkin(textureOn(*flare->images[i]))));
    }
}

bool MGLLight::isSeenBy(const Camera& camera) const {
    const GLuint query = flare->occlusionQuery.get();
    if (query == 0) {
        return false;
    }
    const ScopedNoWrites noWrites;
    const ScopedPointSize pointSize(1.0F);
    glBeginQuery(GL_SAMPLES_PASSED, query);
    renderGeometrySelection(camera, *flare->point, 0, 0, 0);
    glEndQuery(GL_SAMPLES_PASSED);
    GLuint samples = 0;
    glGetQueryObjectuiv(query, GL_QUERY_RESULT, &samples);
    return samples > 0;
}

void MGLLight::renderFlareElement(std::size_t element, const Camera& camera, const Vector& place) {
    const Vector z = (place - camera.getPosition()).normalizeMe();
    const Vector x = acrossOr(Vector(), camera.getNormalDirection(), z);
    if (!isDirection(z) || !isDirection(x)) {
        return;
    }
    const auto skin = static_cast<std::size_t>(flareElements[element].image);
    renderGeometryIn(skins.list.at(skin), camera, *flare->quads[element],
                     Mat4::fromAxes(x, z.crossProduct(x).normalizeMe(), z, place));
}

} // namespace Vantrel
