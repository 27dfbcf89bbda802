#include "engine/menu/widgets/Widget.h"

#include <gtest/gtest.h>

#include "engine/graphics/Image.h"
#include "engine/menu/StandardMenuOverlay.h"
#include "engine/menu/widgets/ScrollingArea.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/window/Mouse.h"
#include "engine/window/Platform.h"
#include "engine/window/StatesMachine.h"
#include "engine/window/Window.h"
#include "tests/engine/menu/ScreenDriver.h"
#include "tests/support/Printers.h"

using namespace zel;

namespace {

// A widget from 200, 100 to 300, 140: its right edge's first pixel outside is 300.
const std::string OneButton =
    scriptOf({{"b", "button", {200, 100, 100, 40}}, {"go", "button", {500, 100, 100, 40}}}) +
    "setlocalstring hits none\nonhit b:\nsetlocalstring hits once\n";

class WidgetTest : public testing::Test {
protected:
    WidgetTest() { start(); }
    void start() {
        driver.reset();
        driver = std::make_unique<ScreenDriver>(
            std::initializer_list<ScreenDriver::Script>{{"A", OneButton}, {"B", "init:\n"}});
        EXPECT_TRUE(driver->untilIdle("A"));
        widget = driver->widget("b");
    }
    void steps(int32_t count) {
        for (; count > 0; --count)
            driver->step();
    }
    void moveTo(int32_t x) {
        driver->moveTo(x, 120);
        driver->step();
    }
    void button(bool down) {
        driver->button(down);
        driver->step();
    }
    /// Within one frame.
    void tap() {
        driver->moveTo(250, 120);
        driver->button(true);
        driver->button(false);
    }
    std::string hits() const { return screen().getLocalString("hits").c_str(); }
    HandledMenu& screen() const {
        return *HandledMenu::getMenus()[0];
    } // although the pointer has left it

    std::unique_ptr<ScreenDriver> driver;
    StatesMachine& machine = StatesMachine::getInstance();
    Widget* widget = nullptr;
};

enum Step { Move, Down, Up };

struct Gesture {
    const char* what;
    std::vector<std::pair<Step, int32_t>> steps; // the number is the pointer's x
    bool isHit;
    bool isArmed; // at the end
};

const std::vector<Gesture> Gestures = {
    {"press and release inside", {{Down, 250}, {Up, 250}}, true, false},
    {"at the left edge", {{Down, 200}, {Up, 200}}, true, false},
    {"on the first pixel outside", {{Down, 300}, {Up, 300}}, false, false},
    {"slip of 30 pixels", {{Down, 250}, {Move, 329}, {Up, 329}}, true, false},
    {"slip to the last pixel forgiven", {{Down, 250}, {Move, 339}, {Up, 339}}, true, false},
    {"slip of 41 pixels", {{Down, 250}, {Move, 340}, {Up, 340}}, false, false},
    {"press outside, drag in, release", {{Down, 400}, {Move, 250}, {Up, 250}}, false, false},
    {"press outside, drag in", {{Down, 400}, {Move, 250}}, false, false},
    {"press inside", {{Down, 250}}, false, true},
    {"drag out too far and back", {{Down, 250}, {Move, 400}, {Move, 250}, {Up, 250}}, false, false},
};

} // namespace

TEST_F(WidgetTest, AnswersTheMouse) {
    for (const Gesture& gesture : Gestures) {
        start();
        for (const auto& [step, x] : gesture.steps) {
            moveTo(x);
            if (step != Move)
                driver->button(step == Down);
            driver->step();
        }
        EXPECT_EQ(hits(), gesture.isHit ? "once" : "none") << gesture.what;
        EXPECT_EQ(widget->isArmed(), gesture.isArmed) << gesture.what;
        EXPECT_EQ(widget->wasHit(), gesture.isHit) << gesture.what;
    }
}

TEST_F(WidgetTest, ShowsWhatIsDoneToIt) {
    EXPECT_EQ(widget->currentLook(), LookActive);
    moveTo(250);
    EXPECT_EQ(widget->currentLook(), LookOver);
    for (const bool isThere : {false, true}) {
        Platform::getInstance().setAppState(isThere ? 7 : 6);
        driver->step();
        EXPECT_EQ(widget->isOver(), isThere) << "the pointer leaves the window, and comes back";
    }
    button(true);
    EXPECT_EQ(widget->currentLook(), LookDown);
    button(false);
    EXPECT_EQ(widget->currentLook(), LookDown) << "a hit widget stays down";
    EXPECT_EQ(Widget::lastWidgetHit, widget);
    widget->reset();
    EXPECT_EQ(widget->currentLook(), LookActive);
    widget->setActive(false);
    driver->step();
    EXPECT_EQ(widget->currentLook(), LookInactive);
    EXPECT_FALSE(widget->isOver()) << "an inactive one is never over";
    driver->press("b");
    EXPECT_FALSE(widget->wasHit()) << "nor hit";
}

TEST_F(WidgetTest, TakesATapBetweenTwoFrames) {
    tap();
    driver->step();
    EXPECT_EQ(hits(), "once");
    screen().setLocalString("hits", "none");
    steps(2);
    EXPECT_EQ(hits(), "none") << "a tap counts once";

    tap();
    driver->moveTo(10, 10);
    driver->step();
    EXPECT_EQ(hits(), "once") << "though the pointer has left again";
    EXPECT_FALSE(widget->isOver());
}

TEST_F(WidgetTest, IsDeafDuringAFade) {
    machine.setActiveState(machine.getState("B"));
    steps(4); // four calls come first
    moveTo(250);
    ASSERT_NE(machine.getPhase(), StatesMachine::Idle);
    button(true);
    EXPECT_FALSE(widget->isArmed());
    button(false);
    widget->setSound("none.wav");
    widget->performHit();
    EXPECT_EQ(hits(), "none") << "the screen isn't notified";
    EXPECT_EQ(driver->log.linesWith("none.wav"), 0) << "nor is a sound played";
    EXPECT_TRUE(widget->wasHit());

    machine.setActiveState(&screen());
    ASSERT_TRUE(driver->untilIdle("A"));
    driver->widget("b")->setSound("none.wav");
    driver->press("b");
    EXPECT_EQ(hits(), "once");
    EXPECT_GE(driver->log.linesWith("none.wav"), 1)
        << "it is found to be missing when it should play";
}

TEST_F(WidgetTest, FollowsItsTransition) {
    widget->setTransition("Nowhere");
    driver->press("b");
    EXPECT_TRUE(driver->log.holds("!! ") &&
                driver->log.holds("[Widget] b sets unknown state transition to: Nowhere"));
    EXPECT_TRUE(driver->untilIdle("A"));
    EXPECT_TRUE(widget->wasHit()) << "it leads nowhere and stays down";
    driver->widget("go")->setTransition("<B");
    driver->press("go");
    EXPECT_FALSE(Widget::lastWidgetHit->wasHit()) << "reset before the change";
    EXPECT_TRUE(driver->untilIdle("B"));
    EXPECT_EQ(driver->log.linesWith("[Widget] go sets state transition to: <B"), 1);
    EXPECT_EQ(Widget::lastWidgetHit, nullptr) << "it went with its screen";
}

TEST_F(WidgetTest, OpensAnAddressAndStaysWhereItIs) {
    static std::vector<std::string> opened;
    opened.clear();
    Window::setBrowser([](const String& address) {
        opened.emplace_back(address.view());
        return true;
    });
    widget->setTransition("http://localhost/page");
    driver->press("b");
    Window::setBrowser(nullptr);
    EXPECT_EQ(opened, std::vector<std::string>{"http://localhost/page"});
    EXPECT_EQ(hits(), "once") << "the screen is notified, too";
    EXPECT_FALSE(widget->wasHit()) << "it isn't left down, since no fade follows to reset it";
    EXPECT_TRUE(driver->untilIdle("A"));
}

// Where widgets overlap, each would find the same tap.
TEST_F(WidgetTest, TakesAHitAwayFromTheOthers) {
    widget->getBounds().rect = driver->widget("go")->getBounds().rect; // 500, 100
    driver->moveTo(550, 120);
    driver->button(true);
    driver->button(false);
    driver->step();
    EXPECT_TRUE(widget->wasHit());
    EXPECT_FALSE(driver->widget("go")->wasHit());
    driver->press("b");
    EXPECT_FALSE(Mouse::isButtonHit(1)) << "nor is it left to code that asks the mouse";
}

TEST_F(WidgetTest, TellsWhatItLacksOnce) {
    widget->setText("Text");
    steps(3);
    EXPECT_EQ(driver->log.linesWith("[Widget] Widget b has no active image"), 1);
    EXPECT_EQ(driver->log.linesWith("[Widget] b has text but no font assigned"), 1);
    widget->setActive(false);
    steps(2);
    EXPECT_EQ(driver->log.linesWith("Widget b has no inactive image"), 1);
}

namespace {

// An area from 100, 100 to 300, 200; its content ends at 290.
const std::string LongList = scriptOf({{"list.c", "button", {100, 250, 200, 40}},
                                       {"list", "scrollingarea", {100, 100, 200, 100}},
                                       {"list.a", "button", {100, 100, 200, 40}},
                                       {"list.b", "textarea", {100, 150, 200, 40}}}) +
                             "setlocalstring hit none\nonhit list.a:\nsetlocalstring hit a\n"
                             "onhit list.c:\nsetlocalstring hit c\n";

class ScrollingAreaTest : public testing::Test {
protected:
    ScrollingAreaTest() : driver({{"A", LongList}}) { EXPECT_TRUE(driver.untilIdle("A")); }

    ScrollingArea& area() { return dynamic_cast<ScrollingArea&>(*driver.widget("list")); }
    std::string hit() const { return driver.menu().getLocalString("hit").c_str(); }
    /// Takes the pointer there and looks.
    void moveTo(int32_t x, int32_t y) {
        driver.moveTo(x, y);
        driver.step();
    }
    void button(bool down) {
        driver.button(down);
        driver.step();
    }

    ScreenDriver driver;
};

} // namespace

TEST_F(ScrollingAreaTest, MovesWhatIsNamedAfterIt) {
    driver.press("list.c");
    EXPECT_EQ(hit(), "none") << "it is below the area's edge";
    moveTo(150, 180);
    button(true);
    moveTo(150, 120);
    EXPECT_EQ(area().getOffset(), 60) << "dragged up by as much";
    EXPECT_EQ(driver.widget("list.a")->getBounds().currentRect().y, 40);
    EXPECT_EQ(driver.menu().getTextArea("list.b")->getBounds().currentRect().y, 90);
    button(false);
    area().setOffset(1000);
    EXPECT_EQ(area().getOffset(), 90) << "290, the last one's end, less the area's end at 200";
    driver.press("list.c");
    EXPECT_EQ(hit(), "c");
    driver.menu().resetWidgets();
    EXPECT_EQ(area().getOffset(), 0);
}

TEST_F(ScrollingAreaTest, DragsByARowWithoutHittingIt) {
    moveTo(150, 120);
    button(true);
    EXPECT_TRUE(driver.widget("list.a")->isArmed());
    moveTo(150, 112);
    EXPECT_EQ(area().getOffset(), 0) << "eight pixels may be a slip";
    moveTo(150, 111);
    EXPECT_EQ(area().getOffset(), 9);
    EXPECT_FALSE(driver.widget("list.a")->isArmed());
    moveTo(150, 120);
    EXPECT_EQ(area().getOffset(), 0) << "back again";
    button(false);
    EXPECT_EQ(hit(), "none");

    button(true);
    driver.moveTo(150, 105);
    button(false);
    EXPECT_EQ(area().getOffset(), 15);
    EXPECT_EQ(hit(), "none") << "moved and released between two looks";
    driver.step();
    driver.press("list.a");
    EXPECT_EQ(hit(), "a") << "the next press counts again";
}

TEST_F(ScrollingAreaTest, IgnoresAPressFromOutside) {
    moveTo(50, 150);
    button(true);
    moveTo(150, 180);
    moveTo(150, 120);
    EXPECT_EQ(area().getOffset(), 0);
    button(false);
    EXPECT_EQ(hit(), "none");
}

TEST_F(ScrollingAreaTest, SharesThePointerWithAnOverlay) {
    const Bitmap bitmap;
    ImageDescription whole;
    whole.frames.push_back(WholeBitmap);
    const Image image(bitmap, whole);
    StandardMenuOverlay overlay("above", image, {});
    auto made = std::make_unique<Widget>("seal");
    Widget* const seal = made.get();
    seal->getBounds().rect = {100, 100, 200, 100};
    overlay.addWidget(std::move(made));
    driver.menu().setForegroundOverlay(&overlay);
    moveTo(150, 120);
    EXPECT_TRUE(seal->isOver());
    driver.wheel(false);
    EXPECT_GT(area().getOffset(), 0) << "the overlay doesn't take the wheel away";
    driver.menu().setForegroundOverlay(nullptr);
}

TEST_F(ScrollingAreaTest, HoldsOntoWhatIsLeft) {
    area().setOffset(90);
    driver.menu().removeWidget("list.c");
    EXPECT_EQ(area().getOffset(), 0) << "the rest ends at 190";
    driver.menu().removeWidget("list.a");
    driver.menu().createWidget("list.c");
    area().setOffset(90);
    driver.menu().clearTextAreas();
    EXPECT_EQ(area().getOffset(), 90);
    driver.menu().removeWidget("list.c");
    EXPECT_EQ(area().getOffset(), 0);
    area().setOffset(20);
    EXPECT_EQ(area().getOffset(), 0) << "nothing is left to scroll";
    driver.menu().createTextArea("list.b");
    driver.menu().removeWidget("list");
    EXPECT_EQ(driver.menu().getTextArea("list.b")->getBounds().currentRect().y, 150);
}

TEST_F(ScrollingAreaTest, HitsNoTapBeyondItsEdge) {
    area().setOffset(60); // list.c from 190 to 230, of which ten pixels are seen
    for (const auto& [y, hitThere] : {std::pair(215, "none"), {195, "c"}}) {
        driver.moveTo(150, y);
        driver.button(true);
        button(false);
        EXPECT_EQ(hit(), hitThere) << y;
    }
}
