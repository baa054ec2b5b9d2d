#include "vtl/scene/object/WO.h"

#include "vtl/base/ManagerSDLTime.h"
#include "vtl/base/Report.h"

namespace Vantrel {
namespace {

std::uint32_t lastID = 0;

void reportKey(const char* callback, const SDL_KeyboardEvent& event, const WO& object) {
    Report() << callback << " '" << static_cast<char>(event.keysym.sym & 0xFF) << "' woID " << object.getID()
             << " - '" << object.getLabel() << "'\n";
}

} // namespace

WO::WO() : woID(++lastID) {
}

WO::~WO() {
    ManagerSDLTime::forget(*this);
}

void WO::onKeyDown(const SDL_KeyboardEvent& event) {
    reportKey("WO::onKeyDown()", event, *this);
}

void WO::onKeyUp(const SDL_KeyboardEvent& event) {
    reportKey("WO::onKeyUp()", event, *this);
}

void WO::updateGL() {
    timeAliveMs += ManagerSDLTime::getSimDeltaMs();
}

} // namespace Vantrel
