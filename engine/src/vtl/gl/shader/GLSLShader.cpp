#include "vtl/gl/shader/GLSLShader.h"

#include "vtl/base/Report.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/shader/GLSLShaderDataShared.h"
#include "vtl/gl/shader/GLSLUniformBlockCameraTransforms.h"
#include "vtl/gl/shader/GLSLUniformBlockLightInfo.h"
#include "vtl/gl/shader/ManagerShader.h"

namespace Vantrel {

std::unique_ptr<GLSLShader> GLSLShader::New(const std::string& vertexFile, const std::string& fragmentFile,
                                            const std::string& geometryFile, GLenum geometryInputType,
                                            GLenum geometryOutputType, std::uint32_t geometryMaxVerticesOut,
                                            const std::string& computeFile) {
    const GLSLShaderDataShared* const data =
        ManagerShader::loadShader(vertexFile, fragmentFile, geometryFile, geometryInputType,
                                  geometryOutputType, geometryMaxVerticesOut, computeFile);
    return data != nullptr ? std::make_unique<GLSLShader>(data) : nullptr;
}

GLSLShader::GLSLShader(const GLSLShaderDataShared* data) : shaderData(data) {
    if (ManagerOpenGLState::isVersion32OrGreater()) {
        initUniformBlocks();
    }
}

std::unique_ptr<GLSLShader> GLSLShader::clone() const {
    return std::unique_ptr<GLSLShader>(new GLSLShader(*this));
}

void GLSLShader::initUniformBlocks() {
    for (const auto& [name, bindingPoint] :
         {std::pair(GLSLUniformBlockCameraTransforms::name, GLSLUniformBlockCameraTransforms::bindingPoint),
          std::pair(GLSLUniformBlockLightInfo::name, GLSLUniformBlockLightInfo::bindingPoint)}) {
        if (!bindUniformBlock(name, bindingPoint)) {
            Report() << "Shader does NOT contain and is NOT using \"" << name << "\" Uniform Block...\n";
        }
    }
}

void GLSLShader::bind(const Mat4& modelMatrix, const Mat4& normalMatrix, const ShaderCamera& camera,
                      const ShaderMaterial& material) {
    bind();
    const GLSLObjectUniforms& locations = shaderData->getObjectUniforms();
    if (locations.modelMatrix >= 0) {
        glUniformMatrix4fv(locations.modelMatrix, 1, GL_FALSE, modelMatrix.m.data());
    }
    if (locations.normalMatrix >= 0) {
        glUniformMatrix4fv(locations.normalMatrix, 1, GL_FALSE, normalMatrix.m.data());
    }
    if (locations.mvpMatrix >= 0) {
        const Mat4 mvp = camera.getViewProjectionMatrix() * modelMatrix;
        glUniformMatrix4fv(locations.mvpMatrix, 1, GL_FALSE, mvp.m.data());
    }
    sendMaterial(material);
    constexpr std::int32_t afterUniforms = 530101;
    checkGLErrorOfDraw(afterUniforms);
}

void GLSLShader::sendMaterial(const ShaderMaterial& material) const {
    const GLSLObjectUniforms& locations = shaderData->getObjectUniforms();
    if (locations.textureMatrix >= 0) {
        glUniformMatrix4fv(locations.textureMatrix, 1, GL_FALSE, material.textureMatrix.m.data());
    }
    if (locations.ambient >= 0) {
        glUniform4fv(locations.ambient, 1, &material.ambient.r);
    }
    if (locations.diffuse >= 0) {
        glUniform4fv(locations.diffuse, 1, &material.diffuse.r);
    }
    if (locations.specular >= 0) {
        glUniform4fv(locations.specular, 1, &material.specular.r);
    }
    if (locations.specularCoefficient >= 0) {
        glUniform1f(locations.specularCoefficient, material.specularCoefficient);
    }
}

void GLSLShader::bind() {
    ManagerShader::useProgram(getProgram());
}

void GLSLShader::unbind() {
    ManagerShader::useProgram(0);
}

std::uint32_t GLSLShader::getProgram() const {
    return shaderData->getProgram();
}

bool GLSLShader::bindUniformBlock(const std::string& name, std::uint32_t bindingPoint) {
    if (glGetUniformBlockIndex == nullptr) { // below 3.1
        return false;
    }
    const auto index = static_cast<std::int32_t>(glGetUniformBlockIndex(getProgram(), name.c_str()));
    if (index < 0) {
        return false;
    }
    glUniformBlockBinding(getProgram(), static_cast<GLuint>(index), bindingPoint);
    uniformBlocks.push_back({index, bindingPoint, name});
    return true;
}

void GLSLShader::addUniform(const char* name, GLSLUniformType type) {
    addUniform(GLSLUniform(name, type, getProgram()));
}

void GLSLShader::addAttribute(const char* name, GLSLAttributeType type) {
    addAttribute(GLSLAttribute(name, type, getProgram()));
}

} // namespace Vantrel
