#pragma once

#include "vtl/scene/parser/ModelFileFaults.h"
#include "vtl/scene/parser/PackedRecords.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace Vantrel {

/** A material of a 3DS file; names of files are empty where it has none. */
struct Material3DS {
    using Color = std::array<float, 3>;
    static constexpr Color grey{150.0F / 255, 150.0F / 255, 150.0F / 255};

    Color ambient = grey;
    Color diffuse = grey;
    std::string textureName;
    std::string bumpName;
};

/** A mesh of a 3DS file, as it stands there: its matrix isn't applied. */
struct Mesh3DS {
    static constexpr std::int32_t noMaterial = -1;

    PackedRecords<std::array<float, 3>> vertices;
    /** By vertex; there may be fewer or more. */
    PackedRecords<std::array<float, 2>> textureCoords;
    /** Three numbers of vertices, which may not exist, and flags. */
    PackedRecords<std::array<std::uint16_t, 4>> faces;
    /** By face: the number of its material, or `noMaterial`. */
    std::vector<std::int32_t> materials;
};

/**
 * What a 3DS file says of meshes and their materials, both in the file's order. The format is a tree of
 * chunks, each with a number that says what it holds and with its length; chunks of other kinds don't count.
 */
class File3DS {
public:
    /**
     * Reads a file from its bytes, which must outlive the result. None for what isn't a 3DS file or holds
     * anything that doesn't fit where it stands, which is reported.
     */
    static std::optional<File3DS> read(std::span<const std::byte> bytes);

    const std::vector<Mesh3DS>& getMeshes() const { return meshes; }
    const std::vector<Material3DS>& getMaterials() const { return materials; }
    /** What has been put right. */
    const ModelFileFaults& getFaults() const { return faults; }

private:
    class Reading;

    File3DS() = default;

    std::vector<Mesh3DS> meshes;
    std::vector<Material3DS> materials;
    ModelFileFaults faults;
};

} // namespace Vantrel
