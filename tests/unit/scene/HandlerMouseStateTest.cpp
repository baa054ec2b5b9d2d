#include "vtl/scene/camera/HandlerMouseState.h"

#include "tests/support/MouseEvents.h"
#include "tests/support/ReportCapture.h"

#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::buttonEvent;
using Tests::motionEvent;

TEST(HandlerMouseStateTest, KeepsThePlaceOfTheFirstButtonUntilTheLastOneIsLetGo) {
    const Tests::ReportCapture reports;
    HandlerMouseState mouse;
    int x = 0;
    int y = 0;
    mouse.onMouseMove(motionEvent(3, 4));
    EXPECT_EQ(mouse.getDx(), 0) << "no button is held";
    mouse.onMouseDown(buttonEvent(SDL_BUTTON_LEFT, 10, 20));
    EXPECT_TRUE(mouse.isLeftDown() && mouse.isLeftPressed() && !mouse.isDragging());
    mouse.onMouseMove(motionEvent(3, -4));
    mouse.onMouseDown(buttonEvent(SDL_BUTTON_RIGHT, 30, 40));
    EXPECT_TRUE(mouse.isLeftDown() && mouse.isRightDown() && !mouse.isLeftPressed() && mouse.isDragging());
    mouse.getMouseDownPosition(x, y);
    EXPECT_TRUE(x == 10 && y == 20);
    mouse.onMouseUp(buttonEvent(SDL_BUTTON_LEFT));
    EXPECT_TRUE(mouse.isRightDown() && mouse.isDragging() && mouse.getDx() == 3 && mouse.getDy() == -4);
    mouse.onMouseUp(buttonEvent(SDL_BUTTON_RIGHT));
    EXPECT_TRUE(!mouse.isRightDown() && !mouse.isDragging() && mouse.getDx() == 0 && mouse.getDy() == 0);
    mouse.onMouseDown(buttonEvent(5));
    mouse.onMouseUp(buttonEvent(5));
    EXPECT_EQ(reports.text(), "Unknown SDL Mouse Button5 pressed\nUnknown SDL Mouse Button5 released\n");
}

} // namespace
} // namespace Vantrel
