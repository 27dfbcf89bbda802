#include "engine/menu/HandledMenu.h"

#include <gtest/gtest.h>

#include "engine/menu/HandledMenuExtension.h"
#include "engine/menu/MenuEventHandler.h"
#include "engine/menu/MenuOverlay.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "engine/window/StatesMachine.h"
#include "tests/engine/menu/ScreenDriver.h"
#include "tests/engine/menu/TestApp.h"
#include "tests/support/Printers.h"

using namespace zel;

namespace {

std::vector<std::string>& calls() {
    static std::vector<std::string> list;
    return list;
}

void note(const std::string& who, const char* what, const Menu* menu) {
    calls().push_back(who + " " + what + " " + (menu != nullptr ? menu->getName().c_str() : "-"));
}

/// Records its calls.
class Witness : public HandledMenuExtension {
public:
    Witness(const char* who, const char* menuName) : HandledMenuExtension(menuName), who(who) {}
    void reset() override { note(who, "reset", menu); }
    void onFirstEnter() override { note(who, "onFirstEnter", menu); }
    void onEnter() override {
        note(who, "onEnter", menu);
        setText("title", "by code");
        setActive("b", false);
    }
    void onEntered() override { note(who, "onEntered", menu); }
    void onLeaving() override { note(who, "onLeaving", menu); }
    void onLeave() override { note(who, "onLeave", menu); }
    void onEvent(Widget* widget, int32_t eventType) override {
        EXPECT_EQ(eventType, Widget::EventHit);
        note(who, ("onEvent " + std::string(widget->getName().view())).c_str(), menu);
    }

private:
    std::string who;
};

class Listener : public MenuListener {
public:
    void notify(Menu& menu, MenuCallback what) override {
        if (what == MenuCallback::Entered)
            note("listener", "entered", &menu);
    }
    void onEvent(Menu& menu, Widget*, int32_t) override { note("listener", "event", &menu); }
};

void attach(const char* who, const char* menuName) {
    ZelLoop::registerPersistent(std::make_unique<Witness>(who, menuName));
}

const std::string Screen = scriptOf({{"b", "button", {100, 100, 100, 40}, "\"text\" Nowhere"},
                                     {"go", "button", {100, 200, 100, 40}, "\" \" B"},
                                     {"title", "textarea", {0, 0, 10, 10}, "\"by script\""}}) +
                           "onhit go:\nsetlocalstring order hit\nsettransition A\n"
                           "onevent:\nsetlocalstring event seen\n";
constexpr const char* Empty = "init:\n";

using Calls = std::vector<std::string>;

class HandledMenuTest : public testing::Test {
protected:
    HandledMenuTest() { calls().clear(); }
    void start(const std::string& a, const std::string& b = Empty) {
        driver = std::make_unique<ScreenDriver>(
            std::initializer_list<ScreenDriver::Script>{{"A", a}, {"B", b}, {"C", Empty}});
        ASSERT_TRUE(driver->untilIdle("A"));
        menu = &driver->menu();
    }

    Listener listener; // beyond the driver's end
    std::unique_ptr<ScreenDriver> driver;
    HandledMenu* menu = nullptr; // A
};

} // namespace

TEST_F(HandledMenuTest, TellsExtensionsInOrder) {
    whenMenusAreLoaded() = [&] {
        attach("first", "A");
        attach("all", "");
        attach("lost", "NoSuchMenu");
        MenuEventHandler::addListener("A", &listener);
    };
    start(Screen);
    EXPECT_EQ(calls(), (Calls{"first onFirstEnter A", "all onFirstEnter A", "first onEnter A",
                              "all onEnter A", "first reset A", "all reset A", "listener entered A",
                              "first onEntered A", "all onEntered A"}));
    EXPECT_EQ(driver->text("title"), "by code") << "reset() comes after onEnter()";
    EXPECT_FALSE(driver->widget("b")->isActive());
    calls().clear();
    driver->press("go");
    ASSERT_TRUE(driver->untilIdle("B"));
    EXPECT_EQ(calls(),
              (Calls{"listener event A", "first onEvent go A", "all onEvent go A",
                     "first onLeaving A", "all onLeaving A", "all onFirstEnter B", "all onEnter B",
                     "all reset B", "first onLeave A", "all onLeave A", "all onEntered B"}));
    EXPECT_EQ(driver->log.linesWith("Requested state NoSuchMenu is unknown"), 1);
}

TEST_F(HandledMenuTest, RunsTheSectionThenTheTransition) {
    start(Screen, "onenter:\nsettransition A\nsettransition A\n");
    driver->press("go");
    EXPECT_EQ(menu->getLocalString("order"), "hit");
    EXPECT_EQ(menu->getLocalString("event"), "seen");
    EXPECT_EQ(StatesMachine::getInstance().getActiveState()->getName(), "B")
        << "the widget's change is immediate, the script's request waits and is lost";
    EXPECT_TRUE(driver->untilIdle("A"));
    EXPECT_TRUE(menu->getWidgets().count("go") == 1) << "the widgets were made again";
}

TEST_F(HandledMenuTest, RunsPreloadAtEveryEntering) {
    start("preload:\nsetlocalstring a preload\nsetlocalstring b preload\nremovewidget none\n"
          "onenter:\nsetlocalstring a enter\nsetlocalstring c enter\n");
    for (const auto& [entering, runs] : {std::pair("first", 2), {"second", 3}}) {
        EXPECT_EQ(driver->log.linesWith("unknown widget none"), runs) << entering;
        EXPECT_EQ(menu->getLocalString("a"), "enter") << "it runs before onenter: " << entering;
        EXPECT_EQ(menu->getLocalString("b"), "preload") << entering;
        menu->setLocalString("b", "");
        menu->setTransition("B");
        ASSERT_TRUE(driver->untilIdle("B"));
        StatesMachine::getInstance().getActiveState()->setTransition("A");
        ASSERT_TRUE(driver->untilIdle("A"));
    }
}

TEST_F(HandledMenuTest, GoesOnByItself) {
    start("onenter:\nsetautotransition 3 B\nsetlocalflag entered on\n");
    driver->step(2000); // plus less than a second before
    EXPECT_EQ(&driver->menu(), menu);
    driver->step(2000);
    EXPECT_EQ(StatesMachine::getInstance().getActiveState()->getName(), "B") << "not later";
    EXPECT_TRUE(driver->untilIdle("B"));
}

TEST_F(HandledMenuTest, StartsAfreshWhenAFadeWasOvertaken) {
    start(Screen);
    StatesMachine& machine = StatesMachine::getInstance();
    menu->setText("b", "old");
    machine.setActiveState(machine.getState("B"));
    for (int32_t frame = 0; frame < 5; ++frame)
        driver->step();
    machine.setActiveState(machine.getState("C")); // A is dropped without onLeave()
    ASSERT_TRUE(driver->untilIdle("C"));
    machine.setActiveState(machine.getState("A"));
    ASSERT_TRUE(driver->untilIdle("A"));
    EXPECT_EQ(driver->text("b"), "text");
    EXPECT_EQ(driver->log.linesWith("already exists"), 0);
}

TEST_F(HandledMenuTest, SurvivesWidgetsThatRemoveThemselves) {
    start(scriptOf(
              {{"a", "button", {0, 0, 100, 40}}, {"b", "button", {300, 0, 100, 40}, "\" \" B"}}) +
          "onhit a:\nremovewidget a\nremovewidget missing\nonhit b:\nclearwidgets\n");
    driver->press("a");
    EXPECT_EQ(driver->widget("a"), nullptr);
    EXPECT_EQ(Widget::lastWidgetHit, nullptr);
    EXPECT_TRUE(driver->log.holds("removewidget of unknown widget missing"));
    EXPECT_TRUE(menu->hitWidget("b"));
    EXPECT_TRUE(driver->untilIdle("B")) << "its transition is followed all the same";
}

TEST_F(HandledMenuTest, SaysWhyAnElementCannotBeMade) {
    start("onenter:\naddwidget x\naddtextarea y\nlayout.definelayout L\n"
          "layout.definewidget x\nsetlayout l\naddwidget x\naddwidget x\n"
          "addwidget z\naddtextarea z\nsetlayout none\n");
    for (const char* line :
         {"[Menu] No layout set in state A before creating widget x",
          "[StandardMenu] Failed to create Widget x",
          "[Menu] No layout set in state A before creating TextArea y",
          "[StandardMenu] Failed to create TextArea y", "[Menu] Widget x already exists",
          "[Menu] Widget z does not exist in layout L",
          "[Menu] TextArea z does not exist in layout L", "[Menu] Layout identifier unknown",
          "[StandardMenu] Added widget=x text= transition="})
        EXPECT_TRUE(driver->log.holds(line)) << line;
}

TEST_F(HandledMenuTest, KeepsElementsOverAPause) {
    start(Screen);
    menu->setText("b", "changed");
    driver->widget("b")->setActive(false);
    ZelLoop::onPause();
    ZelLoop::onContinue();
    EXPECT_EQ(driver->text("b"), "changed");
    EXPECT_FALSE(driver->widget("b")->isActive());
    EXPECT_EQ(driver->widget("go")->getTransition(), "B");
    driver->key(KeyTab);
    ASSERT_TRUE(driver->widget("go")->isFocused());
    ZelLoop::onPause();
    ZelLoop::onContinue();
    EXPECT_TRUE(driver->widget("go")->isFocused()) << "the keyboard still has it as the focus";
}
