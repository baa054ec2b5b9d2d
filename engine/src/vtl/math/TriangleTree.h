#pragma once

#include "vtl/math/HitBox.h"
#include "vtl/math/TriangleList.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace Vantrel {

/**
 * Finds the first hit of a line among many triangles with the answer of `TriangleList::findNearestHit`, to
 * the last bit, from a tree of boxes. Borrows both lists; when they or a vertex have changed, a new tree is
 * due. Triangles hardly wider than a line are tried for every line.
 */
class TriangleTree {
public:
    TriangleTree(std::span<const Vector* const> vertices, std::span<const std::uint32_t> indices);

    /**
     * The hit nearest to `start` of the line through `start` and `end`, or with `segmentOnly` of the part
     * between them. Without it hits behind `start` count too; of equally near ones the first triangle's does.
     */
    std::optional<TriangleHit> findNearestHit(const Vector& start, const Vector& end, bool segmentOnly) const;

private:
    class Search;
    /** A triangle while the tree is built. */
    struct Item {
        HitBox box;
        std::uint32_t triangle;
    };
    /** Places in `order`. */
    struct Range {
        std::size_t begin;
        std::size_t end;
    };

    /** The triangles with a box; fills `alwaysTried`. */
    std::vector<Item> sortOut();
    /** Puts the triangles of a node's first child before those of its second, apart on the longest axis. */
    static void split(std::span<Item> items, std::size_t countOfFirst);
    /** Along which their middles lie furthest apart. */
    static std::size_t widestAxisOf(std::span<const Item> items);
    void buildBoxes(std::span<const Item> items);
    /** The triangles of a node: the nodes of a level share all of them evenly. */
    Range rangeOf(std::size_t node) const;
    bool isLeaf(std::size_t node) const { return 2 * node >= nodes.size(); }

    TriangleList triangles;
    /** The triangles without a box; all of them where there are few. */
    std::vector<std::uint32_t> alwaysTried;
    /** The triangles of the leaves. */
    std::vector<std::uint32_t> order;
    /** From 1: the children of node i are 2 i and 2 i + 1, and all leaves are on the last level. */
    std::vector<HitBox> nodes;
};

} // namespace Vantrel
