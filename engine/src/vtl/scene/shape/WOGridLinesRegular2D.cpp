#include "vtl/scene/shape/WOGridLinesRegular2D.h"

#include "vtl/base/Report.h"
#include "vtl/scene/shape/MGLGridLinesRegular2D.h"

namespace Vantrel {

std::unique_ptr<WOGridLinesRegular2D> WOGridLinesRegular2D::New(float lengthX, float stepX, float lengthY,
                                                                float stepY, const vtlColor4ub& color) {
    auto object = std::make_unique<WOGridLinesRegular2D>();
    object->onCreate(lengthX, stepX, lengthY, stepY, color);
    return object;
}

void WOGridLinesRegular2D::onCreate(float lengthX, float stepX, float lengthY, float stepY,
                                    const vtlColor4ub& color) {
    setModel(MGLGridLinesRegular2D::New(this, lengthX, stepX, lengthY, stepY, color));
}

void WOGridLinesRegular2D::setGlLineWidth(float width) {
    MGLGridLinesRegular2D* const grid = findGrid();
    if (grid == nullptr) {
        Report() << "WOGridLinesRegular2D::setGlLineWidth: this->model is NULL, cannot set line width...\n";
        return;
    }
    grid->setLineWidth(width);
}

float WOGridLinesRegular2D::getGlLineWidth() const {
    const MGLGridLinesRegular2D* const grid = findGrid();
    if (grid == nullptr) {
        Report() << "WOGridLinesRegular2D::setGlLineWidth: this->model is NULL, cannot get line width... "
                    "Returning 0\n";
        return 0.0F;
    }
    return grid->getLineWidth();
}

MGLGridLinesRegular2D* WOGridLinesRegular2D::findGrid() const {
    return dynamic_cast<MGLGridLinesRegular2D*>(getModel());
}

} // namespace Vantrel
