#include "vtl/scene/object/ObjectList.h"

#include "vtl/base/Report.h"

#include <algorithm>

namespace Vantrel::ObjectList {

std::optional<std::size_t> find(const std::vector<WO*>& objects, const WO* object) {
    const auto entry = std::find(objects.begin(), objects.end(), object);
    if (entry == objects.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(entry - objects.begin());
}

bool checkIndex(const std::vector<WO*>& objects, std::size_t index, const char* className) {
    if (index < objects.size()) {
        return true;
    }
    Report() << "ERROR: User invoked " << className << "::eraseViaWOIndex( size_t index )\n"
             << "   with index of " << index << "; however, size of WorldContainer is " << objects.size()
             << ".\n"
             << "   User attempted to access index out of bounds of WorldContainer...\n"
             << "   eraseViaWOIndex is returning false...\n"
             << "   Continuing normally...\n";
    return false;
}

Step stepOn(const std::vector<WO*>& objects, std::size_t place, const WO* object) {
    if (place < objects.size() && objects[place] == object) {
        return {place + 1, true};
    }
    const auto moved = find(objects, object);
    return moved ? Step{*moved + 1, true} : Step{place, false};
}

void dropLast(std::vector<WO*>& objects, const WO& object) {
    const auto entry = std::find(objects.rbegin(), objects.rend(), &object);
    if (entry != objects.rend()) {
        objects.erase(std::next(entry).base());
    }
}

} // namespace Vantrel::ObjectList
