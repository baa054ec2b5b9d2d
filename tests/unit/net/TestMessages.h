#pragma once

#include "vtl/net/ManagerSerializableNetMsgMap.h"
#include "vtl/net/MessageLayout.h"

#include <algorithm>
#include <atomic>
#include <stdexcept>
#include <string>
#include <vector>

namespace Vantrel::Tests {

/** What probes did on the main thread, in order: "7" acted, "7 replied", "7 found no way back", "7 gone". */
inline std::vector<std::string> deeds;

struct ProbeLayout {
    static constexpr std::string_view name = "NetMsgProbe";
    std::uint32_t number = 0;
    std::uint32_t replyLength = 0;
    std::string remark;

    template <class Self, class Visitor>
    static void visit(Self& self, Visitor&& visitor) {
        visitor.field("number", self.number, "");
        visitor.field("replyLength", self.replyLength, "length of the reply's remark; 0 wants no reply");
        visitor.field("remark", self.remark, "\"refuse\", \"throw reading\" and \"throw acting\" are obeyed");
    }
};

struct ProbeReplyLayout : ProbeLayout {
    static constexpr std::string_view name = "NetMsgProbeReply";
};

/** Puts on record what becomes of it. */
class NetMsgProbe : public NetMsgWithLayout<ProbeLayout> {
public:
    NetMsgProbe() { ++alive; }
    ~NetMsgProbe() override {
        bytesHeld -= remark.size();
        if (hasActed) {
            deeds.push_back(std::to_string(number) + " gone");
        }
        --alive;
    }
    bool fromStream(NetMessengerStreamBuffer& buffer) override {
        NetMsgWithLayout::fromStream(buffer);
        const std::size_t held = bytesHeld += remark.size();
        mostBytesHeld = std::max<std::size_t>(mostBytesHeld, held); // one thread reads messages
        throwWhen("throw reading");
        return remark != "refuse";
    }
    void onMessageArrived() override {
        throwWhen("throw acting");
        hasActed = true;
        deeds.push_back(std::to_string(number));
        if (replyLength > 0) {
            NetMsgWithLayout<ProbeReplyLayout> reply;
            reply.number = number;
            reply.remark.assign(replyLength, 'r');
            deeds.back() += sendReply(reply) ? " replied" : " found no way back";
        }
    }

    inline static std::atomic<int> alive = 0;
    inline static std::atomic<std::size_t> bytesHeld = 0;
    inline static std::atomic<std::size_t> mostBytesHeld = 0;

private:
    void throwWhen(const char* order) const {
        if (remark == order) {
            throw std::runtime_error("told to " + remark);
        }
    }

    bool hasActed = false;
};

} // namespace Vantrel::Tests
