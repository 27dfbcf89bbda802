#include "engine/menu/widgets/MenuFocus.h"

#include <gtest/gtest.h>

#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
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
    MenuFocusTest() : driver({{"A", Grid}, {"B", "init:\n"}}) {
        driver.untilIdle("A");
        driver.step();
    }
    std::string focus() { return driver.menu().getFocus().getName().c_str(); }
    std::string keys(std::initializer_list<int32_t> symbols) {
        std::string way;
        for (const int32_t symbol : symbols) {
            driver.key(symbol);
            way += focus() + " ";
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

TEST_F(MenuFocusTest, EscapeGoesBack) {
    driver.widget("menuBack")->setActive(false);
    driver.key(KeyEscape);
    EXPECT_TRUE(driver.untilIdle("A"));
    driver.widget("menuBack")->setActive(true);
    driver.key(KeyEscape);
    EXPECT_TRUE(driver.untilIdle("B"));
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

TEST_F(MenuFocusTest, TypesIntoAField) {
    driver.press("name");
    EXPECT_EQ(focus(), "name");
    for (const char letter : {'R', 'e', 'n', '\xe9', ' ', '!'})
        driver.key(static_cast<uint8_t>(letter), letter);
    driver.key(KeyBackspace, 8);
    EXPECT_EQ(driver.text("name"), "Ren\xe9 ") << "a blank is typed, no hit";
    driver.key(KeyTab);
    EXPECT_EQ(focus(), "menuBack");
    driver.key('x', 'x');
    EXPECT_EQ(driver.text("name"), "Ren\xe9 ");
    driver.widget("name")->setText("Other");
    EXPECT_EQ(driver.text("name"), "Other");
}
