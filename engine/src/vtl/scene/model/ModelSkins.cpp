#include "vtl/scene/model/ModelSkins.h"

namespace Vantrel {

ModelMeshSkin& ModelSkins::current() {
    if (list.empty()) {
        list.emplace_back();
    }
    useAt(index); // whoever holds the list may have shortened it
    return list[index];
}

void ModelSkins::useNext() {
    index = index + 1 < list.size() ? index + 1 : 0;
}

void ModelSkins::usePrevious() {
    useAt(index - 1); // from 0 on to a place past every end
}

void ModelSkins::useAt(std::uint32_t place) {
    const auto last = static_cast<std::uint32_t>(list.empty() ? 0 : list.size() - 1);
    index = place < last ? place : last;
}

} // namespace Vantrel
