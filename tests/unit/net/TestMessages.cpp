#include "tests/unit/net/TestMessages.h"

#include "vtl/net/EngineMessageLayouts.h"

namespace Vantrel::Tests {
namespace {

const NetMsgRegistration<NetMsgProbe> probeRegistration;
const NetMsgRegistration<NetMsgWithLayout<ProbeReplyLayout>> probeReplyRegistration;
const NetMsgRegistration<NetMsgWithLayout<CreateWOLayout>> createWORegistration;
const NetMsgRegistration<NetMsgWithLayout<CreateWOReplyLayout>> createWOReplyRegistration;
const NetMsgRegistration<NetMsgWithLayout<ShutdownInstanceLayout>> shutdownInstanceRegistration;

} // namespace
} // namespace Vantrel::Tests
