#include "engine/menu/style/LayoutHandler.h"

#include <gtest/gtest.h>

#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"

using namespace zel;

namespace {

/// A separate handler, in which the layout "l" was begun.
class LayoutHandlerTest : public testing::Test {
protected:
    LayoutHandlerTest() {
        LayoutHandler::release();
        handler().defineLayout("l");
    }
    ~LayoutHandlerTest() override { LayoutHandler::release(); }
    static LayoutHandler& handler() { return LayoutHandler::getInstance(); }
    static const Layout& layout() { return *handler().find("L"); }
};

} // namespace

TEST_F(LayoutHandlerTest, KeepsAnElementInBothLists) {
    handler().defineWidget("note", "button");
    handler().currentWidget()->rect.x = 1;
    handler().defineTextArea("note");
    handler().currentTextArea()->rect.x = 2;
    EXPECT_EQ(layout().widgets.count("note"), 1U);
    EXPECT_EQ(layout().textAreas.at("note").kind, "textarea");

    handler().defineWidget("note", "");
    EXPECT_EQ(handler().currentWidget()->rect.x, 1) << "the widget becomes current";
    EXPECT_EQ(handler().currentWidget()->kind, "button");
    handler().defineWidget("note", "textarea");
    EXPECT_EQ(handler().currentWidget()->rect.x, 2) << "this kind selects the text area";
    EXPECT_EQ(layout().widgets.at("note").rect.x, 1);
    EXPECT_EQ(handler().currentTextArea()->rect.x, 2) << "it is the current text area as well";
}

TEST_F(LayoutHandlerTest, LeavesATextAreaWhatItIs) {
    handler().defineTextArea("note");
    handler().defineWidget("note", "");
    EXPECT_EQ(handler().currentWidget(), handler().currentTextArea());
    EXPECT_EQ(layout().textAreas.at("note").kind, "textarea");
    handler().defineWidget("note", "Letter");
    EXPECT_EQ(layout().textAreas.at("note").kind, "letter") << "one of the text areas' kinds";
    handler().defineTextArea("note");
    EXPECT_EQ(layout().textAreas.at("note").kind, "letter");
    EXPECT_TRUE(layout().widgets.empty());

    handler().currentTextArea()->rect.x = 3;
    handler().defineWidget("note", "Button");
    EXPECT_TRUE(layout().textAreas.empty()) << "only widgets are buttons";
    EXPECT_EQ(layout().widgets.at("note").rect.x, 3) << "it keeps its definition";
    handler().defineWidget("note", "textarea");
    EXPECT_EQ(layout().textAreas.at("note").rect.x, 3);
}

TEST_F(LayoutHandlerTest, NeedsAnElementForItsParts) {
    const LogCapture log;
    EXPECT_EQ(handler().currentWidget(), nullptr);
    EXPECT_EQ(log.linesWith("definition of a part without its element"), 1);
    handler().defineWidget("a", "");
    EXPECT_NE(handler().currentWidget(), nullptr);
    EXPECT_EQ(handler().currentTextArea(), nullptr);
    handler().defineLayout("other");
    EXPECT_EQ(handler().currentWidget(), nullptr) << "a new layout has none";
    LayoutHandler::release();
    EXPECT_EQ(handler().currentWidget(), nullptr);
    EXPECT_EQ(log.linesWith("defineWidget() without layout"), 1);
}
