#include "vtl/render/Unproject.h"

#include "vtl/math/VectorChecks.h"

#include <array>

namespace Vantrel {

bool vtlGluUnProject(float winX, float winY, float winZ, const Mat4& view, const Mat4& projection,
                     const int viewport[4], float* x, float* y, float* z) {
    Mat4 inverse;
    if (viewport[2] <= 0 || viewport[3] <= 0 || !Mat4::invert(projection * view, inverse)) {
        return false;
    }
    const auto share = [](float place, int from, int length) {
        return 2.0F * (place - static_cast<float>(from)) / static_cast<float>(length) - 1.0F;
    };
    const std::array<float, 4> clip{share(winX, viewport[0], viewport[2]),
                                    share(winY, viewport[1], viewport[3]), 2.0F * winZ - 1.0F, 1.0F};
    std::array<float, 4> point{};
    for (std::size_t row = 0; row < point.size(); ++row) {
        for (std::size_t column = 0; column < clip.size(); ++column) {
            point[row] += inverse[4 * column + row] * clip[column];
        }
    }
    const Vector place(point[0] / point[3], point[1] / point[3], point[2] / point[3]);
    if (!isFinite(place)) {
        return false;
    }
    *x = place.x;
    *y = place.y;
    *z = place.z;
    return true;
}

} // namespace Vantrel
