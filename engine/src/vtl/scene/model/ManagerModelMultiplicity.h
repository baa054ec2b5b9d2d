#pragma once

#include "vtl/math/VectorT.h"
#include "vtl/mesh/MeshShadingType.h"

#include <memory>
#include <string>
#include <string_view>

namespace Vantrel {

class ModelDataShared;
class ModelParser;

/**
 * Lets all models of one file and scale share one copy of its geometry, in memory and on the card. The copy
 * lives as long as one of them does. Main thread.
 */
class ManagerModelMultiplicity {
public:
    /** Makes the parser of a file. */
    using MakeParser = std::unique_ptr<ModelParser> (*)(const std::string& fileName, const Vector& scale,
                                                        MESH_SHADING_TYPE shadingType);

    /** Tells whether vertices go to the card. */
    static void init();
    /** Forgets every file. */
    static void shutdown();

    /**
     * Sets `out` to a new instance of the file, which is read unless there is one already. A file that can't
     * be read, or has no ending that a parser knows, ends the process after a key.
     */
    static void getModelData(std::unique_ptr<ModelDataShared>& out, const std::string& fileName,
                             const Vector& scale, MESH_SHADING_TYPE shadingType);
    /** One instance less; with the last one the file is forgotten. Does nothing for a file forgotten before.
     */
    static void release(const ModelDataShared& instance);

    /**
     * Has files read that have `ending`, one of ".wrl", ".3ds" and ".obj", somewhere in their names, in lower
     * or upper case. The three are looked for in this order. Returns the former parser; null for none.
     */
    static MakeParser setParser(std::string_view ending, MakeParser make);
};

} // namespace Vantrel
