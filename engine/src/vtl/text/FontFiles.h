#pragma once

#include <string>
#include <vector>

namespace Vantrel {

/**
 * Font files that may stand in for `fileName` where its face doesn't open, the best first, as far as they are
 * there: the viewer's own, then the distribution's; fixed-width ones for a file that is named like one.
 */
std::vector<std::string> getStandInFonts(const std::string& fileName);

} // namespace Vantrel
