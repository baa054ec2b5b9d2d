#include "vtl/shell/ManagerDeviceInput.h"

#include "vtl/base/Report.h"

#include <SDL.h>

namespace Vantrel {
namespace {

SDL_Joystick* joystick = nullptr;

void reportJoystick() {
    const char* const name = SDL_JoystickName(joystick);
    Report() << "VANTREL ManagerDeviceInput found a Joystick...\n"
             << "   There are " << SDL_NumJoysticks() << " joysticks available\n"
             << "   Default joystick (index 0) is " << (name != nullptr ? name : "") << "\n"
             << "      Joystick number of axis = " << SDL_JoystickNumAxes(joystick) << "\n"
             << "      Joystick number of hats = " << SDL_JoystickNumHats(joystick) << "\n"
             << "      Joystick number of balls = " << SDL_JoystickNumBalls(joystick) << "\n"
             << "      Joystick number of buttons = " << SDL_JoystickNumButtons(joystick) << "\n";
}

} // namespace

void ManagerDeviceInput::init() {
    joystick = SDL_JoystickOpen(0);
    if (joystick == nullptr) {
        Report() << "VANTREL ManagerDeviceInput could not find a Joystick... Continuing Normally...\n";
        SDL_ClearError();
        return;
    }
    reportJoystick();
}

void ManagerDeviceInput::shutdown() {
    Report() << "VANTREL ManagerDeviceInput shutting down...\n";
    if (joystick != nullptr) {
        SDL_JoystickClose(joystick);
        joystick = nullptr;
    }
}

} // namespace Vantrel
