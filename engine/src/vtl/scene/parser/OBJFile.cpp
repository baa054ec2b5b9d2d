#include "vtl/scene/parser/OBJFile.h"

#include "vtl/math/Mat4.h"
#include "vtl/math/MatrixBuilders.h"
#include "vtl/scene/parser/ComponentRange.h"
#include "vtl/scene/parser/NumberText.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <span>
#include <utility>

namespace Vantrel {
namespace {

/** Turns what stands upright with Y up so that it does with Z up. */
Mat4 turnedUp() {
    Mat4 turn;
    rotateAboutAxis(unitX, std::numbers::pi_v<float> / 2, turn);
    return turn;
}

} // namespace

OBJFile::OBJFile(FileLines& lines) {
    for (std::string_view line; lines.next(line);) {
        if (!line.empty() && !isWhiteSpace(line.front())) {
            readLine(line);
        }
    }
}

void OBJFile::readLine(std::string_view line) {
    static const Mat4 turn = turnedUp();
    const std::string_view keyword = takeWord(line);
    if (keyword == "v") {
        Vector position;
        for (float* const component : {&position.x, &position.y, &position.z}) {
            *component = takeFloat(line, faults);
        }
        position = position * turn;
        positions.push_back({position.x, position.y, position.z});
    } else if (keyword == "vt") {
        const float u = takeFloat(line, faults);
        textureCoords.push_back({u, takeFloat(line, faults)});
    } else if (keyword == "vn") {
        ++normalCount;
    } else if (keyword == "f") {
        readFace(line);
    } else if (keyword == "usemtl") {
        materialName = takeWord(line);
        currentFaces = nullptr;
    } else if (keyword == "mtllib") {
        libraryNames.emplace_back(takeWord(line));
    }
}

void OBJFile::readFace(std::string_view text) {
    if (currentFaces == nullptr) {
        currentFaces = &facesOf[materialName];
    }
    const std::size_t before = currentFaces->corners.size();
    for (skipWhiteSpace(text); !text.empty(); skipWhiteSpace(text)) {
        currentFaces->corners.push_back(takeCorner(text));
    }
    currentFaces->cornerCounts.push_back(static_cast<std::uint32_t>(currentFaces->corners.size() - before));
}

/** Cuts a corner off the front of `text`, which doesn't start with white space. */
OBJFile::Corner OBJFile::takeCorner(std::string_view& text) const {
    const std::array<std::size_t, 3> counts{positions.size(), textureCoords.size(), normalCount};
    std::array<std::int32_t, 3> numbers{absent, absent, absent};
    for (std::size_t field = 0; !text.empty() && !isWhiteSpace(text.front()); ++field) {
        if (text.front() != '/' && field < numbers.size()) {
            const std::int64_t number = takeInteger(text);
            const std::int64_t fromStart =
                number < 0 ? static_cast<std::int64_t>(counts[field]) + 1 + number : number;
            numbers[field] = fromStart > 0 ? static_cast<std::int32_t>(fromStart) : invalid;
        }
        while (!text.empty() && !isWhiteSpace(text.front())) {
            const bool isFieldEnd = text.front() == '/';
            text.remove_prefix(1);
            if (isFieldEnd) {
                break;
            }
        }
    }
    return {numbers[0], numbers[1], numbers[2]};
}

bool OBJFile::isUsable(const Corner& corner, bool isTextured) const {
    const auto isIn = [](std::int32_t number, std::size_t count) {
        return number > 0 && static_cast<std::size_t>(number) <= count;
    };
    return isIn(corner.vertex, positions.size()) &&
           (isIn(corner.texture, textureCoords.size()) || (corner.texture == absent && !isTextured)) &&
           (isIn(corner.normal, normalCount) || corner.normal == absent);
}

/** Makes each component go from 0 to 1; one that doesn't change becomes 0. */
void OBJFile::stretchTextureCoords() {
    for (std::size_t component = 0; component < TextureCoord().size(); ++component) {
        const auto [least, greatest] = getComponentRange(textureCoords, component);
        for (TextureCoord& coord : textureCoords) {
            const float share = (coord[component] - least) / (greatest - least);
            coord[component] = std::isfinite(share) ? share : 0;
        }
    }
}

/**
 * Gives the corners of one material after the other their vertices. The first texture coordinate and normal
 * that come with a position are its own; a corner with others gets a vertex of its own.
 */
class OBJFile::MeshMaking {
public:
    MeshMaking(OBJFile& source, const Vector& fileScale)
        : file(source)
        , scale(fileScale)
        , attributesOf(source.positions.size() + 1, {absent, absent})
        , localOf(source.positions.size() + 1, none) {
        for (std::size_t axis = 0; axis < centre.size(); ++axis) {
            const auto [least, greatest] = getComponentRange(file.positions, axis);
            centre[axis] = (greatest + least) * 0.5F;
        }
    }

    OBJMesh make(const Faces& faces, const OBJMaterial& material) {
        OBJMesh mesh;
        mesh.material = material;
        mesh.indices.reserve(
            3 * (faces.corners.size() - std::min(faces.corners.size(), 2 * faces.cornerCounts.size())));
        isTextured = material.textureName != nullptr;
        std::span<const Corner> rest = faces.corners;
        for (const std::uint32_t count : faces.cornerCounts) {
            const std::span<const Corner> face = rest.first(count);
            rest = rest.subspan(count);
            if (std::all_of(face.begin(), face.end(),
                            [this](const Corner& corner) { return file.isUsable(corner, isTextured); })) {
                addFan(face, mesh);
            } else {
                ++file.faults.faces;
            }
        }
        for (const std::int32_t vertex : numbered) {
            localOf[static_cast<std::size_t>(vertex)] = none;
        }
        numbered.clear();
        return mesh;
    }

private:
    static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

    struct Attributes {
        std::int32_t texture;
        std::int32_t normal;
    };

    void addFan(std::span<const Corner> face, OBJMesh& mesh) {
        std::uint32_t first = 0;
        std::uint32_t previous = 0;
        for (std::size_t k = 0; k < face.size(); ++k) {
            const std::uint32_t vertex = vertexOf(face[k], mesh);
            if (k == 0) {
                first = vertex;
            } else if (k >= 2) {
                mesh.indices.insert(mesh.indices.end(), {previous, vertex, first});
            }
            previous = vertex;
        }
    }

    /** The number in the mesh. */
    std::uint32_t vertexOf(const Corner& corner, OBJMesh& mesh) {
        const auto position = static_cast<std::size_t>(corner.vertex);
        Attributes& own = attributesOf[position];
        if (own.texture != absent && (own.texture != corner.texture || own.normal != corner.normal)) {
            return addVertex(corner, mesh);
        }
        own = {corner.texture, corner.normal};
        if (localOf[position] == none) {
            localOf[position] = addVertex(corner, mesh);
            numbered.push_back(corner.vertex);
        }
        return localOf[position];
    }

    std::uint32_t addVertex(const Corner& corner, OBJMesh& mesh) {
        const Position& position = file.positions[static_cast<std::size_t>(corner.vertex - 1)];
        const auto number = static_cast<std::uint32_t>(mesh.vertices.size());
        Vector& added = mesh.vertices.emplace_back((position[0] - centre[0]) * scale.x,
                                                   (position[1] - centre[1]) * scale.y,
                                                   (position[2] - centre[2]) * scale.z);
        file.faults.makeFinite(added);
        if (isTextured) {
            const TextureCoord& coord = file.textureCoords[static_cast<std::size_t>(corner.texture - 1)];
            mesh.textureCoords.emplace_back(coord[0], coord[1], 0.0F);
        }
        return number;
    }

    OBJFile& file;
    Vector scale;
    Position centre{};
    /** By position, counted from 1. */
    std::vector<Attributes> attributesOf;
    /** By position, counted from 1: the number in the mesh at work. */
    std::vector<std::uint32_t> localOf;
    /** The positions that have one. */
    std::vector<std::int32_t> numbered;
    bool isTextured = false;
};

std::vector<OBJMesh> OBJFile::makeMeshes(const OBJMaterials& materials, const Vector& scale) {
    stretchTextureCoords();
    MeshMaking making(*this, scale);
    std::vector<OBJMesh> meshes;
    for (; !facesOf.empty(); facesOf.erase(facesOf.begin())) {
        const auto& [name, facesOfMaterial] = *facesOf.begin();
        const auto known = materials.find(name);
        meshes.push_back(
            making.make(facesOfMaterial, known != materials.end() ? known->second : OBJMaterial()));
    }
    return meshes;
}

} // namespace Vantrel
