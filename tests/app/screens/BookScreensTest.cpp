#include <filesystem>

#include "app/book/BookTables.h"
#include "app/book/Standing.h"
#include "app/career/Database.h"
#include "app/report/CombatReport.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "engine/window/Window.h"
#include "tests/app/screens/BookFlights.h"
#include "tests/app/screens/CareerDriver.h"

namespace {

class BookScreens : public CareerScreens {
protected:
    void SetUp() override {
        ASSERT_TRUE(driver.begin("menuButton2>MenuNewYear menuButton1>MenuEnlist"));
    }
    static int32_t date() { return Database::instance()->calendar().dateNumber(); }
    bool isActive(const char* name) { return driver.widget(name)->isActive(); }
};

TEST_F(BookScreens, ShowsAnEmptyLogBook) {
    ASSERT_TRUE(driver.go("logbook", "MenuGameLogbook"));
    EXPECT_EQ(driver.text("left1"), "No flight yet");
    EXPECT_EQ(driver.text("pageNumber"), "Page 1 of 1");
    for (const char* plate : {"left1", "earlier", "later", "webPage"})
        EXPECT_FALSE(isActive(plate)) << plate;
}

TEST_F(BookScreens, TurnsThePagesOfTheLogBook) {
    addFlightsToBook(*Database::instance(), 30);
    ASSERT_TRUE(driver.go("logbook", "MenuGameLogbook"));
    EXPECT_EQ(driver.text("pageNumber"), "Page 3 of 3") << "it opens at the last one";
    EXPECT_EQ(driver.text("left3"), "");
    EXPECT_EQ(driver.text("totalLeft"), "30 flights, less than a month");
    EXPECT_EQ(driver.text("left2").substr(0, 4), " 30 ");
    EXPECT_EQ(driver.text("right1"), "2 Albatros D.III   Damaged, landed       10");
    const std::pair<int32_t, const char*> keys[] = {{zel::KeyPageUp, "Page 2 of 3"},
                                                    {zel::KeyHome, "Page 1 of 3"},
                                                    {zel::KeyPageUp, "Page 1 of 3"},
                                                    {zel::KeyPageDown, "Page 2 of 3"},
                                                    {zel::KeyEnd, "Page 3 of 3"}};
    for (const auto& [key, page] : keys) {
        driver.screens->key(key);
        EXPECT_EQ(driver.text("pageNumber"), page);
    }
}

TEST_F(BookScreens, WritesTheLogBookAsAWebPage) {
    static zel::String opened;
    zel::Window::setBrowser([](const zel::String& target) {
        opened = target;
        return true;
    });
    addFlightsToBook(*Database::instance(), 3);
    ASSERT_TRUE(driver.walk("logbook>MenuGameLogbook webPage"));
    EXPECT_EQ(home.folder.read("user/logbook.html").find("<!DOCTYPE html>"), 0U);
    EXPECT_EQ(std::filesystem::path(opened.c_str()), home.folder.file("user/logbook.html"));
    EXPECT_NE(driver.text("note").find("logbook.html"), std::string::npos);
    std::filesystem::remove(home.folder.file("user/logbook.html"));
    std::filesystem::create_directories(home.folder.file("user/logbook.html"));
    ASSERT_TRUE(driver.walk("webPage"));
    EXPECT_EQ(driver.text("note"),
              "The page could not be written. A folder or a device has its name.");
    zel::Window::setBrowser(nullptr);
}

// His own row leads to his record of service. Back leads to where he pressed, with that row lit.
TEST_F(BookScreens, OpensThePageOfAPilotAndLeadsBack) {
    Database& career = *Database::instance();
    career.player().shotdowns = 40; // the first of both lists
    const auto walk = [&](const std::string& steps) { ASSERT_TRUE(driver.walk(steps)); };
    walk("menuButton2>MenuGameViewSquadron pilot.row2>MenuGamePilot");
    const std::string other =
        career.pilot(rosterRows(career, BookTables::instance())[1].pilot).name;
    EXPECT_NE(driver.text("name").find(other), std::string::npos);
    walk("menuBack>MenuGameViewSquadron");
    EXPECT_TRUE(driver.widget("pilot.row2")->isFocused());
    walk("pilot.row1>MenuGameRecord menuBack>MenuGameViewSquadron");
    EXPECT_TRUE(driver.widget("pilot.row1")->isFocused());
    walk("menuButton1>MenuGameMain menuButton3>MenuGameTopAces pilot.own>MenuGameRecord "
         "menuBack>MenuGameTopAces menuButton1>MenuGameMain record>MenuGameRecord "
         "menuBack>MenuGameMain diary>MenuGameDiary entry.press1>MenuGameRecord "
         "menuBack>MenuGameDiary");
    EXPECT_FALSE(driver.widget("news.press1")->isVisible()) << "about nobody";
    driver.screens->key(zel::KeyHome); // clears the focus
    walk("menuButton1>MenuGameMain menuButton2>MenuGameViewSquadron");
    EXPECT_FALSE(driver.widget("pilot.row1")->isFocused()) << "he doesn't come back from there";
    driver.screens->key(zel::KeyEscape);
    EXPECT_TRUE(driver.screens->untilIdle("MenuGameMain"));
}

// A row opens the report and the sketch of its flight, and the war stays where it is.
TEST_F(BookScreens, OpensAFlightAgain) {
    addFlightsToBook(*Database::instance(), 16);
    const int32_t before = date();
    ASSERT_TRUE(driver.walk("logbook>MenuGameLogbook earlier left4>MenuGameCombatReport"));
    EXPECT_NE(driver.text("left1").find("Kills: 1"), std::string::npos);
    EXPECT_EQ(driver.text("rightWhy1"), "The log names you as the victor.");
    ASSERT_TRUE(driver.walk("where>MenuGameWhere menuBack>MenuGameCombatReport where>MenuGameWhere "
                            "menuButton1>MenuGameLogbook"));
    EXPECT_EQ(driver.text("pageNumber"), "Page 1 of 2") << "where he pressed";
    ASSERT_TRUE(driver.walk("right1>MenuGameCombatReport menuButton1>MenuGameLogbook "
                            "menuBack>MenuGameMain"));
    EXPECT_EQ(date(), before);
    ASSERT_TRUE(driver.takeOff());
    ASSERT_TRUE(driver.go("menuButton4", "MenuGameCombatReport"));
    EXPECT_EQ(driver.text("left1"), "(No mission played.)") << "no longer one of the book";
    ASSERT_TRUE(driver.closeReport());
    EXPECT_GT(date(), before);
}

/// Goes from the office to the letter about him.
class FallenScreens : public BookScreens {
protected:
    void fall() {
        name = Database::instance()->player().name;
        standin::FlightOptions flight;
        flight.killPlayer = true;
        ASSERT_TRUE(driver.takeOff() && driver.fly(flight));
        const InFront player;
        driver.look();
        ASSERT_TRUE(driver.screens->untilIdle("MenuGameCombatReport"));
        ASSERT_TRUE(driver.walk("menuButton1>MenuGameAdvance menuButton1>MenuGameFallen"));
        EXPECT_NE(driver.text("line2").find(name), std::string::npos);
        EXPECT_NE(driver.text("line2").find(" flight"), std::string::npos);
        successor = Database::instance()->player().name;
        EXPECT_NE(driver.text("next").find(successor), std::string::npos);
    }
    std::string name, successor;
};

TEST_F(FallenScreens, LeadToTheSuccessor) {
    fall();
    EXPECT_NE(name, successor);
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameDiary menuButton1>MenuGameMain"));
    EXPECT_NE(driver.text("pilot").find(successor), std::string::npos);
    ASSERT_TRUE(driver.takeOff());
    ASSERT_TRUE(driver.walk("menuButton4>MenuGameCombatReport menuButton1>MenuGameAdvance"));
    driver.screens->menu().hitWidget("menuButton1");
    EXPECT_TRUE(driver.screens->untilIdle("MenuGameDiary")) << "one letter a fall";
}

TEST_F(FallenScreens, CloseTheBookAndOpenItAgain) {
    fall();
    ASSERT_TRUE(driver.walk("close>MenuCareers"));
    EXPECT_NE(driver.text("name").find(" " + name), std::string::npos) << driver.text("name");
    EXPECT_TRUE(driver.widget("fallen")->isVisible());
    const std::string folder = "user/Careers/0001 " + name + "/";
    const std::string save = home.folder.read(folder + "savegame_v03.wty");
    EXPECT_EQ(home.save(), "");
    EXPECT_FALSE(home.folder.read(folder + "record.db").empty());
    ASSERT_TRUE(driver.walk("menuBack>MenuMain menuButton2>MenuGameFallen"));
    EXPECT_EQ(home.save(), save) << "whole, as it was closed";
    EXPECT_NE(driver.text("line2").find(name), std::string::npos);
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameMain menuBack>MenuMain menuButton2>MenuGameMain"));
    EXPECT_EQ(Database::instance()->player().name, successor) << "the book is open";
}

// The war moves on once, whichever page the player leaves from.
TEST_F(BookScreens, SketchesTheFlightOfTheDay) {
    for (const char* way : {"where>MenuGameWhere menuButton1>MenuGameAdvance",
                            "where>MenuGameWhere menuBack>MenuGameCombatReport "
                            "menuButton1>MenuGameAdvance"}) {
        const int32_t before = date();
        ASSERT_TRUE(driver.takeOff());
        ASSERT_TRUE(driver.fly());
        {
            const InFront player;
            driver.look();
        }
        ASSERT_TRUE(driver.screens->untilIdle("MenuGameCombatReport"));
        const std::string first = driver.text("left1");
        ASSERT_TRUE(driver.walk("where>MenuGameWhere"));
        EXPECT_EQ(date(), before);
        EXPECT_NE(driver.text("event.row1").find("1. 0:0"), std::string::npos)
            << driver.text("event.row1");
        EXPECT_TRUE(driver.widget("sketch")->isVisible());
        ASSERT_TRUE(driver.walk("menuBack>MenuGameCombatReport"));
        EXPECT_EQ(driver.text("left1"), first);
        ASSERT_TRUE(driver.walk(way));
        EXPECT_GT(date(), before);
        const int32_t after = date();
        ASSERT_TRUE(driver.walk("menuButton1>MenuGameDiary menuButton1>MenuGameMain"));
        EXPECT_EQ(date(), after);
        EXPECT_TRUE(driver.walk("logbook>MenuGameLogbook menuBack>MenuGameMain"));
    }
}

} // namespace
