#pragma once

#include <GL/glew.h>

namespace Vantrel {

/**
 * Loads all entry points for the current context through GLEW; `experimental` also those that the driver
 * doesn't list, as a core context needs. Missing ones are reported, which costs one pause.
 */
void loadGLEntryPoints(bool experimental);

/**
 * Whether `glewAnswer` to the loading means that GL can be used. GLEW looks for a GLX display last and says
 * so when there is none (off-screen, Wayland); by then everything is loaded.
 */
bool isGLUsable(GLenum glewAnswer);

/** True when the entry points up to 2.1 that need loading are there. */
bool areGL21EntryPointsLoaded();

/** Tells a person that GL can't be used and waits for a key, except in windowless mode. */
void reportMissingGLEntryPoints();

} // namespace Vantrel
