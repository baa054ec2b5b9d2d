#include "vtl/scene/shape/WOAxes.h"

#include "vtl/scene/shape/MGLAxes.h"

namespace Vantrel {

std::unique_ptr<WOAxes> WOAxes::New(const Vector& extent, float lineWidth) {
    auto object = std::make_unique<WOAxes>();
    object->onCreate(extent, lineWidth);
    return object;
}

void WOAxes::onCreate(const Vector& extent, float lineWidth) {
    setModel(MGLAxes::New(this, extent, lineWidth));
}

void WOAxes::setLineWidth(float width) {
    if (MGLAxes* const axes = findAxes()) {
        axes->setLineWidth(width);
    }
}

float WOAxes::getLineWidth() const {
    const MGLAxes* const axes = findAxes();
    return axes != nullptr ? axes->getLineWidth() : 0.0F;
}

MGLAxes* WOAxes::findAxes() const {
    return dynamic_cast<MGLAxes*>(getModel());
}

} // namespace Vantrel
