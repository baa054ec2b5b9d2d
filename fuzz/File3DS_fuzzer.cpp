// A 3DS file: every index names a vertex, and nothing is larger than the file's bytes stand for.
//
// Input: the file.

#include "fuzz/FuzzInput.h"
#include "vtl/scene/parser/MaterialMesh3DS.h"

#include <cmath>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace Vantrel;
    static const Fuzzing::SilentReports silent;
    const std::optional<File3DS> file = File3DS::read(std::as_bytes(std::span(data, size)));
    if (!file) {
        return 0;
    }
    ModelFileFaults faults = file->getFaults();
    std::size_t indexCount = 0;
    for (const MaterialMesh3DS& mesh : MaterialMesh3DS::meshesOf(*file, Vector(1, 2, 3), faults)) {
        Fuzzing::require(mesh.material < file->getMaterials().size());
        Fuzzing::require(!mesh.indices.empty() && mesh.indices.size() % 3 == 0);
        Fuzzing::require(mesh.textureCoords.size() == mesh.vertices.size());
        indexCount += mesh.indices.size();
        for (const std::uint32_t index : mesh.indices) {
            Fuzzing::require(index < mesh.vertices.size());
        }
        for (const Vector& vertex : mesh.vertices) {
            Fuzzing::require(std::isfinite(vertex.x) && std::isfinite(vertex.y) && std::isfinite(vertex.z));
        }
    }
    Fuzzing::require(indexCount <= size);
    return 0;
}
