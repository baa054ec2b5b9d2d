#pragma once

#include <memory>
#include <string>

namespace Vantrel {

class GLSLShaderDataShared;

/** The program of two files below the engine's data; null when they fail to load. */
const GLSLShaderDataShared* loadSharedShader(const std::string& vertexFile, const std::string& fragmentFile);

/** A shader of the class `Shader` on the two files that the class names; null when they fail to load. */
template <class Shader>
std::unique_ptr<Shader> newSharedShader() {
    const GLSLShaderDataShared* const data = loadSharedShader(Shader::vertexFile, Shader::fragmentFile);
    return data != nullptr ? std::make_unique<Shader>(data) : nullptr;
}

} // namespace Vantrel
