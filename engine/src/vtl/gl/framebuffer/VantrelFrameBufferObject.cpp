#include "vtl/gl/framebuffer/VantrelFrameBufferObject.h"

#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/framebuffer/ScopedFramebufferBinding.h"

#include <algorithm>

namespace Vantrel {
namespace {

constexpr std::int32_t aroundConstruction = 550100;

FramebufferFunctions gl() {
    return FramebufferFunctions::ofContext();
}

bool isNumberOfTexturesAccepted(int count) {
    const int most = ManagerOpenGLState::getCapabilities().maxColorAttachments;
    if (count < 0 || count > most) {
        Report() << "ERROR: VantrelFrameBufferObject: " << count
                 << " color textures were asked for, the driver takes 0 to " << most << "...\n";
        return false;
    }
    return true;
}

void setColorTextureParameters() {
    if (ManagerOpenGLState::isCompatibilityProfile()) {
        glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    }
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
}

void setDepthTextureParameters() {
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_COMPARE_MODE, GL_NONE);
}

/** What the bound frame buffer draws into and is read from: its first colour texture, or nothing. */
void useColorBuffer(GLenum buffer) {
    glDrawBuffer(buffer);
    glReadBuffer(buffer);
}

/** Reports what the bound frame buffer lacks, most of it with a pause. */
void validate() {
    switch (const GLenum status = gl().checkFramebufferStatus(GL_FRAMEBUFFER)) {
    case GL_FRAMEBUFFER_COMPLETE:
        return;
    case GL_FRAMEBUFFER_UNSUPPORTED:
        Report() << "Framebuffer unsupported!\n";
        return;
    case GL_FRAMEBUFFER_INCOMPLETE_ATTACHMENT:
    case GL_FRAMEBUFFER_INCOMPLETE_DIMENSIONS_EXT:
        Report() << "GL_FRAMEBUFFER_INCOMPLETE_ATTACHMENT\n";
        break;
    case GL_FRAMEBUFFER_INCOMPLETE_MISSING_ATTACHMENT:
        Report() << "GL_FRAMEBUFFER_INCOMPLETE_MISSING_ATTACHMENT\n";
        break;
    default:
        Report() << "Framebuffer validation error - unknown status: " << status << "\n";
        break;
    }
    Pause::waitForKey();
}

void attach(GLenum attachment, const GLRenderbuffer& buffer) {
    gl().framebufferRenderbuffer(GL_FRAMEBUFFER, attachment, GL_RENDERBUFFER, buffer.get());
}

void attach(GLenum attachment, const GLTexture& texture) {
    gl().framebufferTexture2D(GL_FRAMEBUFFER, attachment, GL_TEXTURE_2D, texture.get(), 0);
}

int samplesOf(const GLRenderbuffer& buffer) {
    GLint samples = 0;
    gl().bindRenderbuffer(GL_RENDERBUFFER, buffer.get());
    gl().getRenderbufferParameteriv(GL_RENDERBUFFER, GL_RENDERBUFFER_SAMPLES, &samples);
    gl().bindRenderbuffer(GL_RENDERBUFFER, 0);
    return samples;
}

} // namespace

std::deque<std::unique_ptr<VantrelFBOState>> VantrelFrameBufferObject::fboStack;

std::unique_ptr<VantrelFrameBufferObject> VantrelFrameBufferObject::New(int width, int height,
                                                                        int numTextures, bool hasDepth,
                                                                        bool hasStencil, bool useAntiAliasing,
                                                                        bool depthIsTexture) {
    if (!ManagerOpenGLState::areFramebufferObjectsSupported()) {
        Report() << "Does not support frame buffer objects.\n";
        return nullptr;
    }
    if (!isSizeAccepted(width, height) || !isNumberOfTexturesAccepted(numTextures)) {
        return nullptr;
    }
    checkGLError(aroundConstruction);
    auto made = std::make_unique<VantrelFrameBufferObject>(width, height, numTextures, hasDepth, hasStencil,
                                                           useAntiAliasing, depthIsTexture,
                                                           ManagerOpenGLState::getCapabilities().maxSamples);
    made->onCreate();
    checkGLError(aroundConstruction);
    return made;
}

VantrelFrameBufferObject::VantrelFrameBufferObject(int width_, int height_, int numTextures_, bool hasDepth,
                                                   bool hasStencil, bool antiAliasing, bool depthIsTexture,
                                                   int maxSamples_)
    : width(width_)
    , height(height_)
    , numTextures(static_cast<std::uint32_t>(numTextures_))
    , hasDepthBuffer(hasDepth)
    , hasStencilBuffer(hasStencil)
    , depthBufferIsTexture(depthIsTexture)
    , useAntiAliasing(antiAliasing)
    , maxSamples(maxSamples_)
    , msaaSamples(std::min(maxSamples_, samplesAtMost)) {
}

void VantrelFrameBufferObject::onCreate() {
    reportSamples();
    const ScopedFramebufferBinding previous;
    generate();
    Report() << "Attaching Depth and/or Stencil buffer to bound Framebuffer...\n";
    attachDepthAndStencil();
    generateColorTextures();
    Report() << "Checking Antialias Support...\n";
    useAntiAliasing = useAntiAliasing && isAntiAliasingPossible() && attachMultisampleBuffers();
    Report() << "Validating Framebuffer object...\n";
    validate();
    Report() << "Finished Validating Framebuffer object...\n";
}

bool VantrelFrameBufferObject::isSizeAccepted(int width, int height) {
    const int longest = ManagerOpenGLState::getCapabilities().maxFramebufferSize;
    if (width < 1 || height < 1 || width > longest || height > longest) {
        Report() << "ERROR: VantrelFrameBufferObject: a size of " << width << "x" << height
                 << " was asked for, the driver takes 1x1 to " << longest << "x" << longest << "...\n";
        return false;
    }
    return true;
}

void VantrelFrameBufferObject::reportSamples() {
    Report() << "Hardware support on this machine allows up to " << maxSamples << "x Anti-Aliasing...\n";
    if (msaaSamples == 0 && useAntiAliasing) {
        useAntiAliasing = false;
        Report() << "Anti-Aliasing has been disabled for this VantrelFBO: No hardware support on this "
                    "machine...\n";
    }
}

void VantrelFrameBufferObject::generate() {
    Report() << "Generating Framebuffer handle...\n";
    frameBuffer = std::make_shared<GLFramebuffer>(GLFramebuffer::create());
    Report() << "Binding Framebuffer handle...\n";
    gl().bindFramebuffer(GL_FRAMEBUFFER, frameBuffer->get());
    // A colour buffer that is drawn into and isn't there makes it incomplete below 4.1.
    useColorBuffer(GL_NONE);
}

void VantrelFrameBufferObject::attachDepthAndStencil() {
    if (hasDepthBuffer && hasStencilBuffer) {
        attachPackedBuffer();
    } else if (hasDepthBuffer) {
        attachDepthBuffer();
    } else if (hasStencilBuffer) {
        stencilRenderbuffer = GLRenderbuffer::create();
        sizeRenderbuffer(stencilRenderbuffer, stencilFormat);
        attach(GL_STENCIL_ATTACHMENT, stencilRenderbuffer);
    }
}

void VantrelFrameBufferObject::attachPackedBuffer() {
    depthFormat = depthStencilFormat;
    depthRenderbuffer = GLRenderbuffer::create();
    sizeRenderbuffer(depthRenderbuffer, depthFormat);
    attach(GL_DEPTH_ATTACHMENT, depthRenderbuffer);
    attach(GL_STENCIL_ATTACHMENT, depthRenderbuffer);
}

void VantrelFrameBufferObject::attachDepthBuffer() {
    if (depthBufferIsTexture) {
        depthTexture = GLTexture::create();
        sizeDepthTexture();
        attach(GL_DEPTH_ATTACHMENT, depthTexture);
    } else {
        depthRenderbuffer = GLRenderbuffer::create();
        sizeRenderbuffer(depthRenderbuffer, depthFormat);
        attach(GL_DEPTH_ATTACHMENT, depthRenderbuffer);
    }
    validate();
    Report() << "Attached texture depth buffer...\n";
}

void VantrelFrameBufferObject::generateColorTextures() {
    for (std::uint32_t i = 0; i < numTextures; ++i) {
        textures.push_back(GLTexture::create());
        sizeColorTexture(textures.back());
        attach(GL_COLOR_ATTACHMENT0 + i, textures.back());
    }
    if (!textures.empty()) {
        useColorBuffer(GL_COLOR_ATTACHMENT0);
    }
}

bool VantrelFrameBufferObject::isAntiAliasingPossible() const {
    if (!hasDepthBuffer) {
        Report() << "Requires a Depth buffer for antialias multisampling... Not using Antialiasing...\n";
        return false;
    }
    if (gl().renderbufferStorageMultisample == nullptr || gl().blitFramebuffer == nullptr) {
        Report() << "WARNING: Your graphics hardware does not support "
                    "'glRenderbufferStorageMultisampleEXT()'.\n"
                    "   Multi Sample Antialiasing is NOT supported on your hardware. Disabling FBO based\n"
                    "   Antialiasing and continuing normally...\n";
        return false;
    }
    if (numTextures != 1 || depthTexture) { // the others have one sample, and all must have as many
        Report() << "Requires one color texture and a Depth buffer that is no texture for antialias "
                    "multisampling... Not using Antialiasing...\n";
        return false;
    }
    return true;
}

bool VantrelFrameBufferObject::attachMultisampleBuffers() {
    msaaColorRenderbuffer = GLRenderbuffer::create();
    attachResolveBuffer();
    sizeRenderbuffer(msaaColorRenderbuffer, colorFormat);
    if (!takeSamplesOf(msaaColorRenderbuffer, "Samples being used is ", "color")) {
        return false;
    }
    attach(GL_COLOR_ATTACHMENT0, msaaColorRenderbuffer);
    depthFormat = depthStencilFormat;
    sizeRenderbuffer(depthRenderbuffer, depthFormat);
    if (!takeSamplesOf(depthRenderbuffer, "Depth Samples being used is ", "depth")) {
        return false;
    }
    sizeRenderbuffer(msaaColorRenderbuffer, colorFormat); // as many as the depth buffer got
    return true;
}

void VantrelFrameBufferObject::attachResolveBuffer() {
    msaaResolveFbo = GLFramebuffer::create();
    gl().bindFramebuffer(GL_FRAMEBUFFER, msaaResolveFbo.get());
    attach(GL_COLOR_ATTACHMENT0, textures.front());
    gl().bindFramebuffer(GL_FRAMEBUFFER, frameBuffer->get());
}

bool VantrelFrameBufferObject::takeSamplesOf(const GLRenderbuffer& buffer, const char* granted,
                                             const char* kind) {
    const int samples = samplesOf(buffer);
    Report() << "Attaching AntiAliasing Buffers... " << granted << samples << "...\n";
    if (samples < msaaSamples) {
        msaaSamples = samples;
        Report() << "AntiAlias hardware for " << kind << " render buffer only supports " << samples << "\n"
                 << "   reducing MSAA sample to " << samples << "x...\n";
    }
    constexpr int fewestSamples = 2;
    if (msaaSamples < fewestSamples) {
        Report() << "MSAA maximal sampling rate is " << msaaSamples << " at least 2x is required for MSAA\n"
                 << "   to function... Disabling MultiSampling Antialiasing on this FBO...\n";
        attachPlainBuffers();
        return false;
    }
    return true;
}

void VantrelFrameBufferObject::attachPlainBuffers() {
    msaaColorRenderbuffer.reset();
    msaaResolveFbo.reset();
    attachPackedBuffer();
    attach(GL_COLOR_ATTACHMENT0, textures.front());
    validate();
}

void VantrelFrameBufferObject::sizeColorTexture(const GLTexture& texture) const {
    glBindTexture(GL_TEXTURE_2D, texture.get());
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    setColorTextureParameters();
    glBindTexture(GL_TEXTURE_2D, 0);
}

void VantrelFrameBufferObject::sizeDepthTexture() const {
    glBindTexture(GL_TEXTURE_2D, depthTexture.get());
    setDepthTextureParameters();
    glTexImage2D(GL_TEXTURE_2D, 0, GL_DEPTH_COMPONENT, width, height, 0, GL_DEPTH_COMPONENT, GL_UNSIGNED_BYTE,
                 nullptr);
    checkGLError(aroundConstruction);
    glBindTexture(GL_TEXTURE_2D, 0);
}

void VantrelFrameBufferObject::sizeRenderbuffer(const GLRenderbuffer& buffer, GLenum format) const {
    gl().bindRenderbuffer(GL_RENDERBUFFER, buffer.get());
    if (msaaColorRenderbuffer) {
        gl().renderbufferStorageMultisample(GL_RENDERBUFFER, msaaSamples, format, width, height);
    } else {
        gl().renderbufferStorage(GL_RENDERBUFFER, format, width, height);
    }
    gl().bindRenderbuffer(GL_RENDERBUFFER, 0);
}

void VantrelFrameBufferObject::bind() {
    fboStack.push_back(std::make_unique<VantrelFBOState>(width, height, frameBuffer->get(), frameBuffer));
    gl().bindFramebuffer(GL_FRAMEBUFFER, frameBuffer->get());
    if (numTextures != 0) {
        glViewport(0, 0, width, height);
    }
}

void VantrelFrameBufferObject::unbind(bool generateMipmaps) {
    if (findBound() == nullptr) {
        Report() << "WARNING: Vantrel::VantrelFrameBufferObject::unbind() Stack underflow... Are all you "
                    "bind() / unbind() matched?\n";
    } else {
        resolveSamples();
        fboStack.pop_back();
    }
    bindTopOfStack();
    if (generateMipmaps) {
        makeMipmaps();
    }
}

void VantrelFrameBufferObject::resolveSamples() const {
    if (!useAntiAliasing) {
        return;
    }
    gl().bindFramebuffer(GL_READ_FRAMEBUFFER, frameBuffer->get());
    gl().bindFramebuffer(GL_DRAW_FRAMEBUFFER, msaaResolveFbo.get());
    gl().blitFramebuffer(0, 0, width, height, 0, 0, width, height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
}

void VantrelFrameBufferObject::bindTopOfStack() {
    const VantrelFBOState* const bound = findBound();
    if (bound == nullptr) {
        gl().bindFramebuffer(GL_FRAMEBUFFER, 0);
        glViewport(0, 0, ManagerWindowing::getWindowWidth(), ManagerWindowing::getWindowHeight());
    } else {
        glViewport(0, 0, bound->width, bound->height);
        gl().bindFramebuffer(GL_FRAMEBUFFER, bound->fboHandle);
    }
}

void VantrelFrameBufferObject::makeMipmaps() const {
    for (const GLTexture& texture : textures) {
        glBindTexture(GL_TEXTURE_2D, texture.get());
        gl().generateMipmap(GL_TEXTURE_2D);
    }
    glBindTexture(GL_TEXTURE_2D, 0);
}

bool VantrelFrameBufferObject::adjustSize(int newWidth, int newHeight) {
    if (!isSizeAccepted(newWidth, newHeight)) {
        return false;
    }
    width = newWidth;
    height = newHeight;
    for (const GLTexture& texture : textures) {
        sizeColorTexture(texture);
    }
    if (depthTexture) {
        sizeDepthTexture();
    }
    if (depthRenderbuffer) {
        sizeRenderbuffer(depthRenderbuffer, depthFormat);
    }
    if (stencilRenderbuffer) {
        sizeRenderbuffer(stencilRenderbuffer, stencilFormat);
    }
    if (msaaColorRenderbuffer) {
        sizeRenderbuffer(msaaColorRenderbuffer, colorFormat);
    }
    return true;
}

void VantrelFrameBufferObject::bindColorTexture() const {
    glBindTexture(GL_TEXTURE_2D, getColorTextureHandle());
}

std::unique_ptr<TextureOwnsTexDataSharesGLHandle> VantrelFrameBufferObject::createColorTexture() const {
    if (textures.empty()) {
        return nullptr;
    }
    auto data = std::make_unique<TextureDataSharesGLHandle>(getColorTextureHandle());
    data->width = static_cast<std::uint32_t>(width);
    data->height = static_cast<std::uint32_t>(height);
    auto texture = std::make_unique<TextureOwnsTexDataSharesGLHandle>(std::move(data));
    texture->setWrapS(GL_CLAMP_TO_EDGE);
    texture->setWrapT(GL_CLAMP_TO_EDGE);
    return texture;
}

bool VantrelFrameBufferObject::getCurrentTargetSize(int* width, int* height) {
    const VantrelFBOState* const bound = findBound();
    if (bound == nullptr) {
        return false;
    }
    *width = bound->width;
    *height = bound->height;
    return true;
}

const VantrelFBOState* VantrelFrameBufferObject::findBound() {
    while (!fboStack.empty() && !fboStack.back()->isAlive()) {
        fboStack.pop_back();
    }
    return fboStack.empty() ? nullptr : fboStack.back().get();
}

std::string VantrelFrameBufferObject::toString() const {
    ReportText text;
    text << "FBO: WxH: " << width << "x" << height << "\n"
         << "   GLuint handle: " << getHandle() << "\n"
         << "   NumTextures: " << numTextures << "\n"
         << "   HasDepthBuffer: " << hasDepthBuffer
         << " Depth Buffer GLuint handle: " << getDepthBufferHandle() << "\n"
         << "   HasStencilBuffer: " << hasStencilBuffer
         << " Stencil Buffer GLuint handle: " << getStencilBufferHandle() << "\n";
    return text.str();
}

} // namespace Vantrel
