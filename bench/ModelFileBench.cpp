#include "tests/support/TemporaryFolder.h"
#include "vtl/base/Report.h"
#include "vtl/scene/parser/OBJFile.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>

#ifdef KELDIN_BENCH_ASSIMP
#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>
#endif
#ifdef KELDIN_BENCH_TINYOBJLOADER
#include <tiny_obj_loader.h>
#endif

// From a model file to finished lists in memory, before anything is made for the card. Beside ours, on the
// same file, the general libraries that are packaged.

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

} // namespace
} // namespace Vantrel
