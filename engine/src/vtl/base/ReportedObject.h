#pragma once

#include <cstdint>
#include <string>

namespace Vantrel {

/** What a report needs to know of a world object: its number and the name that a person gave it. */
class ReportedObject {
public:
    virtual std::uint32_t getID() const = 0;
    virtual const std::string& getLabel() const = 0;

protected:
    ~ReportedObject() = default;
};

} // namespace Vantrel
