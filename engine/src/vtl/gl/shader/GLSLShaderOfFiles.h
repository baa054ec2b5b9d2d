#pragma once

#include "vtl/gl/shader/GLSLShader.h"

#include <memory>
#include <string>

namespace Vantrel {

/** The program of two files below the engine's data; null when they fail to load. */
const GLSLShaderDataShared* loadSharedShader(const std::string& vertexFile, const std::string& fragmentFile);

/**
 * How the classes with files of their own come to be: `Shader`, which derives from this, names them as
 * `vertexFile` and `fragmentFile`, below the engine's data, and is made on their program.
 */
template <class Shader, class Base = GLSLShader>
class GLSLShaderOfFiles : public Base {
public:
    /** Null when the files fail to load. */
    static std::unique_ptr<Shader> New() {
        const GLSLShaderDataShared* const data = loadSharedShader(Shader::vertexFile, Shader::fragmentFile);
        return data != nullptr ? std::make_unique<Shader>(data) : nullptr;
    }
    std::unique_ptr<GLSLShader> clone() const override {
        return std::make_unique<Shader>(static_cast<const Shader&>(*this));
    }

protected:
    using Base::Base;
};

} // namespace Vantrel
