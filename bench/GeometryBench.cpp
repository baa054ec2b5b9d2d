#include "vtl/geometry/VantrelGeometryFrustum.h"
#include "vtl/math/MatrixBuilders.h"

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <limits>
#include <random>
#include <vector>

namespace Vantrel {
namespace {

// Few enough that every input stays in the second cache: what is measured is arithmetic.
constexpr std::size_t boxCount = 1024;

/** Boxes all around a camera in the middle of them, turned every way: a quarter is seen. */
std::vector<VantrelGeometryOBB> drawBoxes() {
    std::mt19937 generator(20240611);
    const auto draw = [&](float largest) {
        return std::uniform_real_distribution<float>(-largest, largest)(generator);
    };
    std::vector<VantrelGeometryOBB> boxes;
    while (boxes.size() < boxCount) {
        Mat4 turn;
        rotateAboutAxis(Vector(draw(1), draw(1), draw(1) + 2).normalizeMe(), draw(3), turn);
        const Vector center(draw(300), draw(300), draw(50));
        const Vector lengths(2 + draw(1), 5 + draw(4), 10 + draw(9));
        boxes.emplace_back(center, lengths, turn * unitX, turn * unitY, turn * unitZ);
    }
    return boxes;
}

std::array<Vector, 8> cornersOf(const VantrelGeometryOBB& obb) {
    std::array<Vector, 8> corners;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        corners[i] = obb.center + obb.axes[0] * ((i & 4U) == 0 ? obb.halfExtents.x : -obb.halfExtents.x) +
                     obb.axes[1] * ((i & 2U) == 0 ? obb.halfExtents.y : -obb.halfExtents.y) +
                     obb.axes[2] * ((i & 1U) == 0 ? obb.halfExtents.z : -obb.halfExtents.z);
    }
    return corners;
}

/** As one would write it down: seen unless all eight corners are outside of one plane. */
bool allCornersAgainstAllPlanes(const VantrelGeometryFrustum& frustum, const VantrelGeometryOBB& obb) {
    const std::array<Vector, 8> corners = cornersOf(obb);
    for (std::uint32_t i = 0; i < 6; ++i) {
        const bool isOutside = std::all_of(corners.begin(), corners.end(), [&](const Vector& corner) {
            return frustum.getPlaneNormal(i).dotProduct(corner) > frustum.getPlaneCoef(i);
        });
        if (isOutside) {
            return false;
        }
    }
    return true;
}

template <auto test>
void culling(benchmark::State& state) {
    const VantrelGeometryFrustum frustum(1.6F, 65, 0.1F, 1000, unitX, unitZ, Vector());
    const std::vector<VantrelGeometryOBB> boxes = drawBoxes();
    std::int64_t seen = 0;
    for ([[maybe_unused]] auto round : state) {
        for (const VantrelGeometryOBB& box : boxes) {
            seen += test(frustum, box) ? 1 : 0;
        }
    }
    const auto tests = state.iterations() * static_cast<std::int64_t>(boxCount);
    state.SetItemsProcessed(tests);
    state.counters["seen"] = static_cast<double>(seen) / static_cast<double>(tests);
}

BENCHMARK(culling<intersectFrustumOBB>)->Name("culling");
BENCHMARK(culling<allCornersAgainstAllPlanes>)->Name("culling/all corners against all planes");

} // namespace
} // namespace Vantrel
