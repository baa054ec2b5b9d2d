#include "vtl/gl/texture/TextureData.h"

#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/ManagerOpenGLState.h"

namespace Vantrel {
namespace {

void setTexParameters(std::int32_t wrap, std::int32_t minFilter, std::int32_t magFilter, bool mipmapped) {
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, wrap);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, wrap);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, magFilter);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, minFilter);
    if (!mipmapped) {
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, 0);
    }
}

void setReplaceEnvMode() {
    if (ManagerOpenGLState::isCompatibilityProfile()) {
        glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_REPLACE);
    }
}

/** Some compatibility drivers make mipmaps only while texturing is enabled. */
void generateMipmaps() {
    const bool mustEnable =
        ManagerOpenGLState::isCompatibilityProfile() && glIsEnabled(GL_TEXTURE_2D) == GL_FALSE;
    if (mustEnable) {
        glEnable(GL_TEXTURE_2D);
    }
    glGenerateMipmap(GL_TEXTURE_2D);
    if (mustEnable) {
        glDisable(GL_TEXTURE_2D);
    }
}

[[noreturn]] void refuseTwoInFlight(const TextureData& a, const TextureData& b) {
    Report() << "ERROR: You are most likely loading two textures asynchonously. Where both textures have the "
                "same\n"
                "filename, mipmap status, texture dimensionality, internal format, input format,\n"
                "pixel data type, but have different sizes...\n"
                "This functionality hasn't been implemented quite yet... Talk to Marlo...\n"
                "in the mean time, load these two textures synchronously\n"
             << "Tex1: " << a.toString() << "\n"
             << "Tex2: " << b.toString() << "\n";
    Pause::exitAfterKey();
}

} // namespace

std::string TextureData::toString() const {
    ReportText text;
    text << "   FileName :'" << fileName << "\n"
         << "   GLuint   :'" << glHandle << "\n"
         << "   Width    : " << width << "\n"
         << "   Height   : " << height << "\n"
         << "   Is Mipmapped?: " << mipmapped << "\n"
         << "   Done Loading?: " << doneLoading << "\n"
         << "   Dimensionality: " << target << "\n"
         << "   OpenGL internalFormat: " << internalFormat << "\n"
         << "   OpenGL raw format: " << format << "\n"
         << "   OpenGL raw type: " << type << "\n";
    return text.str();
}

void TextureData::applySampling(const Sampling& sampling) const {
    glTexParameteri(target, GL_TEXTURE_WRAP_S, sampling.wrapS);
    glTexParameteri(target, GL_TEXTURE_WRAP_T, sampling.wrapT);
    glTexParameteri(target, GL_TEXTURE_MIN_FILTER, sampling.minFilter);
    glTexParameteri(target, GL_TEXTURE_MAG_FILTER, sampling.magFilter);
}

std::unique_ptr<TextureDataOwnsGLHandle>
TextureDataOwnsGLHandle::fromPixels(std::string name, std::uint32_t side,
                                    std::span<const std::uint8_t> pixels, bool isMipmapped) {
    constexpr std::size_t bytesPerPixel = 4;
    auto data = std::make_unique<TextureDataOwnsGLHandle>(std::move(name));
    data->width = data->height = side;
    data->mipmapped = isMipmapped;
    if (pixels.size() >= bytesPerPixel * side * side && data->upload(pixels.data())) {
        glBindTexture(GL_TEXTURE_2D, 0);
    }
    return data;
}

bool TextureDataOwnsGLHandle::upload(const void* pixels) {
    constexpr std::int32_t aroundUpload = 540200;
    GLTexture created = GLTexture::create();
    if (!created) {
        return false;
    }
    glBindTexture(GL_TEXTURE_2D, created.get());
    setReplaceEnvMode();
    setTexParameters(GL_REPEAT, mipmapped ? GL_LINEAR_MIPMAP_LINEAR : GL_LINEAR, GL_LINEAR, mipmapped);
    checkGLError(aroundUpload);
    glTexImage2D(GL_TEXTURE_2D, 0, internalFormat, static_cast<GLsizei>(width), static_cast<GLsizei>(height),
                 0, format, type, pixels);
    if (checkGLError(aroundUpload) > 0) {
        return false;
    }
    if (mipmapped) {
        generateMipmaps();
    }
    texture = std::move(created);
    glHandle = texture.get();
    doneLoading = true;
    return true;
}

std::weak_ordering compareTextureData(const TextureData& a, const TextureData& b) {
    if (&a == &b) {
        return std::weak_ordering::equivalent;
    }
    if (const auto order = a.key() <=> b.key(); order != 0) {
        return order;
    }
    if (!a.doneLoading && !b.doneLoading) {
        refuseTwoInFlight(a, b);
    }
    if (a.doneLoading && b.doneLoading) {
        return std::weak_ordering::equivalent;
    }
    const TextureData& wanted = a.doneLoading ? b : a;
    const TextureData& loaded = a.doneLoading ? a : b;
    if (wanted.width == 0 && wanted.height == 0 && loaded.keepsImageSize) {
        return std::weak_ordering::equivalent;
    }
    return std::tie(a.width, a.height) <=> std::tie(b.width, b.height);
}

} // namespace Vantrel
