#pragma once

#include "vtl/math/VectorT.h"

#include <cmath>
#include <cstdint>
#include <string>
#include <utility>

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

/** By name, then by the exact components of the scale, where what is no number comes last. */
struct ModelDataSharedIDOrder {
    bool operator()(const ModelDataSharedID& a, const ModelDataSharedID& b) const {
        if (const int order = a.fileName.compare(b.fileName); order != 0) {
            return order < 0;
        }
        const auto isBefore = [](float u, float v) { return std::isnan(v) ? !std::isnan(u) : u < v; };
        for (const auto& [u, v] : {std::pair(a.scale.x, b.scale.x), {a.scale.y, b.scale.y}}) {
            if (isBefore(u, v) || isBefore(v, u)) {
                return isBefore(u, v);
            }
        }
        return isBefore(a.scale.z, b.scale.z);
    }
};

} // namespace Vantrel
