#pragma once

#include "vtl/scene/model/MGL.h"

namespace Vantrel {

/** A model that draws nothing: the place and the turn of an object whose parts are its children. */
class MGLNullModel : public MGL {
public:
    using MGL::MGL;

    void render(Camera* /*camera*/) override {}
};

} // namespace Vantrel
