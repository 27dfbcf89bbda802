#include "app/career/Database.h"
#include "app/report/CombatReport.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "tests/app/screens/CareerDriver.h"

namespace {

class CombatReportScreen : public CareerScreens {
protected:
    void SetUp() override {
        ASSERT_TRUE(driver.begin("menuButton2>MenuNewYear menuButton1>MenuEnlist"));
        ASSERT_TRUE(driver.takeOff());
    }
    /// Shows a report of that many Britons and Germans, the first of whom is the player.
    void showReport(int32_t allied, int32_t german) {
        for (int32_t i = 0; i < allied + german; ++i) {
            PilotReport& pilot = CombatReport::instance()->pilots.emplace_back();
            pilot.name =
                zel::String(i < allied ? "Tommy " : "Fritz ") + (i < allied ? i : i - allied);
            pilot.country = i < allied ? 102 : 501;
            pilot.human = i == 0 ? 1 : 0;
            pilot.pilot = i;
        }
        ASSERT_TRUE(driver.go("menuButton4", "MenuGameCombatReport"));
    }
    bool isShown(const std::string& name) { return driver.widget(name)->isVisible(); }
    /// Expects that sheet of `count`: up to five entries, of which the player's is the first.
    void expectSheet(int32_t sheet, int32_t count) {
        EXPECT_EQ(driver.text("sheetNumber"),
                  std::to_string(sheet) + " of " + std::to_string(count));
        EXPECT_EQ(driver.text("left1"), "Tommy " + std::to_string(5 * sheet - 5) + " - Kills: 0");
        EXPECT_NE(driver.text("leftWhy1"), "");
        EXPECT_EQ(driver.text("left4") == "", sheet == count);
        EXPECT_EQ(driver.text("right1"), sheet == 1 ? "Fritz 0 - Kills: 0" : "");
        EXPECT_EQ(driver.widget("left1")->getFont() == driver.widget("left4")->getFont(),
                  sheet > 1);
    }
};

TEST_F(CombatReportScreen, TurnsItsSheets) {
    showReport(11, 3);
    expectSheet(1, 3);
    for (const int32_t sheet : {2, 3, 1}) {
        ASSERT_TRUE(driver.walk("nextSheet"));
        expectSheet(sheet, 3);
    }
    for (const auto& [key, sheet] : {std::pair{zel::KeyPageUp, 1},
                                     {zel::KeyPageDown, 2},
                                     {zel::KeyPageDown, 3},
                                     {zel::KeyPageDown, 3},
                                     {zel::KeyPageUp, 2}}) {
        driver.screens->key(key);
        expectSheet(sheet, 3);
    }
}

TEST_F(CombatReportScreen, HasNoSheetsToTurnWhenOneIsEnough) {
    showReport(5, 5);
    EXPECT_TRUE(isShown("left15"));
    EXPECT_FALSE(isShown("nextSheet"));
    EXPECT_NE(driver.widget("left1")->getFont(), driver.widget("left4")->getFont())
        << "the player's own line stands out";
    EXPECT_EQ(driver.widget("left4")->getFont(), driver.widget("right1")->getFont());
}

// 31 letters and the victories in the log, which is what a name can have at most.
TEST_F(CombatReportScreen, FitsTheLongestNames) {
    const zel::String name("Wilhelmina-Karoline von Wuertte/12");
    for (int32_t i = 0; i < 3; ++i) {
        PilotReport& pilot = CombatReport::instance()->pilots.emplace_back();
        pilot.name = i < 2 ? name : zel::String("Short");
        pilot.country = 102;
        pilot.human = i == 1 ? 1 : 0;
        pilot.kills.assign(12, 0);
        pilot.shotDown = 1;
        pilot.shotdownByOwn = 0;
    }
    ASSERT_TRUE(driver.go("menuButton4", "MenuGameCombatReport"));
    for (int32_t line = 1; line <= 9; ++line) {
        const zel::Widget& widget = *driver.widget("left" + std::to_string(line));
        EXPECT_LE(zel::Text::widthOf(widget.getFont(), widget.getText()),
                  widget.getBounds().rect.width)
            << widget.getText().c_str();
    }
    EXPECT_EQ(driver.widget("left7")->getFont(), driver.widget("left13")->getFont())
        << "a short name keeps the usual type";
    for (int32_t entry = 1; entry <= 3; ++entry)
        EXPECT_FALSE(driver.screens->menu()
                         .getTextArea("leftWhy" + std::to_string(entry))
                         ->getLabel()
                         .isCut());
    EXPECT_NE(driver.text("leftWhy2").find("don't name you"), std::string::npos);
}

TEST_F(CombatReportScreen, KeepsTheFirstOfTooMany) {
    showReport(25, 1);
    for (int32_t sheet = 2; sheet <= 5; ++sheet)
        ASSERT_TRUE(driver.walk("nextSheet"));
    expectSheet(5, 5);
}

TEST_F(CombatReportScreen, SaysWhenThereWasNoMission) {
    const int32_t before = Database::instance()->calendar().dateNumber();
    showReport(0, 0);
    EXPECT_EQ(driver.text("left1"), "(No mission played.)");
    EXPECT_EQ(driver.text("right1"), "");
    EXPECT_FALSE(isShown("where"));
    ASSERT_TRUE(driver.closeReport());
    EXPECT_GT(Database::instance()->calendar().dateNumber(), before)
        << "the war goes on all the same";
}

} // namespace
