#include "vtl/math/vtlColor4ub.h"

#include <algorithm>

namespace Vantrel {
namespace {

std::uint8_t difference(std::uint32_t left, std::uint32_t right) {
    return static_cast<std::uint8_t>(std::min(left - right, std::uint32_t{255}));
}

} // namespace

vtlColor4ub vtlColor4ub::operator-=(const vtlColor4ub& right) {
    *this = {difference(r, right.r), difference(g, right.g), difference(b, right.b), difference(a, right.a)};
    return *this;
}

} // namespace Vantrel
