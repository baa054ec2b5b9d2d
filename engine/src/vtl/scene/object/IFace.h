#pragma once

#include <cstdint>

namespace Vantrel {

/** Root of what an object can be beside its class: a set of interface bits. Inherited virtually. */
class IFace {
public:
    /** The object is a GUI widget. */
    static constexpr std::uint32_t guiWidget = 0x40;

    IFace() = default;
    IFace(const IFace&) = delete;
    IFace& operator=(const IFace&) = delete;
    virtual ~IFace() = default;

    /** Whether one of the bits of `mask` is set. */
    bool hasInterface(std::uint32_t mask) const { return (interfaceFlags & mask) != 0; }
    void addInterface(std::uint32_t mask) { interfaceFlags |= mask; }

private:
    std::uint32_t interfaceFlags = 0;
};

} // namespace Vantrel
