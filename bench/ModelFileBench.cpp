#include "tests/support/Chunks3DS.h"
#include "tests/support/TemporaryFolder.h"
#include "vtl/base/Report.h"
#include "vtl/base/WholeFile.h"
#include "vtl/scene/parser/MaterialMesh3DS.h"
#include "vtl/scene/parser/ModelParserVRMLShape.h"
#include "vtl/scene/parser/OBJFile.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#ifdef KELDIN_BENCH_ASSIMP
#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>
#endif
#ifdef KELDIN_BENCH_TINYOBJLOADER
#include <tiny_obj_loader.h>
#endif

// From a model file to finished lists in memory, before anything is made for the card. Beside ours, on the
// same file, the general libraries that are packaged, or what no reader can do without: reading the file
// whole, and copying the result, which is done three times.

namespace Vantrel {
namespace {

constexpr std::int64_t manyFaces = 1000000;
constexpr std::int64_t fewFaces = 10000;

/** A terrain of quads in sixteen strips with a material each, with texture coordinates. */
void writeTerrain(const std::string& fileName, int side) {
    constexpr int strips = 16;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(fileName.c_str(), "w"),
                                                               std::fclose);
    for (int j = 0; j <= side; ++j) {
        for (int i = 0; i <= side; ++i) {
            const double x = 2.5 * i;
            const double y = 2.5 * j;
            const double height =
                8 * std::sin(0.03 * x) * std::cos(0.021 * y) + 0.7 * std::sin(0.4 * x + 0.3 * y);
            std::fprintf(file.get(), "v %.6f %.6f %.6f\n", x, y, height);
        }
    }
    for (int j = 0; j <= side; ++j) {
        for (int i = 0; i <= side; ++i) {
            std::fprintf(file.get(), "vt %.6f %.6f\n", 1.0 * i / side, 1.0 * j / side);
        }
    }
    for (int j = 0; j < side; ++j) {
        if (j % ((side + strips - 1) / strips) == 0) {
            std::fprintf(file.get(), "usemtl strip%d\n", j);
        }
        for (int i = 0; i < side; ++i) {
            const int a = j * (side + 1) + i + 1;
            const int d = a + side + 1;
            std::fprintf(file.get(), "f %d/%d %d/%d %d/%d %d/%d\n", a, a, a + 1, a + 1, d + 1, d + 1, d, d);
        }
    }
}

/** The terrain of that many faces, written when it is first asked for. */
const std::string& terrainFile(std::int64_t faces) {
    static const Tests::TemporaryFolder folder;
    static std::map<std::int64_t, std::string> written;
    std::string& name = written[faces];
    if (name.empty()) {
        name = folder.path(std::to_string(faces) + ".obj");
        writeTerrain(name, static_cast<int>(std::lround(std::sqrt(static_cast<double>(faces)))));
    }
    return name;
}

/** The most memory that this process has held since `forgetPeak`, MiB. */
double peakMebibytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) {
            return std::stod(line.substr(6)) / 1024;
        }
    }
    return 0;
}

void forgetPeak() {
    std::ofstream("/proc/self/clear_refs") << "5";
}

/** Runs `load`, which takes a file name and gives the number of triangles. */
template <class Load>
void loadTerrain(benchmark::State& state, Load load) {
    const std::string& file = terrainFile(state.range(0));
    forgetPeak();
    std::size_t triangles = 0;
    for ([[maybe_unused]] auto round : state) {
        triangles = load(file);
    }
    if (triangles != 2 * static_cast<std::size_t>(state.range(0))) {
        state.SkipWithError("not the triangles of the file");
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(std::filesystem::file_size(file)));
    state.counters["peak_MiB"] = peakMebibytes();
}

void objOurs(benchmark::State& state) {
    loadTerrain(state, [](const std::string& name) {
        FileLines lines(name);
        OBJFile file(lines);
        std::size_t corners = 0;
        for (const OBJMesh& mesh : file.makeMeshes({}, Vector(1, 1, 1))) {
            corners += mesh.indices.size();
        }
        return corners / 3;
    });
}
BENCHMARK(objOurs)->Arg(fewFaces)->Arg(manyFaces)->Unit(benchmark::kMillisecond)->UseRealTime();

#ifdef KELDIN_BENCH_TINYOBJLOADER
void objTinyobjloader(benchmark::State& state) {
    loadTerrain(state, [](const std::string& name) {
        tinyobj::ObjReader reader;
        tinyobj::ObjReaderConfig config;
        config.triangulate = true;
        config.vertex_color = false;
        reader.ParseFromFile(name, config);
        std::size_t corners = 0;
        for (const tinyobj::shape_t& shape : reader.GetShapes()) {
            corners += shape.mesh.indices.size();
        }
        return corners / 3;
    });
}
BENCHMARK(objTinyobjloader)->Arg(manyFaces)->Unit(benchmark::kMillisecond)->UseRealTime();
#endif

#ifdef KELDIN_BENCH_ASSIMP
void objAssimp(benchmark::State& state) {
    loadTerrain(state, [](const std::string& name) {
        Assimp::Importer importer;
        const aiScene* const scene =
            importer.ReadFile(name, aiProcess_Triangulate | aiProcess_JoinIdenticalVertices);
        std::size_t faces = 0;
        for (unsigned i = 0; scene != nullptr && i < scene->mNumMeshes; ++i) {
            faces += scene->mMeshes[i]->mNumFaces;
        }
        return faces;
    });
}
BENCHMARK(objAssimp)->Arg(manyFaces)->Unit(benchmark::kMillisecond)->UseRealTime();
#endif

constexpr int quadSide = 500;
constexpr std::size_t quadTriangles = std::size_t{2} * quadSide * quadSide;

/** Lists of a mesh as a reader hands them over. */
struct ListSizes {
    std::size_t vertices = 0;
    std::size_t indices = 0;

    std::size_t bytes() const { return vertices * 2 * sizeof(Vector) + indices * sizeof(std::uint32_t); }
};

/** Runs `load`, which takes a file name and gives the sizes of its lists. */
template <class Load>
void loadQuads(benchmark::State& state, const std::string& file, Load load) {
    forgetPeak();
    ListSizes sizes;
    for ([[maybe_unused]] auto round : state) {
        sizes = load(file);
    }
    if (sizes.indices != 3 * quadTriangles) {
        state.SkipWithError("not the triangles of the file");
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(std::filesystem::file_size(file)));
    state.counters["peak_MiB"] = peakMebibytes();
}

template <class Load>
void readAndCopyThrice(benchmark::State& state, const std::string& name, Load load) {
    const std::vector<std::byte> result(load(name).bytes());
    std::vector<std::byte> copy(result.size());
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(WholeFile::read(name)->bytes().data());
        for (int i = 0; i < 3; ++i) {
            std::memcpy(copy.data(), result.data(), result.size());
            benchmark::ClobberMemory();
        }
    }
}

float heightAt(int i, int j) {
    return std::sin(0.03F * static_cast<float>(i)) * std::cos(0.021F * static_cast<float>(j));
}

/** Squares in one mesh; at seams each has texture coordinates of its own. */
const std::string& vrmlFile(bool hasSeams) {
    static const Tests::TemporaryFolder folder;
    static std::map<bool, std::string> written;
    std::string& name = written[hasSeams];
    if (!name.empty()) {
        return name;
    }
    name = folder.path(hasSeams ? "seams.wrl" : "smooth.wrl");
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(name.c_str(), "w"), std::fclose);
    std::string coords;
    std::string faces;
    std::string coordFaces;
    const auto addFaces = [](std::string& lines, int a, int b, int c, int d) {
        for (const auto& [second, third] : {std::pair(b, c), std::pair(c, d)}) {
            lines +=
                std::to_string(a) + ", " + std::to_string(second) + ", " + std::to_string(third) + ", -1,\n";
        }
    };
    std::fputs("#VRML V1.0 ascii\nTexture2 {\nnone.png\n}\nCoordinate3 {\npoint [\n", file.get());
    constexpr int row = quadSide + 1;
    for (int j = 0; j < row; ++j) {
        for (int i = 0; i < row; ++i) {
            std::fprintf(file.get(), "%.6f %.6f %.6f,\n", 2.5 * i, 2.5 * j, 8.0 * heightAt(i, j));
            const int own = j * row + i;
            if (!hasSeams) {
                coords +=
                    std::to_string(1.0 * i / quadSide) + ' ' + std::to_string(1.0 * j / quadSide) + ",\n";
            }
            if (i < quadSide && j < quadSide) {
                addFaces(faces, own, own + 1, own + row + 1, own + row);
                const int square = 4 * (j * quadSide + i);
                for (int corner = 0; hasSeams && corner < 4; ++corner) {
                    coords += std::to_string(0.25 * (square + corner)) + " 0.5,\n";
                }
                if (hasSeams) {
                    addFaces(coordFaces, square, square + 1, square + 2, square + 3);
                }
            }
        }
    }
    std::fprintf(file.get(),
                 "]\n}\nTextureCoordinate2 {\npoint [\n%s]\n}\nIndexedFaceSet {\ncoordIndex [\n%s]\n"
                 "textureCoordIndex [\n%s]\n}\n",
                 coords.c_str(), faces.c_str(), hasSeams ? coordFaces.c_str() : faces.c_str());
    return name;
}

ListSizes loadVRML(const std::string& name) {
    FileLines lines(name);
    ModelParserVRMLShape shape;
    ModelFileFaults faults;
    shape.read(lines, name, Vector(1, 1, 1), faults);
    return {shape.splitAtSeams().size(), shape.coordIndices.size()};
}

void vrmlOurs(benchmark::State& state) {
    loadQuads(state, vrmlFile(state.range(0) != 0), loadVRML);
}
BENCHMARK(vrmlOurs)->ArgName("seams")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

void vrmlReadAndCopyThrice(benchmark::State& state) {
    readAndCopyThrice(state, vrmlFile(state.range(0) != 0), loadVRML);
}
BENCHMARK(vrmlReadAndCopyThrice)
    ->ArgName("seams")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

/** The same squares in strips with a material each. */
const std::string& file3DSOfQuads() {
    static const Tests::TemporaryFolder folder;
    static std::string name;
    if (!name.empty()) {
        return name;
    }
    constexpr int strips = 10;
    constexpr int rowsOfStrip = quadSide / strips;
    constexpr int row = quadSide + 1;
    std::string chunks;
    for (int strip = 0; strip < strips; ++strip) {
        std::vector<std::array<float, 3>> vertices;
        std::vector<std::array<float, 2>> coords;
        std::vector<Tests::Corners3DS> faces;
        for (int j = 0; j <= rowsOfStrip; ++j) {
            for (int i = 0; i < row; ++i) {
                vertices.push_back({2.5F * static_cast<float>(i),
                                    2.5F * static_cast<float>(j + strip * rowsOfStrip), heightAt(i, j)});
                coords.push_back({static_cast<float>(i), static_cast<float>(j)});
                if (i < quadSide && j < rowsOfStrip) {
                    const auto a = static_cast<std::uint16_t>(j * row + i);
                    const auto b = static_cast<std::uint16_t>(a + 1);
                    const auto d = static_cast<std::uint16_t>(a + row);
                    const auto c = static_cast<std::uint16_t>(d + 1);
                    faces.insert(faces.end(), {{a, b, c}, {a, c, d}});
                }
            }
        }
        const std::string material = std::to_string(strip);
        chunks += Tests::material3DS(material);
        chunks += Tests::object3DS(vertices, Tests::chunk3DS(0x4140, Tests::packedList(coords)) +
                                                 Tests::faces3DS(faces, material));
    }
    name = folder.write("quads.3ds", Tests::file3DS(chunks));
    return name;
}

ListSizes load3DS(const std::string& name) {
    const std::optional<WholeFile> bytes = WholeFile::read(name);
    const std::optional<File3DS> file = File3DS::read(bytes->bytes());
    ModelFileFaults faults;
    ListSizes sizes;
    for (const MaterialMesh3DS& mesh : MaterialMesh3DS::meshesOf(*file, Vector(1, 1, 1), faults)) {
        sizes.vertices += mesh.vertices.size();
        sizes.indices += mesh.indices.size();
    }
    return sizes;
}

void ours3DS(benchmark::State& state) {
    loadQuads(state, file3DSOfQuads(), load3DS);
}
BENCHMARK(ours3DS)->Unit(benchmark::kMillisecond)->UseRealTime();

void readAndCopyThrice3DS(benchmark::State& state) {
    readAndCopyThrice(state, file3DSOfQuads(), load3DS);
}
BENCHMARK(readAndCopyThrice3DS)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace Vantrel
