#include "vtl/base/ManagerRandomNumber.h"

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/base/Report.h"
#include "vtl/base/TickSource.h"

#include <cstdint>
#include <cstdlib>

namespace Vantrel {

void ManagerRandomNumber::init() {
    std::uint32_t seed = 0;
    if (ManagerEnvironmentConfiguration::getVariableValue("randomnumberseedsource") == "SDL_CLOCK") {
        seed = currentTick();
        Report() << "Seeding ManagerRandomNumber with SDL_CLOCK time of " << seed << "\n";
    } else {
        seed = ManagerEnvironmentConfiguration::getUnsigned("randomnumberseedsource");
        Report() << "Seeding ManagerRandomNumber with user specified seed (unsigned int) of " << seed << "\n";
    }
    std::srand(seed);
}

int ManagerRandomNumber::getRandomInt(int lo, int hi) {
    // In 64 bits, so that no range overflows; the remainder keeps the sign of its left side.
    const std::int64_t count = static_cast<std::int64_t>(hi) - lo + 1;
    if (count == 0) {
        return lo;
    }
    const std::int64_t drawn = lo + std::rand() % count;
    const bool flipSign = std::rand() % 2 == 0 && lo < 0;
    return static_cast<int>(flipSign ? -drawn : drawn);
}

} // namespace Vantrel
