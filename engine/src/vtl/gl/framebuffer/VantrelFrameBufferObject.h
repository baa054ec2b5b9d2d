#pragma once

#include "vtl/gl/GLHandle.h"
#include "vtl/gl/framebuffer/VantrelFBOState.h"
#include "vtl/gl/texture/Texture.h"
#include "vtl/math/vtlColor4f.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace Vantrel {

/**
 * A picture that is drawn into instead of the window, and can be used as a texture. Its binds nest over all
 * objects of the process. With several samples a pixel there are two GL frame buffers: one that is drawn
 * into, and one with the colour texture, into which `unbind` resolves the samples. Main thread, with the
 * context.
 */
class VantrelFrameBufferObject {
public:
    /**
     * Pixels. Anti-aliasing that can't be had is left out, with a report. Null, with a report, where the
     * driver has no frame buffer objects, or for a size or a number of textures that it doesn't take.
     */
    static std::unique_ptr<VantrelFrameBufferObject> New(int width, int height, int numTextures,
                                                         bool hasDepth, bool hasStencil, bool useAntiAliasing,
                                                         bool depthIsTexture);

    /** `maxSamples`: the most that the driver has for a pixel. */
    VantrelFrameBufferObject(int width, int height, int numTextures, bool hasDepth, bool hasStencil,
                             bool useAntiAliasing, bool depthIsTexture, int maxSamples);
    VantrelFrameBufferObject(const VantrelFrameBufferObject&) = delete;
    VantrelFrameBufferObject& operator=(const VantrelFrameBufferObject&) = delete;
    virtual ~VantrelFrameBufferObject() = default;
    /** Makes the GL side. What is incomplete is reported, and costs a pause. */
    virtual void onCreate();

    /** Drawing goes here from now on, and the viewport is the whole picture where there are textures. */
    void bind();
    /**
     * Takes the latest `bind` back, whosever it was: drawing goes to the object before, else to the window,
     * and the viewport is all of that.
     */
    void unbind(bool generateMipmaps);
    /** Empties the picture and gives it another size; false, with a report, for one that `New` refuses. */
    bool adjustSize(int width, int height);
    /** The first one, to the current texture unit. */
    void bindColorTexture() const;
    /** On the first one, of which it must not outlive the owner; null where there is none. */
    std::unique_ptr<TextureOwnsTexDataSharesGLHandle> createColorTexture() const;
    /** The size of what is bound; false, and nothing written, when that is the window. */
    static bool getCurrentTargetSize(int* width, int* height);
    /** Forgets all binds, at the end of the context. */
    static void forgetBinds() { fboStack.clear(); }
    std::string toString() const;

    int getWidth() const { return width; }
    int getHeight() const { return height; }
    /** Of the GL frame buffer that is drawn into. */
    std::uint32_t getHandle() const { return frameBuffer->get(); }
    std::uint32_t getNumTextures() const { return numTextures; }
    /** 0 where there is none of that number. */
    std::uint32_t getColorTextureHandle(std::size_t index = 0) const {
        return index < textures.size() ? textures[index].get() : 0;
    }
    /** Of a renderbuffer or, where it was asked for, a texture. */
    std::uint32_t getDepthBufferHandle() const {
        return depthTexture ? depthTexture.get() : depthRenderbuffer.get();
    }
    /** 0 where depth and stencil share a buffer. */
    std::uint32_t getStencilBufferHandle() const { return stencilRenderbuffer.get(); }
    bool isAntiAliased() const { return useAntiAliasing; }
    /** For each pixel, where there is anti-aliasing. */
    int getSamples() const { return msaaSamples; }

    /** What the picture is cleared to where something is drawn by `renderToCurrentTarget`. */
    vtlColor4f clearColor{0.0F, 0.0F, 0.0F, 0.0F};

private:
    static constexpr int samplesAtMost = 16;
    /** Of the multisampled colour buffer. */
    static constexpr GLenum colorFormat = GL_RGBA8;
    /** Of a depth buffer with a stencil buffer in it, as every multisampled one is. */
    static constexpr GLenum depthStencilFormat = GL_DEPTH24_STENCIL8;
    /** Of a stencil buffer of its own. */
    static constexpr GLenum stencilFormat = GL_STENCIL_INDEX4;

    static bool isSizeAccepted(int width, int height);
    void reportSamples();
    void generate();
    void attachDepthAndStencil();
    void attachPackedBuffer();
    void attachDepthBuffer();
    void generateColorTextures();
    bool isAntiAliasingPossible() const;
    bool attachMultisampleBuffers();
    void attachResolveBuffer();
    bool takeSamplesOf(const GLRenderbuffer& buffer, const char* granted, const char* kind);
    void attachPlainBuffers();
    void sizeColorTexture(const GLTexture& texture) const;
    void sizeDepthTexture() const;
    void sizeRenderbuffer(const GLRenderbuffer& buffer, GLenum format) const;
    void resolveSamples() const;
    static void bindTopOfStack();
    void makeMipmaps() const;
    static const VantrelFBOState* findBound();

    static std::deque<std::unique_ptr<VantrelFBOState>> fboStack;

    std::int32_t width;
    std::int32_t height;
    /** Shared with the entries of the stack, which only watch it. */
    std::shared_ptr<GLFramebuffer> frameBuffer;
    std::vector<GLTexture> textures;
    std::uint32_t numTextures;
    bool hasDepthBuffer;
    bool hasStencilBuffer;
    GLRenderbuffer depthRenderbuffer;
    GLTexture depthTexture;
    bool depthBufferIsTexture;
    GLRenderbuffer stencilRenderbuffer;
    bool useAntiAliasing;
    /** The colour texture's frame buffer, where there are several samples. */
    GLFramebuffer msaaResolveFbo;
    GLRenderbuffer msaaColorRenderbuffer;
    std::int32_t maxSamples;
    std::int32_t msaaSamples;
    /** Of `depthRenderbuffer`. */
    GLenum depthFormat = GL_DEPTH_COMPONENT24;
};

} // namespace Vantrel
