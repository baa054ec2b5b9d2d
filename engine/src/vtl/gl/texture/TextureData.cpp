#include "vtl/gl/texture/TextureData.h"

#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"

namespace Vantrel {
namespace {

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

void TextureDataOwnsGLHandle::takeTexture(GLTexture created) {
    texture = std::move(created);
    glHandle = texture.get();
    doneLoading = true;
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
