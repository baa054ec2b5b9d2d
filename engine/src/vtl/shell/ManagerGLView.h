#pragma once

namespace Vantrel {

class GLView;

/** Holds the one application object for the rest of the system. Main thread. */
class ManagerGLView {
public:
    /** Takes the object; null is fatal. */
    static void init(GLView* view);
    static void shutdown();
    /** Null outside of the object's life. */
    static GLView* getGLView();
};

} // namespace Vantrel
