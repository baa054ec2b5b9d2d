#pragma once

#include <cstdint>
#include <ostream>

namespace Vantrel {

/** What normals a mesh is generated with. */
enum class MESH_SHADING_TYPE : std::uint8_t {
    /** One normal for each position: all vertices that coincide share it. */
    mstSMOOTH = 0,
    /** One normal for each triangle. */
    mstFLAT = 1,
    mstNONE = 2,
    mstAUTO = 3,
    mstNOTINITIALIZED = 4,
    mstNUM_MESH_SHADING_TYPE = 5,
};

std::ostream& operator<<(std::ostream& out, MESH_SHADING_TYPE type);

} // namespace Vantrel
