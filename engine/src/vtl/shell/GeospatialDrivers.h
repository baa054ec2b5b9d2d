#pragma once

namespace Vantrel {

/**
 * Registers the drivers of the geospatial library. The library is loaded here and not with the program: it and what
 * it needs take longer to load than everything up to the first picture. Without it the viewer reports and goes on.
 */
void registerGeospatialDrivers();

} // namespace Vantrel
