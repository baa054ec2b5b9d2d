#include "vtl/math/TriangleTree.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <random>
#include <vector>

namespace Vantrel {
namespace {

/** A terrain of a million triangles, one metre wide each, and lines over it. */
class Terrain {
public:
    static constexpr std::uint32_t side = 708; // vertices
    static constexpr std::size_t lineCount = 256;

    Terrain() {
        for (std::uint32_t i = 0; i < side * side; ++i) {
            const auto x = static_cast<float>(i % side);
            const auto y = static_cast<float>(i / side);
            positions.emplace_back(x, y, 20 * std::sin(x / 40) * std::cos(y / 30) + draw(0, 0.3F));
        }
        for (const Vector& position : positions) {
            vertices.push_back(&position);
        }
        for (std::uint32_t i = 0; i + side < side * side; ++i) {
            if (i % side != side - 1) {
                indices.insert(indices.end(), {i, i + 1, i + side, i + side, i + 1, i + side + 1});
            }
        }
        for (std::size_t i = 0; i < lineCount; ++i) {
            const Vector foot(draw(50, 650), draw(50, 650), 0);
            downLines.push_back({foot + unitZ * 500, foot + Vector(draw(-9, 9), draw(-9, 9), -100)});
            flatLines.push_back({foot + unitZ * 25, Vector(draw(50, 650), draw(50, 650), -5)});
        }
    }

    struct Line {
        Vector start;
        Vector end;
    };

    std::vector<const Vector*> vertices;
    std::vector<std::uint32_t> indices;
    std::vector<Line> downLines;
    std::vector<Line> flatLines;

private:
    float draw(float low, float high) { return std::uniform_real_distribution<float>(low, high)(generator); }

    std::mt19937 generator{20240611};
    std::vector<Vector> positions;
};

Terrain& terrain() {
    static Terrain only;
    return only;
}

template <class Triangles, std::vector<Terrain::Line> Terrain::*lines>
void nearestHit(benchmark::State& state) {
    const Triangles triangles(terrain().vertices, terrain().indices);
    std::size_t next = 0;
    std::int64_t hits = 0;
    for ([[maybe_unused]] auto round : state) {
        const Terrain::Line& line = (terrain().*lines)[next++ % Terrain::lineCount];
        hits += triangles.findNearestHit(line.start, line.end, true) ? 1 : 0;
    }
    state.counters["hit"] = static_cast<double>(hits) / static_cast<double>(state.iterations());
}

void buildTree(benchmark::State& state) {
    for ([[maybe_unused]] auto round : state) {
        const TriangleTree tree(terrain().vertices, terrain().indices);
        benchmark::DoNotOptimize(&tree);
    }
}

BENCHMARK(nearestHit<TriangleTree, &Terrain::downLines>)->Name("from above");
BENCHMARK(nearestHit<TriangleList, &Terrain::downLines>)->Name("from above/all triangles");
BENCHMARK(nearestHit<TriangleTree, &Terrain::flatLines>)->Name("from the side");
BENCHMARK(nearestHit<TriangleList, &Terrain::flatLines>)->Name("from the side/all triangles");
BENCHMARK(buildTree)->Name("build")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace Vantrel
