#pragma once

#include "vtl/gl/GLHandle.h"

#include <array>
#include <memory>
#include <string>

namespace Vantrel {

/** The files of a program. The order vertex, fragment, geometry, compute also orders two sets of files. */
struct GLSLShaderFiles {
    std::string vertexFile;
    std::string fragmentFile;
    /** Empty for none, as also `computeFile`. */
    std::string geometryFile;
    std::string computeFile;

    auto operator<=>(const GLSLShaderFiles&) const = default;
};

/** What goes into a geometry stage and comes out of it. Core contexts read that in the stage itself. */
struct GLSLGeometryStage {
    GLenum inputType = GL_TRIANGLES;
    GLenum outputType = GL_TRIANGLE_STRIP;
    std::uint32_t maxVerticesOut = 3;
};

/** Where a program keeps what every object that is drawn sends it; -1 for what it doesn't declare. */
struct GLSLObjectUniforms {
    GLint modelMatrix = -1;
    GLint normalMatrix = -1;
    GLint textureMatrix = -1;
    GLint mvpMatrix = -1;
    GLint ambient = -1;
    GLint diffuse = -1;
    GLint specular = -1;
    GLint specularCoefficient = -1;
};

/** One linked program and its stages, shared by everybody who uses the same files. Owned by `ManagerShader`.
 */
class GLSLShaderDataShared {
public:
    /** The texture unit where every sampler of shadows finds the shadow map. */
    static constexpr GLint shadowMapUnit = 7;

    /**
     * Compiles and links. Whatever the driver has to say is reported, and each failure costs a pause; null
     * when a stage or the link failed.
     */
    static std::unique_ptr<GLSLShaderDataShared> New(const GLSLShaderFiles& files,
                                                     const GLSLGeometryStage& geometryStage);

    std::uint32_t getProgram() const { return program.get(); }
    const GLSLObjectUniforms& getObjectUniforms() const { return objectUniforms; }

private:
    GLSLShaderDataShared(const GLSLShaderFiles& files, const GLSLGeometryStage& geometryStage);
    bool build();
    bool compileStages();
    bool link();
    void findUniforms();
    void pointAtShadowMap(const char* sampler) const;

    GLSLShaderFiles files;
    GLSLGeometryStage geometryStage;
    GLShader vertexShader;
    GLShader fragmentShader;
    GLShader geometryShader;
    GLShader computeShader;
    GLProgram program;
    GLSLObjectUniforms objectUniforms;
};

} // namespace Vantrel
