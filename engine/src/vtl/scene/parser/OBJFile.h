#pragma once

#include "vtl/math/VectorT.h"
#include "vtl/scene/parser/FileLines.h"
#include "vtl/scene/parser/ModelFileFaults.h"
#include "vtl/scene/parser/OBJMaterial.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Vantrel {

/** The triangles of one material. */
struct OBJMesh {
    OBJMaterial material;
    std::vector<Vector> vertices;
    /** One for each vertex, from 0 to 1 over the whole file; none for a material without a texture. */
    std::vector<Vector> textureCoords;
    /** Three for each triangle, into `vertices`. */
    std::vector<std::uint32_t> indices;
};

/**
 * Reads a Wavefront OBJ file: first its lines, then the material libraries that it names, then meshes are
 * made. Lines that start with white space or another keyword than v, vt, vn, f, usemtl and mtllib don't
 * count.
 */
class OBJFile {
public:
    /** Reads all lines. What a face names may follow later, unless it is counted from the end. */
    explicit OBJFile(FileLines& lines);

    /** Of the material libraries, in the order of the file. */
    const std::vector<std::string>& getLibraryNames() const { return libraryNames; }

    /**
     * One mesh for each material that faces have, in the order of their names; a name that isn't in
     * `materials` gets an OBJMaterial as it starts. Y is up in the file and Z in the meshes, whose common
     * box, with that of the positions that no face uses, has its middle in the origin and is then multiplied
     * by `scale`. A position that is used with several texture coordinates or normals becomes several
     * vertices. Called once: the memory of the file's faces is given back on the way.
     */
    std::vector<OBJMesh> makeMeshes(const OBJMaterials& materials, const Vector& scale);

    /** What has been left out or put right so far. */
    ModelFileFaults faults;

private:
    static constexpr std::int32_t absent = -1;
    static constexpr std::int32_t invalid = 0;

    /** The numbers of a corner, counted from 1. */
    struct Corner {
        std::int32_t vertex;
        std::int32_t texture;
        std::int32_t normal;
    };
    /** The faces of one material. */
    struct Faces {
        std::vector<Corner> corners;
        /** For each face the number of its corners. */
        std::vector<std::uint32_t> cornerCounts;
    };
    using Position = std::array<float, 3>;
    using TextureCoord = std::array<float, 2>;

    class MeshMaking;

    void readLine(std::string_view line);
    void readFace(std::string_view text);
    Corner takeCorner(std::string_view& text) const;
    bool isUsable(const Corner& corner, bool isTextured) const;
    void stretchTextureCoords();

    std::vector<Position> positions;
    std::vector<TextureCoord> textureCoords;
    std::size_t normalCount = 0;
    std::map<std::string, Faces, std::less<>> facesOf;
    std::string materialName;
    /** Those of `materialName`; null before its first face. */
    Faces* currentFaces = nullptr;
    std::vector<std::string> libraryNames;
};

} // namespace Vantrel
