#pragma once

#include "vtl/math/VectorT.h"

#include <cstdint>
#include <string>

namespace Vantrel {

/** What a model's geometry is known by: the file, letter by letter, and the scale that it was read with. */
class ModelDataSharedID {
public:
    ModelDataSharedID() = default;
    ModelDataSharedID(std::string file, const Vector& fileScale)
        : fileName(std::move(file)), scale(fileScale) {}
    virtual ~ModelDataSharedID() = default;
    ModelDataSharedID(const ModelDataSharedID&) = default;
    ModelDataSharedID& operator=(const ModelDataSharedID&) = default;

    std::string fileName;
    Vector scale;
    /** How many models use the geometry; counts in the registry alone. */
    std::uint32_t referenceCount = 0;
};

/** By name, then by the exact components of the scale. */
struct ModelDataSharedIDOrder {
    bool operator()(const ModelDataSharedID& a, const ModelDataSharedID& b) const {
        if (const int order = a.fileName.compare(b.fileName); order != 0) {
            return order < 0;
        }
        if (a.scale.x != b.scale.x) {
            return a.scale.x < b.scale.x;
        }
        return a.scale.y != b.scale.y ? a.scale.y < b.scale.y : a.scale.z < b.scale.z;
    }
};

} // namespace Vantrel
