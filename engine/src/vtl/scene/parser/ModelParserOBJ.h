#pragma once

#include "vtl/scene/parser/ModelParser.h"

namespace Vantrel {

/** Reads Wavefront OBJ files with their material libraries: one mesh for each material. */
class ModelParserOBJ : public ModelParser {
public:
    using ModelParser::ModelParser;

    /** Null for a file that can't be opened, which is reported. mstAUTO means mstSMOOTH. */
    std::unique_ptr<ModelDataShared> parse() override;
};

} // namespace Vantrel
