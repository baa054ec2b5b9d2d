#include "vtl/base/Report.h"
#include "vtl/mesh/ModelMeshRenderDataGenerator.h"

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <malloc.h>
#include <memory>
#include <new>
#include <random>
#include <vector>

// Every allocation of the program is counted, so that a benchmark can tell how much memory stood at its
// worst.
namespace {

std::size_t bytesNow = 0;
std::size_t bytesAtMost = 0;

void* allocateCounted(std::size_t bytes) {
    void* const memory = std::malloc(bytes);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    bytesNow += malloc_usable_size(memory);
    bytesAtMost = std::max(bytesAtMost, bytesNow);
    return memory;
}

void freeCounted(void* memory) {
    bytesNow -= memory != nullptr ? malloc_usable_size(memory) : 0;
    std::free(memory);
}

} // namespace

void* operator new(std::size_t bytes) {
    return allocateCounted(bytes);
}
void* operator new[](std::size_t bytes) {
    return allocateCounted(bytes);
}
void operator delete(void* memory) noexcept {
    freeCounted(memory);
}
void operator delete[](void* memory) noexcept {
    freeCounted(memory);
}
void operator delete(void* memory, std::size_t /*bytes*/) noexcept {
    freeCounted(memory);
}
void operator delete[](void* memory, std::size_t /*bytes*/) noexcept {
    freeCounted(memory);
}

namespace Vantrel {
namespace {

/** How the triangles come: by shared vertices or each with its own, in rows or in random order. */
enum class Order : std::uint8_t { rows, shuffled };
enum class Sharing : std::uint8_t { indexed, soup };

constexpr std::uint32_t side = 707; // 999,698 triangles over 501,264 positions

std::vector<std::uint32_t> gridIndices(Order order) {
    std::vector<std::array<std::uint32_t, 3>> triangles;
    for (std::uint32_t row = 0; row < side; ++row) {
        for (std::uint32_t column = 0; column < side; ++column) {
            const std::uint32_t a = row * (side + 1) + column;
            const std::uint32_t d = a + side + 1;
            triangles.push_back({a, a + 1, d + 1});
            triangles.push_back({a, d + 1, d});
        }
    }
    if (order == Order::shuffled) {
        std::shuffle(triangles.begin(), triangles.end(), std::mt19937(9));
    }
    std::vector<std::uint32_t> indices;
    for (const auto& triangle : triangles) {
        indices.insert(indices.end(), triangle.begin(), triangle.end());
    }
    return indices;
}

std::vector<Vector> gridVertices() {
    std::vector<Vector> vertices;
    vertices.reserve(std::size_t{side + 1} * (side + 1));
    for (std::uint32_t row = 0; row <= side; ++row) {
        for (std::uint32_t column = 0; column <= side; ++column) {
            const auto x = static_cast<float>(column);
            const auto y = static_cast<float>(row);
            vertices.emplace_back(2.5F * x, 2.5F * y, 8 * std::sin(0.07F * x) * std::cos(0.05F * y));
        }
    }
    return vertices;
}

void giveEachCornerAVertex(ModelMeshRenderDataGenerator& mesh) {
    std::vector<Vector> corners;
    corners.reserve(mesh.indices.size());
    for (std::uint32_t& index : mesh.indices) {
        corners.push_back(mesh.vertices[index]);
        index = static_cast<std::uint32_t>(corners.size() - 1);
    }
    mesh.vertices = std::move(corners);
}

/** A terrain of a million triangles. */
ModelMeshRenderDataGenerator terrain(Sharing sharing, Order order) {
    Reports::open([](std::string_view) {});
    ModelMeshRenderDataGenerator mesh;
    mesh.vertices = gridVertices();
    mesh.indices = gridIndices(order);
    if (sharing == Sharing::soup) {
        giveEachCornerAVertex(mesh);
    }
    mesh.indices.shrink_to_fit();
    return mesh;
}

struct Point {
    bool operator==(const Point&) const = default;

    float x;
    float y;
    float z;
};

std::uint64_t hashOf(const Point& p) {
    std::uint64_t hash = std::bit_cast<std::uint32_t>(p.x) * 0x9E3779B97F4A7C15U;
    hash = (hash ^ (hash >> 29U) ^ std::bit_cast<std::uint32_t>(p.y)) * 0xBF58476D1CE4E5B9U;
    hash = (hash ^ (hash >> 32U) ^ std::bit_cast<std::uint32_t>(p.z)) * 0x94D049BB133111EBU;
    return hash ^ (hash >> 31U);
}

/** Groups by a flat hash of one probe after the other; returns the number of groups. */
std::size_t groupPoints(const std::vector<Point>& points, std::vector<std::uint32_t>& groups) {
    constexpr std::uint32_t free = ~0U;
    std::vector<std::uint32_t> slots(std::bit_ceil(points.size()), free);
    std::vector<Point> keys;
    keys.reserve(points.size() / 4);
    for (std::size_t k = 0; k < points.size(); ++k) {
        std::size_t slot = hashOf(points[k]) & (slots.size() - 1);
        while (slots[slot] != free && keys[slots[slot]] != points[k]) {
            slot = (slot + 1) & (slots.size() - 1);
        }
        if (slots[slot] == free) {
            slots[slot] = static_cast<std::uint32_t>(keys.size());
            keys.push_back(points[k]);
        }
        groups[k] = slots[slot];
    }
    return keys.size();
}

Point crossOfEdges(const Point& a, const Point& b, const Point& c) {
    const Point e{b.x - a.x, b.y - a.y, b.z - a.z};
    const Point f{c.x - a.x, c.y - a.y, c.z - a.z};
    return {e.y * f.z - e.z * f.y, e.z * f.x - e.x * f.z, e.x * f.y - e.y * f.x};
}

Point unitOf(const Point& p) {
    const float length = std::sqrt(p.x * p.x + p.y * p.y + p.z * p.z);
    const float scale = length > 0 ? 1 / length : 0;
    return {p.x * scale, p.y * scale, p.z * scale};
}

/** One smooth normal for each corner of a soup of triangles, weighted by area, and nothing else written. */
std::vector<Point> flatHashNormals(const std::vector<Point>& corners) {
    std::vector<std::uint32_t> groups(corners.size());
    std::vector<Point> sums(groupPoints(corners, groups));
    for (std::size_t k = 0; k + 2 < corners.size(); k += 3) {
        const Point normal = crossOfEdges(corners[k], corners[k + 1], corners[k + 2]);
        for (std::size_t corner = k; corner < k + 3; ++corner) {
            Point& sum = sums[groups[corner]];
            sum = {sum.x + normal.x, sum.y + normal.y, sum.z + normal.z};
        }
    }
    std::transform(sums.begin(), sums.end(), sums.begin(), unitOf);
    std::vector<Point> normals(corners.size());
    std::transform(groups.begin(), groups.end(), normals.begin(),
                   [&](std::uint32_t group) { return sums[group]; });
    return normals;
}

/** The vertices and indices that a flat mesh consists of, corner by corner. */
void copyCorners(const ModelMeshRenderDataGenerator& mesh, std::byte* block, std::uint32_t* numbers) {
    const auto pointOf = [&](std::size_t k) {
        const Vector& v = mesh.vertices[mesh.indices[k]];
        return Point{v.x, v.y, v.z};
    };
    for (std::size_t k = 0; k + 2 < mesh.indices.size(); k += 3) {
        const std::array<Point, 3> corners{pointOf(k), pointOf(k + 1), pointOf(k + 2)};
        const Point normal = unitOf(crossOfEdges(corners[0], corners[1], corners[2]));
        for (std::size_t i = 0; i < 3; ++i) {
            std::byte* const vertex = block + (k + i) * 2 * sizeof(Point);
            std::memcpy(vertex, &corners[i], sizeof(Point));
            std::memcpy(vertex + sizeof(Point), &normal, sizeof(Point));
            numbers[k + i] = static_cast<std::uint32_t>(k + i);
        }
    }
}

/** Tells the worst standing memory of what ran, input and output included, as a ratio to those two. */
void reportPeak(benchmark::State& state, std::size_t input, std::size_t output, std::size_t before) {
    state.counters["peak_to_input_and_output"] =
        static_cast<double>(bytesAtMost - before + input) / static_cast<double>(input + output);
}

template <Sharing sharing, Order order, MESH_SHADING_TYPE shading>
void generated(benchmark::State& state) {
    const std::size_t empty = bytesNow;
    ModelMeshRenderDataGenerator mesh = terrain(sharing, order);
    const std::size_t before = bytesNow;
    bytesAtMost = before;
    std::size_t output = 0;
    for ([[maybe_unused]] auto round : state) {
        const ModelMeshRenderData data = mesh.generateRenderData(shading, GL_TRIANGLES);
        benchmark::DoNotOptimize(data.vertexData.get());
        output = bytesNow - before;
    }
    reportPeak(state, before - empty, output, before);
}

template <Order order>
void flatHash(benchmark::State& state) {
    const ModelMeshRenderDataGenerator mesh = terrain(Sharing::soup, order);
    std::vector<Point> corners;
    for (const Vector& v : mesh.vertices) {
        corners.push_back({v.x, v.y, v.z});
    }
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(flatHashNormals(corners).data());
    }
}

template <Order order>
void copyLoop(benchmark::State& state) {
    const ModelMeshRenderDataGenerator mesh = terrain(Sharing::indexed, order);
    for ([[maybe_unused]] auto round : state) {
        const auto block =
            std::make_unique_for_overwrite<std::byte[]>(mesh.indices.size() * 2 * sizeof(Point));
        const auto numbers = std::make_unique_for_overwrite<std::uint32_t[]>(mesh.indices.size());
        copyCorners(mesh, block.get(), numbers.get());
        benchmark::DoNotOptimize(block.get());
        benchmark::DoNotOptimize(numbers.get());
    }
}

constexpr auto smooth = MESH_SHADING_TYPE::mstSMOOTH;
constexpr auto flat = MESH_SHADING_TYPE::mstFLAT;

BENCHMARK(generated<Sharing::indexed, Order::rows, smooth>)
    ->Name("smooth/indexed/rows")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(generated<Sharing::indexed, Order::shuffled, smooth>)
    ->Name("smooth/indexed/shuffled")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(generated<Sharing::soup, Order::rows, smooth>)
    ->Name("smooth/soup/rows")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(generated<Sharing::soup, Order::shuffled, smooth>)
    ->Name("smooth/soup/shuffled")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(flatHash<Order::rows>)->Name("smooth/flat hash/rows")->Unit(benchmark::kMillisecond);
BENCHMARK(flatHash<Order::shuffled>)->Name("smooth/flat hash/shuffled")->Unit(benchmark::kMillisecond);
BENCHMARK(generated<Sharing::indexed, Order::rows, flat>)->Name("flat/rows")->Unit(benchmark::kMillisecond);
BENCHMARK(generated<Sharing::indexed, Order::shuffled, flat>)
    ->Name("flat/shuffled")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(copyLoop<Order::rows>)->Name("flat/copy loop/rows")->Unit(benchmark::kMillisecond);
BENCHMARK(copyLoop<Order::shuffled>)->Name("flat/copy loop/shuffled")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace Vantrel
