#pragma once

#include "vtl/scene/parser/ModelParser.h"

namespace Vantrel {

/** Reads 3DS files: one mesh for each material. */
class ModelParser3DS : public ModelParser {
public:
    using ModelParser::ModelParser;

    /** Null for a file that can't be read, which is reported. mstAUTO means mstSMOOTH. */
    std::unique_ptr<ModelDataShared> parse() override;
};

} // namespace Vantrel
