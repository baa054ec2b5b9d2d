#pragma once

#include "vtl/net/EngineMessageLayouts.h"

namespace Vantrel {

/** Ends the viewer. Takes effect as soon as it is read, even if the main thread never reaches it. */
class NetMsgShutdownInstance : public NetMsgWithLayout<ShutdownInstanceLayout> {
public:
    bool fromStream(NetMessengerStreamBuffer& buffer) override;
    void onMessageArrived() override;
};

} // namespace Vantrel
