// What goes wrong around the program ends in a page or a line that says what to do, and loses
// nothing.
#include <filesystem>
#include <memory>

#include "app/career/Aircraft.h"
#include "app/career/Database.h"
#include "app/mission/DailyMission.h"
#include "engine/core/LockFile.h"
#include "engine/core/Registry.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "tests/app/screens/CareerDriver.h"
#include "tests/support/HeldFile.h"

namespace {

constexpr const char* FirstChoices = "menuButton3>MenuNewYear menuButton1>MenuEnlist";

constexpr const char* Pages = "user/Saves/Pages";

using ScreenFaults = CareerScreens;

TEST_F(ScreenFaults, TheMissionCannotBeWritten) {
    ASSERT_TRUE(driver.begin(FirstChoices));
    const std::string missions = home.simulatorFolder() + "/data/Missions";
    std::filesystem::remove_all(missions);
    home.folder.write(home.simulator + "/data/Missions", "in the way");
    ASSERT_TRUE(driver.go("menuButton1", "MenuNotificationMission"));
    EXPECT_NE(driver.text("reason").find(MissionFileName), std::string::npos);
    std::filesystem::remove(missions);
    std::filesystem::create_directory(missions);
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameMain menuButton1>MenuGameStartMission"));
}

TEST_F(ScreenFaults, ThereIsNothingToFly) {
    ASSERT_TRUE(driver.begin(FirstChoices));
    for (const bool isFlyable : {true, false, true}) {
        for (const zel::String& plane : planeIdentifiers())
            zel::Registry::set(plane, isFlyable ? "1" : "0");
        ASSERT_TRUE(driver.toOrders());
        for (const auto& [line, isShown] : {std::pair{"line1", isFlyable},
                                            {"line2", isFlyable},
                                            {"skip1", !isFlyable},
                                            {"skip2", !isFlyable}})
            EXPECT_EQ(driver.screens->menu().getTextArea(line)->isVisible(), isShown) << line;
        if (!isFlyable) {
            const std::string folder = home.simulatorFolder() + "/data";
            std::filesystem::rename(folder, folder + ".away");
            ASSERT_TRUE(driver.go("menuButton4", "MenuGameStartMission"));
            EXPECT_NE(driver.text("skip2").find("Press \"Skip Mission\" once more"),
                      std::string::npos);
            std::filesystem::rename(folder + ".away", folder);
        }
        ASSERT_TRUE(driver.walk("menuBack>MenuGameMain"));
    }
}

TEST_F(ScreenFaults, TheCareerCannotBeSaved) {
    ASSERT_TRUE(driver.begin(FirstChoices));
    home.folder.write("user/Saves/savegame_v03.wty.bak/x", "in the way");
    const zel::String pilot = Database::instance()->player().name;
    for (const char* button : {"menuButton4", "menuBack"}) {
        ASSERT_TRUE(driver.go(button, "MenuNotificationSave"));
        EXPECT_NE(driver.text("reason").find("savegame_v03.wty"), std::string::npos);
        ASSERT_TRUE(driver.go("menuButton1", "MenuGameMain"));
        EXPECT_EQ(pilot, Database::instance()->player().name);
    }
    std::filesystem::remove_all(home.folder.file("user/Saves/savegame_v03.wty.bak"));
    ASSERT_TRUE(driver.go("menuBack", "MenuMain"));
    EXPECT_NE(home.folder.read("user/Saves/savegame_v03.wty.bak"), "");
}

TEST(SecondProgram, LeavesACareerThatItCannotSave) {
    const PlayerHome home;
    const std::string save = home.folder.file("user/Saves/savegame_v03.wty");
    ASSERT_TRUE(CareerDriver(home).begin(FirstChoices));
    zel::LockFile other;
    ASSERT_TRUE(other.take((home.folder.file("user") + "/career.lock").c_str()));
    CareerDriver driver(home, 2);
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    ASSERT_TRUE(driver.walk("menuButton2>MenuGameMain"));
    std::filesystem::rename(save, save + ".away"); // its business
    ASSERT_TRUE(driver.walk("menuBack>MenuMain")) << "nothing has changed";
    std::filesystem::rename(save + ".away", save);
    ASSERT_TRUE(driver.walk("menuButton5>MenuCredits menuBack>MenuMain menuButton2>MenuGameMain"));
    ++Database::instance()->player().missions;
    ASSERT_TRUE(driver.walk("menuBack>MenuNotificationSave"));
    EXPECT_NE(driver.text("reason").find("has this career open as well."), std::string::npos);
    EXPECT_EQ(driver.text("text2").find("What was done here since the career was loaded"), 0U);
    other.release();
    ASSERT_TRUE(driver.walk("menuButton2>MenuMain menuButton2>MenuGameMain"));
    ++Database::instance()->player().missions;
    ASSERT_TRUE(driver.walk("menuBack>MenuMain")) << "now it is saved";
}

TEST(SecondProgram, SavesACareerOfItsOwnOnceItCan) {
    const PlayerHome home;
    ASSERT_TRUE(CareerDriver(home).begin(FirstChoices));
    const std::string others = home.save();
    zel::LockFile other;
    ASSERT_TRUE(other.take((home.folder.file("user") + "/career.lock").c_str()));
    CareerDriver driver(home, 2);
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    ASSERT_TRUE(driver.walk("careers>MenuCareers another>MenuNewService "
                            "menuButton2>MenuNewYear menuButton1>MenuEnlist "
                            "menuButton1>MenuNewCareer menuButton4>MenuNotificationSave"));
    EXPECT_EQ(driver.text("text2"), "Close the other program, then go back and save again.");
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameMain menuBack>MenuNotificationSave"));
    other.release();
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameMain menuBack>MenuMain careers>MenuCareers"));
    EXPECT_TRUE(Database::instance()->isSaved(SaveFileName) && home.save() != others);
    EXPECT_TRUE(driver.widget("book.row2")->isVisible()) << "the other's is on the shelf";
}

TEST_F(ScreenFaults, ThePlayerMayQuitWithoutSaving) {
    ASSERT_TRUE(driver.begin(FirstChoices));
    home.folder.write("user/Saves/savegame_v03.wty.bak/x", "in the way");
    ASSERT_TRUE(driver.go("menuButton4", "MenuNotificationSave"));
    driver.screens->key(zel::KeyEscape);
    ASSERT_TRUE(driver.screens->untilIdle("MenuNotificationSave")) << "not by a slip";
    ASSERT_TRUE(driver.go("menuButton2", "quitApp"));
}

TEST_F(ScreenFaults, ThereIsNoCareerOrADamagedOne) {
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    EXPECT_FALSE(driver.widget("menuButton2")->isActive());
    home.folder.write("user/Saves/savegame_v03.wty", "no career at all");
    ASSERT_TRUE(driver.walk("menuButton5>MenuCredits menuBack>MenuMain menuButton2>BlackScreen"));
    EXPECT_EQ(driver.text("reason"), "The career file is not a Wingtally save.");
    ASSERT_TRUE(driver.walk("menuBack>MenuMain"));
    EXPECT_EQ(home.save(), "no career at all");
    home.folder.write("user/Saves/savegame_v03.wty.bak", "the last whole one");
    ASSERT_TRUE(driver.begin(FirstChoices));
    ASSERT_TRUE(driver.go("menuBack", "MenuMain"));
    EXPECT_EQ(home.save().substr(0, 4), "WTSV");
    ASSERT_TRUE(driver.walk("careers>MenuCareers"));
    EXPECT_EQ(driver.text("book.row2"), "Unreadable log book") << "it went to the shelf";
    std::string shelved;
    for (const auto& entry : std::filesystem::directory_iterator(home.folder.file("user/Careers")))
        if (entry.is_directory())
            shelved = "user/Careers/" + entry.path().filename().string() + "/savegame_v03.wty";
    EXPECT_EQ(home.folder.read(shelved), "no career at all");
    EXPECT_EQ(home.folder.read(shelved + ".bak"), "the last whole one");
}

// Half a career must not pass for a whole one.
TEST_F(ScreenFaults, TheSaveIsDamaged) {
    const std::string save = "user/Saves/savegame_v03.wty";
    ASSERT_TRUE(driver.begin(FirstChoices));
    ASSERT_TRUE(driver.walk("menuBack>MenuMain"));
    const std::string whole = home.save();
    std::filesystem::remove(home.folder.file(save + ".bak"));
    const std::string damaged = whole.substr(0, whole.size() - 8);
    home.folder.write(save, damaged);
    ASSERT_TRUE(driver.go("menuButton2", "MenuNotificationRepair"));
    EXPECT_EQ(driver.text("reason"),
              "It was changed or damaged outside of Wingtally.\nThe end of the file is missing.");
    EXPECT_NE(driver.text("path").find("savegame_v03.wty.damaged"), std::string::npos);
    EXPECT_FALSE(driver.widget("menuButton2")->isVisible()) << "there is no save before it";
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameMain menuBack>MenuMain"));
    EXPECT_EQ(home.folder.read(save + ".damaged"), damaged);

    home.folder.write(save + ".bak", whole);
    std::string lost = whole;
    lost.replace(8, 4, "\xFF\xFF\xFF\x7F"); // a player who isn't there
    home.folder.write(save, lost);
    ASSERT_TRUE(driver.go("menuButton2", "BlackScreen"));
    EXPECT_EQ(driver.text("reason").find("The career file was changed or damaged outside"), 0U);
    ASSERT_TRUE(driver.walk("menuButton2>MenuGameMain menuBack>MenuMain"));
    EXPECT_EQ(home.save(), whole);
    EXPECT_EQ(home.folder.read(save + ".bak"), whole) << "the damaged one doesn't replace it";
    EXPECT_EQ(home.folder.read(save + ".damaged"), damaged) << "it isn't replaced";
    EXPECT_EQ(home.folder.read(save + ".damaged-2"), lost);
    ASSERT_TRUE(driver.walk("menuButton2>MenuGameMain menuBack>MenuMain"))
        << "it is whole, so no page comes";

    home.folder.write(save, lost);
    home.folder.write(save + ".bak", damaged);
    ASSERT_TRUE(driver.walk("menuButton2>BlackScreen"));
    ASSERT_TRUE(driver.walk("menuButton2>MenuGameMain menuBack>MenuMain"))
        << "the one before is damaged as well, a page is not";
    EXPECT_EQ(home.save(), whole);
    std::filesystem::remove(home.folder.file(save));
    home.folder.write(save + ".bak", whole);
    ASSERT_TRUE(driver.go("menuButton2", "MenuNotificationRepair"));
    EXPECT_EQ(driver.text("reason"), "The file is missing. The save before it is used.");
    EXPECT_FALSE(driver.widget("menuButton2")->isVisible());
    EXPECT_FALSE(driver.screens->menu().getTextArea("path")->isVisible());
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameMain menuBack>MenuMain"));
    std::filesystem::remove(home.folder.file(save));
    std::filesystem::remove(home.folder.file(save + ".bak"));
    ASSERT_TRUE(driver.go("menuButton2", "BlackScreen"));
    EXPECT_EQ(driver.text("reason"), "There is no saved career.");
    ASSERT_TRUE(driver.go("menuButton2", "MenuGameMain")) << "a page is left";
}

// The present save, the one before it, and two pages.
class EarlierSaves : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(driver->begin(FirstChoices));
        for (std::string& content : saves) {
            if (driver->state() == "MenuMain") {
                ASSERT_TRUE(driver->walk("menuButton2>MenuGameMain"));
            }
            ++Database::instance()->player().missions;
            ASSERT_TRUE(driver->walk("menuBack>MenuMain"));
            content = home.save();
        }
    }
    /// Without a record nobody knows that a file of sound form was changed.
    void loseRecord() {
        driver.reset();
        std::filesystem::remove(home.folder.file("user/Saves/record.db"));
        driver = std::make_unique<CareerDriver>(home, 2);
        ASSERT_TRUE(driver->screens->untilIdle("MenuMain"));
    }
    /// Writes an impossible invitation into that save, which is at its end.
    void damage(const char* ending, const std::string& content) {
        home.folder.write(save + ending, content.substr(0, content.size() - 4) + "AAAA");
    }
    /// On the page about the repair.
    bool isOffered() const {
        const auto isShown = [&](const char* text) {
            return driver->screens->menu().getTextArea(text)->isVisible();
        };
        EXPECT_NE(isShown("text3"), isShown("text4"));
        EXPECT_EQ(isShown("text3"), driver->widget("menuButton2")->isVisible());
        return isShown("text3");
    }

    const std::string save = "user/Saves/savegame_v03.wty";
    const PlayerHome home;
    const std::string path = home.folder.file(save);
    std::unique_ptr<CareerDriver> driver = std::make_unique<CareerDriver>(home);
    std::string saves[3];
};

TEST_F(EarlierSaves, AreOfferedInPlaceOfADraftAndOfTheOneBefore) {
    std::filesystem::rename(path, path + ".2147483646-1.new"); // of a program that was killed
    ASSERT_TRUE(driver->go("menuButton2", "MenuNotificationRepair"));
    EXPECT_TRUE(isOffered());
    ASSERT_TRUE(driver->walk("menuButton2>MenuGameMain menuBack>MenuMain"));
    EXPECT_TRUE(home.save() == saves[1]);
    EXPECT_TRUE(home.folder.read(save + ".bak") == saves[2]) << "the draft was whole";
    std::filesystem::remove(path);
    ASSERT_TRUE(driver->go("menuButton2", "MenuNotificationRepair"));
    EXPECT_TRUE(isOffered());
    ASSERT_TRUE(driver->walk("menuButton2>MenuGameMain menuBack>MenuMain"));
    EXPECT_TRUE(home.save() == saves[1]) << "not the one that was read just before";
}

TEST_F(EarlierSaves, AreOfferedAsLongAsThereAreAny) {
    loseRecord();
    const std::string pages = home.folder.file(Pages);
    damage("", saves[2]);
    damage(".bak", saves[1]);
    for (const bool hasPages : {false, true}) {
        std::filesystem::rename(hasPages ? pages + ".away" : pages,
                                hasPages ? pages : pages + ".away");
        ASSERT_TRUE(driver->go("menuButton2", "MenuNotificationRepair"));
        EXPECT_TRUE(isOffered());
        const int32_t missions = Database::instance()->player().missions;
        ASSERT_TRUE(driver->go("menuButton2", "MenuNotificationRepair"));
        EXPECT_EQ(Database::instance()->player().missions, missions - 1) << "damaged as well";
        EXPECT_EQ(isOffered(), hasPages);
        ASSERT_TRUE(driver->go(hasPages ? "menuButton2" : "menuBack",
                               hasPages ? "MenuGameMain" : "MenuMain"));
    }
    ASSERT_TRUE(driver->walk("menuBack>MenuMain"));
    EXPECT_TRUE(home.save() == saves[0]);
}

TEST_F(EarlierSaves, LeaveAWholeDraftWhole) {
    loseRecord();
    std::filesystem::rename(path, path + ".2147483646-1.new");
    damage(".bak", saves[1]);
    ASSERT_TRUE(driver->walk("menuButton2>MenuNotificationRepair"));
    ASSERT_TRUE(driver->go("menuButton2", "MenuNotificationRepair"));
    ASSERT_TRUE(driver->walk("menuButton2>MenuGameMain menuBack>MenuMain"));
    EXPECT_TRUE(home.save() == saves[0]);
    EXPECT_TRUE(home.folder.read(save + ".bak") == saves[2]);
    EXPECT_FALSE(std::filesystem::exists(path + ".damaged"));
}

// A virus scanner has it, for example.
TEST_F(EarlierSaves, StandInForOneThatIsHeldForAMoment) {
    HeldFile held(path);
    if (!held.isHeld())
        GTEST_SKIP() << "no file can be held here";
    ASSERT_TRUE(driver->go("menuButton2", "BlackScreen"));
    EXPECT_EQ(driver->text("reason"),
              "The career file can't be read. Another program is using it.");
    ASSERT_TRUE(driver->go("menuButton1", "BlackScreen")) << "it is still held";
    held.release();
    ASSERT_TRUE(driver->walk("menuButton1>MenuGameMain"));
    ++Database::instance()->player().missions;
    ASSERT_TRUE(driver->walk("menuBack>MenuMain"));
    EXPECT_TRUE(home.folder.read(save + ".bak") == saves[2]);

    const std::string newest = home.save();
    HeldFile heldAgain(path);
    ASSERT_TRUE(driver->walk("menuButton2>BlackScreen"));
    heldAgain.release();
    ASSERT_TRUE(driver->walk("menuButton2>MenuGameMain menuBack>MenuMain"));
    EXPECT_TRUE(home.save() == saves[2] && home.folder.read(save + ".bak") == newest);
    ASSERT_TRUE(driver->walk("menuButton2>MenuGameMain menuBack>MenuMain"));
    EXPECT_FALSE(std::filesystem::exists(path + ".damaged"));
    for (const auto& page : std::filesystem::directory_iterator(home.folder.file(Pages)))
        EXPECT_EQ(page.path().filename().string().find("damaged"), std::string::npos);
}

TEST_F(EarlierSaves, OfAFallenPilotLeadToTheLetter) {
    ASSERT_TRUE(driver->walk("menuButton2>MenuGameMain"));
    Database::instance()->player().alive = 0;
    ASSERT_TRUE(driver->walk("menuBack>MenuMain"));
    home.folder.write(save, home.save().substr(0, saves[2].size() - 8));
    ASSERT_TRUE(driver->walk("menuButton2>MenuNotificationRepair menuButton1>MenuGameFallen"));
}

TEST(ScreenFaultsInFlight, TheSimulatorsFolderHasBracketsOfItsOwn) {
    PlayerHome home("Rise of Flight [old]");
    CareerDriver driver(home);
    ASSERT_TRUE(driver.begin(FirstChoices));
    ASSERT_TRUE(driver.takeOff());
    ASSERT_TRUE(driver.fly());
    ASSERT_TRUE(driver.comeBack());
}

} // namespace
