#include "engine/menu/Widget.h"

#include <gtest/gtest.h>

#include "engine/core/StatesMachine.h"
#include "engine/menu/ScrollingArea.h"
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
    menu.getWidget("b")->performHit();
    EXPECT_EQ(menu.getLocalString("hits"), "none") << "the screen isn't told";
    EXPECT_TRUE(menu.getWidget("b")->wasHit());
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

TEST(ScrollingArea, MovesWhatIsNamedAfterIt) {
    ScreenDriver driver({{"A", R"(
init:
layout.definelayout l
layout.definewidget list scrollingarea
layout.definewidgetposition 100 100
layout.definewidgetsize 200 100
layout.definewidget list.a button
layout.definewidgetposition 100 100
layout.definewidgetsize 200 40
layout.definewidget list.b button
layout.definewidgetposition 100 250
layout.definewidgetsize 200 40
setlayout l

onenter:
addwidget list.b
addwidget list
addwidget list.a
setlocalstring hit none

onhit list.b:
setlocalstring hit b
)"}});
    ASSERT_TRUE(driver.untilIdle("A"));
    auto& area = dynamic_cast<ScrollingArea&>(*driver.widget("list"));
    driver.press("list.b");
    EXPECT_EQ(driver.menu().getLocalString("hit"), "none") << "it lies below the area's edge";
    driver.moveTo(150, 180);
    driver.button(true);
    driver.step();
    driver.moveTo(150, 120);
    driver.step();
    EXPECT_EQ(area.getOffset(), 60) << "dragged up by as much";
    EXPECT_EQ(driver.widget("list.a")->getPlacing().placeNow().y, 40);
    driver.moveTo(150, -400 + 500);
    driver.step();
    driver.button(false);
    driver.step();
    area.setOffset(1000);
    EXPECT_EQ(area.getOffset(), 90) << "290, the last one's end, less the area's end at 200";
    driver.press("list.b");
    EXPECT_EQ(driver.menu().getLocalString("hit"), "b");
}
