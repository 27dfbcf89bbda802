#include "engine/menu/widgets/MenuFocus.h"

#include <fstream>

#include <gtest/gtest.h>

#include "engine/graphics/Font.h"
#include "engine/menu/widgets/ScrollingArea.h"
#include "engine/menu/widgets/TextInput.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "tests/engine/graphics/Pictures.h"
#include "tests/engine/menu/ScreenDriver.h"
#include "tests/engine/window/Events.h"
#include "tests/support/Printers.h"

using namespace zel;

namespace {

// Two columns: a over c on the left, b over d on the right; a label and an input below.
const std::string Grid = scriptOf({{"a", "button", {100, 100, 100, 40}},
                                   {"b", "button", {300, 100, 100, 40}},
                                   {"c", "button", {100, 200, 100, 40}},
                                   {"d", "button", {300, 200, 100, 40}},
                                   {"label", "widget", {100, 300, 100, 40}},
                                   {"name", "textinput", {100, 400, 100, 40}},
                                   {"menuBack", "button", {100, 700, 100, 40}, "\" \" B"}}) +
                         "onhit a:\nsetlocalstring hit a\nonhit d:\nsetlocalstring hit d\n";

class MenuFocusTest : public testing::Test {
protected:
    explicit MenuFocusTest(const std::string& script = Grid)
        : driver({{"A", script}, {"B", "init:\n"}}) {
        driver.untilIdle("A");
        driver.moveTo(10, 10);
        driver.step();
    }
    std::string focus() { return driver.menu().getFocus().getName().c_str(); }
    virtual std::string place() { return focus(); }
    /// The place after each key.
    std::string keys(std::initializer_list<int32_t> symbols, bool shift = false) {
        std::string way;
        for (const int32_t symbol : symbols) {
            driver.key(symbol, 0, shift);
            way += place() + " ";
        }
        return way;
    }
    ScreenDriver driver;
};

} // namespace

TEST_F(MenuFocusTest, TabGoesByRowsAndPassesLabels) {
    EXPECT_EQ(keys({KeyTab, KeyTab, KeyTab, KeyTab, KeyTab, KeyTab, KeyTab}),
              "a b c d name menuBack a ");
    driver.key(KeyTab, 0, true);
    EXPECT_EQ(focus(), "menuBack");
    EXPECT_EQ(driver.widget("menuBack")->currentLook(), LookOver) << "drawn like the pointer's";
    EXPECT_EQ(driver.widget("a")->currentLook(), LookActive);
}

TEST_F(MenuFocusTest, ArrowsGoToTheNearest) {
    EXPECT_EQ(keys({KeyDown, KeyRight, KeyDown, KeyLeft, KeyUp, KeyUp}), "a b d c a a ");
}

TEST_F(MenuFocusTest, EnterAndSpaceHitWhatHasIt) {
    driver.key(KeyReturn);
    EXPECT_EQ(driver.menu().getLocalString("hit"), "") << "nothing has the focus yet";
    keys({KeyTab, KeyReturn});
    EXPECT_EQ(driver.menu().getLocalString("hit"), "a");
    keys({KeyRight, KeyDown, KeySpace});
    EXPECT_EQ(driver.menu().getLocalString("hit"), "d");
}

TEST_F(MenuFocusTest, AKeyThatIsHeldHitsOnce) {
    keys({KeyTab});
    const auto press = [this] {
        Platform::getInstance().handleEvent(keyEvent(SDLK_RETURN, 13, true));
        driver.step();
        return driver.menu().getLocalString("hit");
    };
    EXPECT_EQ(press(), "a");
    driver.menu().setLocalString("hit", "");
    EXPECT_EQ(press() + press(), "") << "the system repeats it";
    driver.key(KeyReturn);
    EXPECT_EQ(driver.menu().getLocalString("hit"), "") << "the first event of this one repeats too";
    driver.key(KeyReturn);
    EXPECT_EQ(driver.menu().getLocalString("hit"), "a");
}

TEST_F(MenuFocusTest, SkipsWhatCannotBePressed) {
    driver.widget("menuBack")->setActive(false);
    driver.key(KeyEscape);
    ASSERT_TRUE(driver.untilIdle("A"));
    driver.widget("b")->setActive(false);
    driver.widget("c")->setVisible(false);
    EXPECT_EQ(keys({KeyTab, KeyTab}), "a d ");
    driver.widget("d")->setActive(false);
    driver.step();
    EXPECT_EQ(focus(), "") << "it loses the focus with its activity";
}

TEST_F(MenuFocusTest, GoesWithThePointer) {
    keys({KeyTab});
    driver.moveTo(700, 700);
    driver.step();
    EXPECT_EQ(focus(), "");
    EXPECT_FALSE(driver.widget("a")->isFocused());
}

TEST_F(MenuFocusTest, HitsTheOnlyWidgetThereIs) {
    const auto hitBy = [this](int32_t symbol) {
        driver.menu().setLocalString("hit", "");
        driver.key(symbol);
        return driver.menu().getLocalString("hit");
    };
    driver.widget("menuBack")->setVisible(false);
    for (const char* name : {"b", "c", "name"})
        driver.widget(name)->setActive(false);
    EXPECT_EQ(hitBy(KeyEscape) + hitBy(KeyReturn), "") << "a or d?";
    driver.widget("d")->setActive(false);
    for (const int32_t symbol : {KeyEscape, KeyReturn, KeyEnter, KeySpace})
        EXPECT_EQ(hitBy(symbol), "a") << symbol;
    EXPECT_EQ(hitBy('a'), "");
    driver.widget("menuBack")->setVisible(true);
    EXPECT_EQ(hitBy(KeyReturn), "a") << "the way back isn't counted";
    driver.widget("a")->setActive(false);
    driver.key(KeyReturn);
    EXPECT_TRUE(driver.untilIdle("A")) << "nor taken";
    driver.widget("a")->setActive(true);
    EXPECT_EQ(hitBy(KeyEscape), "");
    EXPECT_TRUE(driver.untilIdle("B")) << "but for Escape it comes first";
}

namespace {

// An area from 100, 100 to 300, 200 whose five rows end at 300, and buttons around it. Names are
// sorted, so the buttons' differ from their order.
const std::string List = scriptOf({{"list", "scrollingarea", {100, 100, 200, 100}},
                                   {"list.1", "button", {100, 100, 200, 40}},
                                   {"list.2", "button", {100, 140, 200, 40}},
                                   {"list.3", "button", {100, 180, 200, 40}},
                                   {"list.4", "button", {100, 220, 200, 40}},
                                   {"list.5", "button", {100, 260, 200, 40}},
                                   {"zabove", "button", {100, 20, 200, 40}},
                                   {"zaside", "button", {400, 100, 200, 40}},
                                   {"zbelow", "button", {100, 230, 200, 40}}}) +
                         "onhit list.1:\nsetlocalstring hit 1\n"
                         "onhit zabove:\nsetlocalstring hit above\n";

class AreaFocusTest : public MenuFocusTest {
protected:
    AreaFocusTest() : MenuFocusTest(List) {}
    ScrollingArea& area() { return dynamic_cast<ScrollingArea&>(*driver.widget("list")); }
    /// Focus and offset.
    std::string place() override { return focus() + "@" + std::to_string(area().getOffset()); }
};

} // namespace

TEST_F(AreaFocusTest, TabGoesThroughTheRowsAndShowsEach) {
    EXPECT_EQ(keys({KeyTab, KeyTab, KeyTab, KeyTab, KeyTab, KeyTab, KeyTab, KeyTab, KeyTab}),
              "zabove@0 list.1@0 list.2@0 list.3@20 list.4@60 list.5@100 zaside@100 zbelow@100 "
              "zabove@100 ");
    EXPECT_EQ(keys({KeyTab, KeyTab, KeyTab, KeyTab}, true),
              "zbelow@100 zaside@100 list.5@100 list.4@100 ");
    EXPECT_EQ(keys({KeyTab}, true), "list.3@80 ") << "no further than it takes";
}

TEST_F(AreaFocusTest, ArrowsStayInTheAreaAndComeToWhatIsSeen) {
    EXPECT_EQ(keys({KeyTab, KeyDown, KeyDown, KeyDown, KeyDown, KeyDown, KeyDown, KeyUp}),
              "zabove@0 list.1@0 list.2@0 list.3@20 list.4@60 list.5@100 zbelow@100 list.5@100 ");
    EXPECT_EQ(keys({KeyUp, KeyUp, KeyUp, KeyRight, KeyLeft}),
              "list.4@100 list.3@80 list.2@40 zaside@40 list.2@40 ");
}

TEST_F(AreaFocusTest, PageKeysHomeAndEndMoveTheFocusOrTheArea) {
    EXPECT_EQ(keys({KeyPageDown, KeyEnd, KeyHome, KeyEnd, KeyPageUp}), "@100 @100 @0 @100 @0 ")
        << "nothing has the focus: they scroll";
    EXPECT_EQ(keys({KeyTab, KeyTab, KeyPageDown, KeyPageDown, KeyPageUp}),
              "zabove@0 list.1@0 list.3@20 list.5@100 list.3@80 ");
    EXPECT_EQ(keys({KeyEnd, KeyHome}), "list.5@100 list.1@0 ");
    driver.menu().removeWidget("list");
    driver.key(KeyEnd);
    EXPECT_EQ(focus(), "list.5") << "the lowest one of the screen";
    driver.key(KeyHome);
    EXPECT_EQ(focus(), "zabove");
}

TEST_F(AreaFocusTest, CodeAddsRowsAndGivesOneTheFocus) {
    EXPECT_NE(driver.menu().createRow("list.1", "list.6", 200), nullptr);
    EXPECT_EQ(driver.menu().createRow("list.x", "list.7", 240), nullptr);
    EXPECT_TRUE(driver.menu().setFocus("list.6"));
    EXPECT_EQ(area().getOffset(), 140) << "the row comes into view";
    EXPECT_FALSE(driver.menu().setFocus("list")) << "an area can't have it";
    EXPECT_EQ(keys({KeyUp}), "list.5@140 ") << "it is in view already";
}

TEST_F(AreaFocusTest, DoesNotCountRowsForTheOnlyWidget) {
    for (const char* name : {"zaside", "zbelow"})
        driver.widget(name)->setActive(false);
    keys({KeyReturn});
    EXPECT_EQ(driver.menu().getLocalString("hit"), "above");
}

// A list for reading, while it has more than it shows.
TEST_F(AreaFocusTest, StopsAtAnAreaWhoseRowsCannotBePressed) {
    for (int32_t row = 1; row <= 5; ++row)
        driver.widget(("list." + std::to_string(row)).c_str())->setActive(false);
    area().setTabStop(true);
    EXPECT_EQ(keys({KeyTab, KeyTab, KeyTab}), "zabove@0 zaside@0 list@0 ");
    EXPECT_EQ(keys({KeyPageDown, KeyHome, KeyEnd, KeyReturn, KeyPageUp, KeyTab}),
              "list@100 list@0 list@100 list@100 list@0 zbelow@0 ");
    EXPECT_EQ(keys({KeyUp, KeyDown, KeyDown, KeyDown, KeyDown}),
              "list@0 list@48 list@96 list@100 zbelow@100 ");
    EXPECT_EQ(keys({KeyUp, KeyUp, KeyUp, KeyUp, KeyUp}),
              "list@100 list@52 list@4 list@0 zabove@0 ");
    driver.menu().removeWidget("list.5");
    driver.menu().removeWidget("list.4");
    driver.menu().removeWidget("list.3");
    EXPECT_FALSE(driver.menu().setFocus("list")) << "all of it is seen";
}

TEST_F(AreaFocusTest, ShowsARowBeforeItHitsIt) {
    keys({KeyTab, KeyTab});
    area().setOffset(30);
    EXPECT_EQ(keys({KeyReturn}), "list.1@0 ");
    EXPECT_EQ(driver.menu().getLocalString("hit"), "");
    keys({KeyReturn});
    EXPECT_EQ(driver.menu().getLocalString("hit"), "1");
}

TEST_F(MenuFocusTest, EditsTheTextOfAField) {
    driver.press("name");
    const auto type = [this](uint16_t unicode) {
        for (const bool down : {true, false})
            Platform::getInstance().handleEvent(keyEvent(SDLK_UNKNOWN, unicode, down));
        driver.step();
    };
    for (const uint16_t letter : {0x20AC, 0x201E, 0x0160, 0x00FC, 0x0141, 0x0416, 0x007F})
        type(letter);
    EXPECT_EQ(driver.text("name"), "\x80\x84\x8A\xFCL")
        << "all that names have, and L for the Polish one";
    auto& field = dynamic_cast<TextInput&>(*driver.widget("name"));
    EXPECT_EQ(field.getRefusal(), TextInput::Refusal::Character) << "of the Russian letter";
    driver.widget("name")->setText("abc");
    driver.key(KeyHome);
    type('x');
    driver.key(KeyRight);
    driver.key(KeyDelete);
    EXPECT_EQ(driver.text("name"), "xac");
    driver.key(KeyLeft);
    driver.key(KeyBackspace, 8);
    driver.key(KeyEnd);
    type('d');
    driver.key(KeyDelete);
    EXPECT_EQ(driver.text("name"), "acd");
    EXPECT_EQ(focus(), "name") << "none of these keys leaves it";
    field.setFilter([](char character) { return character != '/'; });
    type('/');
    EXPECT_EQ(field.getRefusal(), TextInput::Refusal::Character);
    field.setLengthLimit(2);
    EXPECT_EQ(field.getRefusal(), TextInput::Refusal::None);
    type('e');
    EXPECT_EQ(field.getRefusal(), TextInput::Refusal::Length);
    EXPECT_EQ(driver.text("name"), "ac");
    field.setText("xyz");
    EXPECT_EQ(driver.text("name"), "xy");
    std::ofstream("page.zel", std::ios::binary) << zelFile(1, 1, 24, "dot");
    std::ofstream("wide.fnt", std::ios::binary) << fontFile(glyph('A', 40));
    field.setFont(FontHandler::getFont("wide"));
    field.setLengthLimit(9);
    field.setText("A");
    type('A');
    type('A');
    EXPECT_EQ(driver.text("name"), "AA") << "three are wider than the field";
    EXPECT_EQ(field.getRefusal(), TextInput::Refusal::Length);
}
