#include "vtl/mesh/MeshShadingType.h"

#include "vtl/base/SourceLocation.h"

#include <array>

namespace Vantrel {

std::ostream& operator<<(std::ostream& out, MESH_SHADING_TYPE type) {
    constexpr std::array<const char*, 6> names{
        "MESH_SHADING_TYPE::mstSMOOTH",         "MESH_SHADING_TYPE::mstFLAT",
        "MESH_SHADING_TYPE::mstNONE",           "MESH_SHADING_TYPE::mstAUTO",
        "MESH_SHADING_TYPE::mstNOTINITIALIZED", "MESH_SHADING_TYPE::mstNUM_MESH_SHADING_TYPE",
    };
    const auto value = static_cast<std::size_t>(type);
    if (value < names.size()) {
        return out << names[value];
    }
    return out << "MESH_SHADING_TYPE::  ERROR type not found for " << value << ", " << locationText();
}

} // namespace Vantrel
