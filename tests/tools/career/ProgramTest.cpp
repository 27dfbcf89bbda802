#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

#include "standin/StandIn.h"
#include "tests/support/ProgramCall.h"
#include "tests/support/TemporaryFolder.h"

namespace {

/// Calls of the built program, with folders of their own.
struct CareerProgram : testing::Test {
    CareerProgram() { makeSimulator(); }
    void makeSimulator() const {
        tools::Finding finding;
        EXPECT_TRUE(standin::makeSimulatorFolder(folder.path() + "/sim", finding));
    }
    /// The program's exit status. What it says is in `out` and `errors` then.
    int call(const std::string& arguments, const std::string& from = ".") {
        const ProgramCall made(WINGTALLY_CAREER, arguments, from);
        out = made.output;
        errors = made.errors;
        return made.status;
    }
    std::string folders() const {
        return " --rof \"" + folder.path() + "/sim\" --user \"" + folder.path() + "/user\" ";
    }
    /// A whole call's mission and save, on an empty disk.
    std::pair<std::string, std::string> results(const std::string& seed,
                                                const std::string& options = "") {
        std::filesystem::remove_all(folder.path() + "/user");
        std::filesystem::remove_all(folder.path() + "/sim");
        makeSimulator();
        const std::string words = "new german 1916 3 mission fly report mission save";
        EXPECT_EQ(call("--seed " + seed + options + folders() + words), 0) << errors;
        return {folder.read("sim/data/Missions/WingtallyMission.Mission"),
                folder.read("user/Saves/savegame_v03.wty")};
    }

    TemporaryFolder folder;
    std::string out;
    std::string errors;
};

TEST_F(CareerProgram, DoesTheSameFromTheSameSeed) {
    const auto [mission, save] = results("7");
    const std::string said = out;
    EXPECT_GT(mission.size(), 5000u);
    EXPECT_GT(save.size(), 500000u);
    EXPECT_NE(said.find("Kills: "), std::string::npos) << said;
    for (const char* seed : {"7", "8"}) {
        const auto [otherMission, otherSave] = results(seed);
        EXPECT_EQ(otherMission == mission, *seed == '7');
        EXPECT_EQ(otherSave == save, *seed == '7');
        EXPECT_EQ(out == said, *seed == '7');
    }
}

#ifndef _WIN32
TEST_F(CareerProgram, FailsWithoutStandardOutput) {
    for (const char* closed : {">&-", "<&- >&- 2>&-", ">/dev/full"}) {
        const std::string shell = std::string("sh -c '\"$0\" \"$@\" ") + closed + "' ";
        const ProgramCall made(WINGTALLY_CAREER, folders() + "new german 1915 12 save status", ".",
                               shell);
        EXPECT_EQ(made.status, 1) << closed;
    }
}
#endif

TEST_F(CareerProgram, ReportsByItsStatusHowItWent) {
    EXPECT_EQ(call("--seed 1" + folders() + "--quiet new french 1915 12 save"), 0) << errors;
    EXPECT_EQ(out + errors, "") << "quiet says nothing";
    EXPECT_EQ(call(folders() + "load status aces squadron"), 0) << errors;
    EXPECT_NE(out.find("Date: 1-December-1915\n"), std::string::npos) << out;
    EXPECT_NE(out.find("Next: mission\n"), std::string::npos) << out;
    EXPECT_EQ(out.find("[Database]"), std::string::npos) << "no debug lines";
    EXPECT_EQ(call(folders() + "--verbose load"), 0);
    EXPECT_NE(out.find("["), std::string::npos) << "but with --verbose";

    EXPECT_EQ(call("status fight"), 2) << "nothing runs before all of it is read";
    EXPECT_EQ(out, "");
    for (const char* vain : {"report", "save", "load report", "--data \x1B]nowhere status",
                             "load mission report save"}) {
        EXPECT_EQ(call(folders() + vain), 1) << vain;
        EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
        EXPECT_EQ(errors.rfind("wingtally-career: ", 0), 0u) << errors;
        EXPECT_EQ(errors.find('\x1B'), std::string::npos) << "it could do anything to a terminal";
    }
}

TEST_F(CareerProgram, SpeaksALanguageAndKeepsTheSameCareer) {
    const auto english = results("7");
    const auto german = results("7", " --language de");
    EXPECT_TRUE(german == english);
#ifdef _WIN32
    const char* const beginning = "Dienstantritt: M\xE4rz 1916\n"; // in the system's code page
#else
    const char* const beginning = "Dienstantritt: M\xC3\xA4rz 1916\n";
#endif
    EXPECT_NE(out.find(beginning), std::string::npos) << out;
    EXPECT_EQ(out.find("Kills: "), std::string::npos) << out;
    for (const char* code : {"xx", "../Language/de"}) {
        EXPECT_EQ(call(folders() + "--language " + code + " load"), 1) << code;
        EXPECT_NE(errors.find("There is no language"), std::string::npos) << errors;
    }
}

// It finds its data wherever it is called from, and the settings of that folder.
TEST_F(CareerProgram, FindsItsData) {
    folder.write("here/wtysettings.ini", "rof.directory = " + folder.path() + "/sim\n");
    EXPECT_EQ(call("--user \"" + folder.path() + "/user\" new english 1915 12 mission",
                   folder.path() + "/here"),
              0)
        << errors;
    EXPECT_FALSE(folder.read("sim/data/Missions/WingtallyMission.Mission").empty());
    EXPECT_EQ(call("--data Data --user \"" + folder.path() + "/user\" new english 1915 12"), 0)
        << errors;
}

} // namespace
