// A material library of an OBJ file: its numbers are finite, its names no longer than the file.

#include "fuzz/FuzzInput.h"
#include "vtl/scene/parser/OBJMaterial.h"

#include <cmath>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace Vantrel;
    static const Fuzzing::SilentReports silent;
    FileLines lines = FileLines::ofText(Fuzzing::FuzzInput(data, size).text());
    OBJMaterials materials;
    ModelFileFaults faults;
    readMaterialLibrary(lines, materials, faults);
    for (const auto& [name, material] : materials) {
        Fuzzing::require(!name.empty() && name.size() + material.textureName.size() <= size);
        for (const OBJMaterial::Color& color : {material.Kd, material.Ka, material.Ks, material.Tf}) {
            for (const float channel : color) {
                Fuzzing::require(std::isfinite(channel));
            }
        }
    }
    return 0;
}
