#pragma once

#include "vtl/base/Report.h"
#include "vtl/net/NetMessengerStreamBuffer.h"
#include "vtl/net/NetMsg.h"

#include <cstdint>
#include <string>
#include <string_view>

/**
 * A message's body is declared once, as a plain structure with a name and a `visit` that shows its fields in
 * wire order to whoever asks; reading, writing, the catalogue and the command line all come from that
 * declaration:
 *
 *     struct CreateWOLayout {
 *         static constexpr std::string_view name = "NetMsgCreateWO";
 *         float x = 0;
 *
 *         template <class Self, class Visitor>
 *         static void visit(Self& self, Visitor&& visitor) {
 *             visitor.field("x", self.x, "m, position of the new object");
 *         }
 *         void printPayload(ReportText& text) const; // optional: what follows the base text of a report
 *     };
 */
namespace Vantrel {

/** Visitor that extracts every field of a body. */
class LayoutReader {
public:
    explicit LayoutReader(NetMessengerStreamBuffer& source) : stream(source) {}

    template <class Field>
    void field(std::string_view /*name*/, Field& value, std::string_view /*meaning*/) {
        stream >> value;
    }

private:
    NetMessengerStreamBuffer& stream;
};

/** Visitor that inserts every field of a body. */
class LayoutWriter {
public:
    explicit LayoutWriter(NetMessengerStreamBuffer& target) : stream(target) {}

    template <class Field>
    void field(std::string_view /*name*/, const Field& value, std::string_view /*meaning*/) {
        stream << value;
    }

private:
    NetMessengerStreamBuffer& stream;
};

/**
 * A message class whose body is `Layout`. On its own it is the message without an effect. (Its own names end
 * in an underscore, so that a field may have any.)
 */
template <class Layout>
class NetMsgWithLayout : public NetMsg, public Layout {
public:
    std::string getMessageType() const override { return std::string(Layout::name); }

    bool toStreamBody(NetMessengerStreamBuffer& stream_) const override {
        Layout::visit(static_cast<const Layout&>(*this), LayoutWriter(stream_));
        return true;
    }

    bool fromStream(NetMessengerStreamBuffer& stream_) override {
        Layout::visit(static_cast<Layout&>(*this), LayoutReader(stream_));
        return true;
    }

    std::string toString() const override {
        ReportText report_;
        report_ << NetMsg::toString();
        if constexpr (requires { Layout::printPayload(report_); }) {
            Layout::printPayload(report_);
        }
        return report_.str();
    }
};

/** Layout of a message without fields. */
struct EmptyLayout {
    template <class Self, class Visitor>
    static void visit(Self& /*self*/, Visitor&& /*visitor*/) {}
};

} // namespace Vantrel
