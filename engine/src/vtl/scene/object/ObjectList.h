#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace Vantrel {

class WO;

/** What the lists of world objects do alike. */
namespace ObjectList {

/** Place of the first entry equal to `object`. */
std::optional<std::size_t> find(const std::vector<WO*>& objects, const WO* object);

/** Whether `index` is the place of an entry; reports one that isn't in the name of `className`. */
bool checkIndex(const std::vector<WO*>& objects, std::size_t index, const char* className);

/** Where a walk goes on. */
struct Step {
    std::size_t next;
    bool isObjectThere;
};

/** The place behind `object`, which was at `place` when the walk came to it; the list may have changed. */
Step stepOn(const std::vector<WO*>& objects, std::size_t place, const WO* object);

/** Removes the last entry equal to `object`, where there is one; teardown goes from the end. */
void dropLast(std::vector<WO*>& objects, const WO& object);

} // namespace ObjectList
} // namespace Vantrel
