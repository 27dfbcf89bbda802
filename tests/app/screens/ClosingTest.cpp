// What closing the window does on each page of a career: nothing is lost without a question, and
// nobody is asked in vain, or by a signal.
#include <csignal>
#include <filesystem>

#include <gtest/gtest.h>

#include "app/career/Database.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "engine/window/ZelLoop.h"
#include "tests/app/screens/CareerDriver.h"
#include "tests/engine/window/Events.h"

namespace {

constexpr const char* Saves = "user/Saves";
constexpr const char* Question = "MenuNotificationUnsaved";

// The first save has failed.
class ClosingAtOnce : public testing::Test {
protected:
    void SetUp() override {
        home.folder.write(Saves, "in the way");
        ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
        ASSERT_TRUE(driver.walk("careers>MenuCareers another>MenuNewService "
                                "menuButton2>MenuNewYear menuButton1>MenuEnlist "
                                "menuButton1>MenuNewCareer menuButton4>MenuNotificationSave"));
        std::filesystem::remove(home.folder.file(Saves));
    }
    ~ClosingAtOnce() override { zel::Platform::getInstance().clearInput(); }

    /// Whether the program ends, once nothing moves on the screen any more.
    bool close() {
        zel::Platform::getInstance().handleEvent(quitEvent());
        for (int32_t frame = 0; frame < 20; ++frame) {
            if (zel::ZelLoop::isFinished())
                return true;
            driver.screens->step();
        }
        return false;
    }
    /// Closes, is asked, and goes back.
    void expectAsked(const char* backTo) {
        const std::string from = driver.state();
        EXPECT_FALSE(close()) << from;
        ASSERT_TRUE(driver.screens->untilIdle(Question)) << from;
        EXPECT_FALSE(close()) << "the question is no answer";
        ASSERT_TRUE(driver.screens->untilIdle(Question));
        ASSERT_TRUE(driver.go("menuBack", backTo));
    }
    bool isShown(const char* text) { return driver.screens->menu().getTextArea(text)->isVisible(); }

    const InFront inFront;
    const PlayerHome home;
    CareerDriver driver{home, 1, true};
};

// In the office.
class Closing : public ClosingAtOnce {
protected:
    void SetUp() override {
        ClosingAtOnce::SetUp();
        ASSERT_TRUE(driver.walk("menuButton1>MenuGameMain"));
    }
};

TEST_F(ClosingAtOnce, AsksAboutACareerThatWasNeverSaved) {
    expectAsked("MenuNotificationSave");
    EXPECT_NE(driver.text("reason").find("savegame_v03.wty"), std::string::npos);
}

TEST_F(Closing, AsksOnEveryPageOfAnUnsavedCareer) {
    expectAsked("MenuGameMain");
    ASSERT_TRUE(driver.walk("menuButton2>MenuGameViewSquadron"));
    expectAsked("MenuGameViewSquadron");
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameMain"));
    ASSERT_TRUE(driver.takeOff());
    expectAsked("MenuGameFinishMission");
    ASSERT_TRUE(driver.fly());
    driver.look();
    ASSERT_TRUE(driver.screens->untilIdle("MenuGameCombatReport"));
    const int32_t before = Database::instance()->calendar().dateNumber();
    expectAsked("MenuGameAdvance");
    EXPECT_GT(Database::instance()->calendar().dateNumber(), before) << "the report was left";
    EXPECT_EQ(home.save(), "");
}

TEST_F(Closing, AsksNobodyWhoLosesNothing) {
    ASSERT_TRUE(driver.walk("menuBack>MenuMain menuButton2>MenuGameMain"));
    EXPECT_TRUE(close()) << "all is saved";
    zel::Platform::getInstance().forgetQuit();
    ASSERT_TRUE(driver.takeOff());
    EXPECT_TRUE(close()) << "so are the orders";
    zel::Platform::getInstance().forgetQuit();
    ASSERT_TRUE(driver.walk("menuBack>MenuGameMain menuBack>MenuMain careers>MenuCareers "
                            "another>MenuNewService menuButton1>MenuNewYear "
                            "menuButton1>MenuEnlist"));
    EXPECT_TRUE(close()) << "a career that is not begun";
}

TEST_F(Closing, SavesAndQuits) {
    ASSERT_TRUE(driver.takeOff());
    EXPECT_FALSE(close());
    ASSERT_TRUE(driver.screens->untilIdle(Question));
    EXPECT_NE(driver.text("text2").find("If you save, the flight can still"), std::string::npos);
    ASSERT_TRUE(driver.go("menuButton1", "quitApp", CareerDriver::How::Pointer));
    EXPECT_TRUE(Database::instance()->isSaved(SaveFileName));
}

TEST_F(Closing, QuitsWithoutSavingOnlyByItsButton) {
    EXPECT_FALSE(close());
    ASSERT_TRUE(driver.screens->untilIdle(Question));
    driver.screens->key(zel::KeyEscape);
    ASSERT_TRUE(driver.screens->untilIdle("MenuGameMain")) << "Escape loses nothing";
    EXPECT_FALSE(close());
    ASSERT_TRUE(driver.screens->untilIdle(Question));
    ASSERT_TRUE(driver.go("menuButton2", "quitApp", CareerDriver::How::Pointer));
    EXPECT_EQ(home.save(), "");
}

TEST_F(Closing, ASignalEndsTheProgramUnasked) {
    std::raise(SIGTERM);
    EXPECT_TRUE(zel::ZelLoop::isFinished());
    zel::Platform::getInstance().forgetQuit();
    EXPECT_TRUE(zel::ZelLoop::isFinished()) << "nobody refuses a signal";
}

} // namespace
