#pragma once

#include "vtl/net/MessageLayout.h"

namespace Vantrel {

/** Names the class in the body instead of in the header: the body is the class's name, then the class's own
 * body. */
struct GenericLayout {
    static constexpr std::string_view name = "NetMsgGeneric";
    std::string payload;

    template <class Self, class Visitor>
    static void visit(Self& self, Visitor&& visitor) {
        visitor.field("payload", self.payload, "name of the message class whose body follows");
    }
    void printPayload(ReportText& text) const { text << "   Payload: '" << payload << "'...\n"; }
};

/** Asks for a marker cube at a position. */
struct CreateWOLayout {
    static constexpr std::string_view name = "NetMsgCreateWO";
    static constexpr std::string_view reply = "NetMsgCreateWOReply";
    float x = 0;
    float y = 0;
    float z = 0;

    template <class Self, class Visitor>
    static void visit(Self& self, Visitor&& visitor) {
        visitor.field("x", self.x, "m, position of the new object");
        visitor.field("y", self.y, "m, position of the new object");
        visitor.field("z", self.z, "m, position of the new object");
    }
    void printPayload(ReportText& text) const { text << "Payload\n" << x << "," << y << "," << z << ".\n"; }
};

/** Answers a request for a marker cube. */
struct CreateWOReplyLayout {
    static constexpr std::string_view name = "NetMsgCreateWOReply";
    std::uint32_t woId = 0;

    template <class Self, class Visitor>
    static void visit(Self& self, Visitor&& visitor) {
        visitor.field("woId", self.woId, "id of the object that was made");
    }
    void printPayload(ReportText& text) const { text << "   Payload: " << woId << "...\n"; }
};

/** Ends the viewer. */
struct ShutdownInstanceLayout : EmptyLayout {
    static constexpr std::string_view name = "NetMsgShutdownInstance";
};

} // namespace Vantrel
