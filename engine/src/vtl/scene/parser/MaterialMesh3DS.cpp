#include "vtl/scene/parser/MaterialMesh3DS.h"

#include "vtl/scene/parser/ComponentRange.h"

#include <algorithm>
#include <utility>

namespace Vantrel {
namespace {

using Position = std::array<float, 3>;
using TextureCoord = std::array<float, 2>;

/** The vertices of all meshes of a file, mesh after mesh. */
struct CollectedVertices {
    CollectedVertices(const std::vector<Mesh3DS>& meshes, ModelFileFaults& faults) {
        std::size_t count = 0;
        for (const Mesh3DS& mesh : meshes) {
            count += mesh.vertices.size();
        }
        positions.reserve(count);
        textureCoords.reserve(count);
        for (const Mesh3DS& mesh : meshes) {
            add(mesh, faults);
        }
    }

    /** Brings the middle of their box to the origin, then scales them. */
    void centre(const Vector& scale, ModelFileFaults& faults) {
        const Position factor{scale.x, scale.y, scale.z};
        for (std::size_t axis = 0; axis < factor.size(); ++axis) {
            const auto [least, greatest] = getComponentRange(positions, axis);
            for (Position& position : positions) {
                position[axis] = (position[axis] - (least + greatest) / 2) * factor[axis];
                faults.makeFinite(position[axis]);
            }
        }
    }

    std::vector<Position> positions;
    std::vector<TextureCoord> textureCoords;

private:
    void add(const Mesh3DS& mesh, ModelFileFaults& faults) {
        for (std::size_t i = 0; i < mesh.vertices.size(); ++i) {
            positions.push_back(mesh.vertices[i]);
            textureCoords.push_back(i < mesh.textureCoords.size() ? mesh.textureCoords[i] : TextureCoord{});
            std::ranges::for_each(positions.back(), [&](float& part) { faults.makeFinite(part); });
            std::ranges::for_each(textureCoords.back(), [&](float& part) { faults.makeFinite(part); });
        }
    }
};

/** Calls `use` with the material of each face that has one, and with its three vertices counted over all
 * meshes. */
template <class Use>
void forEachFace(const std::vector<Mesh3DS>& meshes, Use use, ModelFileFaults* faults = nullptr) {
    std::uint32_t base = 0;
    for (const Mesh3DS& mesh : meshes) {
        const auto count = static_cast<std::uint32_t>(mesh.vertices.size());
        for (std::size_t i = 0; i < mesh.materials.size(); ++i) {
            if (mesh.materials[i] == Mesh3DS::noMaterial) {
                continue;
            }
            const std::array<std::uint16_t, 4> face = mesh.faces[i];
            if (std::max({face[0], face[1], face[2]}) < count) {
                use(static_cast<std::size_t>(mesh.materials[i]),
                    std::array{base + face[0], base + face[1], base + face[2]});
            } else if (faults != nullptr) {
                ++faults->faces;
            }
        }
        base += count;
    }
}

/** Numbers the vertices that each of several meshes has, from 0 in the order of their first use. */
class VertexNumbering {
public:
    explicit VertexNumbering(std::size_t vertexCount) : numbers(vertexCount) {}

    /** Puts the numbers of one mesh in the place of the vertices; the vertices by number. */
    const std::vector<std::uint32_t>& number(std::vector<std::uint32_t>& indices) {
        // Numbers go on from mesh to mesh, so that those of a former mesh need not be taken back.
        before += static_cast<std::uint32_t>(numbered.size());
        numbered.clear();
        for (std::uint32_t& index : indices) {
            if (numbers[index] <= before) {
                numbered.push_back(index);
                numbers[index] = before + static_cast<std::uint32_t>(numbered.size());
            }
            index = numbers[index] - before - 1;
        }
        return numbered;
    }

private:
    /** By vertex: its latest number, counted from 1 over all meshes; 0 for none. */
    std::vector<std::uint32_t> numbers;
    std::vector<std::uint32_t> numbered;
    std::uint32_t before = 0;
};

/** The indices of each material's faces into all vertices; without the materials that have none. */
std::vector<MaterialMesh3DS> groupFaces(const File3DS& file, ModelFileFaults& faults) {
    std::vector<std::size_t> faceCounts(file.getMaterials().size());
    forEachFace(
        file.getMeshes(), [&](std::size_t material, const auto&) { ++faceCounts[material]; }, &faults);
    std::vector<MaterialMesh3DS> meshes(faceCounts.size());
    for (std::size_t i = 0; i < meshes.size(); ++i) {
        meshes[i].material = i;
        meshes[i].indices.reserve(3 * faceCounts[i]);
    }
    forEachFace(file.getMeshes(), [&](std::size_t material, const auto& corners) {
        meshes[material].indices.insert(meshes[material].indices.end(), corners.begin(), corners.end());
    });
    std::erase_if(meshes, [](const MaterialMesh3DS& mesh) { return mesh.indices.empty(); });
    return meshes;
}

} // namespace

std::vector<MaterialMesh3DS> MaterialMesh3DS::meshesOf(const File3DS& file, const Vector& scale,
                                                       ModelFileFaults& faults) {
    CollectedVertices all(file.getMeshes(), faults);
    all.centre(scale, faults);
    VertexNumbering numbering(all.positions.size());
    std::vector<MaterialMesh3DS> meshes = groupFaces(file, faults);
    for (MaterialMesh3DS& mesh : meshes) {
        const std::vector<std::uint32_t>& used = numbering.number(mesh.indices);
        mesh.vertices.reserve(used.size());
        mesh.textureCoords.reserve(used.size());
        for (const std::uint32_t vertex : used) {
            const auto& [x, y, z] = all.positions[vertex];
            const auto& [u, v] = all.textureCoords[vertex];
            mesh.vertices.emplace_back(x, y, z);
            mesh.textureCoords.emplace_back(u, v, 0.0F);
        }
    }
    return meshes;
}

} // namespace Vantrel
