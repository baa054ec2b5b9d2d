#include "vtl/shell/NetMsgCreateWO.h"

#include "vtl/net/ManagerSerializableNetMsgMap.h"
#include "vtl/scene/model/Model.h"
#include "vtl/scene/object/WorldContainer.h"
#include "vtl/scene/shape/WOPrimitiveShape.h"
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
    constexpr float side = 4.0F;
    auto marker = WOPrimitiveShape::New(PRIMITIVE_SHAPE_TYPE::psCUBE, {side});
    marker->getModel()->getSkin().setColor(255, 0, 0, 255);
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
