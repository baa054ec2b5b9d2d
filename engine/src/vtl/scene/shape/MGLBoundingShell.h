#pragma once

#include "vtl/scene/model/MGL.h"

#include <memory>

namespace Vantrel {

/** A model that is a box and shows nothing but its edges. */
class MGLBoundingShell : public MGL {
public:
    /** From the model's origin to `lengths`. */
    static std::unique_ptr<MGLBoundingShell> New(WO* parent, const Vector& lengths);

    MGLBoundingShell(WO* parent, const Vector& lengths);

    void render(Camera* camera) override;
};

} // namespace Vantrel
