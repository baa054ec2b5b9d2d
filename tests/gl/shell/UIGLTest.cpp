#include "tests/gl/shell/ViewFixture.h"
#include "tests/support/HeldKey.h"

#include "vtl/scene/gui/WOGUIRoot.h"
#include "vtl/scene/model/MGLNullModel.h"

namespace Vantrel {
namespace {

/** A widget that has a name and a size. */
class Panel : public WOGUI {
public:
    Panel(const std::string& name, float width, float height) : WOGUI(nullptr) {
        setLabel(name);
        auto rectangle = std::make_unique<MGLNullModel>(this);
        rectangle->setBoundingBoxLengths(Vector(width, height, 0));
        setModel(std::move(rectangle));
    }
};

/** Widgets in the world of a view: `low` in the lower left quarter, `high` on the upper half, `inner` in it.
 */
class UIGLTest : public Tests::ViewFixture {
protected:
    UIGLTest() {
        low = addPanel(new Panel("low", 0.5F, 0.5F), Vector(0.25F, 0.25F, 1));
        high = addPanel(new Panel("high", 1, 0.5F), Vector(0.5F, 0.75F, 1));
        inner = &high->addChild(std::make_unique<Panel>("inner", 0.5F, 0.25F));
        inner->setPosition(Vector(0.5F, 0.5F, 1));
    }

    Panel* addPanel(Panel* panel, const Vector& place) {
        view->getWorldContainer()->push_back(panel); // the world's from here on
        panel->setPosition(place);
        return panel;
    }
    bool offer(const SDL_Event& event) { return view->handleGUIEvent(event); }
    bool press(int x, int y) { return offer(buttonEvent(SDL_MOUSEBUTTONDOWN, x, y)); }
    bool letGo(int x, int y) { return offer(buttonEvent(SDL_MOUSEBUTTONUP, x, y)); }
    bool pressKey(SDL_Keycode key) { return offer(keyEvent(SDL_KEYDOWN, key)); }
    /** What the widgets have said since the last question, without the class. */
    std::string takeSaid() {
        std::string said = reports.text();
        reports.clear();
        return said;
    }
    static std::string said(const std::string& label, const std::string& what) {
        return label + " void WOGUI::" + what + "\n";
    }
    static std::string saidOfButton(const std::string& label, const std::string& what) {
        return said(label, what + "( const SDL_MouseButtonEvent& e )");
    }
    static std::string saidOfMotion(const std::string& label, const std::string& what) {
        return said(label, what + "( const SDL_MouseMotionEvent& e )");
    }

    Panel* low = nullptr;
    Panel* high = nullptr;
    Panel* inner = nullptr;
};

TEST_F(UIGLTest, FindsTheTopmostWidgetAtAPixel) {
    const WorldContainer& world = *view->getWorldContainer();
    EXPECT_EQ(world.getGUIWidgetAtPixel(5, 40), low);
    EXPECT_EQ(world.getGUIWidgetAtPixel(5, 5), high);
    EXPECT_EQ(world.getGUIWidgetAtPixel(32, 12), inner);
    EXPECT_EQ(world.getGUIWidgetAtPixel(60, 40), nullptr) << "the root is none";
    EXPECT_EQ(world.getGUIWidgetAtPixel(32, 36), low) << "the edge is inside";
    high->setPosition(Vector(0.5F, 0.25F, 1));
    EXPECT_EQ(world.getGUIWidgetAtPixel(32, 36), inner) << "what is below moves along, later ones lie on top";
    high->setVisible(false);
    EXPECT_EQ(world.getGUIWidgetAtPixel(32, 36), low);
}

TEST_F(UIGLTest, ClicksWhatIsPressedAndReleasedAndGivesItTheFocus) {
    EXPECT_TRUE(press(5, 40));
    EXPECT_EQ(takeSaid(), saidOfButton("low woID:" + std::to_string(low->getID()), "onMouseDown") +
                              said("low", "onHasFocus()"));
    EXPECT_FALSE(letGo(60, 40)) << "beside all widgets";
    EXPECT_EQ(takeSaid(), "");
    press(5, 40);
    takeSaid();
    EXPECT_TRUE(letGo(32, 12)) << "over another one";
    EXPECT_EQ(takeSaid(), saidOfButton("inner", "onMouseUp"));
    press(32, 12);
    EXPECT_FALSE(low->getHasFocus());
    EXPECT_TRUE(inner->getHasFocus());
    takeSaid();
    EXPECT_TRUE(letGo(40, 14));
    EXPECT_EQ(takeSaid(), saidOfButton("inner", "onMouseUp") + saidOfButton("inner", "onMouseClicked"));
    letGo(40, 14);
    EXPECT_EQ(takeSaid(), saidOfButton("inner", "onMouseUp")) << "a press is one click";
    press(32, 12);
    EXPECT_FALSE(press(60, 40)) << "the press before is over";
    takeSaid();
    letGo(32, 12);
    EXPECT_EQ(takeSaid(), saidOfButton("inner", "onMouseUp"));
}

TEST_F(UIGLTest, TellsOfThePointerThatComesAndGoes) {
    EXPECT_TRUE(offer(motionEvent(5, 5)));
    EXPECT_TRUE(offer(motionEvent(6, 5)));
    EXPECT_EQ(takeSaid(), saidOfMotion("high", "onMouseEnter"));
    EXPECT_TRUE(offer(motionEvent(32, 12)));
    EXPECT_EQ(takeSaid(), saidOfMotion("high", "onMouseLeave") + saidOfMotion("inner", "onMouseEnter"));
    inner->setEnabled(false);
    EXPECT_TRUE(offer(motionEvent(32, 12))) << "what lies under it";
    EXPECT_EQ(takeSaid(), saidOfMotion("inner", "onMouseLeave") + saidOfMotion("high", "onMouseEnter"));
    high->setEnabled(false);
    EXPECT_FALSE(offer(motionEvent(32, 12)));
    EXPECT_EQ(takeSaid(), saidOfMotion("high", "onMouseLeave"));
    EXPECT_FALSE(press(32, 12));
    EXPECT_EQ(takeSaid(), "");
}

TEST_F(UIGLTest, TabGoesRoundWhatCanHaveTheFocus) {
    Panel* const shut = addPanel(new Panel("shut", 0.1F, 0.1F), Vector(0.9F, 0.1F, 1));
    shut->setFocusable(false);
    const auto tabTo = [&](const Panel* next) {
        EXPECT_TRUE(pressKey(SDLK_TAB));
        EXPECT_TRUE(next->getHasFocus()) << next->getLabel();
    };
    for (const Panel* const next : {low, high, inner, low}) {
        tabTo(next);
    }
    high->setVisible(false); // and what is in it
    tabTo(low);
    high->setVisible(true);
    {
        const Tests::HeldKey shift(SDL_SCANCODE_RSHIFT);
        for (const Panel* const next : {inner, high, low, inner}) {
            tabTo(next);
        }
        EXPECT_TRUE(pressKey(SDLK_ESCAPE));
        tabTo(inner); // from the last one
    }
    EXPECT_FALSE(high->getHasFocus());
    for (Panel* const panel : {low, high, shut}) {
        delete panel; // the focused one with its parent
    }
    EXPECT_FALSE(pressKey(SDLK_TAB));
    EXPECT_FALSE(pressKey(SDLK_a)) << "nobody has the focus";
}

TEST_F(UIGLTest, KeysGoToTheFocusAndEscapeTakesIt) {
    EXPECT_FALSE(pressKey(SDLK_F1));
    EXPECT_FALSE(offer(keyEvent(SDL_KEYUP, SDLK_F1)));
    press(5, 40);
    takeSaid();
    EXPECT_TRUE(pressKey(SDLK_F1));
    EXPECT_TRUE(offer(keyEvent(SDL_KEYUP, SDLK_F1)));
    EXPECT_EQ(takeSaid(), said("low", "onKeyDown()") + said("low", "onKeyUp()"));
    low->setEnabled(false);
    EXPECT_TRUE(pressKey(SDLK_a)) << "taken all the same";
    EXPECT_EQ(takeSaid(), "");
    runFrame({keyEvent(SDL_KEYDOWN, SDLK_ESCAPE), keyEvent(SDL_KEYDOWN, SDLK_F1)});
    EXPECT_EQ(view->takeHeard(), "key ") << "the first Escape takes the focus";
    runFrame({keyEvent(SDL_KEYDOWN, SDLK_ESCAPE), keyEvent(SDL_KEYDOWN, SDLK_F1)});
    EXPECT_EQ(view->takeHeard(), "") << "the second one ends the program";
}

TEST_F(UIGLTest, ADragThatBeganInTheSceneGrabsNoWidget) {
    runFrame({buttonEvent(SDL_MOUSEBUTTONDOWN, 60, 40), motionEvent(5, 40), motionEvent(6, 40),
              buttonEvent(SDL_MOUSEBUTTONDOWN, 5, 40, SDL_BUTTON_RIGHT),
              buttonEvent(SDL_MOUSEBUTTONUP, 5, 40, SDL_BUTTON_RIGHT),
              buttonEvent(SDL_MOUSEBUTTONUP, 5, 40)});
    EXPECT_EQ(view->takeHeard(), "down move move down up up ");
    runFrame({motionEvent(5, 40)});
    EXPECT_EQ(view->takeHeard(), "") << "the widget's again";
}

TEST_F(UIGLTest, WidgetsHearOfTheWindowsSizeAndOfUpdates) {
    class Counting : public Panel {
    public:
        using Panel::Panel;
        void onResize(int w, int h) override { size = {w, h}; }
        void onUpdate() override { ++updates; }
        std::pair<int, int> size;
        int updates = 0;
    };
    auto* const counting = new Counting("counting", 0.1F, 0.1F);
    addPanel(counting, Vector(0.9F, 0.1F, 1));
    runFrame({windowEvent(SDL_WINDOWEVENT_RESIZED, 80, 60)});
    EXPECT_EQ(counting->size, std::pair(80, 60));
    EXPECT_EQ(counting->updates, 1);
}

} // namespace
} // namespace Vantrel
