#pragma once

#include "vtl/scene/parser/ModelParser.h"

namespace Vantrel {

/** Reads 3DS files: one mesh for each material. */
class ModelParser3DS : public ModelParser {
public:
    using ModelParser::ModelParser;

    static std::unique_ptr<ModelParser> New(const std::string& file, const Vector& fileScale,
                                            MESH_SHADING_TYPE shading) {
        return std::make_unique<ModelParser3DS>(file, fileScale, shading);
    }

    /** Null for a file that can't be read, which is reported. mstAUTO means mstSMOOTH. */
    std::unique_ptr<ModelDataShared> parse() override;
};

} // namespace Vantrel
