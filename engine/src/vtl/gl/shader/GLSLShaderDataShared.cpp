#include "vtl/gl/shader/GLSLShaderDataShared.h"

#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/shader/GLSLSource.h"
#include "vtl/gl/shader/ManagerShader.h"
#include "vtl/gl/shader/VertexAttributeLocation.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace Vantrel {
namespace {

/** What every object that is drawn sends, and as what. */
struct ObjectUniform {
    const char* name;
    GLenum type;
    GLint GLSLObjectUniforms::*location;
};

constexpr std::array<ObjectUniform, 8> objectUniformTable{{
    {"ModelMat", GL_FLOAT_MAT4, &GLSLObjectUniforms::modelMatrix},
    {"NormalMat", GL_FLOAT_MAT4, &GLSLObjectUniforms::normalMatrix},
    {"TexMat0", GL_FLOAT_MAT4, &GLSLObjectUniforms::textureMatrix},
    {"MVPMat", GL_FLOAT_MAT4, &GLSLObjectUniforms::mvpMatrix},
    {"Material.Ka", GL_FLOAT_VEC4, &GLSLObjectUniforms::ambient},
    {"Material.Kd", GL_FLOAT_VEC4, &GLSLObjectUniforms::diffuse},
    {"Material.Ks", GL_FLOAT_VEC4, &GLSLObjectUniforms::specular},
    {"Material.SpecularCoeff", GL_FLOAT, &GLSLObjectUniforms::specularCoefficient},
}};

bool areEntryPointsLoaded() {
    return glCreateShader != nullptr && glShaderSource != nullptr && glCompileShader != nullptr &&
           glGetShaderiv != nullptr && glGetShaderInfoLog != nullptr && glCreateProgram != nullptr &&
           glAttachShader != nullptr && glGetProgramiv != nullptr && glGetProgramInfoLog != nullptr &&
           glLinkProgram != nullptr;
}

/** The text that `getLog` gives for an object whose log is `length` long, the final zero included. */
template <class GetLog>
std::string readLog(GLint length, GetLog getLog) {
    std::string log(static_cast<std::size_t>(std::max(length, 0)), '\0');
    GLsizei written = 0;
    if (!log.empty()) {
        getLog(length, &written, log.data());
    }
    log.resize(static_cast<std::size_t>(std::clamp(written, 0, std::max(length, 0))));
    return log;
}

void reportCompileLog(const GLShader& shader) {
    GLint length = 0;
    glGetShaderiv(shader.get(), GL_INFO_LOG_LENGTH, &length);
    const std::string log = readLog(length, [&](GLsizei size, GLsizei* written, char* text) {
        glGetShaderInfoLog(shader.get(), size, written, text);
    });
    if (!log.empty()) {
        Report() << "Vertex Shader compile log:\n" << log << "\n";
    }
}

void reportLinkLog(const GLProgram& program) {
    GLint length = 0;
    glGetProgramiv(program.get(), GL_INFO_LOG_LENGTH, &length);
    const std::string log = readLog(length, [&](GLsizei size, GLsizei* written, char* text) {
        glGetProgramInfoLog(program.get(), size, written, text);
    });
    if (!log.empty()) {
        Report() << "Program link log:\n" << log << "\n";
    }
}

bool isCompiled(const GLShader& shader) {
    GLint status = GL_FALSE;
    if (shader) {
        glGetShaderiv(shader.get(), GL_COMPILE_STATUS, &status);
    }
    return status == GL_TRUE;
}

/** Compiles a stage; one without a file is no failure. */
bool compileStage(GLenum stage, const std::string& path, GLShader& shader) {
    constexpr std::int32_t afterCompile = 2012141;
    if (path.empty()) {
        return true;
    }
    const std::optional<std::string> source = readGLSLSource(path);
    if (!source) {
        Report() << "ERROR: The shader " << path << " failed to open.\n";
        Pause::waitForKey();
        return false;
    }
    shader = GLShader::create(stage); // empty where the context doesn't know such a stage
    Report() << "Compiling Shader: '" << path << "'\n" << *source;
    if (shader) {
        const char* const text = source->c_str();
        glShaderSource(shader.get(), 1, &text, nullptr);
        glCompileShader(shader.get());
        reportCompileLog(shader);
    }
    checkGLError(afterCompile);
    if (!isCompiled(shader)) {
        Report() << "Failed to compile shader " << shader.get() << "\n"
                 << "Press ENTER to continue without this shader...\n";
        Pause::waitForKey();
        return false;
    }
    return true;
}

/**
 * Compatibility drivers with the old geometry extension take the types from outside. Without the extension
 * the function may still be there, and answers with an error.
 */
void setGeometryParameters(const GLProgram& program, const GLSLGeometryStage& stage) {
    if (ManagerOpenGLState::isCompatibilityProfile() &&
        (GLEW_EXT_geometry_shader4 || GLEW_ARB_geometry_shader4)) {
        glProgramParameteriEXT(program.get(), GL_GEOMETRY_INPUT_TYPE_EXT,
                               static_cast<GLint>(stage.inputType));
        glProgramParameteriEXT(program.get(), GL_GEOMETRY_OUTPUT_TYPE_EXT,
                               static_cast<GLint>(stage.outputType));
        glProgramParameteriEXT(program.get(), GL_GEOMETRY_VERTICES_OUT_EXT,
                               static_cast<GLint>(stage.maxVerticesOut));
    }
}

/** Meshes feed the common attributes at fixed places; below 3.2 those places belong to the fixed functions.
 */
void bindAttributeLocations(const GLProgram& program) {
    if (!ManagerOpenGLState::isVersion32OrGreater()) {
        return;
    }
    GLuint location = 0;
    for (const char* const name : VertexAttributeLocation::names) {
        glBindAttribLocation(program.get(), location++, name);
    }
}

} // namespace

GLSLShaderDataShared::GLSLShaderDataShared(const GLSLShaderFiles& files_,
                                           const GLSLGeometryStage& geometryStage_)
    : files(files_), geometryStage(geometryStage_) {
}

std::unique_ptr<GLSLShaderDataShared> GLSLShaderDataShared::New(const GLSLShaderFiles& files,
                                                                const GLSLGeometryStage& geometryStage) {
    std::unique_ptr<GLSLShaderDataShared> data(new GLSLShaderDataShared(files, geometryStage));
    return data->build() ? std::move(data) : nullptr;
}

bool GLSLShaderDataShared::build() {
    constexpr std::int32_t beforeStages = 123455;
    constexpr std::int32_t afterAttaching = 123456;
    if (!areEntryPointsLoaded()) {
        Report() << "WARNING: Your graphics card does not support necessary functions to\n"
                    "   instantiate an OpenGL Shader program...\n"
                    "   NOT creating GLSLShader...\n";
        return false;
    }
    checkGLError(beforeStages);
    const bool areStagesCompiled = compileStages();
    program = GLProgram::create();
    for (const GLShader* shader : {&vertexShader, &fragmentShader, &geometryShader, &computeShader}) {
        if (*shader) {
            glAttachShader(program.get(), shader->get());
        }
    }
    checkGLError(afterAttaching);
    // Also after a failed stage, so that a person sees all that is wrong at once.
    const bool isLinked = link();
    if (!areStagesCompiled || !isLinked) {
        return false;
    }
    findUniforms();
    return true;
}

bool GLSLShaderDataShared::compileStages() {
    const bool vertex = compileStage(GL_VERTEX_SHADER, files.vertexFile, vertexShader);
    const bool geometry = compileStage(GL_GEOMETRY_SHADER, files.geometryFile, geometryShader);
    const bool fragment = compileStage(GL_FRAGMENT_SHADER, files.fragmentFile, fragmentShader);
    const bool compute = compileStage(GL_COMPUTE_SHADER, files.computeFile, computeShader);
    return vertex && geometry && fragment && compute;
}

bool GLSLShaderDataShared::link() {
    constexpr std::int32_t afterLink = 98765;
    if (geometryShader) {
        if (glProgramParameteriEXT == nullptr) {
            Report() << "glProgramParameteriEXT is NULL, cannot create a geometry shader on this hardware. "
                        "Geometry Shader\n"
                        "will not be linked...\n";
            return false;
        }
        setGeometryParameters(program, geometryStage);
    }
    bindAttributeLocations(program);
    glLinkProgram(program.get());
    checkGLError(afterLink);
    Report() << "Linking!\n";
    reportLinkLog(program);
    GLint status = GL_FALSE;
    glGetProgramiv(program.get(), GL_LINK_STATUS, &status);
    if (status != GL_TRUE) {
        Report() << "Failed to link program " << program.get() << ". Status returned is " << status << "\n"
                 << "Hit ENTER to continue normally...Fix this prior to a release...\n";
        Pause::waitForKey();
        return false;
    }
    Report() << "Link successful for program " << program.get() << "\n";
    return true;
}

void GLSLShaderDataShared::pointAtShadowMap(const char* sampler) const {
    const std::uint32_t current = ManagerShader::getCurrentProgram();
    ManagerShader::useProgram(program.get());
    glUniform1i(glGetUniformLocation(program.get(), sampler), shadowMapUnit);
    ManagerShader::useProgram(current);
}

void GLSLShaderDataShared::findUniforms() {
    GLint count = 0;
    glGetProgramiv(program.get(), GL_ACTIVE_UNIFORMS, &count);
    for (GLint i = 0; i < count; ++i) {
        std::array<char, 64> name{}; // longer ones are cut and so none of these
        GLint size = 0;
        GLenum type = GL_NONE;
        glGetActiveUniform(program.get(), static_cast<GLuint>(i), name.size(), nullptr, &size, &type,
                           name.data());
        if (type == GL_SAMPLER_2D_SHADOW) {
            pointAtShadowMap(name.data()); // two kinds of samplers on one unit, where all begin, are an error
        }
        for (const ObjectUniform& uniform : objectUniformTable) {
            // An author may use a name for something else, a matrix of 3 by 3 say.
            if (std::string_view(uniform.name) == name.data() && uniform.type == type) {
                objectUniforms.*uniform.location = glGetUniformLocation(program.get(), uniform.name);
            }
        }
    }
}

} // namespace Vantrel
