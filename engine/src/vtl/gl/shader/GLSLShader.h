#pragma once

#include "vtl/gl/shader/GLSLAttribute.h"
#include "vtl/gl/shader/GLSLUniform.h"
#include "vtl/gl/shader/ShaderCamera.h"
#include "vtl/gl/shader/ShaderMaterial.h"

#include <GL/glew.h>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Vantrel {

class GLSLShaderDataShared;

/** A uniform block of a program that has been linked to a binding point. */
struct GLSLUniformBlockBinding {
    std::int32_t blockIndex = -1;
    std::uint32_t bindingPoint = 0;
    std::string name;
};

/**
 * One user's view of a program: where its uniforms and attributes are. Light to copy; the program itself is
 * shared with all users of the same files and lives in `ManagerShader`. Main thread.
 */
class GLSLShader {
public:
    /** Loads the files through `ManagerShader::loadShader`, whose arguments these are; null when that fails.
     */
    static std::unique_ptr<GLSLShader>
    New(const std::string& vertexFile, const std::string& fragmentFile, const std::string& geometryFile = {},
        GLenum geometryInputType = GL_TRIANGLES, GLenum geometryOutputType = GL_TRIANGLE_STRIP,
        std::uint32_t geometryMaxVerticesOut = 3, const std::string& computeFile = {});

    /** From 3.2 on links the blocks of camera and lights; one that the program lacks is noted in the reports.
     */
    explicit GLSLShader(const GLSLShaderDataShared* shaderData);
    GLSLShader& operator=(const GLSLShader&) = delete;
    virtual ~GLSLShader() = default;
    virtual std::unique_ptr<GLSLShader> clone() const;

    /**
     * Binds the program and sends it what it declares of the matrices ("ModelMat", "NormalMat", "MVPMat",
     * "TexMat0") and of the material ("Material.Ka", ".Kd", ".Ks", ".SpecularCoeff"). The normal matrixtakes
     * directions from model space to eye space. A name that the program declares as another type is left
     * alone.
     */
    virtual void bind(const Mat4& modelMatrix, const Mat4& normalMatrix, const ShaderCamera& camera,
                      const ShaderMaterial& material);
    virtual void bind();
    virtual void unbind();

    /** The GL name. */
    std::uint32_t getProgram() const;
    const GLSLShaderDataShared* getShaderData() const { return shaderData; }

    void addUniform(GLSLUniform uniform) { uniforms.push_back(std::move(uniform)); }
    void addAttribute(GLSLAttribute attribute) { attributes.push_back(std::move(attribute)); }
    /** In the order of their addition. */
    std::vector<GLSLUniform>& getUniforms() { return uniforms; }
    const std::vector<GLSLAttribute>& getAttributes() const { return attributes; }

    /** Lets the program read its block `name` at a binding point; false when it has no such block. */
    bool bindUniformBlock(const std::string& name, std::uint32_t bindingPoint);
    const std::vector<GLSLUniformBlockBinding>& getUniformBlocks() const { return uniformBlocks; }

protected:
    GLSLShader(const GLSLShader&) = default;

    /** Adds a uniform or an attribute of this program. */
    void addUniform(const char* name, GLSLUniformType type);
    void addAttribute(const char* name, GLSLAttributeType type);
    void sendMaterial(const ShaderMaterial& material) const;

    std::vector<GLSLUniform> uniforms;

private:
    void initUniformBlocks();

    const GLSLShaderDataShared* shaderData;
    std::vector<GLSLAttribute> attributes;
    std::vector<GLSLUniformBlockBinding> uniformBlocks;
};

} // namespace Vantrel
