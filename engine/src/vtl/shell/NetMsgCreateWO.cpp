#include "vtl/shell/NetMsgCreateWO.h"

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/net/ManagerSerializableNetMsgMap.h"
#include "vtl/scene/object/WO.h"
#include "vtl/scene/object/WorldContainer.h"
#include "vtl/shell/GLView.h"
#include "vtl/shell/ManagerGLView.h"

#include <memory>

namespace Vantrel {
namespace {

const NetMsgRegistration<NetMsgCreateWO> registration;
const NetMsgRegistration<NetMsgCreateWOReply> replyRegistration;

} // namespace

void NetMsgCreateWO::onMessageArrived() {
    Report() << "Message has arrived... " << toString() << "\n";
    auto marker = WO::New(ManagerEnvironmentConfiguration::getSharedMultimediaPath() +
                          "/models/cube4x4x4redShinyPlastic_pp.wrl");
    Report() << "Payload\n" << x << "," << y << "," << z << ".\n";
    marker->setPosition(Vector(x, y, z));
    marker->setLabel("Created by IPC Net Msg");

    NetMsgCreateWOReply answer;
    answer.woId = marker->getID();
    ManagerGLView::getGLView()->getWorldContainer()->push_back(marker.release()); // the world's from here on
    sendReply(answer);
}

void NetMsgCreateWOReply::onMessageArrived() {
    Report() << "Message has arrived... " << toString() << "\n";
}

} // namespace Vantrel
