#include "vtl/scene/model/ModelSkins.h"

#include <algorithm>

namespace Vantrel {

ModelMeshSkin& ModelSkins::current() {
    if (list.empty()) {
        list.emplace_back().shadingType = MESH_SHADING_TYPE::mstNONE;
    }
    return list[currentIndex()];
}

void ModelSkins::useNext() {
    index = index + 1 < list.size() ? index + 1 : 0;
}

void ModelSkins::usePrevious() {
    useAt(index - 1); // from 0 on to a place past every end
}

void ModelSkins::useAt(std::uint32_t place) {
    index = clamped(place);
}

std::uint32_t ModelSkins::clamped(std::uint32_t place) const {
    const auto last = static_cast<std::uint32_t>(list.empty() ? 0 : list.size() - 1);
    return std::min(place, last);
}

} // namespace Vantrel
