#include "vtl/gl/framebuffer/FramebufferFunctions.h"

namespace Vantrel {

FramebufferFunctions FramebufferFunctions::ofContext() {
    if (glGenFramebuffers != nullptr) {
        return {.genFramebuffers = glGenFramebuffers,
                .deleteFramebuffers = glDeleteFramebuffers,
                .bindFramebuffer = glBindFramebuffer,
                .checkFramebufferStatus = glCheckFramebufferStatus,
                .framebufferTexture2D = glFramebufferTexture2D,
                .framebufferRenderbuffer = glFramebufferRenderbuffer,
                .genRenderbuffers = glGenRenderbuffers,
                .deleteRenderbuffers = glDeleteRenderbuffers,
                .bindRenderbuffer = glBindRenderbuffer,
                .renderbufferStorage = glRenderbufferStorage,
                .getRenderbufferParameteriv = glGetRenderbufferParameteriv,
                .generateMipmap = glGenerateMipmap,
                .renderbufferStorageMultisample = glRenderbufferStorageMultisample,
                .blitFramebuffer = glBlitFramebuffer};
    }
    return {.genFramebuffers = glGenFramebuffersEXT,
            .deleteFramebuffers = glDeleteFramebuffersEXT,
            .bindFramebuffer = glBindFramebufferEXT,
            .checkFramebufferStatus = glCheckFramebufferStatusEXT,
            .framebufferTexture2D = glFramebufferTexture2DEXT,
            .framebufferRenderbuffer = glFramebufferRenderbufferEXT,
            .genRenderbuffers = glGenRenderbuffersEXT,
            .deleteRenderbuffers = glDeleteRenderbuffersEXT,
            .bindRenderbuffer = glBindRenderbufferEXT,
            .renderbufferStorage = glRenderbufferStorageEXT,
            .getRenderbufferParameteriv = glGetRenderbufferParameterivEXT,
            .generateMipmap = glGenerateMipmapEXT,
            .renderbufferStorageMultisample = glRenderbufferStorageMultisampleEXT,
            .blitFramebuffer = glBlitFramebufferEXT};
}

} // namespace Vantrel
