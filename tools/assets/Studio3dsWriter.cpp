#include "tools/assets/Studio3dsWriter.h"

#include "tools/assets/FileBytes.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace Assets {
namespace {

/** Names of the file's parts (Autodesk, "3D Studio File Toolkit", 1994). */
enum class Chunk : std::uint16_t {
    main = 0x4D4D,
    version = 0x0002,
    editor = 0x3D3D,
    meshVersion = 0x3D3E,
    masterScale = 0x0100,
    material = 0xAFFF,
    materialName = 0xA000,
    ambient = 0xA010,
    diffuse = 0xA020,
    color24 = 0x0011,
    textureMap = 0xA200,
    percentage = 0x0030,
    imageName = 0xA300,
    object = 0x4000,
    mesh = 0x4100,
    vertices = 0x4110,
    faces = 0x4120,
    faceMaterial = 0x4130,
    texturePoints = 0x4140,
    localAxes = 0x4160
};

std::string word(std::uint32_t value, int byteCount) {
    std::string bytes;
    for (int i = 0; i < byteCount; ++i) {
        bytes.push_back(static_cast<char>(value >> (8 * i) & 0xFFU));
    }
    return bytes;
}

std::string number(float value) {
    return word(std::bit_cast<std::uint32_t>(value), 4);
}

std::string count(std::size_t value) {
    if (value > std::numeric_limits<std::uint16_t>::max()) {
        throw std::runtime_error("too much for one mesh of a 3DS file");
    }
    return word(static_cast<std::uint32_t>(value), 2);
}

std::string text(const std::string& characters) {
    return characters + '\0';
}

std::string chunk(Chunk name, const std::string& body) {
    constexpr std::size_t headerBytes = 6;
    return word(static_cast<std::uint32_t>(name), 2) +
           word(static_cast<std::uint32_t>(headerBytes + body.size()), 4) + body;
}

std::string colorChunk(Chunk name, const Color& color) {
    std::string bytes;
    for (const float share : {color.r, color.g, color.b}) {
        bytes += word(static_cast<std::uint32_t>(std::lround(share * 255)), 1);
    }
    return chunk(name, chunk(Chunk::color24, bytes));
}

std::string materialChunk(const MaterialMesh& mesh) {
    std::string body = chunk(Chunk::materialName, text(mesh.material)) +
                       colorChunk(Chunk::ambient, mesh.color) + colorChunk(Chunk::diffuse, mesh.color);
    if (!mesh.image.empty()) {
        constexpr std::uint32_t whole = 100;
        body += chunk(Chunk::textureMap,
                      chunk(Chunk::percentage, word(whole, 2)) + chunk(Chunk::imageName, text(mesh.image)));
    }
    return chunk(Chunk::material, body);
}

std::string facesChunk(const MaterialMesh& mesh) {
    constexpr std::uint32_t allEdgesVisible = 7;
    const std::string triangleCount = count(mesh.model.triangles.size());
    std::string corners = triangleCount;
    std::string numbers = triangleCount;
    for (std::size_t i = 0; i < mesh.model.triangles.size(); ++i) {
        for (const std::uint32_t vertex : mesh.model.triangles[i]) {
            corners += word(vertex, 2);
        }
        corners += word(allEdgesVisible, 2);
        numbers += word(static_cast<std::uint32_t>(i), 2);
    }
    return chunk(Chunk::faces, corners + chunk(Chunk::faceMaterial, text(mesh.material) + numbers));
}

std::string objectChunk(const MaterialMesh& mesh) {
    std::string places = count(mesh.model.vertices.size());
    for (const Point& vertex : mesh.model.vertices) {
        places += number(vertex.x) + number(vertex.y) + number(vertex.z);
    }
    std::string onTexture = count(mesh.model.texturePoints.size());
    for (const TexturePoint& point : mesh.model.texturePoints) {
        onTexture += number(point.u) + number(point.v);
    }
    std::string axes;
    for (const float value : {1.0F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F}) {
        axes += number(value);
    }
    return chunk(Chunk::object, text(mesh.material) +
                                    chunk(Chunk::mesh, chunk(Chunk::vertices, places) +
                                                           chunk(Chunk::texturePoints, onTexture) +
                                                           chunk(Chunk::localAxes, axes) + facesChunk(mesh)));
}

} // namespace

void write3ds(const std::filesystem::path& file, std::span<const MaterialMesh> meshes) {
    constexpr std::uint32_t formatVersion = 3;
    std::string body = chunk(Chunk::meshVersion, word(formatVersion, 4));
    for (const MaterialMesh& mesh : meshes) {
        body += materialChunk(mesh);
    }
    body += chunk(Chunk::masterScale, number(1));
    for (const MaterialMesh& mesh : meshes) {
        body += objectChunk(mesh);
    }
    writeFile(file,
              chunk(Chunk::main, chunk(Chunk::version, word(formatVersion, 4)) + chunk(Chunk::editor, body)));
}

} // namespace Assets
