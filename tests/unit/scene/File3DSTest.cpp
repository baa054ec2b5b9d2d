#include "vtl/scene/parser/MaterialMesh3DS.h"

#include "tests/support/Chunks3DS.h"
#include "tests/support/ListedVectors.h"
#include "tests/support/ReportCapture.h"
#include "vtl/base/WholeFile.h"

#include <gtest/gtest.h>
#include <limits>

namespace Vantrel {
namespace {

using namespace Tests;
using Indices = std::vector<std::uint32_t>;

const Vector one(1, 1, 1);
const std::vector<std::array<float, 3>> triangle{{0, 0, 0}, {4, 0, 0}, {0, 2, 0}};
constexpr float infinite = std::numeric_limits<float>::infinity();

std::span<const std::byte> bytesOf(std::string_view text) {
    return std::as_bytes(std::span(text));
}

std::vector<MaterialMesh3DS> meshesOf(std::string_view bytes, ModelFileFaults& faults,
                                      const Vector& scale = one) {
    const std::optional<File3DS> file = File3DS::read(bytesOf(bytes));
    EXPECT_TRUE(file.has_value());
    if (!file) {
        return {};
    }
    faults = file->getFaults();
    return MaterialMesh3DS::meshesOf(*file, scale, faults);
}

TEST(File3DS, GathersTheFacesOfAllMeshesByMaterial) {
    // The second object's vertices count on from the first's; materials may stand behind those who have them.
    const std::string second = faces3DS({{3, 1, 0}, {1, 2, 3}}, "red");
    const std::string bytes = file3DS(
        object3DS(triangle, faces3DS({{2, 1, 0}}, "blue")) +
        object3DS({{0, 0, 6}, {4, 0, 6}, {4, 2, 6}, {0, 2, 6}},
                  chunk3DS(0x4140, packedList(std::vector<std::array<float, 2>>{{0, 0}, {1, 0}, {1, 0.5F}})) +
                      chunk3DS(0x4160, std::string(48, 'x')) + second) +
        object3DS(triangle, faces3DS({{0, 1, 2}}, "red") + chunk3DS(0x4700, "what isn't known")) +
        material3DS("red") + material3DS("unused") + material3DS("blue") + material3DS("red"));
    ModelFileFaults faults;
    const std::vector<MaterialMesh3DS> meshes = meshesOf(bytes, faults, Vector(1, 2, 3));
    ASSERT_EQ(meshes.size(), 2U);
    EXPECT_EQ(meshes[0].material, 0U);
    EXPECT_EQ(meshes[0].indices, (Indices{0, 1, 2, 1, 3, 0, 4, 5, 6}));
    EXPECT_EQ(listed(meshes[0].vertices),
              "(-2, 2, 9)(2, -2, 9)(-2, -2, 9)(2, 2, 9)(-2, -2, -9)(2, -2, -9)(-2, 2, -9)");
    EXPECT_EQ(listed(meshes[0].textureCoords),
              "(0, 0, 0)(1, 0, 0)(0, 0, 0)(1, 0.5, 0)(0, 0, 0)(0, 0, 0)(0, 0, 0)")
        << "zero where the file has none";
    EXPECT_EQ(meshes[1].material, 2U);
    EXPECT_EQ(meshes[1].indices, (Indices{0, 1, 2}));
    EXPECT_EQ(listed(meshes[1].vertices), "(-2, 2, -9)(2, -2, -9)(-2, -2, -9)");
}

TEST(File3DS, LeavesOutWhatCannotBeDrawn) {
    ModelFileFaults faults;
    const std::string noFace =
        chunk3DS(0x4130, zeroEnded("red") += packedList(std::vector<std::uint16_t>{0, 9}));
    const std::string faces =
        packedList(std::vector<std::array<std::uint16_t, 4>>{{0, 1, 2, 0}, {2, 1, 0, 0}});
    const std::string bytes =
        file3DS(material3DS("red") + object3DS(triangle, chunk3DS(0x4120, faces + noFace)) +
                object3DS(triangle, faces3DS({{0, 1, 2}}, "")) +
                object3DS(triangle, faces3DS({{0, 1, 2}}, "none such")) +
                object3DS(triangle, faces3DS({{0, 1, 3}, {65535, 0, 0}}, "red")) +
                chunk3DS(0x4000, zeroEnded("a light")));
    const std::vector<MaterialMesh3DS> meshes = meshesOf(bytes, faults);
    ASSERT_EQ(meshes.size(), 1U);
    EXPECT_EQ(meshes[0].indices, (Indices{0, 1, 2}))
        << "one face without a material, others with bad corners";
    EXPECT_EQ(faults.faces, 2U);
    EXPECT_EQ(faults.facesOfMaterials, 1U);
    EXPECT_TRUE(meshesOf(file3DS(""), faults).empty());
}

TEST(File3DS, TakesNumbersThatAreNotFiniteAsZero) {
    const std::string color =
        chunk3DS(0xA010, chunk3DS(0x0010, packed(0.5F, std::numeric_limits<float>::quiet_NaN(), 1.0F)));
    ModelFileFaults faults;
    const std::vector<MaterialMesh3DS> meshes =
        meshesOf(file3DS(material3DS("m", color) + object3DS({{-2, infinite, 0}, {2, 0, 0}, {0, 3e38F, 0}},
                                                             faces3DS({{0, 1, 2}}, "m"))),
                 faults, Vector(1, 4, 1));
    ASSERT_EQ(meshes.size(), 1U);
    EXPECT_EQ(listed(meshes[0].vertices), "(-2, 0, 0)(2, 0, 0)(0, 0, 0)")
        << "scaled beyond what a float holds";
    EXPECT_EQ(faults.numbers, 5U);
}

TEST(File3DS, ReadsMaterials) {
    const std::string bytes = file3DS(
        material3DS("plain") +
        material3DS("colours", chunk3DS(0xA010, chunk3DS(0x0011, std::string("\x33\x66\xFF", 3))) +
                                   chunk3DS(0xA020, chunk3DS(0x0010, packed(0.1F, 0.2F, 0.3F)) +
                                                        chunk3DS(0x0013, packed(0.25F, 0.5F, 0.75F)))) +
        material3DS("maps",
                    map3DS(0xA200, "wood.png") + map3DS(0xA230, "bumps.png") + map3DS(0xA210, "other.png")));
    const std::optional<File3DS> file = File3DS::read(bytesOf(bytes));
    ASSERT_TRUE(file && file->getMaterials().size() == 3);
    const std::vector<Material3DS>& materials = file->getMaterials();
    EXPECT_EQ(materials[0].ambient, Material3DS::grey);
    EXPECT_EQ(materials[0].textureName + materials[0].bumpName, "");
    EXPECT_EQ(materials[1].ambient, (Material3DS::Color{0.2F, 0.4F, 1}));
    EXPECT_EQ(materials[1].diffuse, (Material3DS::Color{0.25F, 0.5F, 0.75F}));
    EXPECT_EQ(materials[2].textureName, "wood.png");
    EXPECT_EQ(materials[2].bumpName, "bumps.png");
}

TEST(File3DS, ReadsWhatOtherProgramsWrite) {
    for (const auto& [name, concrete] : {std::pair("assimp.3ds", 1U), std::pair("openscenegraph.3ds", 0U)}) {
        const ReportCapture reports;
        const std::optional<WholeFile> bytes =
            WholeFile::read(std::string(KELDIN_TEST_DATA "models/") + name);
        ASSERT_TRUE(bytes) << name;
        const std::optional<File3DS> file = File3DS::read(bytes->bytes());
        ASSERT_TRUE(file) << reports.text();
        EXPECT_EQ(file->getMeshes().size(), 3U) << name;
        EXPECT_EQ(file->getMaterials().at(concrete + 1).textureName, "glass.png");
        const Material3DS::Color& diffuse = file->getMaterials()[concrete].diffuse;
        EXPECT_NEAR(diffuse[0], 0.6F, 1e-6F) << name;
        EXPECT_NEAR(diffuse[2], 0.55F, 0.002F) << name;
        ModelFileFaults faults;
        const std::vector<MaterialMesh3DS> meshes = MaterialMesh3DS::meshesOf(*file, one, faults);
        ASSERT_EQ(meshes.size(), 2U) << name;
        EXPECT_EQ(meshes[0].material, concrete);
        EXPECT_EQ(meshes[0].indices.size(), 3 * 24U) << "shaft and hut";
        EXPECT_EQ(meshes[1].indices.size(), 3 * 12U) << "the cab";
        EXPECT_EQ(meshes[1].vertices.size(), 20U) << name;
        EXPECT_EQ(faults.faces + faults.numbers, 0U);
        EXPECT_EQ(reports.text(), "");
    }
}

TEST(File3DS, RefusesWhatDoesNotFit) {
    const std::string whole = file3DS(object3DS(triangle, faces3DS({{0, 1, 2}}, "m")));
    const std::string open = "no zero";
    struct Row {
        const char* name;
        std::string bytes;
        std::string chunkAndReason;
    };
    constexpr const char* length = "its length doesn't fit where it stands";
    constexpr const char* list = "what it lists doesn't fit in it";
    constexpr const char* text = "its text doesn't end in it";
    constexpr const char* part = "there is only a part of it";
    for (const Row& row : std::vector<Row>{
             {"nothing", "", std::string("0x0 at byte 0: ") + part},
             {"another format", "solid cube\nfacet", std::string("0x6f73 at byte 0: ") + length},
             {"another kind of 3DS", chunk3DS(0x3DAA, ""),
              "0x3daa at byte 0: a 3DS file doesn't start like that"},
             {"cut off", whole.substr(0, whole.size() - 1), std::string("0x4d4d at byte 0: ") + length},
             {"a length of 5", chunk3DS(0x4D4D, packed(std::uint16_t{2}, std::uint32_t{5})),
              std::string("0x2 at byte 6: ") + length},
             {"a length of 4 GiB", file3DS(packed(std::uint16_t{0x4000}, 0xFFFFFFFFU)),
              std::string("0x4000 at byte 22: ") + length},
             {"half a header", file3DS("\x02"), std::string("0x0 at byte 22: ") + part},
             {"no name of an object", file3DS(chunk3DS(0x4000, open)),
              std::string("0x4000 at byte 22: ") + text},
             {"no name of a map", file3DS(chunk3DS(0xAFFF, chunk3DS(0xA200, chunk3DS(0xA300, open)))),
              std::string("0xa300 at byte 34: ") + text},
             {"no count",
              file3DS(chunk3DS(0x4000, zeroEnded("") + chunk3DS(0x4100, chunk3DS(0x4110, "\x01")))),
              std::string("0x4110 at byte 35: ") + list},
             {"too few vertices",
              file3DS(chunk3DS(0x4000, zeroEnded("") +
                                           chunk3DS(0x4100, chunk3DS(0x4110, packed(std::uint16_t{2}) +
                                                                                 std::string(23, '\0'))))),
              std::string("0x4110 at byte 35: ") + list},
             {"too few texture coordinates",
              file3DS(object3DS({}, chunk3DS(0x4140, packed(std::uint16_t{65535})))),
              std::string("0x4140 at byte 49: ") + list},
             {"too few faces",
              file3DS(object3DS({}, chunk3DS(0x4120, packed(std::uint16_t{1}, 1, std::uint16_t{1})))),
              std::string("0x4120 at byte 49: ") + list},
             {"too few faces of a material",
              file3DS(object3DS(
                  {}, chunk3DS(0x4120, packed(std::uint16_t{0}) +
                                           chunk3DS(0x4130, zeroEnded("m") + packed(std::uint16_t{2},
                                                                                    std::uint16_t{0}))))),
              std::string("0x4130 at byte 57: ") + list},
             {"half a colour", file3DS(chunk3DS(0xAFFF, chunk3DS(0xA010, chunk3DS(0x0011, "\x01\x02")))),
              std::string("0x11 at byte 34: ") + list}}) {
        ReportCapture reports;
        EXPECT_FALSE(File3DS::read(bytesOf(row.bytes))) << row.name;
        EXPECT_EQ(reports.text(),
                  "WARNING: File3DS, chunk " + row.chunkAndReason + ", refusing the file...\n")
            << row.name;
    }
}

} // namespace
} // namespace Vantrel
