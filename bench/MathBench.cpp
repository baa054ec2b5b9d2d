#include "vtl/math/Mat4.h"
#include "vtl/math/MatrixBuilders.h"
#include "vtl/math/VantrelQuaternion.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <random>
#include <vector>

namespace Vantrel {
namespace {

// Few enough that every input stays in the first cache: what is measured is arithmetic.
constexpr std::size_t inputCount = 256;

std::mt19937& generator() {
    static std::mt19937 only(20240611);
    return only;
}

float draw() {
    return std::uniform_real_distribution<float>(-1.0F, 1.0F)(generator());
}

std::vector<Mat4> drawPoses() {
    std::vector<Mat4> poses(inputCount);
    for (Mat4& pose : poses) {
        pose[12] = 100 * draw();
        pose[13] = 100 * draw();
        rotateAboutAxis(Vector(draw(), draw(), draw() + 2).normalizeMe(), 3 * draw(), pose);
    }
    return poses;
}

/** Runs `step` on the inputs one after the other; the benchmark's items are the steps. */
template <class Step>
void runOverInputs(benchmark::State& state, Step step) {
    for ([[maybe_unused]] auto round : state) {
        for (std::size_t i = 0; i < inputCount; ++i) {
            step(i);
        }
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(inputCount));
}

Mat4 tripleLoopProduct(const Mat4& a, const Mat4& b) {
    Mat4 product;
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            float sum = 0;
            for (std::size_t k = 0; k < 4; ++k) {
                sum += a[4 * k + row] * b[4 * column + k];
            }
            product[4 * column + row] = sum;
        }
    }
    return product;
}

/** The textbook's elimination, element by element on the stored columns. */
bool textbookInverse(Mat4 a, Mat4& inverse) {
    Mat4 b;
    for (std::size_t k = 0; k < 4; ++k) {
        std::size_t pivot = k;
        for (std::size_t row = k + 1; row < 4; ++row) {
            if (std::abs(a[4 * k + row]) > std::abs(a[4 * k + pivot])) {
                pivot = row;
            }
        }
        const float divisor = a[4 * k + pivot];
        if (divisor == 0.0F) {
            return false;
        }
        for (std::size_t column = 0; column < 4; ++column) {
            std::swap(a[4 * column + k], a[4 * column + pivot]);
            std::swap(b[4 * column + k], b[4 * column + pivot]);
            a[4 * column + k] /= divisor;
            b[4 * column + k] /= divisor;
        }
        for (std::size_t row = 0; row < 4; ++row) {
            const float factor = a[4 * k + row];
            for (std::size_t column = 0; row != k && column < 4; ++column) {
                a[4 * column + row] -= factor * a[4 * column + k];
                b[4 * column + row] -= factor * b[4 * column + k];
            }
        }
    }
    inverse = b;
    return true;
}

/** The formula by its angle, in double precision, without the mixing of nearly equal rotations. */
VantrelQuaternion arcCosineSlerp(const VantrelQuaternion& a, const VantrelQuaternion& b, float t) {
    const VantrelQuaternion from = a.normalized();
    VantrelQuaternion to = b.normalized();
    if (from.dot(to) < 0) {
        to = to.negated();
    }
    const double angle = std::acos(std::min<double>(from.dot(to), 1 - 1e-12));
    const auto ka = static_cast<float>(std::sin((1.0 - t) * angle) / std::sin(angle));
    const auto kb = static_cast<float>(std::sin(t * angle) / std::sin(angle));
    return VantrelQuaternion(ka * from.w + kb * to.w, ka * from.x + kb * to.x, ka * from.y + kb * to.y,
                             ka * from.z + kb * to.z)
        .normalized();
}

template <auto product>
void productOfMatrices(benchmark::State& state) {
    const std::vector<Mat4> poses = drawPoses();
    std::vector<Mat4> results(inputCount);
    runOverInputs(state, [&](std::size_t i) { results[i] = product(poses[i], poses[(i + 1) % inputCount]); });
}

template <auto inverse>
void inverseOfMatrix(benchmark::State& state) {
    const std::vector<Mat4> poses = drawPoses();
    std::vector<Mat4> results(inputCount);
    runOverInputs(state, [&](std::size_t i) { benchmark::DoNotOptimize(inverse(poses[i], results[i])); });
}

template <auto slerp>
void slerpOfQuaternions(benchmark::State& state) {
    const std::vector<Mat4> poses = drawPoses();
    const std::vector<VantrelQuaternion> turns(poses.begin(), poses.end());
    std::vector<VantrelQuaternion> results(inputCount);
    runOverInputs(state, [&](std::size_t i) {
        const float t = static_cast<float>(i) / static_cast<float>(inputCount);
        results[i] = slerp(turns[i], turns[(i + 1) % inputCount], t);
    });
}

Mat4 operatorProduct(const Mat4& a, const Mat4& b) {
    return a * b;
}

BENCHMARK(productOfMatrices<operatorProduct>)->Name("product");
BENCHMARK(productOfMatrices<tripleLoopProduct>)->Name("product/triple loop");
BENCHMARK(inverseOfMatrix<Mat4::invert>)->Name("inverse");
BENCHMARK(inverseOfMatrix<textbookInverse>)->Name("inverse/textbook");
BENCHMARK(slerpOfQuaternions<VantrelQuaternion::slerp>)->Name("slerp");
BENCHMARK(slerpOfQuaternions<arcCosineSlerp>)->Name("slerp/arc cosine");

} // namespace
} // namespace Vantrel
