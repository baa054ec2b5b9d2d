#include "vtl/scene/parser/OBJFile.h"

#include <cmath>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

namespace Vantrel {
namespace {

std::shared_ptr<const std::string> nameOf(const char* image) {
    return std::make_shared<const std::string>(image);
}

const OBJMaterials textured{{"", {.textureName = nameOf("image.png")}}};
const Vector one(1, 1, 1);

OBJFile read(std::string_view text) {
    FileLines lines = FileLines::ofText(text);
    return OBJFile(lines);
}

/** The one mesh of the file. */
OBJMesh meshOf(std::string_view text, const OBJMaterials& materials = {}, const Vector& scale = one) {
    std::vector<OBJMesh> meshes = read(text).makeMeshes(materials, scale);
    EXPECT_EQ(meshes.size(), 1U) << text;
    return meshes.empty() ? OBJMesh() : std::move(meshes.front());
}

/** "(x, y, z)..." in the nearest whole numbers. */
std::string listed(const std::vector<Vector>& vectors) {
    std::ostringstream text;
    for (const Vector& v : vectors) {
        text << "(" << std::lround(v.x) << ", " << std::lround(v.y) << ", " << std::lround(v.z) << ")";
    }
    return text.str();
}

using Indices = std::vector<std::uint32_t>;

constexpr std::string_view square =
    "v 0 0 0\nv 2 0 0\nv 2 2 0\nv 0 2 0\nvt 0 0\nvt 4 0\nvt 4 8\nvt 0 8\nvn 0 0 1\n";

std::string withSquare(std::string_view lines) {
    return std::string(square) += lines;
}

TEST(OBJFile, TurnsYUpToZUpThenCentresThenScales) {
    const OBJMesh mesh =
        meshOf("v 0 0 0\nv 1 0 0\nv 0 1 0\nv 0 0 1\nf 1 2 3\nf 1 4 3\n", {}, Vector(2, 4, 8));
    EXPECT_EQ(listed(mesh.vertices), "(-1, 2, -4)(1, 2, -4)(-1, 2, 4)(-1, -2, -4)");
    EXPECT_EQ(meshOf("v 0 0 0\nv 9 9 9\nv 1 0 0\nv 0 1 0\nf 1 3 4").vertices[0], Vector(-4.5F, 4.5F, -4.5F))
        << "a position that no face uses counts too";
}

TEST(OBJFile, CutsFacesIntoFans) {
    EXPECT_EQ(meshOf(withSquare("f 1 2 3 4")).indices, (Indices{1, 2, 0, 2, 3, 0}));
    EXPECT_EQ(meshOf(withSquare("f 1 2\nf 3\nf\nf 1 2 3")).indices, (Indices{1, 2, 0}));
}

TEST(OBJFile, ReadsEveryFormOfCornerAndOfLine) {
    for (const char* const lines :
         {"f 1 2 3", "f 1/1 2/2 3/3", "f 1//1 2//1 3//1", "f 1/1/1 2/2/1 3/3/1", "f 1/1/1/9 2/2/1/9 3/3/1/9",
          "f -4 -3 -2", "f -4/-4/-1 -3/-3/-1 -2/-2/-1", "f\t1  2 \t3 \r", "f 1/ 2/ 3/", "f 1// 2// 3//",
          "# 1\no a b\ng c\ns off\n\nl 1 2\n f 2 3 4\n\tv 9 9 9\nfo 1 2 3\nf 1 2 3"}) {
        const OBJMesh mesh = meshOf(withSquare(lines));
        EXPECT_EQ(mesh.indices, (Indices{1, 2, 0})) << lines;
        EXPECT_EQ(listed(mesh.vertices), "(-1, 0, -1)(1, 0, -1)(1, 0, 1)") << lines;
    }
    EXPECT_EQ(listed(meshOf("v -1 0 0 0.5 0.5 0.5\r\nv\t1  0 0\t\r\nv 0 0 0 1\r\nf 3 1 2\r\n").vertices),
              "(0, 0, 0)(-1, 0, 0)(1, 0, 0)")
        << "colours and weights behind the position, carriage returns, tabs";
}

TEST(OBJFile, LeavesOutFacesThatNameWhatIsNotThere) {
    const std::vector<std::tuple<const char*, std::size_t>> rows{{"f 1 2 5", 1},
                                                                 {"f 0 1 2", 1},
                                                                 {"f 1 2 x", 1},
                                                                 {"f -5 1 2", 1},
                                                                 {"f 1 2 /1", 1},
                                                                 {"f 1/5 2/1 3/1", 1},
                                                                 {"f 1/0 2/1 3/1", 1},
                                                                 {"f 1//2 2//1 3//1", 1},
                                                                 {"f 1/-9 2 3", 1},
                                                                 {"f 99999999999999999999 1 2", 1},
                                                                 {"f 1 2 3 4 5 6", 1},
                                                                 {"f -2147483648 1 2", 1},
                                                                 {"f 1 2 5\nf 1//-2 2 3\nf / / /", 3}};
    for (const auto& [lines, leftOut] : rows) {
        OBJFile file = read(withSquare(lines) + "\nf 2 3 4");
        const std::vector<OBJMesh> meshes = file.makeMeshes({}, one);
        ASSERT_EQ(meshes.size(), 1U) << lines;
        EXPECT_EQ(meshes[0].indices, (Indices{1, 2, 0})) << lines;
        EXPECT_EQ(meshes[0].vertices.size(), 3U) << lines;
        EXPECT_EQ(file.faults.faces, leftOut) << lines;
    }
    OBJFile file = read(withSquare("f 1/1 2/2 3\nf 1/1 2/2 3/3"));
    EXPECT_EQ(file.makeMeshes(textured, one)[0].indices.size(), 3U) << "a texture wants its coordinates";
    EXPECT_EQ(file.faults.faces, 1U);
    EXPECT_TRUE(meshOf("f 1 2 3").vertices.empty()) << "a mesh of nothing, so that others keep their numbers";
    EXPECT_EQ(meshOf("f 1 2 3\nv 0 0 0\nv 1 0 0\nv 0 1 0").indices.size(), 3U) << "named before it is there";
}

TEST(OBJFile, GivesACornerWithOtherAttributesAVertexOfItsOwn) {
    // Each time anew: vertices made before are not looked through.
    OBJMesh mesh = meshOf(withSquare("f 1/1 2/2 3/3\nf 1/2 4/3 3/4\nf 1/2 4/3 3/3"), textured);
    EXPECT_EQ(mesh.indices, (Indices{1, 2, 0, 4, 5, 3, 4, 2, 6}));
    EXPECT_EQ(listed(mesh.vertices),
              "(-1, 0, -1)(1, 0, -1)(1, 0, 1)(-1, 0, -1)(-1, 0, 1)(1, 0, 1)(-1, 0, -1)");
    EXPECT_EQ(listed(mesh.textureCoords), "(0, 0, 0)(1, 0, 0)(1, 1, 0)(1, 0, 0)(1, 1, 0)(0, 1, 0)(1, 0, 0)");
    const std::string normals = "vn 0 1 0\n";
    EXPECT_EQ(meshOf(withSquare(normals + "f 1//1 2//1 3//1\nf 1//2 3//2 4//2")).vertices.size(), 4U)
        << "without a texture coordinate of its own, a position takes what comes";
    EXPECT_EQ(meshOf(withSquare(normals + "f 1/1/1 2/2/1 3/3/1\nf 1/1/2 3/3/1 4/4/1")).vertices.size(), 5U);
}

TEST(OBJFile, MakesAMeshForEachMaterialInTheOrderOfTheNames) {
    const OBJMaterials materials{{"b", {.Kd = {0, 0, 1}, .textureName = {}}}, {"unused", {}}};
    std::vector<OBJMesh> meshes =
        read(withSquare("usemtl b\nf 1 2 3\nusemtl a\nf 2 3 4\nusemtl none\nusemtl b \nf 1 2 4"))
            .makeMeshes(materials, one);
    ASSERT_EQ(meshes.size(), 2U);
    EXPECT_EQ(meshes[0].material.Tf[0], 1) << "a name that no library knows";
    EXPECT_EQ(listed(meshes[0].vertices), "(1, 0, -1)(1, 0, 1)(-1, 0, 1)");
    EXPECT_EQ(meshes[1].material.Kd[2], 1);
    EXPECT_EQ(meshes[1].indices, (Indices{1, 2, 0, 1, 3, 0}));
    EXPECT_TRUE(meshes[1].textureCoords.empty());
}

TEST(OBJFile, StretchesTextureCoordinatesOverTheWholeFile) {
    EXPECT_EQ(listed(meshOf("v 0 0 0\nv 1 0 0\nv 0 1 0\nvt -3 5\nvt 7 5\nvt 2\nf 1/1 2/2 3/3", textured)
                         .textureCoords),
              "(0, 1, 0)(1, 1, 0)(1, 0, 0)"); // 0.5 in the last
    EXPECT_EQ(listed(meshOf("v 0 0 0\nv 1 0 0\nv 0 1 0\nvt 5 -3e38\nvt 5 3e38\nf 1/1 2/2 3/2", textured)
                         .textureCoords),
              "(0, 0, 0)(0, 0, 0)(0, 0, 0)")
        << "no range, and one that is too wide for a number";
}

TEST(OBJFile, CountsNumbersThatAreNone) {
    OBJFile file = read("v 1 inf x\nvt nan\nv 0 0 0\nv 0 1 0\nf 1 2 3");
    EXPECT_EQ(file.faults.numbers, 3U);
    EXPECT_EQ(listed(file.makeMeshes({}, Vector(2, 2, 2))[0].vertices), "(1, 0, -1)(-1, 0, -1)(-1, 0, 1)");
    OBJFile far = read("v 3e38 0 0\nv 2e38 0 0\nv 2e38 1 0\nf 1 2 3");
    EXPECT_EQ(listed(far.makeMeshes({}, Vector(2, 2, 2))[0].vertices), "(0, 0, -1)(0, 0, -1)(0, 0, 1)");
    EXPECT_EQ(far.faults.numbers, 3U) << "too far apart to be centred";
}

TEST(OBJMaterial, IsReadByItsKeywords) {
    FileLines lines =
        FileLines::ofText("Kd 9 9 9\r\nnewmtl red paint \r\nKd 1 0.5 0.25\r\nKa 0.1 0.2 0.3\nKs .4 .5 .6\n"
                          "illum 2\nNi 1.5\nd 0.5\n Kd 9 9 9\nmap_Kd brick.png extra\nmap_Kd\n"
                          "newmtl next\nTf 0.1 0.2 0.3\nnewmtl red paint\nKd 9 9 9\nnewmtl last");
    OBJMaterials materials{{"next", {.textureName = nameOf("was there")}}};
    ModelFileFaults faults;
    readMaterialLibrary(lines, materials, faults);
    ASSERT_EQ(materials.size(), 3U);
    const OBJMaterial& red = materials.at("red paint");
    EXPECT_EQ(red.Kd, (OBJMaterial::Color{1, 0.5F, 0.25F}));
    EXPECT_EQ(red.Ka, (OBJMaterial::Color{0.1F, 0.2F, 0.3F}));
    EXPECT_EQ(red.Ks, (OBJMaterial::Color{0.4F, 0.5F, 0.6F}));
    EXPECT_EQ(red.Tf, (OBJMaterial::Color{0.5F, 0.5F, 0.5F}));
    EXPECT_EQ(*red.textureName, "brick.png");
    EXPECT_EQ(*materials.at("next").textureName, "was there");
    const OBJMaterial& last = materials.at("last");
    EXPECT_EQ(last.Kd, (OBJMaterial::Color{9, 9, 9}))
        << "what isn't stated stays, even of one that is dropped";
    EXPECT_EQ(last.Tf, (OBJMaterial::Color{0.1F, 0.2F, 0.3F}));
    EXPECT_EQ(last.textureName, red.textureName) << "one name, however many materials there are";
}

} // namespace
} // namespace Vantrel
