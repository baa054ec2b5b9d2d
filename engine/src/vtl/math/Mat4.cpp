#include "vtl/math/Mat4.h"

#include <array>
#include <cmath>

namespace Vantrel {
namespace {

/** A row of the matrix, then the same row of what becomes its inverse. */
using AugmentedRow = std::array<float, 8>;
using AugmentedRows = std::array<AugmentedRow, 4>;

AugmentedRows besideIdentity(const Mat4& in) {
    constexpr Mat4 identity;
    AugmentedRows rows;
    for (std::size_t r = 0; r < 4; ++r) {
        rows[r] = {in[r],       in[4 + r],       in[8 + r],       in[12 + r],
                   identity[r], identity[4 + r], identity[8 + r], identity[12 + r]};
    }
    return rows;
}

std::size_t pivotRow(const AugmentedRows& rows, std::size_t k) {
    std::size_t best = k;
    float largest = std::abs(rows[k][k]);
    for (std::size_t r = k + 1; r < 4; ++r) {
        const float candidate = std::abs(rows[r][k]);
        best = candidate > largest ? r : best;
        largest = std::max(largest, candidate);
    }
    return best;
}

AugmentedRow quotient(const AugmentedRow& row, float divisor) {
    AugmentedRow result;
    for (std::size_t i = 0; i < row.size(); ++i) {
        result[i] = row[i] / divisor;
    }
    return result;
}

void subtract(AugmentedRow& row, float factor, const AugmentedRow& other) {
    for (std::size_t i = 0; i < row.size(); ++i) {
        row[i] -= factor * other[i];
    }
}

/** Leaves a single 1 in column `k`; false when there is no pivot. */
bool eliminateColumn(AugmentedRows& rows, std::size_t k) {
    const std::size_t from = pivotRow(rows, k);
    if (rows[from][k] == 0.0F) {
        return false;
    }
    // Whole rows are copied rather than swapped in place: the compiler then works on four elements at once.
    const AugmentedRow pivot = quotient(rows[from], rows[from][k]);
    rows[from] = rows[k];
    for (std::size_t r = 0; r < 4; ++r) {
        if (r != k) {
            subtract(rows[r], rows[r][k], pivot);
        }
    }
    rows[k] = pivot;
    return true;
}

} // namespace

bool Mat4::invert(const Mat4& in, Mat4& out) {
    AugmentedRows rows = besideIdentity(in);
    for (std::size_t k = 0; k < 4; ++k) {
        if (!eliminateColumn(rows, k)) {
            return false;
        }
    }
    for (std::size_t i = 0; i < 16; ++i) {
        out[i] = rows[i % 4][4 + i / 4];
    }
    return true;
}

} // namespace Vantrel
