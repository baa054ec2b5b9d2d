#pragma once

#include "vtl/math/VectorT.h"
#include "vtl/mesh/MeshShadingType.h"

#include <memory>
#include <string>
#include <utility>

namespace Vantrel {

class ModelDataShared;

/** Reads one model file. */
class ModelParser {
public:
    /** `fileScale` multiplies every position. */
    ModelParser(std::string file, const Vector& fileScale, MESH_SHADING_TYPE shading)
        : fileName(std::move(file)), scale(fileScale), shadingType(shading) {}
    virtual ~ModelParser() = default;

    /** A master of the file's meshes; null when the file can't be read. */
    virtual std::unique_ptr<ModelDataShared> parse() = 0;

protected:
    /** Takes mstSMOOTH for mstAUTO. */
    void chooseShading() {
        if (shadingType == MESH_SHADING_TYPE::mstAUTO) {
            shadingType = MESH_SHADING_TYPE::mstSMOOTH;
        }
    }

    std::string fileName;
    Vector scale;
    MESH_SHADING_TYPE shadingType;
};

/** A parser of that class. */
template <class Parser>
std::unique_ptr<ModelParser> newModelParser(const std::string& file, const Vector& fileScale,
                                            MESH_SHADING_TYPE shading) {
    return std::make_unique<Parser>(file, fileScale, shading);
}

} // namespace Vantrel
