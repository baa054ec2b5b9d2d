#include "vtl/shell/ManagerGLView.h"

#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"

namespace Vantrel {
namespace {

GLView* theView = nullptr;

} // namespace

void ManagerGLView::init(GLView* view) {
    if (view == nullptr) {
        Report() << "ERROR: ManagerGLView::init()...\n"
                 << "User must pass a valid GLView* into this manager\n"
                 << "Press ENTER to exit...\n";
        Pause::exitAfterKey();
    }
    theView = view;
}

void ManagerGLView::shutdown() {
    theView = nullptr;
}

GLView* ManagerGLView::getGLView() {
    return theView;
}

} // namespace Vantrel
