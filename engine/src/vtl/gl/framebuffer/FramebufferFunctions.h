#pragma once

#include <GL/glew.h>

namespace Vantrel {

/**
 * The functions for frame buffer objects: those of GL 3.0 where the driver has them, since core contexts know
 * no others, else those of the extensions from before. All null where there is neither.
 */
struct FramebufferFunctions {
    static FramebufferFunctions ofContext();

    PFNGLGENFRAMEBUFFERSPROC genFramebuffers;
    PFNGLDELETEFRAMEBUFFERSPROC deleteFramebuffers;
    PFNGLBINDFRAMEBUFFERPROC bindFramebuffer;
    PFNGLCHECKFRAMEBUFFERSTATUSPROC checkFramebufferStatus;
    PFNGLFRAMEBUFFERTEXTURE2DPROC framebufferTexture2D;
    PFNGLFRAMEBUFFERRENDERBUFFERPROC framebufferRenderbuffer;
    PFNGLGENRENDERBUFFERSPROC genRenderbuffers;
    PFNGLDELETERENDERBUFFERSPROC deleteRenderbuffers;
    PFNGLBINDRENDERBUFFERPROC bindRenderbuffer;
    PFNGLRENDERBUFFERSTORAGEPROC renderbufferStorage;
    PFNGLGETRENDERBUFFERPARAMETERIVPROC getRenderbufferParameteriv;
    PFNGLGENERATEMIPMAPPROC generateMipmap;
    /** Null where the driver has frame buffer objects without several samples. */
    PFNGLRENDERBUFFERSTORAGEMULTISAMPLEPROC renderbufferStorageMultisample;
    /** Null where the driver can't copy from one to another. */
    PFNGLBLITFRAMEBUFFERPROC blitFramebuffer;
};

} // namespace Vantrel
