#pragma once

#include "vtl/scene/parser/FileLines.h"
#include "vtl/scene/parser/ModelFileFaults.h"

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace Vantrel {

/** How a part of an OBJ model looks, by the statements of its material library. */
struct OBJMaterial {
    using Color = std::array<float, 3>;

    Color Kd{};
    Color Ka{};
    Color Ks{};
    /** The first one is how opaque the part is. */
    Color Tf{1, 1, 1};
    /** Of an image; null for none. A material that names none shares that of the one before it. */
    std::shared_ptr<const std::string> textureName;
};

using OBJMaterials = std::map<std::string, OBJMaterial, std::less<>>;

/**
 * Adds the materials of a library to `materials`, except those whose names are there. What a material doesn't
 * state it has from the one before it.
 */
void readMaterialLibrary(FileLines& lines, OBJMaterials& materials, ModelFileFaults& faults);

} // namespace Vantrel
