#include "vtl/math/vtlColor4f.h"

#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/base/SourceLocation.h"

namespace Vantrel {

float& vtlColor4f::operator[](int i) {
    switch (i) {
    case 0:
        return r;
    case 1:
        return g;
    case 2:
        return b;
    case 3:
        return a;
    default:
        Report() << "ERROR:" << locationText()
                 << "vtlColor4f::operator[] - index out of bounds (not 0,1,2,3)... Fix this call... "
                    "Now going to divide by zero.";
        Pause::waitForKey();
        return r;
    }
}

} // namespace Vantrel
