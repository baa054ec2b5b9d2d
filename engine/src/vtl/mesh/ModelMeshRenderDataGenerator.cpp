#include "vtl/mesh/ModelMeshRenderDataGenerator.h"

#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/gl/IndexArray.h"
#include "vtl/math/VectorChecks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numeric>
#include <string_view>
#include <utility>

namespace Vantrel {
namespace {

constexpr const char* tangentName = "tangent";
constexpr std::size_t vectorBytes = 3 * sizeof(float);
constexpr std::size_t cornersOfTriangle = 3;

/** What the triangles around a vertex sum up to, and in the end their mean direction. */
struct FaceSum {
    Vector vector() const { return {x, y, z}; }
    void set(const Vector& v) {
        x = v.x;
        y = v.y;
        z = v.z;
    }

    float x = 0;
    float y = 0;
    float z = 0;
    std::uint32_t count = 0;
};

/** The primitives that a mesh without normals can be drawn as, the lists that each is made from, and what is
 * said of other lists. */
struct NoNormalsRow {
    GLenum wanted;
    std::array<GLenum, 2> sources;
    const char* refusal;
};

constexpr std::array<NoNormalsRow, 4> noNormalsRows{{
    {GL_POINTS,
     {GL_POINTS, GL_TRIANGLES},
     "Only generation of No Normals Points from { Points, Triangles } are implemented."},
    {GL_LINES, {GL_LINES, GL_LINES}, "Only generation of No Normals Lines from { Lines } are implemented."},
    {GL_LINE_STRIP,
     {GL_LINE_STRIP, GL_LINE_STRIP},
     "Only generation of No Normals Line Strip from { Line Strip } are implemented."},
    {GL_LINE_LOOP,
     {GL_LINE_LOOP, GL_TRIANGLES},
     "Only generation of No Normals Points from { LineLoop } are implemented."},
}};

[[noreturn]] void refuse(std::string_view text) {
    Report() << text << "\n";
    Pause::exitAfterKey(1);
}

void requireSourceFor(GLenum wanted, GLenum source) {
    if (wanted == GL_TRIANGLES) {
        return;
    }
    const auto* const row =
        std::find_if(noNormalsRows.begin(), noNormalsRows.end(),
                     [wanted](const NoNormalsRow& candidate) { return candidate.wanted == wanted; });
    if (row == noNormalsRows.end()) {
        refuse("Only generation of No Normals for { Points, Triangles } are implemented.");
    }
    if (std::find(row->sources.begin(), row->sources.end(), source) == row->sources.end()) {
        refuse(row->refusal);
    }
}

void store(std::byte* at, const Vector& v) {
    const std::array<float, 3> components{v.x, v.y, v.z};
    std::memcpy(at, components.data(), vectorBytes);
}

Vector normalizedOrZero(Vector v) {
    v.normalize();
    return isFinite(v) ? v : Vector();
}

/** Of unit edges, so that the triangle's area doesn't count; zero for corners that are no points. */
Vector faceNormalOf(const Vector& p0, const Vector& p1, const Vector& p2) {
    Vector e1 = p1 - p0;
    Vector e2 = p2 - p0;
    e1.normalize();
    e2.normalize();
    return normalizedOrZero(e1.crossProduct(e2));
}

/**
 * The mean, made one long, of a vector of each triangle over all corners of a group; `vectorOf` takes the
 * place of a triangle's first corner in `corners`.
 */
template <class VectorOf>
std::vector<FaceSum> meansOverCorners(std::span<const std::uint32_t> corners,
                                      const CoincidentVertices& coincident, VectorOf vectorOf) {
    std::vector<FaceSum> sums(coincident.getGroupCount());
    const std::vector<std::uint32_t>& groups = coincident.getGroups();
    for (std::size_t k = 0; k < corners.size(); k += 3) {
        const Vector face = vectorOf(k);
        for (std::size_t corner = k; corner < k + 3; ++corner) {
            FaceSum& sum = sums[groups[corners[corner]]];
            sum.set(sum.vector() + face);
            ++sum.count;
        }
    }
    for (FaceSum& sum : sums) {
        Vector mean = sum.vector() / static_cast<float>(sum.count);
        mean.normalize();
        sum.set(mean);
    }
    return sums;
}

/**
 * Calls `write` with the place in the block and the number of the entry for every vertex that has one of
 * `entries` entries. A copy without an entry of its own takes that of the vertex it copies.
 */
template <class Write>
void writeEntries(std::span<std::byte> block, std::uint32_t stride, std::size_t entries,
                  std::span<const std::uint32_t> copies, Write write) {
    const std::size_t blockVertices = stride != 0 ? block.size() / stride : 0;
    const std::size_t own = std::min(entries, blockVertices);
    std::byte* at = block.data();
    for (std::size_t i = 0; i < own; ++i, at += stride) {
        write(at, i);
    }
    const std::size_t originals = blockVertices - std::min(copies.size(), blockVertices);
    for (std::size_t i = std::max(own, originals); i < blockVertices; ++i) {
        if (copies[i - originals] < entries) {
            write(block.data() + i * stride, copies[i - originals]);
        }
    }
}

} // namespace

/** Numbers of the corners of flat triangles, and which vertices the numbers beyond the input's copy. */
struct ModelMeshRenderDataGenerator::FlatCorners {
    std::vector<std::uint32_t> numbers;
    std::vector<std::uint32_t> copies;
};

std::uint32_t ModelMeshTextureCoordSet::componentCount() const {
    switch (target) {
    case GL_TEXTURE_1D:
        return 1;
    case GL_TEXTURE_2D:
        return 2;
    case GL_TEXTURE_3D:
        return 3;
    default:
        return 0;
    }
}

ModelMeshRenderData ModelMeshRenderDataGenerator::generateRenderData(MESH_SHADING_TYPE shadingType,
                                                                     GLenum primitiveType) {
    switch (shadingType) {
    case MESH_SHADING_TYPE::mstFLAT:
        return generateFlat(primitiveType);
    case MESH_SHADING_TYPE::mstSMOOTH:
        return generateSmooth(primitiveType);
    case MESH_SHADING_TYPE::mstNONE:
        return generateNoNormals(primitiveType);
    default:
        Report() << "Attempting to generate render data that is not of type MESH_SHADING_TYPE::mstSMOOTH, "
                    "MESH_SHADING_TYPE::mstFLAT, or MESH_SHADING_TYPE::mstNONE.\n"
                    "This is not acceptable behavior.\n"
                    "Press ENTER to exit...\n";
        Pause::exitAfterKey();
    }
}

ModelMeshRenderData ModelMeshRenderDataGenerator::generateFlat(GLenum primitiveType) {
    if (primitiveType != GL_TRIANGLES) {
        refuse("All primitive types other than GL_TRIANGLES currently unimplemented for generateFlat");
    }
    return generateFlatTriangles();
}

ModelMeshRenderData ModelMeshRenderDataGenerator::generateSmooth(GLenum primitiveType) {
    if (primitiveType != GL_TRIANGLES) {
        refuse("All primitive types other than GL_TRIANGLES currently unimplemented for 'smooth normals'.\n"
               "Recieved: " +
               std::to_string(primitiveType));
    }
    return generateSmoothTriangles();
}

ModelMeshRenderData ModelMeshRenderDataGenerator::generateNoNormals(GLenum primitiveType) {
    requireSourceFor(primitiveType, sourcePrimitive);
    if (primitiveType == GL_POINTS && sourcePrimitive == GL_TRIANGLES) {
        return generateNoNormalsPointsFromTriangles();
    }
    return buildWithoutNormals();
}

ModelMeshRenderData ModelMeshRenderDataGenerator::generateFlatTriangles() {
    Report() << "Generating Flat Triangles\n";
    std::vector<std::uint32_t> kept;
    const std::span<const std::uint32_t> corners = usableIndices(cornersOfTriangle, kept);
    const FlatCorners flat = giveEveryCornerItsVertex(corners);
    copyColors(flat.copies);
    if (generateTangents && !textureCoordSets.empty()) {
        computeTangentsFlat(corners, flat);
    }
    computeLayout(MESH_SHADING_TYPE::mstFLAT);
    const bool areAllUsed = corners.size() - flat.copies.size() == vertices.size();
    ModelMeshRenderData record = startRecord(vertices.size() + flat.copies.size(), areAllUsed);
    record.hasNormals = true;
    writeFlatNormals({record.vertexData.get(), record.getClientBlock().size()}, corners, flat.numbers);
    finishRecord(record, flat.numbers, flat.copies);
    return record;
}

ModelMeshRenderData ModelMeshRenderDataGenerator::generateSmoothTriangles() {
    Report() << "Generating Smooth Triangles.\n";
    std::vector<std::uint32_t> kept;
    const std::span<const std::uint32_t> corners = usableIndices(cornersOfTriangle, kept);
    const CoincidentVertices coincident(vertices, corners);
    const std::vector<FaceSum> normals = meansOverCorners(corners, coincident, [&](std::size_t k) {
        return faceNormalOf(vertices[corners[k]], vertices[corners[k + 1]], vertices[corners[k + 2]]);
    });
    if (generateTangents) {
        computeTangentsSmooth(corners, coincident);
    }
    computeLayout(MESH_SHADING_TYPE::mstSMOOTH);
    ModelMeshRenderData record = startRecord(vertices.size(), coincident.areAllUsed());
    record.hasNormals = true;
    std::byte* at = record.vertexData.get() + normalOffset;
    for (const std::uint32_t group : coincident.getGroups()) {
        if (group != CoincidentVertices::none) {
            store(at, normals[group].vector());
        }
        at += stride;
    }
    finishRecord(record, corners, {});
    return record;
}

ModelMeshRenderData ModelMeshRenderDataGenerator::generateNoNormalsPointsFromTriangles() {
    std::vector<std::uint32_t> numbers(vertices.size());
    std::iota(numbers.begin(), numbers.end(), 0U);
    return buildFromIndices(numbers);
}

ModelMeshRenderData ModelMeshRenderDataGenerator::buildWithoutNormals() {
    std::vector<std::uint32_t> kept;
    return buildFromIndices(plainIndices(kept));
}

ModelMeshRenderData ModelMeshRenderDataGenerator::buildFromIndices(std::span<const std::uint32_t> numbers) {
    computeLayout(MESH_SHADING_TYPE::mstNONE);
    ModelMeshRenderData record = startRecord(vertices.size(), true);
    finishRecord(record, numbers, {});
    return record;
}

void ModelMeshRenderDataGenerator::computeLayout(MESH_SHADING_TYPE shadingType) {
    positionOffset = colorOffset = normalOffset = 0;
    textureCoordOffsets.clear();
    attributeOffsets.clear();
    stride = vectorBytes;
    if (shadingType != MESH_SHADING_TYPE::mstNONE) {
        normalOffset = stride;
        stride += vectorBytes;
    }
    for (const ModelMeshTextureCoordSet& set : textureCoordSets) {
        if (set.componentCount() == 0) {
            Report() << "Attempting to get offset for unsupported texture dimensionality\n";
        }
        textureCoordOffsets.push_back(stride);
        stride += set.componentCount() * static_cast<std::uint32_t>(sizeof(float));
    }
    for (const GLSLAttributeArray& array : attributeArrays) {
        if (array.elementSize() == 0) {
            Report() << "No size avaialable for type " << array.type << "\n";
            Pause::waitForKey();
        }
        attributeOffsets.push_back(stride);
        stride += array.elementSize();
    }
    if (!colors.empty()) {
        if (colorBytes() == 0) {
            Report() << "Error: improper color channel selection\n"
                        "Bad things will happen.\n";
            Pause::waitForKey();
        }
        colorOffset = stride;
        stride += colorBytes();
    }
}

void ModelMeshRenderDataGenerator::writePositions(std::span<std::byte> block,
                                                  std::span<const std::uint32_t> copies) const {
    writeEntries(block, stride, vertices.size(), copies, [this](std::byte* vertex, std::size_t entry) {
        store(vertex + positionOffset, vertices[entry]);
    });
}

void ModelMeshRenderDataGenerator::writeColors(std::span<std::byte> block) const {
    const std::uint32_t bytes = colorBytes();
    writeEntries(block, stride, colors.size(), {}, [&](std::byte* vertex, std::size_t entry) {
        const vtlColor4ub& color = colors[entry];
        const std::array<std::uint8_t, 4> channels{color.r, color.g, color.b, color.a};
        std::memcpy(vertex + colorOffset, channels.data(), bytes);
    });
}

void ModelMeshRenderDataGenerator::writeTextureCoords(std::span<std::byte> block,
                                                      std::span<const std::uint32_t> copies) const {
    for (std::size_t s = 0; s < textureCoordSets.size(); ++s) {
        const ModelMeshTextureCoordSet& set = textureCoordSets[s];
        const std::size_t entries = std::min(set.coords.size(), vertices.size());
        const std::size_t bytes = set.componentCount() * sizeof(float);
        writeEntries(block, stride, entries, copies, [&](std::byte* vertex, std::size_t entry) {
            const Vector& coord = set.coords[entry];
            const std::array<float, 3> components{coord.x, coord.y, coord.z};
            std::memcpy(vertex + textureCoordOffsets[s], components.data(), bytes);
        });
    }
}

void ModelMeshRenderDataGenerator::writeAttributes(std::span<std::byte> block,
                                                   std::span<const std::uint32_t> copies) const {
    for (std::size_t a = 0; a < attributeArrays.size(); ++a) {
        const GLSLAttributeArray& array = attributeArrays[a];
        if (array.type != atVEC3) {
            if (!array.data.empty()) {
                Report() << "Warning: Everything except atVEC3 is unimplemented!\n";
                Pause::waitForKey();
            }
            continue;
        }
        // The tangents of a run have entries for its copies too.
        const bool hasCopies = generateTangents && array.name == tangentName;
        const std::size_t entries = hasCopies ? array.size() : std::min(array.size(), vertices.size());
        writeEntries(block, stride, entries, copies, [&](std::byte* vertex, std::size_t entry) {
            std::memcpy(vertex + attributeOffsets[a], array.data.data() + entry * vectorBytes, vectorBytes);
        });
    }
}

Vector ModelMeshRenderDataGenerator::computeTangentFlat(const Vector& e1, const Vector& e2, const Vector& d1,
                                                        const Vector& d2) {
    const float factor = 1 / (d1.x * d2.y + d2.x * d1.y);
    return normalizedOrZero((e1 * d2.y - e2 * d1.y) * factor);
}

Vector ModelMeshRenderDataGenerator::computeTangentSmooth(const Vector& p0, const Vector& p1,
                                                          const Vector& p2, const Vector& uv0,
                                                          const Vector& uv1, const Vector& uv2) {
    const Vector d1 = uv1 - uv0;
    const Vector d2 = uv2 - uv0;
    const Vector along = (p2 - p0) * d1.y - (p1 - p0) * d2.y;
    return normalizedOrZero(along / (d2.x * d1.y - d1.x * d2.y));
}

/**
 * Of `indices` those of whole primitives of that many corners that name vertices alone: the list itself where
 * that is all of them, otherwise what `kept` then holds. Of one corner, every index stands for itself.
 */
std::span<const std::uint32_t>
ModelMeshRenderDataGenerator::usableIndices(std::size_t corners, std::vector<std::uint32_t>& kept) const {
    const std::span<const std::uint32_t> whole(indices.data(), indices.size() - indices.size() % corners);
    const auto isThere = [count = vertices.size()](std::uint32_t index) { return index < count; };
    if (std::all_of(whole.begin(), whole.end(), isThere)) {
        return whole;
    }
    for (std::size_t k = 0; k < whole.size(); k += corners) {
        const std::span<const std::uint32_t> primitive = whole.subspan(k, corners);
        if (std::all_of(primitive.begin(), primitive.end(), isThere)) {
            kept.insert(kept.end(), primitive.begin(), primitive.end());
        }
    }
    Report() << "WARNING: ModelMeshRenderDataGenerator, " << (whole.size() - kept.size()) / corners << " of "
             << whole.size() / corners << (corners == 1 ? " indices" : " primitives")
             << " name a vertex that doesn't exist (there are " << vertices.size()
             << "), leaving them out...\n";
    return kept;
}

/** All indices, as long as they name vertices; otherwise without the primitives, or single indices, that
 * don't. */
std::span<const std::uint32_t>
ModelMeshRenderDataGenerator::plainIndices(std::vector<std::uint32_t>& kept) const {
    const bool areAllThere =
        std::all_of(indices.begin(), indices.end(),
                    [count = vertices.size()](std::uint32_t index) { return index < count; });
    if (areAllThere) {
        return indices;
    }
    return usableIndices(sourcePrimitive == GL_TRIANGLES ? cornersOfTriangle
                         : sourcePrimitive == GL_LINES   ? 2
                                                         : 1,
                         kept);
}

ModelMeshRenderDataGenerator::FlatCorners
ModelMeshRenderDataGenerator::giveEveryCornerItsVertex(std::span<const std::uint32_t> corners) const {
    FlatCorners flat;
    flat.numbers.reserve(corners.size());
    std::vector<bool> isTaken(vertices.size());
    for (const std::uint32_t vertex : corners) {
        if (!isTaken[vertex]) {
            isTaken[vertex] = true;
            flat.numbers.push_back(vertex);
        } else {
            flat.numbers.push_back(static_cast<std::uint32_t>(vertices.size() + flat.copies.size()));
            flat.copies.push_back(vertex);
        }
    }
    return flat;
}

void ModelMeshRenderDataGenerator::copyColors(std::span<const std::uint32_t> copies) {
    if (colors.empty()) {
        return;
    }
    // Drops the copies of an earlier run.
    colors.resize(vertices.size(), vtlColor4ub(0, 0, 0, 0));
    colors.reserve(vertices.size() + copies.size());
    for (const std::uint32_t vertex : copies) {
        colors.push_back(colors[vertex]);
    }
}

void ModelMeshRenderDataGenerator::computeTangentsFlat(std::span<const std::uint32_t> corners,
                                                       const FlatCorners& flat) {
    Report() << "Generating tangents flat.\n";
    GLSLAttributeArray& tangents = replaceTangents();
    tangents.resize(vertices.size() + flat.copies.size());
    for (std::size_t k = 0; k < corners.size(); k += 3) {
        const Vector& p0 = vertices[corners[k]];
        const Vector uv0 = firstCoordsOf(corners[k]);
        std::array<Vector, 4> sides{vertices[corners[k + 1]] - p0, vertices[corners[k + 2]] - p0,
                                    firstCoordsOf(corners[k + 1]) - uv0, uv0 - firstCoordsOf(corners[k + 2])};
        std::for_each(sides.begin(), sides.end(), [](Vector& side) { side.normalize(); });
        const Vector tangent = computeTangentFlat(sides[0], sides[1], sides[2], sides[3]);
        for (std::size_t corner = k; corner < k + 3; ++corner) {
            tangents.setAt(flat.numbers[corner], tangent);
        }
        Report() << tangent.toString() << "\n";
    }
}

void ModelMeshRenderDataGenerator::writeFlatNormals(std::span<std::byte> block,
                                                    std::span<const std::uint32_t> corners,
                                                    std::span<const std::uint32_t> numbers) const {
    for (std::size_t k = 0; k < corners.size(); k += 3) {
        const Vector& p0 = vertices[corners[k]];
        const Vector normal =
            normalizedOrZero((p0 - vertices[corners[k + 1]]).crossProduct(p0 - vertices[corners[k + 2]]));
        for (std::size_t corner = k; corner < k + 3; ++corner) {
            store(block.data() + std::size_t{numbers[corner]} * stride + normalOffset, normal);
        }
    }
}

void ModelMeshRenderDataGenerator::computeTangentsSmooth(std::span<const std::uint32_t> corners,
                                                         const CoincidentVertices& coincident) {
    const std::vector<FaceSum> means = meansOverCorners(corners, coincident, [&](std::size_t k) {
        return computeTangentSmooth(vertices[corners[k]], vertices[corners[k + 1]], vertices[corners[k + 2]],
                                    firstCoordsOf(corners[k]), firstCoordsOf(corners[k + 1]),
                                    firstCoordsOf(corners[k + 2]));
    });
    Report() << "Generating tangents smooth\n";
    GLSLAttributeArray& tangents = replaceTangents();
    tangents.resize(corners.empty() ? 0 : *std::max_element(corners.begin(), corners.end()) + std::size_t{1});
    for (std::size_t i = 0; i < tangents.size(); ++i) {
        if (const std::uint32_t group = coincident.getGroups()[i]; group != CoincidentVertices::none) {
            tangents.setAt(i, means[group].vector());
        }
    }
}

GLSLAttributeArray& ModelMeshRenderDataGenerator::replaceTangents() {
    const auto earlier =
        std::find_if(attributeArrays.begin(), attributeArrays.end(),
                     [](const GLSLAttributeArray& array) { return array.name == tangentName; });
    if (earlier == attributeArrays.end()) {
        return attributeArrays.emplace_back(tangentName, atVEC3);
    }
    return *earlier = GLSLAttributeArray(tangentName, atVEC3);
}

/** With z zero; zero where the first set has no entry. */
Vector ModelMeshRenderDataGenerator::firstCoordsOf(std::size_t vertex) const {
    if (textureCoordSets.empty() || vertex >= textureCoordSets[0].coords.size()) {
        return {};
    }
    const Vector& coords = textureCoordSets[0].coords[vertex];
    return {coords.x, coords.y, 0};
}

/** Whether every vertex has an entry in every list, in a form that is written. */
bool ModelMeshRenderDataGenerator::areListsComplete() const {
    const std::size_t count = vertices.size();
    return std::all_of(textureCoordSets.begin(), textureCoordSets.end(),
                       [count](const auto& set) { return set.coords.size() >= count; }) &&
           std::all_of(
               attributeArrays.begin(), attributeArrays.end(),
               [count](const auto& array) { return array.type == atVEC3 && array.size() >= count; }) &&
           (colors.empty() || colors.size() >= count);
}

/** A record with the present layout; its block starts as zero where something may stay unwritten. */
ModelMeshRenderData ModelMeshRenderDataGenerator::startRecord(std::size_t vertexCount,
                                                              bool isFullyWritten) const {
    ModelMeshRenderData record;
    record.numVertices = static_cast<std::uint32_t>(vertexCount);
    record.vertexData = isFullyWritten && areListsComplete()
                            ? std::make_unique_for_overwrite<std::byte[]>(vertexCount * stride)
                            : std::make_unique<std::byte[]>(vertexCount * stride);
    record.stride = stride;
    record.hasColors = !colors.empty() && colorBytes() != 0;
    record.colorFormat = colorFormat;
    record.positionOffset = positionOffset;
    record.colorOffset = colorOffset;
    record.normalOffset = normalOffset;
    record.textureCoordOffsets = textureCoordOffsets;
    record.attributeOffsets = attributeOffsets;
    for (const GLSLAttributeArray& array : attributeArrays) {
        const auto place = static_cast<std::uint32_t>(record.attributeTypes.size());
        record.attributeIndexByName[array.name] = place;
        record.attributeTypes.push_back(array.type);
    }
    return record;
}

/** Writes what every kind of mesh has. */
void ModelMeshRenderDataGenerator::finishRecord(ModelMeshRenderData& record,
                                                std::span<const std::uint32_t> numbers,
                                                std::span<const std::uint32_t> copies) const {
    const std::span<std::byte> block(record.vertexData.get(), record.getClientBlock().size());
    writePositions(block, copies);
    writeColors(block);
    writeTextureCoords(block, copies);
    writeAttributes(block, copies);
    IndexArray array = IndexArray::pack(numbers);
    record.indices = std::move(array.data);
    record.numIndices = array.count;
    record.indexType = array.type;
}

/** Bytes of a colour in the block; 0 for a format that isn't one. */
std::uint32_t ModelMeshRenderDataGenerator::colorBytes() const {
    return colorFormat == GL_RGB ? 3 : colorFormat == GL_RGBA ? 4 : 0;
}

} // namespace Vantrel
