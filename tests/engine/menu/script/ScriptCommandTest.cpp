#include "engine/menu/script/ScriptCommand.h"

#include <fstream>
#include <functional>

#include <gtest/gtest.h>

#include "engine/graphics/Canvas.h"
#include "engine/graphics/Font.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "tests/engine/graphics/Pictures.h"
#include "tests/engine/menu/ScreenDriver.h"
#include "tests/support/Printers.h"

using namespace zel;

namespace {

const char* nameOf(const Font* font) { return font != nullptr ? font->getName().c_str() : "none"; }

/// The fonts of the widget and the text area.
std::string fonts(HandledMenu& menu) {
    return std::string(nameOf(menu.getWidget("w")->getFont())) + " " +
           nameOf(menu.getTextArea("a")->getFont());
}

std::string texts(HandledMenu& menu) {
    return std::string(menu.getWidget("w")->getText().view()) + "|" +
           menu.getTextArea("a")->getText().c_str();
}

/// Where the text area's letter begins.
std::string letterX(HandledMenu& menu) {
    std::vector<Canvas::DrawRecord> records;
    Canvas::getInstance().setRecorder(&records);
    menu.getTextArea("a")->render();
    Canvas::getInstance().setRecorder(nullptr);
    return records.size() == 1 ? std::to_string(static_cast<int>(records[0].target.x)) : "none";
}

std::string hits(HandledMenu& menu) {
    menu.getWidget("w")->performHit();
    const bool wasHit = menu.getWidget("w")->wasHit();
    menu.getScript().executeLine("resetwidgets", &menu);
    return wasHit && !menu.getWidget("w")->wasHit() ? "reset" : "not reset";
}

std::string createdText(HandledMenu& menu) {
    menu.getScript().executeLine("createwidget second", &menu);
    const Widget* made = menu.getWidget("second");
    return made != nullptr ? made->getText().c_str() : "none";
}

struct Case {
    const char* commands; // between defining and creating the elements
    std::string (*probe)(HandledMenu& menu);
    const char* expected;
};

// The theme's fonts are "one" and "two".
const Case Cases[] = {
    {"", fonts, "one one"},
    {"layout.definefont three", fonts, "three three"},
    {"layout.definefont nosuch 1", fonts, "two two"},
    {"theme.definewidgetfont button two\ntheme.definetextareafont textarea two", fonts, "two two"},
    {"theme.definewidgetfont button two\ntheme.definetextareafont textarea two\n"
     "layout.definefont three",
     fonts, "three three"},
    {"layout.definefont three\nlayout.definewidgetfont two", fonts, "two three"},
    {"layout.definetextareafont three", fonts, "one three"},
    {"layout.definetextareafont nosuch 1", fonts, "one two"},
    {"theme.definewidgetfontindex Button 1 0", fonts, "two one"},
    {"theme.definetextareafontindex TextArea 1 0", fonts, "one two"},
    {"theme.cleartheme", fonts, "none none"},
    {"layout.definetextareatext \"Dear sir,\\n\"", texts, "|Dear sir,\n"},
    {"layout.definetextareatext A\nlayout.definetextareaalignment right", letterX, "189"},
    {"layout.definetextareatext A\nlayout.definetextareaalignment center", letterX, "144"},
    {"layout.definetextareatext A", letterX, "99"},
    {"", hits, "reset"},
    {"layout.definewidget second\nlayout.definewidgettext made", createdText, "made"},
};

} // namespace

TEST(ScriptCommand, DoesWhatItSays) {
    ScreenDriver driver({{"A", "init:\n"}});
    std::ofstream("page.zel", std::ios::binary) << zelFile(1, 1, 24, "dot");
    for (const char* font : {"one.fnt", "two.fnt", "three.fnt"}) // A is drawn a pixel to the left
        std::ofstream(font, std::ios::binary) << fontFile(glyph('A', 10));
    ASSERT_TRUE(driver.untilIdle("A"));
    HandledMenu& menu = driver.menu();
    for (const Case& row : Cases) {
        const std::string script =
            std::string("x:\ncleartextareas\nclearwidgets\n") +
            "theme.definetheme t\ntheme.definefont one 0\ntheme.definefont two 1\n"
            "layout.definelayout l\nlayout.definewidget w button\n"
            "layout.definetextarea a\nlayout.definetextareaposition 100 0\n"
            "layout.definetextareasize 100 25\n" +
            row.commands + "\nsetlayout l\nsettheme t\naddwidget w\naddtextarea a\n";
        MenuConfigFile lines;
        lines.loadText(script, "case");
        lines.executeSection("x", &menu);
        EXPECT_EQ(row.probe(menu), row.expected) << row.commands;
    }
    EXPECT_TRUE(driver.faults.empty());
}
