#pragma once

#include "vtl/gl/GLHandle.h"

#include <GL/glew.h>
#include <array>
#include <compare>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <tuple>
#include <utility>

namespace Vantrel {

/** One image on the card: where it came from, its GL name and its format. */
class TextureData {
public:
    /** How a texture is sampled, as GL's parameters of that name. */
    struct Sampling {
        std::int32_t wrapS = GL_REPEAT;
        std::int32_t wrapT = GL_REPEAT;
        std::int32_t minFilter = GL_LINEAR;
        std::int32_t magFilter = GL_LINEAR;
    };

    TextureData& operator=(const TextureData&) = delete;
    virtual ~TextureData() = default;

    /** What distinguishes two images of one size. */
    auto key() const { return std::tie(fileName, mipmapped, target, internalFormat, format, type); }
    /** Name, GL name, size and format, a line each. */
    std::string toString() const;

    /** Binds the image to the current texture unit. */
    void bind() const { glBindTexture(target, glHandle); }
    /** Sets how the bound image is sampled. */
    void applySampling(const Sampling& sampling) const;

    /** The GL texture exists. */
    bool doneLoading = false;
    /** Of the image file, or a made-up name. */
    std::string fileName;
    std::uint32_t glHandle = 0;
    /** Pixels. */
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    bool mipmapped = true;
    std::uint32_t target = GL_TEXTURE_2D;
    /** False once the image was resized to a size that was asked for. */
    bool keepsImageSize = true;
    std::int32_t internalFormat = GL_RGBA;
    std::uint32_t format = GL_RGBA;
    std::uint32_t type = GL_UNSIGNED_BYTE;

protected:
    explicit TextureData(std::string name) : fileName(std::move(name)) {}
    TextureData(const TextureData&) = default;
};

/** An image whose GL texture goes with it. */
class TextureDataOwnsGLHandle : public TextureData {
public:
    explicit TextureDataOwnsGLHandle(std::string name) : TextureData(std::move(name)) {}
    /**
     * A square that was computed: `side` rows, from the bottom up, of `side` pixels of red, green, blue and
     * alpha. With too few of them, and without a context, there is no GL texture.
     */
    static std::unique_ptr<TextureDataOwnsGLHandle>
    fromPixels(std::string name, std::uint32_t side, std::span<const std::uint8_t> pixels, bool isMipmapped);

    /**
     * Sends pixels of the size, the format and the type that are set to the card, where they stay bound;
     * false when GL can't take them.
     */
    bool upload(const void* pixels);

private:
    GLTexture texture;
};

/** An image whose GL texture belongs to somebody else, a frame buffer say. */
class TextureDataSharesGLHandle : public TextureData {
public:
    explicit TextureDataSharesGLHandle(std::uint32_t texture) : TextureData({}) {
        glHandle = texture;
        doneLoading = true;
    }
};

/**
 * The order by which images are told apart: by key, then, of two with one key, by size. An image that isn't
 * loaded and asks for the natural size is equal to a loaded one that kept it. Two that are both not loaded
 * can't be told apart: that is reported and ends the process after a key.
 */
std::weak_ordering compareTextureData(const TextureData& a, const TextureData& b);

} // namespace Vantrel
