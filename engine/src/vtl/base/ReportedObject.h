#pragma once

#include <cstdint>
#include <string>

namespace Vantrel {

struct ObjectTimes;

/** What a report needs to know of a world object: its number and the name that a person gave it. */
class ReportedObject {
public:
    ReportedObject() = default;
    ReportedObject(const ReportedObject&) = delete;
    ReportedObject& operator=(const ReportedObject&) = delete;
    virtual ~ReportedObject() = default;

    virtual std::uint32_t getID() const = 0;
    virtual const std::string& getLabel() const = 0;

private:
    friend class ManagerSDLTime;

    /** The object's record in the time report, once there is one: it is needed several times a frame. */
    mutable ObjectTimes* times = nullptr;
};

} // namespace Vantrel
