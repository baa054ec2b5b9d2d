#include "vtl/gl/shader/GLSLAttribute.h"

#include <GL/glew.h>
#include <utility>

namespace Vantrel {

GLSLAttribute::GLSLAttribute(std::string name_, GLSLAttributeType type_, std::uint32_t program)
    : name(std::move(name_)), type(type_) {
    location = glGetAttribLocation(program, name.c_str());
}

} // namespace Vantrel
