#pragma once

#include "tools/assets/Picture.h"

namespace Assets {

/** The face of a widget: dark glass, on which light text reads well. */
Picture panelPicture();

/** A bright frame with nothing in it. */
Picture focusBorderPicture();

} // namespace Assets
