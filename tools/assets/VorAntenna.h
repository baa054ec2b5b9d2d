#pragma once

#include "tools/assets/Studio3dsWriter.h"

#include <vector>

namespace Assets {

/**
 * The parts of a Doppler VOR, each as large as the viewer's scales make 2 by 2 by 1 of. Both reach from edge
 * to edge of the counterpoise.
 */
std::vector<MaterialMesh> vorCounterpoise();
/** A ring of antennas about the one in the middle, and what monitors them at the edge. */
std::vector<MaterialMesh> vorAntennas();

} // namespace Assets
