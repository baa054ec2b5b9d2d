#include "vtl/gl/GLEntryPoints.h"

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"

namespace Vantrel {

void loadGLEntryPoints(bool experimental) {
    glewExperimental = experimental ? GL_TRUE : GL_FALSE;
    if (!isGLUsable(glewInit())) {
        reportMissingGLEntryPoints();
    }
}

bool isGLUsable(GLenum glewAnswer) {
    return glewAnswer == GLEW_OK || (glewAnswer == GLEW_ERROR_NO_GLX_DISPLAY &&
                                     glGetString(GL_VERSION) != nullptr && areGL21EntryPointsLoaded());
}

bool areGL21EntryPointsLoaded() {
    // One for each version that brought functions, since GLEW loads a version as a whole; none that has a
    // stub.
    return glTexImage3D != nullptr && glCompressedTexImage2D != nullptr && glBlendFuncSeparate != nullptr &&
           glGenBuffers != nullptr && glCreateProgram != nullptr && glUniformMatrix2x3fv != nullptr;
}

void reportMissingGLEntryPoints() {
    Report() << "\n\nWARNING: GLEW did not successfully initialize: Any opengl extensions calls will crash "
                "your program! Press Enter to continue execution.\n";
    if (ManagerEnvironmentConfiguration::getInt("createwindow") == 0) {
        Report() << "VANTREL Environment Configuration createwindow is zero.\n"
                    "In windowless-mode, GLEW will fail to initialize...\n"
                    "Skipping interactive acknowledgment of GLEW init failure...\n\n\n";
        return;
    }
    Pause::waitForKey();
}

} // namespace Vantrel
