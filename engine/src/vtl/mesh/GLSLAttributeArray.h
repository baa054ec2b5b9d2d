#pragma once

#include "vtl/gl/shader/GLSLAttributeType.h"
#include "vtl/math/VectorT.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Vantrel {

/** A named attribute of every vertex of a mesh, beside its position, normal, coordinates and colour. */
class GLSLAttributeArray {
public:
    /** Empty; `elementType` is a `GLSLAttributeType`. */
    GLSLAttributeArray(std::string attributeName, std::uint32_t elementType);

    /** Bytes of one element; 0 for an unknown type, whose array stays empty. */
    std::uint32_t elementSize() const { return sizeOfAttributeType(type); }
    /** How many elements there are. */
    std::size_t size() const { return elementSize() != 0 ? data.size() / elementSize() : 0; }
    /** Makes it `count` elements long; new ones are zero. */
    void resize(std::size_t count) { data.resize(count * elementSize()); }

    /** Sets the element of that vertex. Does nothing for a type other than atVEC3 or beyond the end. */
    void setAt(std::size_t index, const Vector& value);
    /** The element of that vertex; zero for a type other than atVEC3 and beyond the end. */
    Vector getAt(std::size_t index) const;

    std::string name;
    std::uint32_t type;
    /** The elements by vertex number, one directly behind the other. */
    std::vector<std::byte> data;
};

} // namespace Vantrel
