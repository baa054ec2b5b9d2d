#include "vtl/scene/parser/ModelParserVRMLShape.h"

#include "tests/support/ListedVectors.h"

#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::listed;
using Indices = std::vector<std::uint32_t>;

const Vector one(1, 1, 1);

/** The parts of a file in the multi-line layout; a part is the lines of its list. */
struct Parts {
    std::string texture = "a.png";
    std::string points = "0 0 0,\n1 0 0,\n1 1 0,\n0 1 0,\n";
    std::string texturePoints = "0 0,\n1 0,\n1 1,\n0 1,\n";
    std::string faces = "0, 1, 2, -1,\n0, 2, 3, -1\n";
    std::string textureFaces = "0, 1, 2, -1,\n0, 2, 3, -1\n";

    std::string multiLine() const {
        return "#VRML V1.0 ascii\nSeparator {\n\tTexture2 {\n\t\t" + texture +
               "\n\t}\n\tCoordinate3 {\n\t\tpoint [\n" + points +
               "\t\t]\n\t}\n TextureCoordinate2 {\r\npoint [ \t\r\n" + texturePoints +
               "]\n}\nIndexedFaceSet {\ncoordIndex [\n" + faces +
               "]\nmaterialIndex [\n0\n]\ntextureCoordIndex [\n" + textureFaces + "]\n}\n}\n";
    }
    /** With the closing bracket behind each list's last line. */
    std::string oneLine() const {
        const auto list = [](const std::string& lines) { return lines.substr(0, lines.size() - 1) + " ]\n"; };
        return "Texture2 {\n" + texture + "\nCoordinate3 { point [\n" + list(points) +
               "TextureCoordinate2 { point [\n" + list(texturePoints) + "IndexedFaceSet { coordIndex [\n" +
               list(faces) + "textureCoordIndex [\n" + list(textureFaces);
    }
};

struct Reading {
    explicit Reading(std::string_view text, const Vector& scale = one, std::string_view model = "dir/m.wrl") {
        FileLines lines = FileLines::ofText(text);
        isWhole = shape.read(lines, model, scale, faults);
    }

    ModelParserVRMLShape shape;
    ModelFileFaults faults;
    bool isWhole = false;
};

TEST(ModelParserVRMLShape, ReadsBothLayouts) {
    Parts parts;
    for (const bool isMultiLine : {true, false}) {
        parts.texture = isMultiLine ? "a.png" : "filename \"a.png\"";
        const Reading reading(isMultiLine ? parts.multiLine() : parts.oneLine(), Vector(1, 2, 3));
        ASSERT_TRUE(reading.isWhole) << isMultiLine;
        EXPECT_EQ(reading.shape.multiLineNodes, isMultiLine);
        EXPECT_EQ(listed(reading.shape.vertices), "(0, 0, 0)(1, 0, 0)(1, 2, 0)(0, 2, 0)");
        EXPECT_EQ(reading.shape.textureVertices.size(), 4U);
        EXPECT_EQ(reading.shape.textureVertices.back(), TextureVertex(0, 1));
        EXPECT_EQ(reading.shape.coordIndices, (Indices{0, 1, 2, 0, 2, 3}));
        EXPECT_EQ(reading.shape.textureCoordIndices, (Indices{0, 1, 2, 0, 2, 3}));
        EXPECT_EQ(reading.faults.faces + reading.faults.numbers, 0U);
    }
}

TEST(ModelParserVRMLShape, FindsTheTexture) {
    struct Row {
        const char* line;
        const char* model;
        const char* texture;
        bool isMultiLine;
    };
    for (const Row& row :
         {Row{"filename \"a/b.png\"", "/m/x.wrl", "a/b.png", false},
          Row{"\tfilename \"a \"b\" c.png\" }\r", "x.wrl", "a \"b\" c.png", false},
          Row{"filename \"\"", "x.wrl", "", false}, Row{"a/b.png", "/m/x.wrl", "/m/b.png", true},
          Row{"b.png", "/m/n/x.wrl", "/m/n/b.png", true}, Row{"b.png", "x.wrl", "./b.png", true},
          Row{"\"a/b.png\"", "/m/x.wrl", "/m/b.png\"", true}}) {
        Parts parts;
        parts.texture = row.line;
        const Reading reading(row.isMultiLine ? parts.multiLine() : parts.oneLine(), one, row.model);
        EXPECT_TRUE(reading.isWhole) << row.line;
        EXPECT_EQ(reading.shape.textureFileName, row.texture) << row.line;
    }
}

TEST(ModelParserVRMLShape, TakesOneEntryFromALine) {
    Parts parts;
    parts.points = "x=1.5 y=-2e1;3 4\n\n  \n5\n] 6 7 8\n";
    parts.texturePoints = "0.5 0.25,\n .5\t+1e-1 9\n0.5,0.75\n-0 x\n\n1e999 2\n";
    parts.faces = "0,1,0,1,-1\n 1 9 - 1 , - 0\n1, 1, -1,\n1,1,-1,\n"; // a piece of a blank is 0
    parts.textureFaces = "1,1,0\n4,3,2\n0,0,0\n0,0,0\n0,0,0\n";
    const Reading reading(parts.multiLine());
    ASSERT_TRUE(reading.isWhole);
    EXPECT_EQ(listed(reading.shape.vertices), "(1.5, -20, 3)(5, 0, 0)") << "nothing with the bracket counts";
    const std::vector<TextureVertex> expected{{0.5F, 0.25F}, {0.5F, 0.1F}, {0.5F, 0}, {0, 0}, {0, 2}};
    EXPECT_EQ(reading.shape.textureVertices, expected);
    EXPECT_EQ(reading.faults.numbers, 3U) << "a comma, a letter, a number too large";
    EXPECT_EQ(reading.shape.coordIndices, (Indices{0, 1, 0, 1, 1, 0, 1, 1, 0, 1, 1, 1}));
    EXPECT_EQ(reading.shape.textureCoordIndices, (Indices{1, 1, 0, 4, 3, 2, 0, 0, 0, 0, 0, 0}));

    parts = Parts();
    parts.texture = "filename \"a.png\"";
    parts.points += "]\n";
    parts.texturePoints = "0 0\n1 0\n1 1\n0 1 ] }\n";
    parts.faces += "\t] }\n";
    const std::string text = parts.oneLine();
    const Reading lone(text);
    ASSERT_TRUE(lone.isWhole);
    EXPECT_EQ(lone.shape.vertices.size(), 4U) << "a lone bracket is no entry";
    EXPECT_EQ(lone.shape.textureVertices.size(), 4U);
    EXPECT_EQ(lone.shape.coordIndices.size(), 6U);
    EXPECT_EQ(Reading(Parts().multiLine(), one * 3e38F).faults.numbers, 0U);
    parts.points = "3 0 0\n";
    EXPECT_EQ(Reading(parts.oneLine(), one * 3e38F).faults.numbers, 1U);
}

TEST(ModelParserVRMLShape, LeavesOutFacesThatNameWhatIsNotThere) {
    struct Row {
        const char* face;
        const char* textureFace;
    };
    for (const Row& row : {Row{"0, 1, 4", "0, 1, 2"}, Row{"0, 1, 2", "0, 1, 4"}, Row{"0, 1", "0, 1, 2"},
                           Row{"0, 1, 2", "0, 1"}, Row{"0, 1, 4294967296", "0, 1, 2"}, Row{"-", "0, 1, 2"},
                           Row{"0 1 2 -1", "0, 1, 2"}}) {
        Parts parts;
        parts.faces = std::string("0,1,2,-1\n") + row.face + "\n3,1,2,-1\n3,1,2,-1\n";
        parts.textureFaces = std::string("0,1,2,-1\n") + row.textureFace + "\n3,1,2,-1\n";
        const Reading reading(parts.multiLine());
        EXPECT_TRUE(reading.isWhole) << row.face;
        EXPECT_EQ(reading.shape.coordIndices, (Indices{0, 1, 2, 3, 1, 2})) << row.face;
        EXPECT_EQ(reading.shape.textureCoordIndices, (Indices{0, 1, 2, 3, 1, 2})) << row.face;
        EXPECT_EQ(reading.faults.faces, 2U) << "and one without a line of its own for the texture";
    }
}

TEST(ModelParserVRMLShape, IsIncompleteWhereTheFileEndsTooEarly) {
    const std::string whole = Parts().multiLine();
    EXPECT_TRUE(Reading(whole.substr(0, whole.rfind(']') + 1)).isWhole);
    for (std::size_t end = 0; end < whole.rfind(']'); ++end) {
        EXPECT_FALSE(Reading(whole.substr(0, end)).isWhole) << end;
    }
    Parts parts;
    parts.points = std::string(300, ' ') + "1 0" + std::string(300, ' ') + "7\n";
    EXPECT_EQ(listed(Reading(parts.multiLine()).shape.vertices), "(1, 0, 7)") << "however long a line is";
}

TEST(ModelParserVRMLShape, CopiesVerticesAtSeams) {
    Parts parts;
    parts.points = "0 0 0\n1 0 0\n2 0 0\n3 0 0\n4 0 0\n";
    parts.texturePoints = "0 0\n0.5 0.5\n0.50000001 0.5\n0.5000001 0.5\n-0 0\n";
    parts.faces = "0,1,2\n0,2,1\n2,0,3\n0,0,0\n";
    parts.textureFaces = "1,0,0\n2,3,0\n3,3,0\n3,1,4\n";
    Reading reading(parts.multiLine());
    const std::vector<Vector> coords = reading.shape.splitAtSeams();
    EXPECT_EQ(reading.shape.coordIndices, (Indices{0, 1, 2, 0, 5, 1, 5, 6, 3, 6, 0, 7}));
    EXPECT_EQ(listed(reading.shape.vertices),
              "(0, 0, 0)(1, 0, 0)(2, 0, 0)(3, 0, 0)(4, 0, 0)(2, 0, 0)(0, 0, 0)(0, 0, 0)");
    EXPECT_EQ(listed(coords),
              "(0.5, 0.5, 0)(0, 0, 0)(0, 0, 0)(0, 0, 0)(0, 0, 0)(0.5, 0.5, 0)(0.5, 0.5, 0)(-0, 0, 0)")
        << "one that no corner uses has zeros";
}

} // namespace
} // namespace Vantrel
