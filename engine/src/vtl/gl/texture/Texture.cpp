#include "vtl/gl/texture/Texture.h"

#include "vtl/base/Report.h"
#include "vtl/gl/DebugView.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/ManagerOpenGLState.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Vantrel {
namespace {

bool isWrapMode(std::int32_t mode) {
    constexpr std::array<std::int32_t, 5> modes{GL_CLAMP_TO_EDGE, GL_REPEAT, GL_CLAMP_TO_BORDER,
                                                GL_MIRRORED_REPEAT, GL_MIRROR_CLAMP_TO_EDGE};
    return std::find(modes.begin(), modes.end(), mode) != modes.end();
}

} // namespace

void Texture::bind() {
    if (texData == nullptr) {
        return;
    }
    ManagerOpenGLState::isVersion32OrGreater() ? bindWithShader() : bindFixedFunction();
}

void Texture::bindWithShader() {
    texData->bind();
    if (texData->target != GL_TEXTURE_BUFFER) {
        texData->applySampling(sampling);
    }
}

void Texture::bindFixedFunction() {
    constexpr std::int32_t code = 540100;
    checkGLErrorOfDraw(code);
    texData->bind();
    if (areGLErrorsOfDrawsChecked && checkGLError(code) > 0) {
        Report() << "An error.\n" << toString() << "\n";
    }
    if (texData->target != GL_TEXTURE_BUFFER) {
        if (!debugViewEnabled) {
            glEnable(texData->target);
        }
        glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, textureEnvMode);
        texData->applySampling(sampling);
    }
    if (usesMatrix()) {
        pushTextureMatrix();
    }
    checkGLErrorOfDraw(code);
}

void Texture::pushTextureMatrix() const {
    glMatrixMode(GL_TEXTURE);
    glPushMatrix();
    glLoadIdentity();
    if (useTranslation) {
        glTranslatef(translation.x, translation.y, translation.z);
    }
    if (useScale) {
        glScalef(scale.x, scale.y, scale.z);
    }
    if (useRotationMatrix) {
        glMultMatrixf(rotationMatrix.m.data());
    }
    glMatrixMode(GL_MODELVIEW);
}

void Texture::unbind() {
    if (texData == nullptr || ManagerOpenGLState::isVersion32OrGreater()) {
        return;
    }
    if (texData->target != GL_TEXTURE_BUFFER) {
        glDisable(texData->target);
    }
    if (usesMatrix()) {
        glMatrixMode(GL_TEXTURE);
        glPopMatrix();
        glMatrixMode(GL_MODELVIEW);
    }
}

std::string Texture::getFileName() const {
    return texData != nullptr ? texData->fileName
                              : "ERROR: Texture::getFileName... This Texture's texData is NULL!!!\n";
}

std::string Texture::toString() const {
    std::string text = "Texture Info...\n"
                       "   Rotation Matrix: Not Printed\n"
                       "   Texture Translation: Not Printed\n"
                       "   Use rot mat, use trans vec, OGL Flags: Not Printed\n"
                       "   Texture Data Shared Info is:\n";
    return texData != nullptr ? text.append(texData->toString()) : text;
}

void Texture::getTextureMatrix(Mat4& out) const {
    out = rotationMatrix;
    const std::array<float, 3> factors{scale.x, scale.y, scale.z};
    const std::array<float, 3> offsets{translation.x, translation.y, translation.z};
    for (std::size_t row = 0; row < factors.size(); ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            out[4 * column + row] *= factors[row];
        }
        out[12 + row] += offsets[row];
    }
}

void Texture::setRotationMatrix(const Mat4& matrix) {
    rotationMatrix = matrix;
    useRotationMatrix = true;
}

void Texture::setTranslation(const Vector& amount) {
    translation = amount;
    useTranslation = true;
}

void Texture::setScale(float factor) {
    scale = Vector(factor, factor, factor);
    useScale = true;
}

void Texture::setScaleU(float factor) {
    scale.x = factor;
    useScale = true;
}

void Texture::setScaleV(float factor) {
    scale.y = factor;
    useScale = true;
}

void Texture::setWrapS(std::int32_t mode) {
    if (!isWrapMode(mode)) {
        Report() << "Warning, setWrapS to value other than GL_CLAMP_TO_EDGE or GL_REPEAT...\n";
    }
    sampling.wrapS = mode;
}

void Texture::setWrapT(std::int32_t mode) {
    if (!isWrapMode(mode)) {
        Report() << "Warning, setWrapT to value other than GL_CLAMP_TO_EDGE or GL_REPEAT...\n";
    }
    sampling.wrapT = mode;
}

TextureOwnsTexDataSharesGLHandle::TextureOwnsTexDataSharesGLHandle(
    std::unique_ptr<TextureDataSharesGLHandle> data)
    : Texture(data.get()), ownData(std::move(data)) {
}

TextureOwnsTexDataSharesGLHandle::TextureOwnsTexDataSharesGLHandle(
    const TextureOwnsTexDataSharesGLHandle& other)
    : Texture(other), ownData(std::make_unique<TextureDataSharesGLHandle>(*other.ownData)) {
    texData = ownData.get();
}

} // namespace Vantrel
