#include "tools/career/Doctor.h"

#include <filesystem>
#include <fstream>
#include <regex>

#include <gtest/gtest.h>

#include "standin/StandIn.h"
#include "tests/support/PinnedRun.h"
#include "tests/support/Printers.h"
#include "tests/support/ProgramCall.h"
#include "tools/career/DoctorWording.h"

namespace fs = std::filesystem;

namespace {

/// Calls of the built program on a machine that the test sets up.
struct DoctorTest : testing::Test {
    DoctorTest() {
        tools::Finding finding;
        EXPECT_TRUE(standin::makeSimulatorFolder(folder.path() + "/home/Games/rof", finding));
        folder.write("user/x", "");
    }
    int call(const std::string& arguments) {
        const ProgramCall made(WINGTALLY_CAREER,
                               "--user \"" + folder.path() + "/user\" " + arguments,
                               folder.path() + "/user", "env \"HOME=" + folder.path() + "/home\" ");
        out = made.output + made.errors;
        return made.status;
    }
    bool says(const char* text) const { return out.find(text) != std::string::npos; }
    std::string sim() const { return "--rof \"" + folder.path() + "/home/Games/rof\" "; }

    TemporaryFolder folder;
    std::string out;
};

#ifndef _WIN32
TEST_F(DoctorTest, FindsNothingWrongWithAWholeCareer) {
    EXPECT_EQ(call(sim() + "new french 1916 3 save"), 0) << out;
    EXPECT_EQ(call(sim() + "doctor"), 0) << out;
    EXPECT_EQ(out.find("WRONG"), std::string::npos) << out;
    for (const char* line : {"Simulator: It is in", "Save: It is as it was saved.",
                             "Record: It is whole.", "languages are complete."})
        EXPECT_TRUE(says(line)) << line << '\n' << out;
    EXPECT_EQ(call("--quiet " + sim() + "doctor"), 0);
    EXPECT_EQ(out, "");
    EXPECT_EQ(call("--fix status"), 2) << out;
}

// The class itself, which searches the folder of the test alone.
TEST(Doctor, FixesTheSimulator) {
    const PinnedRun run(1);
    Configuration::reset();
    const std::string cfg = "home/Games/rof/data/startup.cfg";
    run.folder.write("home/Games/rof/data/Missions/x", "");
    run.folder.write("user/x", "");
    run.folder.write(cfg, "[KEY = system]\r\n\tmission_text_log = 0\r\n[END]\r\n");
    SearchRoots roots;
    roots.home = run.folder.path() + "/home";
    std::string out;
    const auto finds = [&](bool fixes) {
        testing::internal::CaptureStdout();
        const zel::String result = Doctor(fixes, false, roots).examine();
        out = testing::internal::GetCapturedStdout();
        return result;
    };
    const auto says = [&](const char* text) { return out.find(text) != std::string::npos; };
    EXPECT_EQ(finds(false), "1 check found something wrong") << out;
    EXPECT_TRUE(says("WRONG    Simulator: No folder is set") && says("/home/Games/rof (Disk)"))
        << out;
    EXPECT_TRUE(run.folder.read("user/wtysettings.ini").empty());
    Configuration::set("rof.directory", run.folder.path() + "/home/Games/rof");
    EXPECT_EQ(finds(false), "1 check found something wrong") << out;
    EXPECT_TRUE(says("WRONG    Text log: ")) << out;
    Configuration::reset();
    EXPECT_EQ(finds(true), "") << out;
    EXPECT_TRUE(says("fixed    Simulator: ") && says("fixed    Text log: ")) << out;
    EXPECT_EQ(run.folder.read(cfg), "[KEY = system]\r\n\tmission_text_log = 1\r\n[END]\r\n");
    EXPECT_EQ(run.folder.read("user/wtysettings.ini"),
              "rof.directory=" + run.folder.path() + "/home/Games/rof\n");
    EXPECT_EQ(finds(false), "") << out;
    fs::remove_all(run.folder.file("home/Games"));
    EXPECT_NE(finds(true), "") << out;
    EXPECT_TRUE(says("lacks data\\startup.cfg") && says("Nothing was found")) << out;
}

TEST_F(DoctorTest, ComplainsOfWhatIsDamaged) {
    EXPECT_EQ(call(sim() + "new german 1916 3 save"), 0) << out;
    const std::string save = "user/Saves/savegame_v03.wty";
    const std::string record = "user/Saves/record.db";
    const std::string saved = folder.read(save);
    const std::string recorded = folder.read(record);
    std::string changed = saved;
    changed[saved.size() / 2] = static_cast<char>(changed[saved.size() / 2] ^ 1);
    struct Damage {
        std::string file, content;
        const char* complaint;
    };
    const Damage cases[] = {
        {save, changed, "WRONG    Save: The saved career was changed"},
        {save, saved.substr(0, 100), "WRONG    Save: The saved career can't be used."},
        {record, "no database", "WRONG    Record: The record of the war can't be used."},
    };
    for (const Damage& one : cases) {
        folder.write(one.file, one.content);
        EXPECT_EQ(call(sim() + "doctor"), 1) << out;
        EXPECT_TRUE(says(one.complaint)) << one.complaint << '\n' << out;
        EXPECT_EQ(folder.read(one.file), one.content) << "nothing is changed";
        folder.write(save, saved);
        folder.write(record, recorded);
    }
    fs::remove(folder.file("home/Games/rof/data/Missions"));
    EXPECT_EQ(call(sim() + "doctor"), 1) << out;
    EXPECT_TRUE(says("WRONG    Write access: Missions")) << out;
}

// A copy of the program's files, with one of each kind damaged.
TEST_F(DoctorTest, ComplainsOfAnInstallationThatIsNotWhole) {
    const std::string run = folder.path() + "/run";
    fs::copy(RUN_FOLDER, run, fs::copy_options::recursive);
    const std::pair<const char*, const char*> spoiled[] = {
        {"Pictures/desk.png", "WRONG    Pictures: "},
        {"Language/de.txt", "WRONG    Languages: "},
        {"Data/Missions/GenericTemplate.Mission", "WRONG    Template: "},
        {"Data/Names/France_1st.txt", "WRONG    Data: "},
    };
    for (const auto& [file, complaint] : spoiled)
        fs::resize_file(run + "/" + file, fs::file_size(run + "/" + file) / 2);
    fs::resize_file(run + "/Data/Names/France_1st.txt", 0);
    EXPECT_EQ(call("--data \"" + run + "\" " + sim() + "doctor"), 1);
    for (const auto& [file, complaint] : spoiled)
        EXPECT_TRUE(says(complaint)) << complaint << '\n' << out;
}
#endif

// The manual's table has the doctor's own words.
TEST(DoctorWording, IsTheManuals) {
    std::ifstream stream(MANUAL);
    const std::string manual(std::istreambuf_iterator<char>(stream), {});
    const auto plain = [](const char* text) {
        return std::regex_replace(std::string(text), std::regex("`"), "");
    };
    using namespace wording;
    const std::string words = plain(manual.c_str());
    for (const Complaint* one :
         {&NoSimulator, &NotTheSimulator, &TextLogOff, &TextLogUnknown, &MissionsLocked,
          &UserFolderLocked, &TemplateDamaged, &SaveUnusable, &SaveChanged, &RecordUnusable,
          &DataDamaged, &OwnDataFaulty, &PicturesDamaged, &LanguagesIncomplete, &NoOpenGl}) {
        const std::string row =
            std::string("| ") + one->what.english + " | " + one->advice.english + " |\n";
        EXPECT_NE(words.find(row), std::string::npos) << row;
    }
}

} // namespace
