#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace Vantrel {

/** The least and the greatest of one component over all entries; zero without entries. */
template <class Entry>
std::pair<float, float> getComponentRange(const std::vector<Entry>& entries, std::size_t component) {
    const auto [least, greatest] =
        std::minmax_element(entries.begin(), entries.end(), [component](const Entry& a, const Entry& b) {
            return a[component] < b[component];
        });
    return entries.empty() ? std::pair(0.0F, 0.0F) : std::pair((*least)[component], (*greatest)[component]);
}

} // namespace Vantrel
