#include "vtl/scene/parser/ModelParserVRMLShape.h"

#include "vtl/scene/parser/NumberText.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <span>
#include <tuple>

namespace Vantrel {
namespace {

constexpr std::size_t cornersOfFace = 3;
/** Outside of every list. */
constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

std::string_view trimmed(std::string_view line) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!line.empty() && (isBlank(line.back()) || line.back() == '\r' || line.back() == '\n')) {
        line.remove_suffix(1);
    }
    while (!line.empty() && isBlank(line.front())) {
        line.remove_prefix(1);
    }
    return line;
}

bool readUntil(FileLines& lines, std::string_view token) {
    for (std::string_view line; lines.next(line);) {
        if (trimmed(line) == token) {
            return true;
        }
    }
    return false;
}

/** The entry of a line with the bracket that ends a list; nothing where there is only the bracket. */
std::string_view lastEntry(std::string_view line) {
    return line.find_first_of("0123456789") != std::string_view::npos ? trimmed(line) : std::string_view();
}

constexpr bool isDelimiter(char c) {
    return c == ',' || c == '-';
}

template <class IsSkipped>
void skipWhile(std::string_view& text, IsSkipped isSkipped) {
    std::size_t count = 0;
    while (count < text.size() && isSkipped(text[count])) {
        ++count;
    }
    text.remove_prefix(count);
}

/** Cuts a piece and the delimiters before it off the front: the whole number that it starts with. */
std::uint32_t takeIndex(std::string_view& text) {
    skipWhile(text, isDelimiter);
    if (text.empty()) {
        return none;
    }
    skipWhile(text, isWhiteSpace);
    // A piece of blanks alone is 0; the delimiter behind it is no sign.
    const std::int32_t number = !text.empty() && isDelimiter(text.front()) ? 0 : takeInteger(text);
    skipWhile(text, [](char c) { return !isDelimiter(c); });
    return static_cast<std::uint32_t>(number);
}

void addIndices(std::string_view line, std::vector<std::uint32_t>& indices) {
    for (std::size_t corner = 0; corner < cornersOfFace; ++corner) {
        indices.push_back(takeIndex(line));
    }
}

} // namespace

bool ModelParserVRMLShape::read(FileLines& lines, std::string_view modelFile, const Vector& scale,
                                ModelFileFaults& faults) {
    const auto addVertex = [&](std::string_view line) {
        Vector& added = vertices.emplace_back(line);
        added = Vector(added.x * scale.x, added.y * scale.y, added.z * scale.z);
        faults.makeFinite(added);
    };
    const auto addTextureVertex = [&](std::string_view line) { textureVertices.emplace_back(line, faults); };
    const auto addFace = [this](std::string_view line) { addIndices(line, coordIndices); };
    const auto addTextureFace = [this](std::string_view line) { addIndices(line, textureCoordIndices); };

    const bool isWhole = readTexture(lines, modelFile) && findList(lines, "Coordinate3 {", "point [") &&
                         readList(lines, addVertex) && findList(lines, "TextureCoordinate2 {", "point [") &&
                         readList(lines, addTextureVertex) &&
                         findList(lines, "IndexedFaceSet {", "coordIndex [") && readList(lines, addFace) &&
                         readUntil(lines, "textureCoordIndex [") && readList(lines, addTextureFace);
    if (isWhole) {
        dropUnusableFaces(faults);
    }
    return isWhole;
}

bool ModelParserVRMLShape::readTexture(FileLines& lines, std::string_view modelFile) {
    std::string_view line;
    if (!readUntil(lines, "Texture2 {") || !lines.next(line)) {
        return false;
    }
    line = trimmed(line);
    const std::size_t quote = line.find('"');
    multiLineNodes = quote == 0 || quote == std::string_view::npos;
    if (!multiLineNodes) {
        const std::string_view behind = line.substr(quote + 1);
        textureFileName = behind.substr(0, std::min(behind.rfind('"'), behind.size()));
        return true;
    }
    const std::size_t slash = modelFile.rfind('/');
    textureFileName = slash == std::string_view::npos ? "." : modelFile.substr(0, slash);
    textureFileName += '/';
    textureFileName += line.substr(line.rfind('/') + 1); // the whole line without a "/"
    return true;
}

bool ModelParserVRMLShape::findList(FileLines& lines, std::string_view node, std::string_view list) const {
    return multiLineNodes ? readUntil(lines, node) && readUntil(lines, list)
                          : readUntil(lines, std::string(node) + ' ' + std::string(list));
}

/** Hands each line of a list over, trimmed, up to the one with "]"; false where there is none. */
template <class AddEntry>
bool ModelParserVRMLShape::readList(FileLines& lines, AddEntry addEntry) const {
    for (std::string_view line; lines.next(line);) {
        const bool isLast = line.find(']') != std::string_view::npos;
        if (!isLast) {
            line = trimmed(line);
        } else {
            line = multiLineNodes ? std::string_view() : lastEntry(line);
        }
        if (!line.empty()) {
            addEntry(line);
        }
        if (isLast) {
            return true;
        }
    }
    return false;
}

void ModelParserVRMLShape::dropUnusableFaces(ModelFileFaults& faults) {
    const auto areAllBelow = [](const std::vector<std::uint32_t>& indices, std::size_t face,
                                std::size_t count) {
        const auto first = indices.begin() + static_cast<std::ptrdiff_t>(face);
        return std::all_of(first, first + cornersOfFace,
                           [count](std::uint32_t index) { return index < count; });
    };
    std::size_t kept = 0;
    for (std::size_t face = 0; face < coordIndices.size(); face += cornersOfFace) {
        if (face >= textureCoordIndices.size() || !areAllBelow(coordIndices, face, vertices.size()) ||
            !areAllBelow(textureCoordIndices, face, textureVertices.size())) {
            ++faults.faces;
            continue;
        }
        for (std::size_t corner = face; corner < face + cornersOfFace; ++corner, ++kept) {
            coordIndices[kept] = coordIndices[corner];
            textureCoordIndices[kept] = textureCoordIndices[corner];
        }
    }
    coordIndices.resize(kept);
    textureCoordIndices.resize(kept);
}

std::vector<Vector> ModelParserVRMLShape::splitAtSeams() {
    std::vector<Vector> coords(vertices.size());
    std::vector<bool> isUsed(vertices.size());
    std::vector<std::size_t> seamCorners;
    for (std::size_t corner = 0; corner < coordIndices.size(); ++corner) {
        const std::uint32_t vertex = coordIndices[corner];
        const TextureVertex& coord = coordAt(corner);
        if (!isUsed[vertex]) {
            isUsed[vertex] = true;
            coords[vertex] = Vector(coord.u, coord.v, 0);
        } else if (coord != TextureVertex(coords[vertex].x, coords[vertex].y)) {
            seamCorners.push_back(corner);
        }
    }
    const std::vector<std::size_t> leaders = leadersOf(seamCorners);
    for (std::size_t i = 0; i < seamCorners.size(); ++i) {
        std::uint32_t& index = coordIndices[seamCorners[i]];
        if (leaders[i] == i) {
            const TextureVertex& coord = coordAt(seamCorners[i]);
            coords.emplace_back(coord.u, coord.v, 0.0F);
            vertices.push_back(vertices[index]);
            index = static_cast<std::uint32_t>(vertices.size() - 1);
        } else {
            index = coordIndices[seamCorners[leaders[i]]];
        }
    }
    return coords;
}

/** For each of the corners the place of the first one with the same vertex and texture coordinate. */
std::vector<std::size_t> ModelParserVRMLShape::leadersOf(const std::vector<std::size_t>& corners) const {
    std::vector<std::size_t> leaders(corners.size());
    std::size_t former = 0; // the first of its vertex, which nothing here is like
    std::size_t leader = 0;
    for (const std::size_t place : sortedPlaces(corners)) {
        const std::size_t corner = corners[place];
        if (coordIndices[corner] != coordIndices[former] || coordAt(corner) != coordAt(former)) {
            leader = place;
        }
        leaders[place] = leader;
        former = corner;
    }
    return leaders;
}

/** The places of the corners, those of each vertex together and sorted by its texture coordinates. */
std::vector<std::size_t> ModelParserVRMLShape::sortedPlaces(const std::vector<std::size_t>& corners) const {
    std::vector<std::size_t> ends(vertices.size());
    for (const std::size_t corner : corners) {
        ++ends[coordIndices[corner]];
    }
    std::partial_sum(ends.begin(), ends.end(), ends.begin());
    std::vector<std::size_t> starts = ends;
    std::vector<std::size_t> places(corners.size());
    for (std::size_t place = corners.size(); place-- > 0;) {
        places[--starts[coordIndices[corners[place]]]] = place;
    }
    for (std::size_t vertex = 0; vertex < vertices.size(); ++vertex) {
        // Not hashed: all corners may be of one vertex, and no bad luck with hashes may slow that down.
        std::ranges::sort(std::span(places).subspan(starts[vertex], ends[vertex] - starts[vertex]), {},
                          [&](std::size_t place) {
                              const TextureVertex& coord = coordAt(corners[place]);
                              return std::tuple(coord.u, coord.v, place);
                          });
    }
    return places;
}

} // namespace Vantrel
