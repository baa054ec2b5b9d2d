#pragma once

namespace Vantrel {

/** Opens the first joystick and tells what it is; nothing reads it. Main thread, with SDL there. */
class ManagerDeviceInput {
public:
    static void init();
    static void shutdown();
};

} // namespace Vantrel
