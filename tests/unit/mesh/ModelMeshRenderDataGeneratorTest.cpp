#include "vtl/mesh/ModelMeshRenderDataGenerator.h"

#include "tests/support/KeyPresses.h"
#include "tests/support/RandomInput.h"
#include "tests/support/ReportCapture.h"
#include "tests/support/VertexBlock.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <numeric>
#include <tuple>

namespace Vantrel {
namespace {

using Tests::expectNear;
using Tests::indexNumbers;
using Tests::normalInBlock;
using Tests::positionInBlock;
using Tests::vectorInBlock;
using Bytes = std::vector<std::uint8_t>;

constexpr auto smooth = MESH_SHADING_TYPE::mstSMOOTH;
constexpr auto flat = MESH_SHADING_TYPE::mstFLAT;
constexpr auto none = MESH_SHADING_TYPE::mstNONE;
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

class ModelMeshRenderDataGeneratorTest : public ::testing::Test {
protected:
    ModelMeshRenderData generate(MESH_SHADING_TYPE shading) {
        return mesh.generateRenderData(shading, GL_TRIANGLES);
    }

    /** The cube from -1 to 1: 8 vertices, outward triangles. */
    void makeCube() {
        for (int i = 0; i < 8; ++i) {
            mesh.vertices.emplace_back(i & 1 ? 1.0F : -1.0F, i & 2 ? 1.0F : -1.0F, i & 4 ? 1.0F : -1.0F);
        }
        mesh.indices = {0, 2, 3, 0, 3, 1, 4, 5, 7, 4, 7, 6, 0, 1, 5, 0, 5, 4,
                        2, 6, 7, 2, 7, 3, 0, 4, 6, 0, 6, 2, 1, 3, 7, 1, 7, 5};
    }

    /** Two triangles in the plane z = 0 with coordinates like positions, over four vertices. */
    void makeQuad() {
        mesh.vertices = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
        mesh.indices = {0, 1, 2, 0, 2, 3};
        mesh.textureCoordSets.push_back({.coords = mesh.vertices, .target = GL_TEXTURE_2D});
    }

    Tests::KeyPresses keys;
    Tests::ReportCapture reports;
    ModelMeshRenderDataGenerator mesh;
};

TEST_F(ModelMeshRenderDataGeneratorTest, LayoutFollowsTheLists) {
    struct Row {
        MESH_SHADING_TYPE shading;
        GLenum colorFormat;
        std::size_t colorCount;
        std::vector<GLenum> sets;
        std::vector<std::uint32_t> attributes;
        std::uint32_t stride;
        std::uint32_t colorOffset;
    };
    const std::vector<Row> rows{
        {none, GL_RGB, 0, {}, {}, 12, 0},
        {smooth, GL_RGBA, 1, {}, {}, 28, 24},
        {flat, GL_RGB, 1, {}, {}, 27, 24},
        {none, GL_RGB, 1, {GL_TEXTURE_2D, GL_TEXTURE_1D, GL_TEXTURE_3D}, {atVEC3}, 51, 48},
        {smooth, GL_RGBA, 1, {GL_TEXTURE_2D}, {atMAT4, atBVEC3}, 24 + 8 + 64 + 3 + 4, 24 + 8 + 64 + 3},
        {none, GL_RGB, 0, {GL_TEXTURE_CUBE_MAP}, {99}, 12, 0},
        {none, GL_BGR, 1, {}, {}, 12, 12},
    };
    for (const Row& row : rows) {
        ModelMeshRenderDataGenerator one;
        one.colorFormat = row.colorFormat;
        one.colors.resize(row.colorCount);
        for (const GLenum target : row.sets) {
            one.textureCoordSets.push_back({.coords = {}, .target = target});
        }
        for (const std::uint32_t type : row.attributes) {
            one.attributeArrays.emplace_back(std::to_string(type), type);
        }
        one.computeLayout(row.shading);
        EXPECT_EQ(one.stride, row.stride);
        EXPECT_EQ(one.colorOffset, row.colorOffset);
        EXPECT_EQ(one.normalOffset, row.shading == none ? 0U : 12U);
        EXPECT_EQ(one.textureCoordOffsets.size(), row.sets.size());
        EXPECT_EQ(one.attributeOffsets.size(), row.attributes.size());
    }
    EXPECT_EQ(reports.text(), "Attempting to get offset for unsupported texture dimensionality\n"
                              "No size avaialable for type 99\n"
                              "Error: improper color channel selection\nBad things will happen.\n");
    EXPECT_EQ(keys.count(), 2);
}

TEST_F(ModelMeshRenderDataGeneratorTest, WidthOfIndicesFollowsTheirNumberAndFitsTheirValues) {
    struct Row {
        std::size_t count;
        std::uint32_t index;
        GLenum type;
    };
    mesh.sourcePrimitive = GL_POINTS;
    mesh.vertices.resize(70000);
    for (const Row& row :
         {Row{0, 0, GL_UNSIGNED_BYTE}, Row{254, 253, GL_UNSIGNED_BYTE}, Row{255, 253, GL_UNSIGNED_SHORT},
          Row{3, 255, GL_UNSIGNED_BYTE}, Row{3, 256, GL_UNSIGNED_SHORT}, Row{3, 65535, GL_UNSIGNED_SHORT},
          Row{65534, 258, GL_UNSIGNED_SHORT}, Row{65535, 2, GL_UNSIGNED_INT},
          Row{3, 69999, GL_UNSIGNED_INT}}) {
        mesh.indices.assign(row.count, row.index);
        const ModelMeshRenderData data = mesh.generateRenderData(none, GL_POINTS);
        EXPECT_EQ(data.indexType, row.type) << row.count << " " << row.index;
        EXPECT_EQ(indexNumbers(data), std::vector<std::uint32_t>(row.count, row.index));
    }
    EXPECT_EQ(IndexArray::typeFor(0xFFFFFFFE), GLenum{GL_UNSIGNED_INT});
    EXPECT_EQ(IndexArray::typeFor(0xFFFFFFFF), GLenum{GL_OUT_OF_MEMORY});
}

TEST_F(ModelMeshRenderDataGeneratorTest, PlainBuildWritesEveryListAtItsPlace) {
    makeQuad();
    mesh.colors = {{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {13, 14, 15, 16}};
    mesh.colorFormat = GL_RGBA;
    mesh.textureCoordSets.push_back({.coords = {4, Vector(7, 8, 9)}, .target = GL_TEXTURE_1D});
    mesh.attributeArrays.emplace_back("wind", atVEC3);
    mesh.attributeArrays[0].resize(4);
    mesh.attributeArrays[0].setAt(3, Vector(0.5F, 0.25F, 0.125F));
    const ModelMeshRenderData data = generate(none);
    ASSERT_EQ(data.numVertices, 4U);
    EXPECT_FALSE(data.hasNormals);
    EXPECT_EQ(data.stride, 12U + 8 + 4 + 12 + 4);
    EXPECT_EQ(indexNumbers(data), mesh.indices);
    expectNear(positionInBlock(data, 3), {0, 1, 0});
    EXPECT_EQ(vectorInBlock(data, 3, data.textureCoordOffsets[0]).y, 1.0F);
    EXPECT_EQ(vectorInBlock(data, 3, data.textureCoordOffsets[1]).x, 7.0F);
    ASSERT_EQ(data.attributeIndexByName.at("wind"), 0U);
    EXPECT_EQ(data.attributeTypes, std::vector<std::uint32_t>{atVEC3});
    expectNear(vectorInBlock(data, 3, data.attributeOffsets[0]), {0.5F, 0.25F, 0.125F});
    EXPECT_EQ(Tests::bytesInBlock(data, 3, data.colorOffset, 4), (Bytes{13, 14, 15, 16}));
    EXPECT_EQ(reports.text(), "");

    const ModelMeshRenderData points = mesh.generateRenderData(none, GL_POINTS);
    EXPECT_EQ(indexNumbers(points), (std::vector<std::uint32_t>{0, 1, 2, 3}));
}

TEST_F(ModelMeshRenderDataGeneratorTest, CubeIsFlatWith36VerticesAndSmoothWith8) {
    makeCube();
    const ModelMeshRenderData faces = generate(flat);
    ASSERT_EQ(faces.numVertices, 36U);
    ASSERT_EQ(faces.numIndices, 36U);
    const std::vector<std::uint32_t> numbers = indexNumbers(faces);
    std::vector<bool> isSeen(36);
    std::uint32_t nextCopy = 8;
    for (std::size_t k = 0; k < 36; ++k) {
        const std::uint32_t vertex = mesh.indices[k];
        const bool isFirst = std::find(mesh.indices.begin(), mesh.indices.begin() + static_cast<int>(k),
                                       vertex) == mesh.indices.begin() + static_cast<int>(k);
        EXPECT_EQ(numbers[k], isFirst ? vertex : nextCopy++);
        isSeen[numbers[k]] = true;
        expectNear(positionInBlock(faces, numbers[k]), mesh.vertices[vertex]);
        const Vector normal = normalInBlock(faces, numbers[k]);
        EXPECT_NEAR(normal.magnitude(), 1, 1e-6);
        EXPECT_NEAR(normal.dotProduct(mesh.vertices[vertex]), 1, 1e-6) << "the face lies 1 from the middle";
    }
    EXPECT_EQ(std::count(isSeen.begin(), isSeen.end(), true), 36);

    const ModelMeshRenderData round = generate(smooth);
    ASSERT_EQ(round.numVertices, 8U);
    EXPECT_EQ(indexNumbers(round), mesh.indices);
    for (std::size_t i = 0; i < 8; ++i) {
        expectNear(positionInBlock(round, i), mesh.vertices[i]);
        EXPECT_GT(normalInBlock(round, i).dotProduct(mesh.vertices[i].normalizeMe()), 0.9F);
    }
    EXPECT_EQ(reports.text(), "Generating Flat Triangles\nGenerating Smooth Triangles.\n");
}

/** What an ordered map of exact positions gives, as sums. */
std::vector<VectorD> plainNormalSums(const ModelMeshRenderDataGenerator& mesh) {
    using Place = std::tuple<float, float, float>;
    const auto placeOf = [](const Vector& v) { return Place(v.x, v.y, v.z); };
    std::map<Place, VectorD> sums;
    for (std::size_t k = 0; k + 2 < mesh.indices.size(); k += 3) {
        const Vector p0 = mesh.vertices[mesh.indices[k]];
        Vector e1 = mesh.vertices[mesh.indices[k + 1]] - p0;
        Vector e2 = mesh.vertices[mesh.indices[k + 2]] - p0;
        e1.normalize();
        e2.normalize();
        Vector normal = e1.crossProduct(e2);
        normal.normalize();
        for (std::size_t corner = k; corner < k + 3; ++corner) {
            VectorD& sum = sums[placeOf(mesh.vertices[mesh.indices[corner]])];
            sum = sum + VectorD(normal.x, normal.y, normal.z);
        }
    }
    std::vector<VectorD> sumsOfVertices;
    for (const Vector& v : mesh.vertices) {
        sumsOfVertices.push_back(sums[placeOf(v)]);
    }
    return sumsOfVertices;
}

TEST_F(ModelMeshRenderDataGeneratorTest, SmoothNormalsAreTheMeanOfAllFacesAtThePlace) {
    Tests::RandomInput random;
    constexpr std::size_t vertexCount = 6000; // over few places, and over so many that the table grows
    for (const std::size_t places : {40U, 4000U}) {
        mesh.vertices.clear();
        for (std::size_t i = 0; i < vertexCount; ++i) {
            const auto place = static_cast<float>(random.index(0, places - 1));
            mesh.vertices.emplace_back(place, std::sin(place) * 9, place * place * 0.01F);
        }
        mesh.vertices[7] = Vector(-0.0F, 0.0F, -0.0F);
        mesh.vertices[8] = Vector(0.0F, -0.0F, 0.0F);
        mesh.indices.resize(vertexCount);
        std::iota(mesh.indices.begin(), mesh.indices.end(), 0U);
        const ModelMeshRenderData data = generate(smooth);
        const std::vector<VectorD> sums = plainNormalSums(mesh);
        std::size_t compared = 0;
        for (std::size_t i = 0; i < vertexCount; ++i) {
            // Normals that cancel each other leave nothing but rounding.
            if (sums[i].magnitude() > 0.01) {
                const Vector normal = normalInBlock(data, i);
                EXPECT_NEAR(VectorD(normal.x, normal.y, normal.z).distanceFrom(sums[i].normalizeMe()), 0,
                            1e-3)
                    << i;
                ++compared;
            }
        }
        EXPECT_GT(compared, vertexCount / 2);
    }
}

TEST_F(ModelMeshRenderDataGeneratorTest, FaceCountsOnceForEachOfItsCoincidentCorners) {
    // The second triangle is two corners at the origin: its edge of length zero leaves it without a normal.
    mesh.vertices = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 0, 0}, {5, 5, 5}};
    mesh.indices = {0, 1, 2, 3, 4, 5, 3, 6, 5};
    const ModelMeshRenderData data = generate(smooth);
    const float half = std::sqrt(0.5F);
    for (const std::size_t vertex : {0U, 2U, 3U, 4U, 6U}) {
        expectNear(normalInBlock(data, vertex), {half, 0, half});
    }
    expectNear(normalInBlock(data, 1), {0, 0, 1});
    expectNear(normalInBlock(data, 7), {0, 0, 0});
}

TEST_F(ModelMeshRenderDataGeneratorTest, PositionsThatAreNoNumbersCoincideWithNothing) {
    makeQuad();
    mesh.vertices.insert(mesh.vertices.end(), 3000, Vector(notANumber, 0, 0));
    for (std::uint32_t i = 4; i < mesh.vertices.size(); ++i) {
        mesh.indices.insert(mesh.indices.end(), {0, 1, i});
    }
    EXPECT_EQ(CoincidentVertices(mesh.vertices, mesh.indices).getGroupCount(), mesh.vertices.size());
    expectNear(normalInBlock(generate(smooth), 0), {0, 0, 1});
}

TEST_F(ModelMeshRenderDataGeneratorTest, FlatRunsAreIndependentOfWhatRanBefore) {
    makeQuad();
    mesh.colors = {{1, 1, 1, 1}, {2, 2, 2, 2}, {3, 3, 3, 3}, {4, 4, 4, 4}};
    mesh.attributeArrays.emplace_back("wind", atVEC3);
    mesh.attributeArrays[0].resize(4);
    mesh.attributeArrays[0].setAt(2, Vector(9, 9, 9));
    const std::vector<std::uint32_t> indices = mesh.indices;
    for (int run = 0; run < 2; ++run) {
        const ModelMeshRenderData data = generate(flat);
        EXPECT_EQ(indexNumbers(data), (std::vector<std::uint32_t>{0, 1, 2, 4, 5, 3}));
        ASSERT_EQ(mesh.colors.size(), 6U) << "one for each final vertex";
        EXPECT_EQ(mesh.colors[5].r, 3);
        EXPECT_EQ(Tests::bytesInBlock(data, 5, data.colorOffset, 3), (Bytes{3, 3, 3}));
        expectNear(vectorInBlock(data, 5, data.attributeOffsets[0]), {9, 9, 9});
        EXPECT_EQ(vectorInBlock(data, 5, data.textureCoordOffsets[0]).y, 1.0F);
        EXPECT_EQ(generate(smooth).numVertices, 4U);
        EXPECT_EQ(mesh.vertices.size(), 4U);
        EXPECT_EQ(mesh.indices, indices);
        EXPECT_EQ(mesh.textureCoordSets[0].coords.size(), 4U);
    }
}

TEST_F(ModelMeshRenderDataGeneratorTest, TangentsReplaceThoseOfTheRunBefore) {
    makeQuad();
    mesh.generateTangents = true;
    const ModelMeshRenderData faces = generate(flat);
    ASSERT_EQ(mesh.attributeArrays.size(), 1U);
    EXPECT_EQ(mesh.attributeArrays[0].size(), 6U);
    EXPECT_EQ(reports.text(), "Generating Flat Triangles\nGenerating tangents flat.\n"
                              "(1.000, 0.000, 0.000)\n(0.447, 0.894, 0.000)\n");
    const std::uint32_t offset = faces.attributeOffsets[faces.attributeIndexByName.at("tangent")];
    expectNear(vectorInBlock(faces, 5, offset), mesh.attributeArrays[0].getAt(5));

    reports.clear();
    const ModelMeshRenderData round = generate(smooth);
    EXPECT_EQ(reports.text(), "Generating Smooth Triangles.\nGenerating tangents smooth\n");
    ASSERT_EQ(mesh.attributeArrays.size(), 1U);
    EXPECT_EQ(mesh.attributeArrays[0].size(), 4U);
    EXPECT_EQ(round.attributeTypes.size(), 1U);
    for (std::size_t i = 0; i < 4; ++i) {
        expectNear(vectorInBlock(round, i, round.attributeOffsets[0]), {1, 0, 0});
    }
    mesh.generateTangents = false;
    generate(flat);
    mesh.vertices.resize(3);
    mesh.indices.resize(3);
    EXPECT_EQ(generate(none).numVertices, 3U) << "the tangents of six vertices must not leave the block";
}

TEST_F(ModelMeshRenderDataGeneratorTest, DegenerateTangentsAreZero) {
    const Vector zero;
    expectNear(ModelMeshRenderDataGenerator::computeTangentFlat(unitX, unitY, zero, zero), zero);
    expectNear(ModelMeshRenderDataGenerator::computeTangentFlat(unitX, unitY, unitX, unitX), zero);
    expectNear(ModelMeshRenderDataGenerator::computeTangentSmooth(zero, unitX, unitY, zero, zero, zero),
               zero);
    makeQuad();
    mesh.textureCoordSets.clear();
    mesh.generateTangents = true;
    const ModelMeshRenderData data = generate(smooth);
    expectNear(vectorInBlock(data, 2, data.attributeOffsets[0]), zero);
    expectNear(normalInBlock(data, 2), unitZ);
}

TEST_F(ModelMeshRenderDataGeneratorTest, ListsOfOtherLengthsStayInsideTheBlock) {
    for (const MESH_SHADING_TYPE shading : {none, smooth, flat}) {
        for (const std::size_t count : {1U, 3U, 4U, 60U}) {
            mesh = {};
            makeQuad();
            mesh.textureCoordSets[0].coords.assign(count, Vector(7, 7, 7));
            mesh.colors.assign(count, vtlColor4ub(9, 9, 9, 9));
            mesh.attributeArrays.emplace_back("wind", atVEC3);
            mesh.attributeArrays[0].resize(count);
            mesh.attributeArrays[0].setAt(0, Vector(5, 5, 5));
            const ModelMeshRenderData data = generate(shading);
            const bool isCovered = count > 3;
            EXPECT_EQ(vectorInBlock(data, 3, data.textureCoordOffsets[0]).x, isCovered ? 7.0F : 0.0F);
            EXPECT_EQ(vectorInBlock(data, 0, data.attributeOffsets[0]).x, 5.0F);
            EXPECT_EQ(vectorInBlock(data, 3, data.attributeOffsets[0]).x, 0.0F);
            EXPECT_EQ(Tests::bytesInBlock(data, 3, data.colorOffset, 1)[0], isCovered ? 9 : 0);
            if (shading == flat) {
                EXPECT_EQ(mesh.colors.size(), 6U);
                EXPECT_EQ(Tests::bytesInBlock(data, 4, data.colorOffset, 1)[0], 9) << "a copy of vertex 0";
                EXPECT_EQ(vectorInBlock(data, 5, data.textureCoordOffsets[0]).x, count > 2 ? 7.0F : 0.0F);
            }
        }
    }
}

TEST_F(ModelMeshRenderDataGeneratorTest, PrimitivesWithMissingVerticesAndIncompleteOnesAreLeftOut) {
    makeQuad();
    mesh.vertices.emplace_back(5, 5, 5); // no triangle uses it
    mesh.indices = {0, 1, 2, 0, 5, 2, 0xFFFFFFFF, 1, 2, 0, 2, 3, 1, 2};
    EXPECT_EQ(indexNumbers(generate(none)), (std::vector<std::uint32_t>{0, 1, 2, 0, 2, 3}));
    EXPECT_EQ(reports.text(), "WARNING: ModelMeshRenderDataGenerator, 2 of 4 primitives name a vertex that "
                              "doesn't exist (there are 5), leaving them out...\n");
    EXPECT_EQ(indexNumbers(generate(smooth)), (std::vector<std::uint32_t>{0, 1, 2, 0, 2, 3}));
    const ModelMeshRenderData faces = generate(flat);
    EXPECT_EQ(faces.numVertices, 7U);
    expectNear(normalInBlock(faces, 4), {0, 0, 0});
    expectNear(normalInBlock(faces, 6), {0, 0, 1});

    mesh.indices = {0, 1, 2, 3, 0};
    EXPECT_EQ(generate(flat).numIndices, 3U);
    mesh.vertices.clear();
    EXPECT_EQ(generate(smooth).numIndices, 0U);
    mesh.indices.clear();
    EXPECT_EQ(generate(flat).numVertices, 0U);
}

TEST_F(ModelMeshRenderDataGeneratorTest, AttributesAndColorsOfOtherTypesAreReportedAndLeftOut) {
    makeQuad();
    mesh.colors.resize(4);
    mesh.colorFormat = GL_BGR;
    mesh.attributeArrays.emplace_back("weight", atFLOAT);
    mesh.attributeArrays[0].resize(4);
    mesh.attributeArrays[0].data[0] = std::byte{1};
    mesh.attributeArrays[0].setAt(0, Vector(1, 1, 1));
    const ModelMeshRenderData data = generate(none);
    EXPECT_EQ(reports.text(), "Error: improper color channel selection\nBad things will happen.\n"
                              "Warning: Everything except atVEC3 is unimplemented!\n");
    EXPECT_EQ(keys.count(), 2);
    EXPECT_FALSE(data.hasColors) << "there is no place for them";
    EXPECT_EQ(Tests::bytesInBlock(data, 0, data.attributeOffsets[0], 4), (Bytes{0, 0, 0, 0}));
}

TEST_F(ModelMeshRenderDataGeneratorTest, CombinationsWithoutGenerationEndTheProcess) {
    struct Row {
        MESH_SHADING_TYPE shading;
        GLenum wanted;
        GLenum source;
        int exitCode;
        const char* text;
    };
    const std::vector<Row> rows{
        {flat, GL_LINES, GL_TRIANGLES, 1,
         "All primitive types other than GL_TRIANGLES currently unimplemented for generateFlat\n"},
        {smooth, GL_LINES, GL_TRIANGLES, 1,
         "All primitive types other than GL_TRIANGLES currently unimplemented for 'smooth normals'.\n"
         "Recieved: 1\n"},
        {none, GL_POINTS, GL_LINES, 1,
         "Only generation of No Normals Points from { Points, Triangles } are implemented.\n"},
        {none, GL_LINES, GL_TRIANGLES, 1,
         "Only generation of No Normals Lines from { Lines } are implemented.\n"},
        {none, GL_LINE_STRIP, GL_LINES, 1,
         "Only generation of No Normals Line Strip from { Line Strip } are implemented.\n"},
        {none, GL_LINE_LOOP, GL_LINES, 1,
         "Only generation of No Normals Points from { LineLoop } are implemented.\n"},
        {none, GL_QUADS, GL_QUADS, 1,
         "Only generation of No Normals for { Points, Triangles } are implemented.\n"},
        {MESH_SHADING_TYPE::mstAUTO, GL_TRIANGLES, GL_TRIANGLES, 255,
         "Attempting to generate render data that is not of type MESH_SHADING_TYPE::mstSMOOTH, "
         "MESH_SHADING_TYPE::mstFLAT, or MESH_SHADING_TYPE::mstNONE.\n"
         "This is not acceptable behavior.\nPress ENTER to exit...\n"},
    };
    for (const Row& row : rows) {
        mesh.sourcePrimitive = row.source;
        const auto run = [&] {
            Tests::reportToErrorOutput();
            mesh.generateRenderData(row.shading, row.wanted);
        };
        EXPECT_EXIT(run(), ::testing::ExitedWithCode(row.exitCode),
                    ::testing::AllOf(::testing::StartsWith(row.text), ::testing::EndsWith(row.text)));
    }
    mesh.vertices.resize(4);
    mesh.indices = {3, 2, 1, 0};
    for (const auto& [wanted, source] : {std::pair{GL_LINE_LOOP, GL_LINE_LOOP},
                                         {GL_LINE_LOOP, GL_TRIANGLES},
                                         {GL_LINE_STRIP, GL_LINE_STRIP},
                                         {GL_LINES, GL_LINES},
                                         {GL_POINTS, GL_POINTS},
                                         {GL_TRIANGLES, GL_POINTS},
                                         {GL_TRIANGLES, GL_LINES}}) {
        mesh.sourcePrimitive = static_cast<GLenum>(source);
        EXPECT_EQ(indexNumbers(mesh.generateRenderData(none, static_cast<GLenum>(wanted))), mesh.indices);
    }
}

} // namespace
} // namespace Vantrel
