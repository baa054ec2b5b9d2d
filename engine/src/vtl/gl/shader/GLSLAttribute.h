#pragma once

#include "vtl/gl/shader/GLSLAttributeType.h"

#include <cstdint>
#include <string>

namespace Vantrel {

/** An input of a program's vertex stage. */
class GLSLAttribute {
public:
    /** Asks `program`, a linked one, where it takes `name`. */
    GLSLAttribute(std::string name, GLSLAttributeType type, std::uint32_t program);

    /** -1 when the program has no such input. */
    std::int32_t getLocation() const { return location; }
    GLSLAttributeType getType() const { return type; }
    const std::string& getName() const { return name; }

private:
    std::string name;
    std::int32_t location = -1;
    GLSLAttributeType type;
};

} // namespace Vantrel
