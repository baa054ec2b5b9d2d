// A VRML file: every index names a vertex, each vertex has a texture coordinate, and nothing is larger than
// the file's bytes stand for.
//
// Input: the file, in which "~" and a letter stand for what finds a section, in either layout.

#include "fuzz/FuzzInput.h"
#include "vtl/scene/parser/ModelParserVRMLShape.h"

#include <cmath>
#include <string>

namespace {

/** Lines that a mutation hardly finds. */
std::string_view sectionOf(char letter) {
    switch (letter) {
    case 't':
        return "Texture2 {\na.png\n";
    case 'T':
        return "Texture2 {\nfilename \"a.png\"\n";
    case 'p':
        return "\nCoordinate3 {\npoint [\n";
    case 'P':
        return "\nCoordinate3 { point [\n";
    case 'c':
        return "\nTextureCoordinate2 {\npoint [\n";
    case 'C':
        return "\nTextureCoordinate2 { point [\n";
    case 'f':
        return "\nIndexedFaceSet {\ncoordIndex [\n";
    case 'F':
        return "\nIndexedFaceSet { coordIndex [\n";
    case 'i':
        return "\ntextureCoordIndex [\n";
    default:
        return "~";
    }
}

std::string withSections(std::string_view text) {
    std::string whole;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '~' && i + 1 < text.size()) {
            whole += sectionOf(text[++i]);
        } else {
            whole += text[i];
        }
    }
    return whole;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace Vantrel;
    static const Fuzzing::SilentReports silent;
    const std::string text = withSections(Fuzzing::FuzzInput(data, size).text());
    FileLines lines = FileLines::ofText(text);
    ModelParserVRMLShape shape;
    ModelFileFaults faults;
    if (!shape.read(lines, "folder/model.wrl", Vector(1, 2, 3), faults)) {
        return 0;
    }
    const std::size_t written = shape.vertices.size();
    const std::size_t corners = shape.coordIndices.size();
    Fuzzing::require(shape.textureCoordIndices.size() == corners && corners % 3 == 0);
    Fuzzing::require(written + shape.textureVertices.size() + corners / 3 <= text.size());
    const std::vector<std::uint32_t> before = shape.coordIndices;
    const std::vector<Vector> coords = shape.splitAtSeams();
    Fuzzing::require(coords.size() == shape.vertices.size() && coords.size() <= written + corners);
    for (std::size_t corner = 0; corner < corners; ++corner) {
        const std::uint32_t vertex = shape.coordIndices[corner];
        Fuzzing::require(vertex < coords.size() && vertex <= written + corner);
        const TextureVertex& own = shape.textureVertices[shape.textureCoordIndices[corner]];
        Fuzzing::require(coords[vertex].x == own.u && coords[vertex].y == own.v);
        Fuzzing::require(shape.vertices[vertex] == shape.vertices[before[corner]]);
        Fuzzing::require(std::isfinite(shape.vertices[vertex].x));
    }
    return 0;
}
