#pragma once

namespace Vantrel {

/** The view for debugging: textures aren't shown on the fixed-function path, lights show where they are. */
inline bool debugViewEnabled = false;

} // namespace Vantrel
