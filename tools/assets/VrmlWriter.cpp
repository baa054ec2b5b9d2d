#include "tools/assets/VrmlWriter.h"

#include "tools/assets/FileBytes.h"

#include <array>
#include <charconv>
#include <span>

namespace Assets {
namespace {

/** The shortest text that reads back as the same number, without an exponent. */
std::string textOf(float number) {
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.begin(), text.end(), number, std::chars_format::fixed).ptr;
    return {text.begin(), end};
}

std::string lineOf(const Point& point) {
    return textOf(point.x) + " " + textOf(point.y) + " " + textOf(point.z);
}

std::string lineOf(const TexturePoint& point) {
    return textOf(point.u) + " " + textOf(point.v);
}

std::string lineOf(const TriangleModel::Triangle& triangle) {
    return std::to_string(triangle[0]) + ", " + std::to_string(triangle[1]) + ", " +
           std::to_string(triangle[2]) + ", -1";
}

template <class Entry>
std::string listOf(const char* field, const std::vector<Entry>& entries) {
    std::string text = std::string("    ") + field + " [\n";
    for (const Entry& entry : entries) {
        text += "      " + lineOf(entry) + ",\n";
    }
    return text + "    ]\n";
}

std::string nodeOf(const char* name, const std::string& fields) {
    return std::string("  ") + name + " {\n" + fields + "  }\n";
}

} // namespace

void writeVrml(const std::filesystem::path& file, const TriangleModel& model, const std::string& image) {
    writeFile(file, "#VRML V1.0 ascii\nSeparator {\n" + nodeOf("Texture2", "    filename ./" + image + "\n") +
                        nodeOf("Coordinate3", listOf("point", model.vertices)) +
                        nodeOf("TextureCoordinate2", listOf("point", model.texturePoints)) +
                        nodeOf("IndexedFaceSet", listOf("coordIndex", model.triangles) +
                                                     listOf("textureCoordIndex", model.triangles)) +
                        "}\n");
}

} // namespace Assets
