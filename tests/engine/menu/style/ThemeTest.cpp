#include <fstream>

#include <gtest/gtest.h>

#include "engine/graphics/Canvas.h"
#include "engine/graphics/Image.h"
#include "engine/menu/MenuOverlay.h"
#include "engine/menu/style/ThemeHandler.h"
#include "engine/menu/widgets/Widget.h"
#include "tests/engine/graphics/Pictures.h"
#include "tests/engine/menu/ScreenDriver.h"
#include "tests/engine/menu/TestApp.h"
#include "tests/support/Printers.h"

using namespace zel;

namespace {

constexpr const char* Styled = R"(
onenter:
theme.definetheme T
theme.definewidgetimage Button rest all
theme.definewidgetimage button press down
theme.definewidgetimage switch press active
theme.definewidgetimagecolorargb button 80FFFFFF all
theme.definetextcolorargb FF010101 all
theme.definewidgettextcolorargb button FF020202 over
theme.definebackgroundimage desk
layout.definelayout l
layout.definewidget plain button
layout.definewidgetsize 10 10
layout.definewidget own button
layout.definewidgetimage own active
layout.definewidget other
setlayout l
settheme t
settheme missing
addwidget plain
addwidget own
addwidget other
)";

class ThemeTest : public testing::Test {
protected:
    void start(const char* script) {
        driver = std::make_unique<ScreenDriver>(
            std::initializer_list<ScreenDriver::Script>{{"A", script}});
        for (const char* name : {"rest", "press", "own", "desk"})
            std::ofstream(name, std::ios::binary) << zelFile(1, 1, 24, "dot");
        std::ofstream("page.zel", std::ios::binary) << zelFile(1, 1, 24, "dot");
        std::ofstream("seed.fnt", std::ios::binary) << fontFile(glyph('A', 10));
        ASSERT_TRUE(driver->untilIdle("A"));
        menu = &driver->menu();
    }
    std::string image(const char* widget, WidgetLook look) const {
        const Image* found = driver->widget(widget)->getImage(look);
        return found != nullptr ? found->getName().c_str() : "";
    }

    std::unique_ptr<ScreenDriver> driver;
    HandledMenu* menu = nullptr;
};

} // namespace

TEST_F(ThemeTest, FillsWhatTheLayoutLeavesOpen) {
    start(Styled);
    EXPECT_EQ(driver->log.linesWith("[Menu] Theme identifier unknown"), 1);
    EXPECT_EQ(driver->log.linesWith("[ThemeHandler] Added theme T"), 1);
    EXPECT_EQ(menu->getTheme()->name, "T") << "an unknown one changes nothing";
    EXPECT_EQ(image("plain", LookActive), "rest");
    EXPECT_EQ(image("plain", LookDown), "press") << "a later word overrides all";
    EXPECT_EQ(image("own", LookActive), "own") << "the layout's goes first";
    EXPECT_EQ(image("own", LookOver), "rest");
    EXPECT_EQ(image("other", LookActive), "") << "another kind";
    ASSERT_NE(menu->getThemeBackground(), nullptr);
}

TEST_F(ThemeTest, GivesAWidgetAnotherKind) {
    start(Styled);
    for (const char* name : {"plain", "own"}) {
        Widget& widget = *driver->widget(name);
        widget.setText("text");
        widget.setTransition("B");
        widget.setActive(false);
        ASSERT_TRUE(menu->setWidgetKind(name, "Switch"));
        EXPECT_EQ(widget.getText(), "text");
        EXPECT_EQ(widget.getTransition(), "B");
        EXPECT_FALSE(widget.isActive());
    }
    EXPECT_EQ(image("plain", LookActive), "press");
    EXPECT_EQ(image("plain", LookOver), "") << "nothing of the old kind stays";
    EXPECT_EQ(image("own", LookActive), "own") << "but what the layout says";
    menu->onPause();
    menu->onContinue();
    EXPECT_EQ(image("plain", LookActive), "press") << "over a pause too";

    EXPECT_FALSE(menu->setWidgetKind("plain", "nokind"));
    EXPECT_FALSE(menu->setWidgetKind("nowidget", "button"));
    EXPECT_TRUE(driver->log.holds("[Menu] setWidgetKind() to unknown kind nokind"));
    EXPECT_TRUE(driver->log.holds("[Menu] setWidgetKind() of unknown widget nowidget"));
    EXPECT_EQ(driver->widget("plain")->getKind(), "switch");
}

TEST_F(ThemeTest, DrawsEachLookInItsColoursAndTheMissingPictureAsTheActiveOne) {
    start(R"(
onenter:
theme.definetheme t
theme.definefont seed
theme.definewidgetimage button rest active
theme.definewidgetimagecolorargb button 80112233 active
theme.definewidgettextcolorargb button FF000001 active
theme.definewidgettextcolorargb button FF000002 inactive
theme.definewidgettextcolorargb button FF000003 over
theme.definewidgettextcolorargb button FF000004 down
theme.definewidgettextoffset button 3 -5
layout.definelayout l
layout.definewidget b button
layout.definewidgetsize 100 25
layout.definewidgetalignment left
setlayout l
settheme t
addwidget b A
)");
    driver->moveTo(500, 500);
    driver->step();
    Widget& widget = *driver->widget("b");
    const auto expectColor = [&](uint32_t color, const char* what) {
        std::vector<Canvas::DrawRecord> records;
        Canvas::getInstance().setRecorder(&records);
        widget.render();
        Canvas::getInstance().setRecorder(nullptr);
        ASSERT_EQ(records.size(), 2U) << what;
        EXPECT_EQ(records[0].name, "rest") << what;
        EXPECT_EQ(records[0].argb, 0x80112233) << what;
        EXPECT_EQ(records[1].argb, color) << what;
        // The glyph itself is drawn one to the left and 3 down, and the line fills the height.
        EXPECT_EQ(records[1].target, (Rect{2, -2, 8, 9})) << what;
    };
    expectColor(0xFF000001, "at rest");
    widget.setFocused(true);
    expectColor(0xFF000003, "over");
    widget.performHit();
    expectColor(0xFF000004, "down");
    widget.setActive(false);
    expectColor(0xFF000002, "inactive");
}

TEST_F(ThemeTest, TakesARegisteredOverlayFirst) {
    constexpr const char* Script = R"(
onenter:
theme.definetheme both
theme.definebackgroundimage desk
theme.definebackgroundmenuoverlay lamp oversize
theme.defineforegroundmenuoverlay desk oversize
theme.definetheme missing
theme.definebackgroundimage desk
theme.definebackgroundmenuoverlay none
)";
    class Lamp : public MenuOverlay {
    public:
        Lamp() : MenuOverlay("lamp") {}
        void update() override {}
        void render() override {}
    };
    MenuOverlay* lamp = nullptr;
    whenMenusAreLoaded() = [&lamp] { lamp = MenuOverlay::add(std::make_unique<Lamp>()); };
    start(Script);
    ASSERT_TRUE(menu->setTheme("both"));
    EXPECT_EQ(menu->getThemeBackground(), lamp);
    const StateOverlay* desk = menu->getThemeForeground();
    EXPECT_NE(desk, nullptr) << "no overlay of that name: the image's";
    ASSERT_TRUE(menu->setTheme("missing"));
    EXPECT_NE(menu->getThemeBackground(), nullptr) << "the theme's image is still there";
    EXPECT_NE(menu->getThemeBackground(), desk) << "without the overlay's option";
    EXPECT_EQ(driver->log.linesWith("Did not find image none"), 1);
}

TEST(ThemeHandler, StartsOver) {
    const LogCapture log;
    ThemeHandler::release();
    ThemeHandler& handler = ThemeHandler::getInstance();
    EXPECT_EQ(handler.currentTheme(), nullptr);
    EXPECT_TRUE(log.holds("definition without theme"));
    handler.defineTheme("Office");
    handler.defineFont("b", 1);
    handler.defineFont("c", -1);
    handler.defineFont("a", 0);
    EXPECT_EQ(handler.find("OFFICE")->fonts, (std::vector<String>{"a", "b", "c"}));
    handler.defineFont("far", 30000);
    EXPECT_EQ(handler.find("office")->fonts.size(), 3U);
    handler.clearTheme();
    EXPECT_TRUE(handler.find("office")->fonts.empty());
    EXPECT_EQ(handler.find("office")->name, "Office");
    handler.defineFont("d", 0);
    handler.defineTheme("office");
    EXPECT_TRUE(handler.find("office")->fonts.empty()) << "a second definition starts over";
    ThemeHandler::release();
}
