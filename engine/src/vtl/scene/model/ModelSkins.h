#pragma once

#include "vtl/mesh/ModelMeshSkin.h"

#include <cstdint>
#include <vector>

namespace Vantrel {

/** The looks that a mesh can have, and the one in use. */
class ModelSkins {
public:
    ModelSkins() = default;
    explicit ModelSkins(ModelMeshSkin skin) { list.push_back(std::move(skin)); }

    /** The skin in use; a list without any gets a plain one. */
    ModelMeshSkin& current();
    std::uint32_t currentIndex() const { return clamped(index); }
    /** Behind the last comes the first. */
    void useNext();
    void usePrevious();
    /** A place past the end means the last one. */
    void useAt(std::uint32_t place);

    std::vector<ModelMeshSkin> list;

private:
    /** Whoever holds the list may have shortened it. */
    std::uint32_t clamped(std::uint32_t place) const;

    std::uint32_t index = 0;
};

} // namespace Vantrel
