// A career that one process begins and leaves is the same in the next one, which has nothing of it
// but the saved file.
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "engine/core/System.h"
#include "tests/app/screens/CareerDriver.h"
#include "tests/support/ProgramCall.h"

namespace {

constexpr const char* Handover = "WINGTALLY_TEST_HANDOVER"; // a folder, for the first process

/// A line for each text of the squadron office, of the roll and of the list of aces.
std::string officeTexts(CareerDriver& driver) {
    std::ostringstream texts;
    const auto take = [&](const std::string& element) {
        texts << element << ": " << driver.text(element.c_str()) << "\n";
    };
    for (const char* element : {"date", "airport", "squadron", "pilot", "menuButton1"})
        take(element);
    EXPECT_TRUE(driver.walk("menuButton2>MenuGameViewSquadron"));
    for (int32_t row = 1; row <= 12; ++row)
        take("pilot" + std::to_string(row));
    EXPECT_TRUE(driver.walk("menuButton1>MenuGameMain menuButton3>MenuGameTopAces"));
    for (int32_t row = 1; row <= 10; ++row)
        take("pilot" + std::to_string(row));
    EXPECT_TRUE(driver.walk("menuButton1>MenuGameMain"));
    return texts.str();
}

/// Plays the first days of a career and leaves in the folder what it said, and the saved file.
void beginCareer(const std::string& folder) {
    const PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(driver.begin("menuButton2>MenuNewYear menuButton3>MenuNewMonth "
                             "month4>MenuNewCareer"));
    ASSERT_TRUE(driver.takeOff());
    ASSERT_TRUE(driver.fly());
    ASSERT_TRUE(driver.comeBack());
    const std::string texts = officeTexts(driver);
    ASSERT_TRUE(driver.go("menuButton4", "quitApp"));
    std::ofstream(folder + "/texts", std::ios::binary) << texts;
    std::ofstream(folder + "/save", std::ios::binary) << home.save();
}

TEST(CareerInTwoProcesses, SaysTheSame) {
    if (const zel::String folder = zel::system::environment(Handover); !folder.empty()) {
        beginCareer(folder.c_str());
        return;
    }
    const TemporaryFolder folder;
    zel::system::setEnvironment(Handover, folder.path());
    const ProgramCall first(SCREENS_TEST, "--gtest_filter=CareerInTwoProcesses.*");
    zel::system::setEnvironment(Handover, "");
    ASSERT_EQ(first.status, 0) << first.output << first.errors;

    const PlayerHome home;
    home.folder.write("user/Saves/savegame_v03.wty", folder.read("save"));
    CareerDriver driver(home, 2);
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    ASSERT_TRUE(driver.go("menuButton2", "MenuGameMain"));
    EXPECT_EQ(officeTexts(driver), folder.read("texts"));
}

} // namespace
