// What the checksum in the record says about a save when it is loaded and when it is replaced.
#include <cstring>
#include <filesystem>

#include <gtest/gtest.h>

#include "app/career/Database.h"
#include "app/career/SaveFile.h"
#include "app/mission/MissionGenerator.h"
#include "app/record/CareerRecord.h"
#include "tests/support/PinnedRun.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* Save = "user/Saves/savegame_v03.wty";

/// A run of the program.
struct SavingProgram {
    SavingProgram() { career.observer = &record; }
    bool load() { return career.loadFile(SaveFileName); }
    bool save() { return career.writeSave(SaveFileName); }

    CareerRecord record;
    Database career;
    MissionGenerator generator;
};

/// A career with two saves, and what is done to the second.
struct SaveMatchTest : testing::Test {
    SaveMatchTest() {
        SavingProgram program;
        program.career.createCareer(ServiceFrench);
        EXPECT_TRUE(program.save());
        first = saved();
        ++program.career.player().missions;
        number = program.career.careerNumber;
        const auto player = static_cast<size_t>(program.career.playerPilot);
        pilots = 40 + program.career.squadrons.size() * sizeof(Squadron) + 4;
        lines = pilots + program.career.pilots.size() * sizeof(Pilot) + 4;
        playerName = pilots + player * sizeof(Pilot);
        EXPECT_TRUE(program.save());
        whole = saved();
        EXPECT_TRUE(program.record.close());
        record = run.folder.read("user/Saves/record.db");
    }
    std::string saved(const char* ending = "") const {
        return run.folder.read(std::string(Save) + ending);
    }
    void put(const std::string& content, const char* ending = "") const {
        run.folder.write(std::string(Save) + ending, content);
    }
    std::string with(size_t offset, int32_t value) const {
        std::string bytes = whole;
        std::memcpy(&bytes[offset], &value, sizeof value);
        return bytes;
    }
    std::string zeroed(size_t from, size_t to) const {
        return std::string(whole).replace(from, to - from, to - from, '\0');
    }

    PinnedRun run{5};
    std::string first;
    std::string whole;
    std::string record; // of both
    int32_t number = 0;
    size_t pilots = 0; // offsets in the save
    size_t lines = 0;
    size_t playerName = 0;
};

TEST_F(SaveMatchTest, JudgesAChangedSave) {
    const struct {
        const char* what;
        std::string content;
        SaveFault fault;
    } cases[] = {
        {"a bit of a name", with(pilots, 0x41414141), SaveFault::None},
        {"the career's number", with(32, 1), SaveFault::None},
        {"without its last bytes", whole.substr(0, whole.size() - 8), SaveFault::None},
        {"without its history", whole.substr(0, lines + 100 * sizeof(DataLine)), SaveFault::Lost},
        {"zeros in the history", zeroed(lines, lines + 200 * sizeof(DataLine)), SaveFault::Lost},
        {"zeros in the pilots", zeroed(pilots + 88 * 40, pilots + 88 * 1000), SaveFault::Lost},
        {"a player without a name", with(playerName, 0), SaveFault::Lost},
        {"another player", with(8, 0x7FFFFFFF), SaveFault::Lost},
        {"hardly anything but zeros", zeroed(500, whole.size() - 16), SaveFault::Lost},
        {"no pilots", whole.substr(0, pilots), SaveFault::NoSave},
        {"nothing", "", SaveFault::NoSave},
        {"another version", with(4, 3), SaveFault::OtherVersion},
    };
    for (const auto& [what, content, fault] : cases) {
        run.folder.write("user/Saves/record.db", record);
        put(content);
        put(first, ".bak");
        SavingProgram program;
        const bool isRead = program.load();
        EXPECT_EQ(isRead, fault == SaveFault::None) << what;
        EXPECT_EQ(static_cast<int>(program.career.saveCheck.fault), static_cast<int>(fault))
            << what;
        EXPECT_EQ(program.career.repairs.changed, isRead) << what;
        EXPECT_TRUE(!isRead || program.career.careerNumber == number) << what;
        EXPECT_TRUE(hasEarlierSave(program.career, SaveFileName)) << what;
        // The same or another career is saved over it.
        if (!isRead)
            program.career.createCareer(ServiceGerman);
        EXPECT_TRUE(program.save()) << what;
        EXPECT_TRUE(saved(".bak") == first && saved(".damaged") == content) << what;
        fs::remove(run.folder.file(std::string(Save) + ".damaged"));
    }
}

TEST_F(SaveMatchTest, BelievesASaveWithoutARecord) {
    fs::remove(run.folder.file("user/Saves/record.db"));
    for (const auto& [content, isRead] : {std::pair{with(pilots, 0x41414141), true},
                                          {whole.substr(0, lines + 100 * sizeof(DataLine)), true},
                                          {with(playerName, 0), false},
                                          {zeroed(pilots + 88 * 40, lines - 4), false}}) {
        put(content);
        SavingProgram program;
        EXPECT_EQ(program.load(), isRead);
        EXPECT_FALSE(program.career.repairs.changed);
    }
}

TEST_F(SaveMatchTest, KnowsASaveThatTheRecordDidNotGet) {
    const std::string path = run.folder.file("user/Saves/record.db");
    const auto saveWithoutRecord = [&] {
        SavingProgram program;
        ASSERT_TRUE(program.load());
        ++program.career.player().missions;
        EXPECT_TRUE(program.record.close());
        fs::remove(path);
        fs::create_directory(path); // nothing can be written there
        ASSERT_TRUE(program.save());
        fs::remove(path);
        run.folder.write("user/Saves/record.db", record);
    };
    saveWithoutRecord();
    saveWithoutRecord();
    {
        SavingProgram program;
        EXPECT_TRUE(program.load());
        EXPECT_FALSE(program.career.repairs.any());
        EXPECT_TRUE(hasEarlierSave(program.career, SaveFileName));
    }
    std::string changed = saved();
    changed[playerName] ^= 1;
    put(changed);
    SavingProgram program;
    EXPECT_TRUE(program.load() && program.career.repairs.changed);
}

// The state left by a program that was killed on a file system without links.
TEST_F(SaveMatchTest, FindsASaveThatLostItsName) {
    const char* const draft = ".2147483646-1.new";
    fs::remove(run.folder.file(Save));
    put(first, ".bak");
    put(with(pilots, 0x41414141), draft);
    {
        SavingProgram program;
        EXPECT_TRUE(program.load() && program.career.repairs.recovered);
        EXPECT_EQ(program.career.saveCheck.source, SaveSource::Backup) << "no damaged draft";
        EXPECT_TRUE(saved(".bak") == first);
    }
    put(whole, draft);
    SavingProgram program;
    EXPECT_TRUE(program.load() && program.career.repairs.recovered);
    EXPECT_EQ(program.career.saveCheck.source, SaveSource::Draft);
    EXPECT_TRUE(saved() == whole && saved(draft).empty());
    EXPECT_TRUE(program.save() && saved(".bak") == whole) << "it was never damaged";
}

} // namespace
