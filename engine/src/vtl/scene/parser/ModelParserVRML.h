#pragma once

#include "vtl/scene/parser/ModelParser.h"

namespace Vantrel {

class GLSLShader;

/** Reads VRML 1.0 files, as one exporter writes them: the first shape of a file makes the one mesh. */
class ModelParserVRML : public ModelParser {
public:
    using ModelParser::ModelParser;

    /**
     * Null, after a report, for a file without a whole shape; one that can't be opened, or is too large for
     * the memory, ends the process after a key. mstAUTO means mstSMOOTH, and what is neither of these
     * mstFLAT.
     *
     * The name of the texture may say that it is the colour map of several: beside NAME_COLOR.png,
     * NAME_NRM.png is the map of normals and NAME_SPEC.png that of highlights, where they are there.
     */
    std::unique_ptr<ModelDataShared> parse() override;

    /**
     * For skins with maps of colours, normals and highlights, in this order; the default shader where it
     * can't be loaded.
     */
    static std::unique_ptr<GLSLShader> newNormalMapShader();
};

} // namespace Vantrel
