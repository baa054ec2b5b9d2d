#include "vtl/gl/shader/ManagerShader.h"

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/gl/ManagerOpenGLState.h"

#include <algorithm>
#include <array>

namespace Vantrel {
namespace {

void reportContextWithoutDefaultShaders() {
    Report()
        << "WARNING: OpenGL Context Version is < 3.2 and Cannot load DEFAULT_SHADER...\n"
           "Modern Shaders require a GL Context of 3.2+, only GLSL Shaders using #version 1.20 or earlier "
           "are supported.\n"
           "OpenGL Version | GLSL Version\n"
           "    2.0        |    1.10\n"
           "    2.1        |    1.20\n"
           "    3.0        |    1.30\n"
           "    3.1        |    1.40\n"
           "    3.2        |    1.50\n"
           "    4.x+       |    4.x+ (After 3.2, the OpenGL Version MATCHES the GLSL Version).\n";
}

template <std::size_t Count>
bool isOneOf(GLenum type, const std::array<GLenum, Count>& types) {
    return std::find(types.begin(), types.end(), type) != types.end();
}

void checkGeometryOutputType(GLenum type) {
    if (!isOneOf(type, std::array<GLenum, 3>{GL_POINTS, GL_LINE_STRIP, GL_TRIANGLE_STRIP})) {
        Report() << "ERROR: ManagerShader::loadShader(...):\n"
                    "Geometry Shader Output Primitive type must be either: \n"
                    "   'GL_POINTS', 'GL_LINE_STRIP', or 'GL_TRIANGLE_STRIP'...\n"
                    "   Invalid output primitive type '"
                 << type << "'...\n"
                 << "Press ENTER to exit...\n";
        Pause::exitAfterKey();
    }
}

void checkGeometryInputType(GLenum type) {
    if (!isOneOf(type, std::array<GLenum, 5>{GL_POINTS, GL_LINES, GL_LINES_ADJACENCY_EXT, GL_TRIANGLES,
                                             GL_TRIANGLES_ADJACENCY_EXT})) {
        Report() << "ERROR: ManagerShader::loadShader(...):\n"
                    "Geometry Shader Input Primitive type must be either: \n"
                    "   'GL_POINTS', 'GL_LINES', 'GL_LINES_ADJACENCY_EXT',\n"
                    "   'GL_TRIANGLES', or 'GL_TRIANGLES_ADJACENCY_EXT'...\n"
                    "   Invalid input primitive type '"
                 << type << "'...\n"
                 << "Press ENTER to exit...\n";
        Pause::exitAfterKey();
    }
}

/** Loads into `shader`, or ends the process: without its default shaders the engine has nothing to draw with.
 */
template <class Shader>
void loadDefaultShader(std::unique_ptr<Shader>& shader) {
    shader = Shader::New();
    if (shader == nullptr) {
        Report() << "ERROR: Failed to load DEFAULT_SHADER '" << Shader::vertexFile << "', '"
                 << Shader::fragmentFile << "'\n"
                 << "from the configured sharedmultimediapath '"
                 << ManagerEnvironmentConfiguration::getSharedMultimediaPath() << "'...\n"
                 << "Press ENTER to exit...\n";
        Pause::exitAfterKey();
    }
}

} // namespace

ManagerShader::State ManagerShader::state;

void ManagerShader::init() {
    shutdown();
    if (ManagerOpenGLState::isVersion32OrGreater()) {
        loadDefaultShaders();
    } else if (ManagerEnvironmentConfiguration::getVariableValue("createwindow") != "0") {
        reportContextWithoutDefaultShaders();
    }
}

void ManagerShader::loadDefaultShaders() {
    loadDefaultShader(state.defaultShader);
    loadDefaultShader(state.defaultSelectionShader);
    loadDefaultShader(state.defaultLoadingScreenShader);
    loadDefaultShader(state.defaultIndexedGeometryLinesShader);
    loadDefaultShader(state.defaultBoundingBoxLinesShader);
    loadDefaultShader(state.defaultOrthoStencilShader);
}

void ManagerShader::shutdown() {
    if (state.currentProgram != 0 && ManagerWindowing::hasContext()) {
        useProgram(0); // GL keeps a program that is in use
    }
    state = State{};
}

const GLSLShaderDataShared* ManagerShader::loadShader(const std::string& vertexFile,
                                                      const std::string& fragmentFile,
                                                      const std::string& geometryFile,
                                                      GLenum geometryInputType, GLenum geometryOutputType,
                                                      std::uint32_t geometryMaxVerticesOut,
                                                      const std::string& computeFile) {
    if (glCreateShader == nullptr) {
        return nullptr;
    }
    checkGeometryOutputType(geometryOutputType);
    checkGeometryInputType(geometryInputType);
    const GLSLShaderFiles files{vertexFile, fragmentFile, geometryFile, computeFile};
    if (const auto known = state.shaderData.find(files); known != state.shaderData.end()) {
        return known->second.get();
    }
    auto data =
        GLSLShaderDataShared::New(files, {geometryInputType, geometryOutputType, geometryMaxVerticesOut});
    return data != nullptr ? state.shaderData.emplace(files, std::move(data)).first->second.get() : nullptr;
}

void ManagerShader::useProgram(std::uint32_t program) {
    if (program != state.currentProgram) {
        glUseProgram(program);
        state.currentProgram = program;
    }
}

std::unique_ptr<GLSLShader> ManagerShader::getDefaultShader() {
    return state.defaultShader != nullptr ? state.defaultShader->clone() : nullptr;
}

} // namespace Vantrel
