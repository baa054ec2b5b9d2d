#pragma once

#include "vtl/gl/texture/TextureData.h"
#include "vtl/math/Mat4.h"
#include "vtl/math/VectorT.h"

#include <cstdint>
#include <memory>
#include <string>

namespace Vantrel {

/**
 * How one mesh samples an image: texture matrix, wrapping, filters and, on the fixed-function path, how it
 * mixes with the colour. Light; the image is a `TextureData`, which copies share. Must not outlive
 * `ManagerTexture`.
 */
class Texture {
public:
    Texture& operator=(const Texture&) = delete;
    virtual ~Texture() = default;
    virtual std::unique_ptr<Texture> clone() const = 0;

    /**
     * Binds to the current texture unit. On the fixed-function path it also enables texturing there, unless
     * the view for debugging is on, and pushes the texture matrix where one is used.
     */
    void bind();
    /** Gives back what `bind` took; does nothing from 3.2 on. */
    void unbind();

    /** Null when there is no image. */
    TextureData* getTexData() const { return texData; }
    /** 0 when there is no image. */
    std::uint32_t getGLHandle() const { return texData != nullptr ? texData->glHandle : 0; }
    /** Without an image, the text of an error. */
    std::string getFileName() const;
    std::string toString() const;

    /** Translation times scale times rotation, as the fixed-function path multiplies them. */
    void getTextureMatrix(Mat4& out) const;

    void setRotationMatrix(const Mat4& matrix);
    /** In texture coordinates, after the scale. */
    void setTranslation(const Vector& amount);
    const Vector& getTranslation() const { return translation; }
    /** How often the image repeats in all directions, or in one. */
    void setScale(float factor);
    void setScaleU(float factor);
    void setScaleV(float factor);
    const Vector& getScale() const { return scale; }
    /** Kept with the texture; the matrix doesn't use it. */
    void setCenter(const Vector& point) { center = point; }
    const Vector& getCenter() const { return center; }

    /** GL_MODULATE, GL_REPLACE, ... of the fixed-function path. */
    void setTextureEnvMode(std::int32_t mode) { textureEnvMode = mode; }
    std::int32_t getTextureEnvMode() const { return textureEnvMode; }
    /** A wrap mode of GL; one that it doesn't have is taken with a warning. */
    void setWrapS(std::int32_t mode);
    void setWrapT(std::int32_t mode);
    std::int32_t getWrapS() const { return sampling.wrapS; }
    std::int32_t getWrapT() const { return sampling.wrapT; }
    void setMagFilter(std::int32_t filter) { sampling.magFilter = filter; }
    void setMinFilter(std::int32_t filter) { sampling.minFilter = filter; }
    std::int32_t getMagFilter() const { return sampling.magFilter; }
    std::int32_t getMinFilter() const { return sampling.minFilter; }

protected:
    explicit Texture(TextureData* data) : texData(data) {}
    Texture(const Texture&) = default;

    TextureData* texData;

private:
    void bindFixedFunction();
    void bindWithShader();
    void pushTextureMatrix() const;
    bool usesMatrix() const { return useRotationMatrix || useTranslation || useScale; }

    Mat4 rotationMatrix;
    Vector translation;
    Vector scale{1.0F, 1.0F, 1.0F};
    Vector center{0.5F, 0.5F, 0.5F};
    bool useRotationMatrix = false;
    bool useTranslation = false;
    bool useScale = false;
    std::int32_t textureEnvMode = GL_MODULATE;
    TextureData::Sampling sampling;
};

/** A texture on an image that `ManagerTexture`, or another keeper of images, owns together with its GL
 * texture. */
class TextureSharesTexDataOwnsGLHandle : public Texture {
public:
    explicit TextureSharesTexDataOwnsGLHandle(TextureDataOwnsGLHandle* data) : Texture(data) {}
    std::unique_ptr<Texture> clone() const override {
        return std::make_unique<TextureSharesTexDataOwnsGLHandle>(*this);
    }
};

/** A texture on a GL texture that belongs to another object; it has a `TextureData` of its own. */
class TextureOwnsTexDataSharesGLHandle : public Texture {
public:
    /** `data` isn't null. */
    explicit TextureOwnsTexDataSharesGLHandle(std::unique_ptr<TextureDataSharesGLHandle> data);
    /** The copy is on the same GL texture and has a `TextureData` of its own too. */
    TextureOwnsTexDataSharesGLHandle(const TextureOwnsTexDataSharesGLHandle& other);
    std::unique_ptr<Texture> clone() const override {
        return std::make_unique<TextureOwnsTexDataSharesGLHandle>(*this);
    }

private:
    std::unique_ptr<TextureDataSharesGLHandle> ownData;
};

} // namespace Vantrel
