// A material library of an OBJ file: its numbers are finite, all names together no longer than the file.

#include "fuzz/FuzzInput.h"
#include "vtl/scene/parser/OBJMaterial.h"

#include <cmath>
#include <memory>
#include <set>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace Vantrel;
    static const Fuzzing::SilentReports silent;
    FileLines lines = FileLines::ofText(Fuzzing::FuzzInput(data, size).text());
    OBJMaterials materials;
    ModelFileFaults faults;
    readMaterialLibrary(lines, materials, faults);
    std::set<std::shared_ptr<const std::string>> textureNames;
    std::size_t nameBytes = 0;
    for (const auto& [name, material] : materials) {
        Fuzzing::require(!name.empty());
        nameBytes += name.size();
        if (material.textureName != nullptr && textureNames.insert(material.textureName).second) {
            nameBytes += material.textureName->size();
        }
        for (const OBJMaterial::Color& color : {material.Kd, material.Ka, material.Ks, material.Tf}) {
            for (const float channel : color) {
                Fuzzing::require(std::isfinite(channel));
            }
        }
    }
    Fuzzing::require(nameBytes <= size);
    return 0;
}
