#pragma once

#include "vtl/gl/shader/GLSLUniformType.h"

#include <cstdint>
#include <string>

namespace Vantrel {

/**
 * A uniform of a linked program. A setter works whatever program is bound, and leaves that one bound. A name
 * that the program doesn't have is at location -1, where GL ignores what is set.
 */
class GLSLUniform {
public:
    /** Asks `program`, a linked one, where it keeps `name`. */
    GLSLUniform(std::string name, GLSLUniformType type, std::uint32_t program);

    /** The texture unit of a sampler; does nothing for other types. */
    void setInt(std::int32_t unit);
    /** Integer, truth value, or a vector of them; other types are reported. */
    void setInts(const std::int32_t* values);
    /**
     * As many floats as the type has components, matrices column after column. Integers take them truncated;
     * samplers don't take them.
     */
    void setFloats(const float* values);
    void setFloat(float value);
    /** 0 or 1. */
    void setBool(std::uint8_t value);

    /** Asks the program again. */
    void updateUniformGLIDfromStringName();
    std::int32_t getLocation() const { return location; }
    GLSLUniformType getType() const { return type; }
    const std::string& getName() const { return name; }

private:
    void sendFloats(const float* values) const;

    std::string name;
    std::int32_t location = -1;
    std::uint32_t program;
    GLSLUniformType type;
};

} // namespace Vantrel
