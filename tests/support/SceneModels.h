#pragma once

#include "vtl/scene/model/MGL.h"
#include "vtl/scene/model/ManagerModelMultiplicity.h"
#include "vtl/scene/model/ModelDataShared.h"
#include "vtl/scene/object/WO.h"
#include "vtl/scene/parser/ModelParser.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace Vantrel::Tests {

/** Triangles of a box from `low` to `high`, drawn flat and in its skin's colour. */
inline ModelMeshSource boxMesh(const Vector& low, const Vector& high) {
    ModelMeshSource source{ModelMeshSkin(), std::make_unique<ModelMeshRenderDataGenerator>()};
    source.skin.shadingType = MESH_SHADING_TYPE::mstNONE;
    for (std::uint32_t i = 0; i < 8; ++i) {
        source.generator->vertices.emplace_back(
            (i & 1U) != 0 ? high.x : low.x, (i & 2U) != 0 ? high.y : low.y, (i & 4U) != 0 ? high.z : low.z);
    }
    source.generator->indices = {0, 2, 1, 1, 2, 3, 4, 5, 6, 5, 7, 6, 0, 1, 4, 1, 5, 4,
                                 2, 6, 3, 3, 6, 7, 0, 4, 2, 2, 4, 6, 1, 3, 5, 3, 7, 5};
    return source;
}

/** Reads whatever is said to be a file as the cubes of `cubes`, and counts how often. */
class CubeParser : public ModelParser {
public:
    using ModelParser::ModelParser;

    /** One mesh from -1 to 1, and one beside it when the name has "two" in it; no mesh for "none" and nothing
     * at all for "broken". */
    std::unique_ptr<ModelDataShared> parse() override {
        ++parseCount;
        if (fileName.find("broken") != std::string::npos) {
            return nullptr;
        }
        std::vector<ModelMeshSource> sources;
        if (fileName.find("none") == std::string::npos) {
            sources.push_back(boxMesh(scale * -1, scale));
        }
        if (fileName.find("two") != std::string::npos) {
            sources.push_back(boxMesh(Vector(2, -1, -1), Vector(4, 1, 1)));
        }
        return std::make_unique<ModelDataShared>(std::move(sources));
    }

    inline static int parseCount = 0;
};

/** Lets ".obj" names be read by `CubeParser` while it lives. */
class CubeFiles {
public:
    CubeFiles() : former(ManagerModelMultiplicity::setParser(".obj", newModelParser<CubeParser>)) {
        CubeParser::parseCount = 0;
    }
    CubeFiles(const CubeFiles&) = delete;
    CubeFiles& operator=(const CubeFiles&) = delete;
    ~CubeFiles() {
        ManagerModelMultiplicity::shutdown();
        ManagerModelMultiplicity::setParser(".obj", former);
    }

private:
    ManagerModelMultiplicity::MakeParser former;
};

/** An object that draws nothing, at `place`. */
inline std::unique_ptr<WO> objectAt(const Vector& place, const std::string& label = {}) {
    auto object = std::make_unique<WO>();
    object->onCreate();
    object->setPosition(place);
    object->setLabel(label);
    return object;
}

} // namespace Vantrel::Tests
