#include "vtl/shell/GeospatialDrivers.h"

#include "vtl/base/Report.h"

#include <dlfcn.h>
#include <gdal.h>

namespace Vantrel {

void registerGeospatialDrivers() {
    // Kept for good: the library isn't made to be unloaded.
    void* const library = ::dlopen(KELDIN_GDAL_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        Report() << "WARNING: " << ::dlerror() << "\n";
        return;
    }
    const auto registerAll = reinterpret_cast<decltype(&GDALAllRegister)>(::dlsym(library, "GDALAllRegister"));
    if (registerAll != nullptr) {
        registerAll();
    }
}

} // namespace Vantrel
