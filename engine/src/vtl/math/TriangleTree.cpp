#include "vtl/math/TriangleTree.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>

namespace Vantrel {
namespace {

/** Below this number trying all is as fast. */
constexpr std::size_t leastTriangles = 32;
constexpr std::size_t trianglesOfLeaf = 4;
constexpr double infinity = std::numeric_limits<double>::infinity();

using Coordinates = std::array<double, 3>;

Coordinates coordinatesOf(const Vector& v) {
    return {v.x, v.y, v.z};
}

double largestOf(const Coordinates& v) {
    return std::max({std::abs(v[0]), std::abs(v[1]), std::abs(v[2])});
}

/** To a triangle without a normal all lines are parallel; one too large for its normal is hit at NaNs. */
bool canBeHit(const TriangleList::Corners& corners) {
    const Vector normal = TriangleList::normalOf(corners);
    const bool isZero = normal.x == 0.0F && normal.y == 0.0F && normal.z == 0.0F;
    return !isZero && std::isfinite(normal.x) && std::isfinite(normal.y) && std::isfinite(normal.z);
}

/** Twice the middle of the box. */
float middleOf(const HitBox& box, std::size_t axis) {
    return box.low[axis] + box.high[axis];
}

} // namespace

/** One line on its way through the tree, in double precision; places on it go by its parameter. */
class TriangleTree::Search {
public:
    Search(const TriangleTree& searched, const Vector& lineStart, const Vector& lineEnd, bool onlySegment)
        : tree(searched)
        , from(lineStart)
        , to(lineEnd)
        , segmentOnly(onlySegment)
        , start(coordinatesOf(lineStart))
        , largestStart(largestOf(start))
        , least(onlySegment ? 0.0 : -infinity)
        , greatest(onlySegment ? 1.0 : infinity) {
        const Coordinates direction = coordinatesOf(lineEnd - lineStart);
        length = std::hypot(direction[0], direction[1], direction[2]);
        for (std::size_t axis = 0; axis < direction.size(); ++axis) {
            // Instead of infinity, which would make 0 times it a NaN for a start in the face of a box.
            inverse[axis] =
                direction[axis] == 0.0 ? std::numeric_limits<double>::max() : 1.0 / direction[axis];
        }
    }

    std::optional<TriangleHit> run() {
        tryAll(tree.alwaysTried);
        if (!tree.nodes.empty()) {
            descend();
        }
        return nearest;
    }

private:
    struct Pending {
        std::size_t node;
        double distance;
    };

    /** The nearer child first, so that what it finds saves the other. */
    void descend() {
        push(1, distanceOf(1));
        while (count > 0) {
            const Pending next = pending[--count];
            if (next.distance > std::max(-least, greatest)) {
                continue;
            }
            if (tree.isLeaf(next.node)) {
                const Range range = tree.rangeOf(next.node);
                tryAll(std::span(tree.order).subspan(range.begin, range.end - range.begin));
            } else {
                pushChildren(2 * next.node);
            }
        }
    }

    void pushChildren(std::size_t first) {
        const double firstDistance = distanceOf(first);
        const double secondDistance = distanceOf(first + 1);
        const bool isFirstNearer = firstDistance <= secondDistance;
        push(isFirstNearer ? first + 1 : first, std::max(firstDistance, secondDistance));
        push(isFirstNearer ? first : first + 1, std::min(firstDistance, secondDistance));
    }

    void push(std::size_t node, double distance) {
        if (distance < infinity) {
            pending[count++] = {.node = node, .distance = distance};
        }
    }

    /** The least absolute parameter within the limits at which the line is in the box, or infinity. */
    double distanceOf(std::size_t node) const {
        const HitBox& box = tree.nodes[node];
        const double widening = box.growth * largestStart;
        double first = least;
        double last = greatest;
        for (std::size_t axis = 0; axis < start.size(); ++axis) {
            const double low = (box.low[axis] - widening - start[axis]) * inverse[axis];
            const double high = (box.high[axis] + widening - start[axis]) * inverse[axis];
            first = std::max(first, std::min(low, high));
            last = std::min(last, std::max(low, high));
        }
        return first <= last ? std::max({first, -last, 0.0}) : infinity;
    }

    void tryAll(std::span<const std::uint32_t> candidates) {
        for (const std::uint32_t triangle : candidates) {
            TriangleList::keepNearer(nearest, tree.triangles.findHit(triangle, from, to, segmentOnly));
        }
        if (nearest) {
            narrow();
        }
    }

    /** Cuts off what is further than `nearest`, with room for the rounding of points and distances. */
    void narrow() {
        constexpr double rounding = 0x1p-24;
        constexpr double underflow = 1e-22; // the square of anything smaller is zero in single precision
        const double distance = std::sqrt(static_cast<double>(nearest->distanceSquared)) +
                                4 * rounding * largestStart + underflow;
        const double furthest = distance * (1 + 32 * rounding) / length;
        least = std::max(least, -furthest);
        greatest = std::min(greatest, furthest);
    }

    const TriangleTree& tree;
    const Vector& from;
    const Vector& to;
    bool segmentOnly;
    Coordinates start;
    Coordinates inverse{};
    double length = 0;
    double largestStart;
    /** Of the parameter: beyond there is no hit, or none as near. */
    double least;
    double greatest;
    std::optional<TriangleHit> nearest;
    /** At most one node of each level and a sibling: there are fewer levels than bits in a number. */
    std::array<Pending, 40> pending{};
    std::size_t count = 0;
};

TriangleTree::TriangleTree(std::span<const Vector* const> vertices, std::span<const std::uint32_t> indices)
    : triangles(vertices, indices) {
    std::vector<Item> items = sortOut();
    const std::size_t leaves = std::bit_ceil((items.size() + trianglesOfLeaf - 1) / trianglesOfLeaf);
    order.resize(items.size());
    nodes.resize(items.empty() ? 0 : 2 * leaves);
    for (std::size_t node = 1; !isLeaf(node); ++node) {
        const Range range = rangeOf(node);
        split(std::span(items).subspan(range.begin, range.end - range.begin),
              rangeOf(2 * node).end - range.begin);
    }
    std::transform(items.begin(), items.end(), order.begin(), [](const Item& item) { return item.triangle; });
    buildBoxes(items);
}

std::optional<TriangleHit> TriangleTree::findNearestHit(const Vector& start, const Vector& end,
                                                        bool segmentOnly) const {
    return HitBox::holdsFor(start, end - start) ? Search(*this, start, end, segmentOnly).run()
                                                : triangles.findNearestHit(start, end, segmentOnly);
}

std::vector<TriangleTree::Item> TriangleTree::sortOut() {
    const bool isTreeWorthwhile = triangles.size() >= leastTriangles;
    std::vector<Item> items;
    items.reserve(isTreeWorthwhile ? triangles.size() : 0);
    for (std::uint32_t triangle = 0; triangle < triangles.size(); ++triangle) {
        const auto corners = triangles.cornersOf(triangle);
        if (!corners || !canBeHit(*corners)) {
            continue;
        }
        if (const auto box = isTreeWorthwhile ? HitBox::of(*corners) : std::nullopt) {
            items.push_back({.box = *box, .triangle = triangle});
        } else {
            alwaysTried.push_back(triangle);
        }
    }
    return items;
}

void TriangleTree::split(std::span<Item> items, std::size_t countOfFirst) {
    const std::size_t axis = widestAxisOf(items);
    std::nth_element(
        items.begin(), items.begin() + static_cast<std::ptrdiff_t>(countOfFirst), items.end(),
        [axis](const Item& a, const Item& b) { return middleOf(a.box, axis) < middleOf(b.box, axis); });
}

std::size_t TriangleTree::widestAxisOf(std::span<const Item> items) {
    std::array<float, 3> widths{};
    for (std::size_t axis = 0; axis < widths.size(); ++axis) {
        float least = std::numeric_limits<float>::max();
        float greatest = -least;
        for (const Item& item : items) {
            least = std::min(least, middleOf(item.box, axis));
            greatest = std::max(greatest, middleOf(item.box, axis));
        }
        widths[axis] = greatest - least;
    }
    return static_cast<std::size_t>(std::max_element(widths.begin(), widths.end()) - widths.begin());
}

void TriangleTree::buildBoxes(std::span<const Item> items) {
    for (std::size_t node = nodes.size(); node-- > 1;) {
        if (isLeaf(node)) {
            const Range range = rangeOf(node);
            for (std::size_t place = range.begin; place < range.end; ++place) {
                nodes[node].add(items[place].box);
            }
        } else {
            nodes[node].add(nodes[2 * node]);
            nodes[node].add(nodes[2 * node + 1]);
        }
    }
}

TriangleTree::Range TriangleTree::rangeOf(std::size_t node) const {
    const auto level = static_cast<std::size_t>(std::bit_width(node) - 1);
    const std::size_t place = node - (std::size_t{1} << level);
    return {.begin = (place * order.size()) >> level, .end = ((place + 1) * order.size()) >> level};
}

} // namespace Vantrel
