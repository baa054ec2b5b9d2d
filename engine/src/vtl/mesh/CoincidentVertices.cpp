#include "vtl/mesh/CoincidentVertices.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <utility>

namespace Vantrel {
namespace {

std::uint64_t hashOf(const Vector& position) {
    // Adding 0 turns -0 into 0, so that equal components have equal bits. The mixing constants are those of
    // the finalizer of SplitMix64 (Steele, Lea, Flood, 2014).
    std::uint64_t hash = std::bit_cast<std::uint32_t>(position.x + 0.0F) * 0x9E3779B97F4A7C15U;
    hash = (hash ^ (hash >> 29U) ^ std::bit_cast<std::uint32_t>(position.y + 0.0F)) * 0xBF58476D1CE4E5B9U;
    hash = (hash ^ (hash >> 32U) ^ std::bit_cast<std::uint32_t>(position.z + 0.0F)) * 0x94D049BB133111EBU;
    return hash ^ (hash >> 31U);
}

bool hasNaN(const Vector& position) {
    return std::isnan(position.x) || std::isnan(position.y) || std::isnan(position.z);
}

/**
 * Numbers positions in the order in which they come: open addressing with linear probing. A slot holds its
 * position itself, so that a look-up costs one way to memory.
 */
class PositionTable {
public:
    explicit PositionTable(std::size_t expectedGroups) : slots(std::bit_ceil(expectedGroups + 2)) {}

    /** The number of that position, a new one where it hasn't come before. */
    std::uint32_t groupOf(const Vector& position, std::uint64_t hash) {
        Slot& slot = slotOf(position, hash);
        if (slot.group != CoincidentVertices::none) {
            return slot.group;
        }
        slot = {position.x, position.y, position.z, groupCount};
        if (++used > slots.size() / 4 * 3) {
            grow();
        }
        return groupCount++;
    }

    /** A number that no look-up will find. */
    std::uint32_t addGroup() { return groupCount++; }

    void prefetch(std::uint64_t hash) const { __builtin_prefetch(&slots[hash & (slots.size() - 1)]); }
    std::uint32_t getGroupCount() const { return groupCount; }

private:
    struct Slot {
        float x = 0;
        float y = 0;
        float z = 0;
        std::uint32_t group = CoincidentVertices::none;
    };

    /** Where that position stands, or the free slot where it belongs. */
    Slot& slotOf(const Vector& position, std::uint64_t hash) {
        for (std::size_t at = hash;; ++at) {
            Slot& slot = slots[at & (slots.size() - 1)];
            if (slot.group == CoincidentVertices::none ||
                (slot.x == position.x && slot.y == position.y && slot.z == position.z)) {
                return slot;
            }
        }
    }

    void grow() {
        const std::vector<Slot> old = std::exchange(slots, std::vector<Slot>(2 * slots.size()));
        for (const Slot& slot : old) {
            if (slot.group != CoincidentVertices::none) {
                const Vector position(slot.x, slot.y, slot.z);
                slotOf(position, hashOf(position)) = slot;
            }
        }
    }

    std::vector<Slot> slots;
    std::size_t used = 0;
    std::uint32_t groupCount = 0;
};

} // namespace

CoincidentVertices::CoincidentVertices(std::span<const Vector> positions,
                                       std::span<const std::uint32_t> indices)
    : groups(positions.size(), none) {
    constexpr std::uint32_t used = 0;
    for (const std::uint32_t index : indices) {
        groups[index] = used;
    }
    // Of the vertices of separate triangles about every sixth brings a new position.
    PositionTable table(positions.size() / 4);
    // The table of a large mesh doesn't fit into the cache: the slots of a batch are asked for together.
    constexpr std::size_t batch = 32;
    std::array<std::uint64_t, batch> hashes{};
    for (std::size_t begin = 0; begin < positions.size(); begin += batch) {
        const std::size_t end = std::min(begin + batch, positions.size());
        for (std::size_t i = begin; i < end; ++i) {
            hashes[i - begin] = hashOf(positions[i]);
            table.prefetch(hashes[i - begin]);
        }
        for (std::size_t i = begin; i < end; ++i) {
            if (groups[i] == none) {
                allUsed = false;
            } else {
                groups[i] =
                    hasNaN(positions[i]) ? table.addGroup() : table.groupOf(positions[i], hashes[i - begin]);
            }
        }
    }
    groupCount = table.getGroupCount();
}

} // namespace Vantrel
