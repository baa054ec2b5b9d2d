#pragma once

#include "vtl/math/VectorT.h"
#include "vtl/scene/parser/FileLines.h"
#include "vtl/scene/parser/ModelFileFaults.h"
#include "vtl/scene/parser/TextureVertex.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Vantrel {

/**
 * One shape of a VRML 1.0 file, as one exporter lays them out: a texture, points, texture points, faces and
 * the texture points of the faces, in this order. Whatever stands between these is skipped.
 */
class ModelParserVRMLShape {
public:
    /**
     * Reads the next shape of `lines`, the file `modelFile`. False where the file ends before the shape does.
     * A face of more than three corners becomes the triangle of the first three. A face that lacks a corner,
     * a texture point or a line of texture points is left out and counted in `faults`.
     */
    bool read(FileLines& lines, std::string_view modelFile, const Vector& scale, ModelFileFaults& faults);

    /**
     * Gives each vertex one texture coordinate: a vertex that corners use with several gets a copy, behind
     * all vertices, for each but the first. Returns the coordinates by vertex, (0, 0) for one that no corner
     * uses.
     */
    std::vector<Vector> splitAtSeams();

    /** Scaled. */
    std::vector<Vector> vertices;
    /** Three for each face, into `vertices`. */
    std::vector<std::uint32_t> coordIndices;
    std::vector<TextureVertex> textureVertices;
    /** Three for each face, into `textureVertices`. */
    std::vector<std::uint32_t> textureCoordIndices;
    std::string textureFileName;
    /** Whether the file opens a node and its list on lines of their own. */
    bool multiLineNodes = false;

private:
    bool readTexture(FileLines& lines, std::string_view modelFile);
    bool findList(FileLines& lines, std::string_view node, std::string_view list) const;
    template <class AddEntry>
    bool readList(FileLines& lines, AddEntry addEntry) const;
    void dropUnusableFaces(ModelFileFaults& faults);
    const TextureVertex& coordAt(std::size_t corner) const {
        return textureVertices[textureCoordIndices[corner]];
    }
    std::vector<std::size_t> leadersOf(const std::vector<std::size_t>& corners) const;
    std::vector<std::size_t> sortedPlaces(const std::vector<std::size_t>& corners) const;
};

} // namespace Vantrel
