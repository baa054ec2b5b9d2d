#pragma once

#include "vtl/net/EngineMessageLayouts.h"

namespace Vantrel {

/** Puts a marker object into the world and answers with its id. */
class NetMsgCreateWO : public NetMsgWithLayout<CreateWOLayout> {
public:
    void onMessageArrived() override;
};

/** Answers `NetMsgCreateWO`; goes from the viewer to the tool. */
class NetMsgCreateWOReply : public NetMsgWithLayout<CreateWOReplyLayout> {
public:
    void onMessageArrived() override;
};

} // namespace Vantrel
