// The drawer of log books: nothing that a player begins, takes up, puts away or turns back is lost.
#include <filesystem>

#include "app/career/Database.h"
#include "app/career/Nation.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "tests/app/screens/CareerDriver.h"
#include "tests/app/screens/LogBooks.h"

namespace {

constexpr const char* German1915Choices = "menuButton3>MenuNewYear menuButton1>MenuEnlist";
constexpr ShelvedBook Delmas = {"Lucien Delmas",   0, nullptr, nullptr, 19170610, 7, 14, false,
                                "2008-05-06 21:40"};
constexpr ShelvedBook Brandner = {
    "Friedrich Brandner", Germany, "501011", "Douai", 19170429, 11, 23, true, "2008-04-01 08:05"};

class Drawer : public CareerScreens {
protected:
    /// Goes to the drawer, with a saved career.
    void SetUp() override {
        ASSERT_TRUE(driver.begin(German1915Choices));
        pilot = player();
        title = "Lt " + pilot;
        missions = Database::instance()->player().missions;
        ASSERT_TRUE(driver.walk("menuBack>MenuMain"));
    }
    static std::string player() { return Database::instance()->player().name; }
    std::string rows() {
        std::string names;
        for (int32_t row = 1; driver.widget("book.row" + std::to_string(row)) != nullptr; ++row)
            names += driver.text(("book.row" + std::to_string(row)).c_str()) + "|";
        return names;
    }
    void choose(const char* row) { driver.screens->menu().hitWidget(row); }

    std::string pilot;
    std::string title;    // as on the spine
    int32_t missions = 0; // that he has flown before
};

TEST_F(Drawer, KeepsTheCareerThatAnotherFollows) {
    EXPECT_EQ(driver.text("last"), title + "\n" + "1 December 1915");
    ASSERT_TRUE(driver.walk("careers>MenuCareers"));
    EXPECT_EQ(rows(), title + "|");
    EXPECT_EQ(driver.text("count"), "Books 1 to 1 of 1");
    ASSERT_TRUE(driver.walk("menuBack>MenuMain"));
    ASSERT_TRUE(driver.begin("menuButton2>MenuNewYear menuButton1>MenuEnlist"));
    const std::string other = "2nd Lt " + player();
    ASSERT_TRUE(driver.walk("menuBack>MenuMain careers>MenuCareers"));
    EXPECT_EQ(rows(), other + "|" + title + "|");

    choose("book.row2");
    EXPECT_EQ(driver.text("name"), "Leutnant " + pilot);
    EXPECT_EQ(
        driver.text("war").find("1 December 1915\n0 victories, " + std::to_string(missions) + " "),
        0U)
        << driver.text("war");
    EXPECT_TRUE(driver.widget("serving")->isVisible());
    EXPECT_TRUE(driver.widget("book.ribbon2")->isVisible());
    EXPECT_FALSE(driver.widget("book.ribbon1")->isVisible());
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameMain menuBack>MenuMain"));
    EXPECT_EQ(player(), pilot);
    EXPECT_EQ(driver.text("last").find(title), 0U);
    ASSERT_TRUE(driver.walk("careers>MenuCareers"));
    EXPECT_EQ(rows(), title + "|" + other + "|");
}

TEST_F(Drawer, AsksBeforeABookIsPutAway) {
    putBook(home, 7, Delmas);
    ASSERT_TRUE(driver.walk("careers>MenuCareers"));
    const std::string both = title + "|Lucien Delmas|";
    ASSERT_EQ(rows(), both);
    const auto isAsked = [&] { return driver.text("note").find("Put this book away?") == 0; };
    ASSERT_TRUE(driver.walk("away"));
    EXPECT_TRUE(isAsked());
    for (const char* press : {"away", "book.row1", "menuButton1"}) {
        if (!isAsked())
            choose("away");
        choose(press);
        EXPECT_FALSE(isAsked()) << press << " drops the question";
        EXPECT_EQ(rows(), both) << press;
        EXPECT_TRUE(driver.screens->untilIdle("MenuCareers")) << press << " does nothing else";
    }
    choose("book.row2");
    driver.screens->key(zel::KeyDelete);
    driver.screens->step();
    EXPECT_TRUE(isAsked());
    driver.screens->key(zel::KeyDelete);
    driver.screens->step();
    ASSERT_EQ(rows(), both);
    choose("pages");
    EXPECT_EQ(rows(), title + "|");
    EXPECT_TRUE(std::filesystem::exists(
        home.folder.file("user/Careers/Put away/0007 Lucien Delmas/savegame_v03.wty")));
    ASSERT_TRUE(driver.walk("away pages")) << "the current one";
    EXPECT_EQ(driver.text("name"), "The drawer is empty");
    EXPECT_EQ(driver.text("another"), "Begin a Book");
    for (const char* plate : {"pages", "away", "menuButton1"})
        EXPECT_FALSE(driver.widget(plate)->isActive()) << plate;
    EXPECT_EQ(driver.screens->menu().getFocus().getName(), "");
    ASSERT_TRUE(driver.walk("menuBack>MenuMain"));
    EXPECT_FALSE(driver.widget("menuButton2")->isActive());
    EXPECT_EQ(driver.screens->menu().getFocus().getName(), "careers");
}

TEST_F(Drawer, ShowsWhatCantBeReadAndLeavesItAlone) {
    putBook(home, 3, Brandner);
    std::string newer = home.save();
    newer[4] = 9; // its version
    const std::string file = "user/Careers/0009 Somebody/savegame_v03.wty";
    for (const std::string& content : {newer, std::string("no career at all"), std::string()}) {
        home.folder.write(file, content);
        ASSERT_TRUE(driver.walk("careers>MenuCareers"));
        ASSERT_EQ(rows(), title + "|Somebody|Friedrich Brandner \x86|");
        EXPECT_EQ(driver.widget("book.row2")->getKind(), "spineunread");
        choose("book.row2");
        EXPECT_NE(driver.text("note").find("0009 Somebody"), std::string::npos);
        EXPECT_FALSE(driver.widget("menuButton1")->isActive());
        choose("book.row3");
        EXPECT_TRUE(driver.widget("fallen")->isVisible());
        EXPECT_EQ(home.folder.read(file), content);
        ASSERT_TRUE(driver.walk("menuBack>MenuMain"));
    }
}

TEST_F(Drawer, OpensTheChosenBookByKeys) {
    putBook(home, 3, Delmas);
    ASSERT_TRUE(driver.walk("careers>MenuCareers"));
    EXPECT_EQ(driver.screens->menu().getFocus().getName(), "book.row1");
    driver.screens->key(zel::KeyDown);
    driver.screens->key(zel::KeyReturn);
    EXPECT_EQ(driver.text("name"), "Lucien Delmas");
    EXPECT_TRUE(driver.screens->untilIdle("MenuCareers")) << "it is chosen first";
    driver.screens->key(zel::KeyReturn);
    ASSERT_TRUE(driver.screens->untilIdle("MenuGameMain"));
    EXPECT_EQ(player(), "Lucien Delmas");
}

TEST_F(Drawer, TurnsBackAndKeepsTheLaterPages) {
    ASSERT_TRUE(driver.walk("menuButton2>MenuGameMain"));
    ASSERT_TRUE(driver.takeOff());
    ASSERT_TRUE(driver.walk("menuButton4>MenuGameCombatReport menuButton1>MenuGameAdvance "
                            "menuButton1>MenuGameDiary menuButton1>MenuGameMain"));
    const std::string later = driver.text("date");
    ASSERT_TRUE(driver.walk("menuBack>MenuMain careers>MenuCareers pages>MenuCareerPages"));
    EXPECT_EQ(driver.text("page.row2").find("1 Dec 1915 "), 0U) << driver.text("page.row2");
    EXPECT_EQ(driver.text("more"), "Pages 1 to 2 of 2");
    EXPECT_FALSE(driver.widget("menuButton1")->isActive()) << "the newest is chosen";
    choose("page.row2");
    EXPECT_EQ(driver.widget("page.row2")->getKind(), "slipon");
    EXPECT_EQ(driver.widget("page.row1")->getKind(), "slipoff");
    ASSERT_TRUE(driver.walk("menuButton1>MenuCareers menuButton1>MenuGameMain"));
    EXPECT_EQ(driver.text("date"), "1-December-1915");
    ASSERT_TRUE(driver.walk("menuBack>MenuMain careers>MenuCareers pages>MenuCareerPages"));
    EXPECT_EQ(driver.text("page.row3").find(later.substr(0, later.find('-')) + " Dec 1915 "), 0U)
        << driver.text("page.row3");
    choose("page.row3");
    ASSERT_TRUE(driver.walk("menuButton1>MenuCareers menuButton1>MenuGameMain"));
    EXPECT_EQ(driver.text("date"), later) << "and forth again";
}

TEST_F(Drawer, OffersNoDamagedPage) {
    const std::string folder = putBook(home, 3, Delmas);
    putPage(home, folder, 1,
            {"Lucien Delmas", 0, nullptr, nullptr, 19170607, 6, 13, false, "2008-05-05 20:12"},
            true);
    ASSERT_TRUE(driver.walk("careers>MenuCareers"));
    choose("book.row2");
    ASSERT_TRUE(driver.walk("pages>MenuCareerPages"));
    EXPECT_EQ(driver.text("page.row1"), "10 June 1917   14       7           6 May 2008");
    choose("page.row2");
    EXPECT_EQ(driver.widget("page.row2")->getKind(), "sliploston");
    EXPECT_EQ(driver.text("facts"), "This page is damaged. It stays as it is.");
    EXPECT_FALSE(driver.widget("menuButton1")->isActive());
    ASSERT_TRUE(driver.walk("menuBack>MenuCareers"));
    EXPECT_EQ(driver.text("name"), "Lucien Delmas") << "still chosen";
}

} // namespace
