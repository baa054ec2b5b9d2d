#include "vtl/mesh/GLSLAttributeArray.h"

#include <array>
#include <cstring>
#include <utility>

namespace Vantrel {

GLSLAttributeArray::GLSLAttributeArray(std::string attributeName, std::uint32_t elementType)
    : name(std::move(attributeName)), type(elementType) {
}

void GLSLAttributeArray::setAt(std::size_t index, const Vector& value) {
    if (type == atVEC3 && index < size()) {
        const std::array<float, 3> components{value.x, value.y, value.z};
        std::memcpy(data.data() + index * sizeof(components), components.data(), sizeof(components));
    }
}

Vector GLSLAttributeArray::getAt(std::size_t index) const {
    std::array<float, 3> components{};
    if (type == atVEC3 && index < size()) {
        std::memcpy(components.data(), data.data() + index * sizeof(components), sizeof(components));
    }
    return Vector(components.data());
}

} // namespace Vantrel
