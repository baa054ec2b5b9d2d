// A Wavefront OBJ file: every index names a vertex, and nothing is larger than the file's bytes stand for.
//
// Input: whether materials have textures, then the file.

#include "fuzz/FuzzInput.h"
#include "vtl/math/VectorChecks.h"
#include "vtl/scene/parser/OBJFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace Vantrel;
    static const Fuzzing::SilentReports silent;
    Fuzzing::FuzzInput input(data, size);
    OBJMaterials materials;
    if (input.option() % 2 == 1) {
        materials[""].textureName = std::make_shared<const std::string>("image.png");
        materials["a"].textureName = std::make_shared<const std::string>("image.png");
    }
    FileLines lines = FileLines::ofText(input.text());
    OBJFile file(lines);
    for (const OBJMesh& mesh : file.makeMeshes(materials, Vector(1, 2, 3))) {
        const bool isTextured = mesh.material.textureName != nullptr;
        Fuzzing::require(mesh.indices.size() % 3 == 0 && mesh.indices.size() <= 3 * size);
        Fuzzing::require(mesh.vertices.size() <= size);
        Fuzzing::require(mesh.textureCoords.size() == (isTextured ? mesh.vertices.size() : 0));
        for (const std::uint32_t index : mesh.indices) {
            Fuzzing::require(index < mesh.vertices.size());
        }
        for (const Vector& vertex : mesh.vertices) {
            Fuzzing::require(isFinite(vertex));
        }
        for (const Vector& coord : mesh.textureCoords) {
            Fuzzing::require(coord.x >= 0 && coord.x <= 1 && coord.y >= 0 && coord.y <= 1);
        }
    }
    return 0;
}
