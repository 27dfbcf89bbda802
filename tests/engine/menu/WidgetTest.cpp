#include "engine/menu/Widget.h"

#include <gtest/gtest.h>

#include "engine/core/StatesMachine.h"
#include "engine/menu/ScrollingArea.h"
#include "engine/menu/TextArea.h"
#include "tests/engine/menu/ScreenDriver.h"
#include "tests/support/Printers.h"

using namespace zel;

namespace {

// A widget from 200, 100 to 300, 140: its right edge's first pixel outside is 300.
constexpr const char* OneButton = R"(
init:
layout.definelayout l
layout.definewidget b button
layout.definewidgetposition 200 100
layout.definewidgetsize 100 40
layout.definewidget go button
layout.definewidgetposition 500 100
layout.definewidgetsize 100 40
setlayout l

onenter:
addwidget b
addwidget go "" "<B"
setlocalstring hits none

onhit b:
setlocalstring hits once
)";

constexpr const char* Empty = "init:\n";

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

std::string hits(const ScreenDriver& driver) {
    return driver.menu().getLocalString("hits").c_str();
}

void perform(ScreenDriver& driver, const Gesture& gesture) {
    driver.moveTo(10, 10);
    driver.step();
    for (const auto& [step, x] : gesture.steps) {
        driver.moveTo(x, 120);
        driver.step();
        if (step != Move)
            driver.button(step == Down);
        driver.step();
    }
}

} // namespace

TEST(Widget, AnswersTheMouse) {
    for (const Gesture& gesture : Gestures) {
        ScreenDriver driver({{"A", OneButton}, {"B", Empty}});
        ASSERT_TRUE(driver.untilIdle("A"));
        perform(driver, gesture);
        EXPECT_EQ(hits(driver), gesture.isHit ? "once" : "none") << gesture.what;
        EXPECT_EQ(driver.widget("b")->isArmed(), gesture.isArmed) << gesture.what;
        EXPECT_EQ(driver.widget("b")->wasHit(), gesture.isHit) << gesture.what;
    }
}

TEST(Widget, ShowsWhatIsDoneToIt) {
    ScreenDriver driver({{"A", OneButton}, {"B", Empty}});
    ASSERT_TRUE(driver.untilIdle("A"));
    Widget& widget = *driver.widget("b");
    EXPECT_EQ(widget.currentLook(), LookActive);
    driver.moveTo(250, 120);
    driver.step();
    EXPECT_EQ(widget.currentLook(), LookOver);
    driver.button(true);
    driver.step();
    EXPECT_EQ(widget.currentLook(), LookDown);
    driver.button(false);
    driver.step();
    EXPECT_EQ(widget.currentLook(), LookDown) << "a hit one stays down";
    EXPECT_EQ(Widget::lastWidgetHit, &widget);
    widget.reset();
    EXPECT_EQ(widget.currentLook(), LookActive);
    widget.setActive(false);
    driver.step();
    EXPECT_EQ(widget.currentLook(), LookInactive);
    EXPECT_FALSE(widget.isOver()) << "an inactive one is never over";
}

TEST(Widget, ForgetsEverythingWhenHidden) {
    ScreenDriver driver({{"A", OneButton}, {"B", Empty}});
    ASSERT_TRUE(driver.untilIdle("A"));
    driver.moveTo(250, 120);
    driver.button(true);
    driver.step();
    ASSERT_TRUE(driver.widget("b")->isArmed());
    driver.widget("b")->setVisible(false);
    driver.step();
    driver.widget("b")->setVisible(true);
    driver.button(false);
    driver.step();
    EXPECT_EQ(hits(driver), "none");
}

TEST(Widget, TakesATapBetweenTwoFrames) {
    ScreenDriver driver({{"A", OneButton}, {"B", Empty}});
    ASSERT_TRUE(driver.untilIdle("A"));
    driver.moveTo(250, 120);
    driver.button(true);
    driver.button(false);
    driver.step();
    EXPECT_EQ(hits(driver), "once");
    driver.menu().setLocalString("hits", "none");
    driver.step();
    driver.step();
    EXPECT_EQ(hits(driver), "none") << "a tap counts once";

    driver.moveTo(250, 120);
    driver.button(true);
    driver.button(false);
    driver.moveTo(10, 10);
    driver.step();
    EXPECT_EQ(hits(driver), "once") << "though the pointer has left again";
    EXPECT_FALSE(driver.widget("b")->isOver());
}

TEST(Widget, IsDeafDuringAFade) {
    ScreenDriver driver({{"A", OneButton}, {"B", Empty}});
    ASSERT_TRUE(driver.untilIdle("A"));
    StatesMachine& machine = StatesMachine::getInstance();
    HandledMenu& menu = driver.menu();
    machine.setActiveState(machine.getState("B"));
    for (int32_t frame = 0; frame < 4; ++frame) // four calls come first
        driver.step();
    driver.moveTo(250, 120);
    driver.step();
    ASSERT_NE(machine.getPhase(), StatesMachine::Idle);
    driver.button(true);
    driver.step();
    EXPECT_FALSE(menu.getWidget("b")->isArmed());
    driver.button(false);
    driver.step();
    menu.getWidget("b")->setSound("none.wav");
    menu.getWidget("b")->performHit();
    EXPECT_EQ(menu.getLocalString("hits"), "none") << "the screen isn't told";
    EXPECT_EQ(driver.log.linesWith("none.wav"), 0) << "nor does it sound";
    EXPECT_TRUE(menu.getWidget("b")->wasHit());

    machine.setActiveState(&menu);
    ASSERT_TRUE(driver.untilIdle("A"));
    driver.widget("b")->setSound("none.wav");
    driver.press("b");
    EXPECT_EQ(hits(driver), "once");
    EXPECT_GE(driver.log.linesWith("none.wav"), 1) << "it is missed where it is to sound";
}

TEST(Widget, KeepsAPressThatAFadeOvertakes) {
    ScreenDriver driver({{"A", OneButton}, {"B", Empty}});
    ASSERT_TRUE(driver.untilIdle("A"));
    StatesMachine& machine = StatesMachine::getInstance();
    HandledMenu& menu = driver.menu();
    driver.moveTo(250, 120);
    driver.button(true);
    driver.step();
    machine.setActiveState(machine.getState("B"));
    for (int32_t frame = 0; frame < 6; ++frame)
        driver.step();
    ASSERT_NE(machine.getPhase(), StatesMachine::Idle);
    EXPECT_TRUE(menu.getWidget("b")->isArmed());
    EXPECT_FALSE(menu.getWidget("b")->wasHit()) << "a hit is the release, not the fade";
    driver.button(false);
    driver.step();
    EXPECT_TRUE(menu.getWidget("b")->wasHit());
    EXPECT_EQ(menu.getLocalString("hits"), "none");
}

TEST(Widget, FollowsItsTransition) {
    ScreenDriver driver({{"A", OneButton}, {"B", Empty}});
    ASSERT_TRUE(driver.untilIdle("A"));
    Widget& widget = *driver.widget("b");
    widget.setTransition("Nowhere");
    driver.press("b");
    EXPECT_TRUE(driver.log.holds("!! ") &&
                driver.log.holds("[Widget] b sets unknown state transition to: Nowhere"));
    EXPECT_TRUE(driver.untilIdle("A"));
    EXPECT_TRUE(widget.wasHit()) << "it leads nowhere and stays down";
    driver.widget("go")->setTransition("<B");
    driver.press("go");
    EXPECT_FALSE(Widget::lastWidgetHit->wasHit()) << "reset before the change";
    EXPECT_TRUE(driver.untilIdle("B"));
    EXPECT_EQ(driver.log.linesWith("[Widget] go sets state transition to: <B"), 1);
    EXPECT_EQ(Widget::lastWidgetHit, nullptr) << "it went with its screen";
}

TEST(Widget, TellsWhatItLacksOnce) {
    ScreenDriver driver({{"A", OneButton}, {"B", Empty}});
    ASSERT_TRUE(driver.untilIdle("A"));
    driver.widget("b")->setText("Text");
    for (int32_t frame = 0; frame < 3; ++frame)
        driver.step();
    EXPECT_EQ(driver.log.linesWith("[Widget] Widget b has no active image"), 1);
    EXPECT_EQ(driver.log.linesWith("[Widget] b has text but no font assigned"), 1);
    driver.widget("b")->setActive(false);
    driver.step();
    driver.step();
    EXPECT_EQ(driver.log.linesWith("Widget b has no inactive image"), 1);
}

namespace {

// An area from 100, 100 to 300, 200; its content ends at 290.
constexpr const char* List = R"(
init:
layout.definelayout l
layout.definewidget list scrollingarea
layout.definewidgetposition 100 100
layout.definewidgetsize 200 100
layout.definewidget list.a button
layout.definewidgetposition 100 100
layout.definewidgetsize 200 40
layout.definetextarea list.b
layout.definetextareaposition 100 150
layout.definetextareasize 200 40
layout.definewidget list.c button
layout.definewidgetposition 100 250
layout.definewidgetsize 200 40
setlayout l

onenter:
addwidget list.c
addwidget list
addwidget list.a
addtextarea list.b
setlocalstring hit none

onhit list.a:
setlocalstring hit a

onhit list.c:
setlocalstring hit c
)";

class ScrollingAreaTest : public testing::Test {
protected:
    ScrollingAreaTest() : driver({{"A", List}}) { EXPECT_TRUE(driver.untilIdle("A")); }

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
    EXPECT_EQ(hit(), "none") << "it lies below the area's edge";
    moveTo(150, 180);
    button(true);
    moveTo(150, 120);
    EXPECT_EQ(area().getOffset(), 60) << "dragged up by as much";
    EXPECT_EQ(driver.widget("list.a")->getPlacing().placeNow().y, 40);
    EXPECT_EQ(driver.menu().getTextArea("list.b")->getPlacing().placeNow().y, 90);
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
    EXPECT_EQ(driver.menu().getTextArea("list.b")->getPlacing().placeNow().y, 150);
}

TEST_F(ScrollingAreaTest, HitsNoTapBeyondItsEdge) {
    area().setOffset(60); // list.c from 190 to 230, of which ten pixels are seen
    driver.moveTo(150, 215);
    driver.button(true);
    driver.button(false);
    driver.step();
    EXPECT_EQ(hit(), "none");
    driver.moveTo(150, 195);
    driver.button(true);
    driver.button(false);
    driver.step();
    EXPECT_EQ(hit(), "c");
}
