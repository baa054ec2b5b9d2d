#pragma once

#include "vtl/net/EngineMessageLayouts.h"

namespace Vantrel {

/** The message that names its class in the body. The registry consumes it, so it is never delivered. */
class NetMsgGeneric : public NetMsgWithLayout<GenericLayout> {
public:
    void onMessageArrived() override;
};

} // namespace Vantrel
