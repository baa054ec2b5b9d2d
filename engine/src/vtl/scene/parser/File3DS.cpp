#include "vtl/scene/parser/File3DS.h"

#include "vtl/base/Report.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

namespace Vantrel {
namespace {

using Bytes = std::span<const std::byte>;

/** The kinds of chunks that count. */
enum ChunkId : std::uint16_t {
    floatColor = 0x0010,
    byteColor = 0x0011,
    linearByteColor = 0x0012,
    linearFloatColor = 0x0013,
    editor = 0x3D3D,
    object = 0x4000,
    triangleMesh = 0x4100,
    vertexList = 0x4110,
    faceList = 0x4120,
    materialGroup = 0x4130,
    textureCoordList = 0x4140,
    mainChunk = 0x4D4D,
    materialName = 0xA000,
    materialAmbient = 0xA010,
    materialDiffuse = 0xA020,
    materialTexture = 0xA200,
    materialBump = 0xA230,
    mapFileName = 0xA300,
    material = 0xAFFF,
};

struct Chunk {
    std::uint16_t id = 0;
    const std::byte* start = nullptr;
    Bytes content;
};

/** Cuts a number off the front; false where the bytes end before it does. */
template <class Number>
bool take(Bytes& bytes, Number& number) {
    if (bytes.size() < sizeof number) {
        return false;
    }
    number = PackedRecords<Number>(bytes)[0];
    bytes = bytes.subspan(sizeof number);
    return true;
}

/** Cuts a list with its 16-bit count off the front; false where it doesn't fit. */
template <class Record>
bool takeList(Bytes& bytes, PackedRecords<Record>& list) {
    std::uint16_t count = 0;
    if (!take(bytes, count) || bytes.size() / sizeof(Record) < count) {
        return false;
    }
    list = PackedRecords<Record>(bytes.first(count * sizeof(Record)));
    bytes = bytes.subspan(count * sizeof(Record));
    return true;
}

/** Cuts a text and the zero that ends it off the front; false where there is no zero. */
bool takeText(Bytes& bytes, std::string_view& text) {
    const auto end = std::find(bytes.begin(), bytes.end(), std::byte{0});
    if (end == bytes.end()) {
        return false;
    }
    const auto length = static_cast<std::size_t>(end - bytes.begin());
    text = {reinterpret_cast<const char*>(bytes.data()), length};
    bytes = bytes.subspan(length + 1);
    return true;
}

constexpr std::string_view listTooLong = "what it lists doesn't fit in it";
constexpr std::string_view textTooLong = "its text doesn't end in it";

} // namespace

/** Fills a File3DS. Each function is false for a file that is refused, which has been reported then. */
class File3DS::Reading {
public:
    Reading(File3DS& target, Bytes bytes) : file(target), all(bytes) {}

    bool readFile() {
        Bytes rest = all;
        Chunk main;
        if (!takeChunk(rest, main)) {
            return false;
        }
        if (main.id != mainChunk) {
            return refuse(main, "a 3DS file doesn't start like that");
        }
        const bool isWhole = forEachChunk(
            main.content, [this](const Chunk& chunk) { return chunk.id != editor || readEditor(chunk); });
        if (isWhole) {
            assignMaterials();
        }
        return isWhole;
    }

private:
    /** Faces of one mesh that have the material of that name. */
    struct MaterialGroup {
        std::size_t mesh;
        std::string_view material;
        PackedRecords<std::uint16_t> faces;
    };

    bool refuse(const Chunk& chunk, std::string_view why) const {
        Report() << "WARNING: File3DS, chunk 0x" << Hexadecimal{chunk.id} << " at byte "
                 << chunk.start - all.data() << ": " << why << ", refusing the file...\n";
        return false;
    }

    /** Cuts a chunk off the front of those that its parent holds. */
    bool takeChunk(Bytes& siblings, Chunk& chunk) const {
        chunk = {.start = siblings.data(), .content = {}};
        Bytes rest = siblings;
        std::uint32_t length = 0;
        if (!take(rest, chunk.id) || !take(rest, length)) {
            return refuse(chunk, "there is only a part of it");
        }
        const std::size_t headerLength = siblings.size() - rest.size();
        if (length < headerLength || length > siblings.size()) {
            return refuse(chunk, "its length doesn't fit where it stands");
        }
        chunk.content = siblings.first(length).subspan(headerLength);
        siblings = siblings.subspan(length);
        return true;
    }

    template <class Visit>
    bool forEachChunk(Bytes siblings, Visit visit) const {
        while (!siblings.empty()) {
            Chunk chunk;
            if (!takeChunk(siblings, chunk) || !visit(chunk)) {
                return false;
            }
        }
        return true;
    }

    bool readEditor(const Chunk& parent) {
        return forEachChunk(parent.content, [this](const Chunk& chunk) {
            switch (chunk.id) {
            case material:
                return readMaterial(chunk);
            case object:
                return readObject(chunk);
            default:
                return true;
            }
        });
    }

    bool readMaterial(const Chunk& parent) {
        Material3DS& added = file.materials.emplace_back();
        std::string_view name;
        const bool isWhole = forEachChunk(parent.content, [&](const Chunk& chunk) {
            switch (chunk.id) {
            case materialName:
                return readText(chunk, name);
            case materialAmbient:
                return readColor(chunk, added.ambient);
            case materialDiffuse:
                return readColor(chunk, added.diffuse);
            case materialTexture:
                return readMap(chunk, added.textureName);
            case materialBump:
                return readMap(chunk, added.bumpName);
            default:
                return true;
            }
        });
        materialNumbers.emplace(name, static_cast<std::int32_t>(file.materials.size() - 1));
        return isWhole;
    }

    bool readText(const Chunk& chunk, std::string_view& text) const {
        Bytes rest = chunk.content;
        return takeText(rest, text) || refuse(chunk, textTooLong);
    }

    bool readMap(const Chunk& parent, std::string& fileName) const {
        return forEachChunk(parent.content, [&](const Chunk& chunk) {
            if (chunk.id != mapFileName) {
                return true;
            }
            std::string_view text;
            const bool isWhole = readText(chunk, text);
            fileName = text;
            return isWhole;
        });
    }

    bool readColor(const Chunk& parent, Material3DS::Color& color) {
        return forEachChunk(parent.content, [&](const Chunk& chunk) {
            Bytes rest = chunk.content;
            std::array<std::uint8_t, 3> bytes{};
            switch (chunk.id) {
            case floatColor:
            case linearFloatColor:
                if (!take(rest, color)) {
                    return refuse(chunk, listTooLong);
                }
                std::ranges::for_each(color, [this](float& part) { file.faults.makeFinite(part); });
                return true;
            case byteColor:
            case linearByteColor:
                if (!take(rest, bytes)) {
                    return refuse(chunk, listTooLong);
                }
                std::ranges::transform(bytes, color.begin(), [](std::uint8_t part) {
                    constexpr float full = 255;
                    return static_cast<float>(part) / full;
                });
                return true;
            default:
                return true;
            }
        });
    }

    bool readObject(const Chunk& parent) {
        Bytes rest = parent.content;
        std::string_view name;
        return (takeText(rest, name) || refuse(parent, textTooLong)) &&
               forEachChunk(
                   rest, [this](const Chunk& chunk) { return chunk.id != triangleMesh || readMesh(chunk); });
    }

    bool readMesh(const Chunk& parent) {
        Mesh3DS& mesh = file.meshes.emplace_back();
        return forEachChunk(parent.content, [&](const Chunk& chunk) {
            Bytes rest = chunk.content;
            switch (chunk.id) {
            case vertexList:
                return takeList(rest, mesh.vertices) || refuse(chunk, listTooLong);
            case textureCoordList:
                return takeList(rest, mesh.textureCoords) || refuse(chunk, listTooLong);
            case faceList:
                return takeList(rest, mesh.faces) ? readFaceParts(rest) : refuse(chunk, listTooLong);
            default:
                return true;
            }
        });
    }

    bool readFaceParts(Bytes parts) {
        return forEachChunk(parts, [this](const Chunk& chunk) {
            if (chunk.id != materialGroup) {
                return true;
            }
            MaterialGroup& group = groups.emplace_back();
            group.mesh = file.meshes.size() - 1;
            Bytes rest = chunk.content;
            if (!takeText(rest, group.material)) {
                return refuse(chunk, textTooLong);
            }
            return takeList(rest, group.faces) || refuse(chunk, listTooLong);
        });
    }

    /** At the end, since a material may stand behind the meshes that have it. */
    void assignMaterials() {
        for (Mesh3DS& mesh : file.meshes) {
            mesh.materials.assign(mesh.faces.size(), Mesh3DS::noMaterial);
        }
        for (const MaterialGroup& group : groups) {
            const auto known = materialNumbers.find(group.material);
            if (known == materialNumbers.end()) {
                continue;
            }
            std::vector<std::int32_t>& numbers = file.meshes[group.mesh].materials;
            for (std::size_t i = 0; i < group.faces.size(); ++i) {
                if (group.faces[i] < numbers.size()) {
                    numbers[group.faces[i]] = known->second;
                } else {
                    ++file.faults.facesOfMaterials;
                }
            }
        }
    }

    File3DS& file;
    Bytes all;
    std::map<std::string_view, std::int32_t> materialNumbers;
    std::vector<MaterialGroup> groups;
};

std::optional<File3DS> File3DS::read(std::span<const std::byte> bytes) {
    File3DS file;
    return Reading(file, bytes).readFile() ? std::optional(std::move(file)) : std::nullopt;
}

} // namespace Vantrel
