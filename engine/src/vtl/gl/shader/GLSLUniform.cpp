#include "vtl/gl/shader/GLSLUniform.h"

#include "vtl/base/Report.h"
#include "vtl/gl/shader/ManagerShader.h"

#include <GL/glew.h>
#include <algorithm>
#include <array>
#include <utility>

namespace Vantrel {
namespace {

constexpr std::uint32_t noProgram = 0xFFFFFFFFU;

/** Binds a program and gives the one before back. */
class ScopedProgram {
public:
    explicit ScopedProgram(std::uint32_t program) : previousProgram(ManagerShader::getCurrentProgram()) {
        ManagerShader::useProgram(program);
    }
    ScopedProgram(const ScopedProgram&) = delete;
    ScopedProgram& operator=(const ScopedProgram&) = delete;
    ~ScopedProgram() { ManagerShader::useProgram(previousProgram); }

private:
    std::uint32_t previousProgram;
};

bool isSampler(GLSLUniformType type) {
    return type >= utSAMPLER && type <= utSAMPLER2DSHADOW;
}

bool isInteger(GLSLUniformType type) {
    return type == utINT || (type >= utIVEC2 && type <= utIVEC4);
}

bool isTruthValue(GLSLUniformType type) {
    return type == utBOOL || (type >= utBVEC2 && type <= utBVEC4);
}

/** Components of what is no matrix and no sampler. */
int componentsOf(GLSLUniformType type) {
    constexpr int scalarsFirst = 3; // after the scalars come vectors of 2, 3 and 4, kind after kind
    return type < utVEC2 ? 1 : 2 + (type - scalarsFirst) % 3;
}

/** Sends `components` values from `values`, through the entry points of 1 to 4 components. */
template <class Value, class EntryPoint>
void sendVector(int components, GLint location, const Value* values,
                const std::array<EntryPoint, 4>& entryPoints) {
    entryPoints[static_cast<std::size_t>(components - 1)](location, 1, values);
}

void sendIntegers(int components, GLint location, const std::int32_t* values) {
    sendVector(components, location, values,
               std::array{glUniform1iv, glUniform2iv, glUniform3iv, glUniform4iv});
}

std::int32_t integerOf(float value) {
    constexpr float bound = 2147483520.0F; // the largest float below 2^31
    return value == value ? static_cast<std::int32_t>(std::clamp(value, -bound, bound)) : 0;
}

} // namespace

GLSLUniform::GLSLUniform(std::string name_, GLSLUniformType type_, std::uint32_t program_)
    : name(std::move(name_)), program(program_), type(type_) {
    location = glGetUniformLocation(program, name.c_str());
}

void GLSLUniform::setInt(std::int32_t unit) {
    if (isSampler(type)) {
        const ScopedProgram scope(program);
        glUniform1i(location, unit);
    }
}

void GLSLUniform::setInts(const std::int32_t* values) {
    if (!isInteger(type) && !isTruthValue(type)) {
        Report() << "Attempting to set integer values to non-integer type uniform!\n";
        return;
    }
    const ScopedProgram scope(program);
    sendIntegers(componentsOf(type), location, values);
}

void GLSLUniform::setFloats(const float* values) {
    if (isSampler(type)) {
        return;
    }
    const ScopedProgram scope(program);
    switch (type) {
    case utMAT2:
        glUniformMatrix2fv(location, 1, GL_FALSE, values);
        break;
    case utMAT3:
        glUniformMatrix3fv(location, 1, GL_FALSE, values);
        break;
    case utMAT4:
        glUniformMatrix4fv(location, 1, GL_FALSE, values);
        break;
    default:
        sendFloats(values);
        break;
    }
}

void GLSLUniform::sendFloats(const float* values) const {
    const int components = componentsOf(type);
    if (!isInteger(type)) {
        sendVector(components, location, values,
                   std::array{glUniform1fv, glUniform2fv, glUniform3fv, glUniform4fv});
        return;
    }
    // GL refuses floats for integers.
    std::array<std::int32_t, 4> integers{};
    std::transform(values, values + components, integers.begin(), integerOf);
    sendIntegers(components, location, integers.data());
}

void GLSLUniform::setFloat(float value) {
    const ScopedProgram scope(program);
    glUniform1f(location, value);
}

void GLSLUniform::setBool(std::uint8_t value) {
    const ScopedProgram scope(program);
    glUniform1i(location, value);
}

void GLSLUniform::updateUniformGLIDfromStringName() {
    if (program == noProgram || name.empty()) {
        Report() << "ERROR: GLSLUniform::updateUniformGLIDfromStringName()...\n"
                    "Invalid ProgramShaderHandle or invalid uniform name...\n";
        location = -1;
        return;
    }
    location = glGetUniformLocation(program, name.c_str());
}

} // namespace Vantrel
