#include "app/record/CareerRecord.h"

#include <filesystem>
#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "app/career/Database.h"
#include "app/mission/MissionGenerator.h"
#include "app/record/RecordSchema.h"
#include "app/war/InvitationLetter.h"
#include "app/war/WarAdvance.h"
#include "tests/support/PinnedRun.h"

namespace fs = std::filesystem;

namespace {

/// A program with a career and its record, from its start to its end.
struct Program {
    Program() { career.observer = &record; }
    void begin() {
        career.createCareer(ServiceGerman);
        goOn();
    }
    /// A period, and a move of the player on its last day.
    void goOn() {
        advanceWar(career, &generator);
        const int32_t other =
            (career.player().squadron + 1) % static_cast<int32_t>(career.squadrons.size());
        career.swapPilots(career.playerPilot, career.squadron(other).slots[0]);
    }
    /// How much is in the tables, and what of it is last.
    std::string figures() {
        SqliteFile& file = record.read(career);
        std::string text;
        for (const char* table : {"victory", "posting", "base", "gap"}) {
            SqliteStatement rows(file, std::string("SELECT count(*), max(id) FROM ") + table);
            EXPECT_TRUE(rows.next()) << file.problem().view();
            text += std::string(table) + " " + std::to_string(rows.number(0)) + "/" +
                    std::to_string(rows.number(1)) + " ";
        }
        return text;
    }
    bool save() { return career.writeSave(SaveFileName); }
    bool load() { return career.loadFile(SaveFileName); }

    CareerRecord record;
    Database career;
    MissionGenerator generator;
};

struct CareerRecordTest : testing::Test {
    std::string path() const { return run.userFolder() + "/Saves/record.db"; }
    /// As a player's tool sees it.
    int64_t inFile(const char* sql) const {
        SqliteFile file;
        file.open(path(), SqliteFile::MustExist);
        const int64_t number = file.number(sql);
        EXPECT_FALSE(file.failed()) << file.problem().view();
        return number;
    }
    PinnedRun run{11};
};

// The next process finds exactly what was saved, including the day of the save.
TEST_F(CareerRecordTest, HoldsWhatIsSaved) {
    std::string first;
    std::string second;
    {
        Program program;
        program.begin();
        const std::string unsaved = program.figures();
        EXPECT_FALSE(fs::exists(path())) << "before its first save a career has no file";
        ASSERT_TRUE(program.save());
        first = program.figures();
        EXPECT_EQ(first, unsaved);
        program.goOn();
        ASSERT_TRUE(program.save());
        second = program.figures();
        EXPECT_NE(second, first);
        program.goOn();
        EXPECT_NE(program.figures(), second) << "what isn't saved yet can be read as well";
        // Killed between the record's commit and the save's.
        program.record.onSaving(program.career, "a save that never came");
    }
    const struct {
        const char* what;
        std::function<bool(Program&)> load;
        const std::string& expected;
    } cases[] = {
        {"the save", [](Program& p) { return p.load(); }, second},
        {"the save before it", [](Program& p) { return p.career.loadBackup(SaveFileName); }, first},
        {"the save again", [](Program& p) { return p.load(); }, second},
        {"the save before it, from which a career goes on",
         [](Program& p) { return p.career.loadBackup(SaveFileName) && p.save() && p.load(); },
         first},
    };
    for (const auto& [what, load, expected] : cases) {
        Program program;
        ASSERT_TRUE(load(program)) << what;
        EXPECT_EQ(program.figures(), expected) << what;
        EXPECT_TRUE(program.record.gaps().empty()) << what;
    }
    EXPECT_EQ(run.lines.linesWith("[Record]"), 0) << run.lines.text();
    EXPECT_EQ(inFile("SELECT count(*) FROM posting WHERE kind = 'joined' AND cause = 'start'"),
              inFile("SELECT sum(pilots) FROM (SELECT count(DISTINCT pilot) AS pilots FROM posting"
                     " WHERE date = 19151201 AND kind = 'joined' AND cause = 'start')"));
}

// Each way in which a record can be unusable.
TEST_F(CareerRecordTest, BeginsAgainWhereItCantBeUsed) {
    int32_t date = 0;
    {
        Program program;
        program.begin();
        program.goOn();
        ASSERT_TRUE(program.save());
        date = program.career.calendar().dateNumber();
    }
    const std::string whole = run.folder.read("user/Saves/record.db");
    std::string hollow = whole;
    hollow.replace(hollow.size() / 3, hollow.size() / 3, hollow.size() / 3, 'x');
    const auto changed = [&](const char* sql) {
        run.folder.write("user/Saves/record.db", whole);
        SqliteFile file;
        EXPECT_TRUE(file.open(path(), SqliteFile::MustExist) && file.run(sql));
        file.run("PRAGMA wal_checkpoint(TRUNCATE)");
        file.close();
        return run.folder.read("user/Saves/record.db");
    };
    const struct {
        std::string content;
        const char *name, *line;
    } cases[] = {
        {"", "", "The record of the war is missing"},
        {"no database at all", "record-damaged.db", "is damaged"},
        {whole.substr(0, whole.size() / 2), "record-damaged-2.db", "is damaged"},
        {hollow, "record-damaged-3.db", "is damaged"},
        {changed("DROP TABLE meta"), "record-damaged-4.db", "is damaged"},
        {changed("UPDATE meta SET value = value + 1 WHERE key = 'career'"),
         "record-other-career.db", "is of another career"},
        {changed("PRAGMA user_version = 99"), "record-newer.db", "was written by a later version"},
        {changed("PRAGMA user_version = -1"), "record-damaged-5.db", "is damaged"},
        {changed("PRAGMA user_version = 0"), "record-damaged-6.db", "is damaged"},
    };
    for (const auto& [content, name, line] : cases) {
        const LogCapture lines;
        fs::remove(path());
        if (!content.empty())
            run.folder.write("user/Saves/record.db", content);
        Program program;
        ASSERT_TRUE(program.load()) << line;
        EXPECT_TRUE(lines.holds(line)) << lines.text();
        EXPECT_TRUE(lines.holds("it has nothing before " + std::to_string(date))) << lines.text();
        if (!content.empty()) {
            EXPECT_EQ(run.folder.read(std::string("user/Saves/") + name), content) << name;
        }
        ASSERT_EQ(program.record.gaps().size(), 1U);
        EXPECT_EQ(program.record.gaps()[0].since, 19151201);
        EXPECT_EQ(program.record.gaps()[0].until, date);
        program.goOn();
        const std::string figures = program.figures();
        ASSERT_TRUE(program.save());
        ASSERT_TRUE(program.load());
        EXPECT_EQ(program.figures(), figures) << line;
        EXPECT_EQ(program.record.gaps().size(), 1U) << "the gap is kept with the rest";
        ASSERT_TRUE(program.career.loadBackup(SaveFileName) && program.save());
    }
}

// An error costs neither the career nor, once it is over, the record.
TEST_F(CareerRecordTest, WaitsUntilTheFileCanBeUsed) {
    Program program;
    program.begin();
    fs::create_directories(path());
    EXPECT_TRUE(program.save());
    EXPECT_EQ(run.lines.linesWith("The record of the war can't be used"), 1) << run.lines.text();
    EXPECT_TRUE(fs::exists(run.userFolder() + "/Saves/savegame_v03.wty"));
    fs::remove(path());
    EXPECT_TRUE(program.save());
    const int64_t victories = inFile("SELECT count(*) FROM victory");
    EXPECT_GT(victories, 0);

    program.record.close();
    SqliteFile other;
    ASSERT_TRUE(other.open(path(), SqliteFile::MustExist) && other.run("BEGIN IMMEDIATE"));
    ASSERT_TRUE(program.load());
    program.goOn();
    EXPECT_TRUE(program.save());
    EXPECT_EQ(run.lines.linesWith("The record of the war can't be used"), 3) << run.lines.text();
    EXPECT_GT(program.figures(), "") << "what has happened since can be read";
    other.rollback();
    other.close();
    program.goOn();
    EXPECT_TRUE(program.save());
    const std::string figures = program.figures();
    EXPECT_GT(inFile("SELECT count(*) FROM victory"), victories);
    EXPECT_EQ(inFile("SELECT count(*) FROM gap"), 0) << "nothing was lost";
    ASSERT_TRUE(program.load());
    EXPECT_EQ(program.figures(), figures);
}

TEST_F(CareerRecordTest, LeavesTheCareerBeforeToItsFile) {
    Program program;
    program.begin();
    ASSERT_TRUE(program.save());
    const std::string before = run.folder.read("user/Saves/record.db");
    program.career.createCareer(ServiceEnglish); // a draft: nothing happens to the file
    ASSERT_TRUE(program.load());
    EXPECT_TRUE(program.record.gaps().empty());
    program.career.createCareer(ServiceEnglish);
    ASSERT_TRUE(program.save());
    EXPECT_TRUE(run.lines.holds("it is kept as")) << run.lines.text();
    EXPECT_TRUE(fs::exists(run.userFolder() + "/Saves/record-other-career.db"));
    EXPECT_EQ(inFile("SELECT value FROM meta WHERE key = 'career'"), program.career.careerNumber);
}

// A save that went on without its record leaves a hole, which is known.
TEST_F(CareerRecordTest, KnowsWhatItHasMissed) {
    int32_t since = 0;
    int32_t until = 0;
    {
        Program program;
        program.begin();
        ASSERT_TRUE(program.save());
        since = program.career.calendar().dateNumber();
        program.career.observer = nullptr;
        program.goOn();
        ASSERT_TRUE(program.save());
        until = program.career.calendar().dateNumber();
    }
    for (int32_t time = 0; time < 2; ++time) {
        Program program;
        ASSERT_TRUE(program.load());
        ASSERT_EQ(program.record.gaps().size(), 1U);
        EXPECT_EQ(program.record.gaps()[0].since, since);
        EXPECT_EQ(program.record.gaps()[0].until, until);
        ASSERT_TRUE(program.save());
    }
}

// A file of the version before each step comes through it with its rows; a step that fails leaves
// the file as it was.
TEST_F(CareerRecordTest, MovesOnToLaterSchemas) {
    const char* const steps[] = {RecordSteps[0],
                                 "ALTER TABLE gap ADD COLUMN why TEXT;"
                                 "UPDATE gap SET why = 'lost'",
                                 "DELETE FROM gap; DROP TABLE nothing"};
    const std::string file = run.folder.file("user/steps.db");
    const auto step = [&](int32_t count) {
        SqliteFile opened;
        opened.open(file, SqliteFile::MayCreate);
        return migrateRecord(opened, steps, count);
    };
    SqliteFile looked;
    ASSERT_TRUE(step(1));
    ASSERT_TRUE(looked.open(file, SqliteFile::MustExist) &&
                looked.run("INSERT INTO gap(since, until) VALUES(19160101, 19160201)"));
    ASSERT_TRUE(step(2));
    EXPECT_EQ(looked.number("SELECT count(*) FROM gap WHERE why = 'lost' AND since = 19160101"), 1);
    EXPECT_TRUE(step(2)) << "nothing is to be done";
    EXPECT_FALSE(step(3));
    EXPECT_EQ(looked.number("PRAGMA user_version"), 2);
    EXPECT_EQ(looked.number("SELECT count(*) FROM gap"), 1);
}

TEST_F(CareerRecordTest, BringsTheFirstSchemaForward) {
    SqliteFile file;
    ASSERT_TRUE(file.openInMemory() && migrateRecord(file, RecordSteps, 1) &&
                file.run("INSERT INTO gap(since, until) VALUES(19160101, 19160201)"));
    EXPECT_TRUE(migrateRecord(file)) << file.problem().c_str();
    EXPECT_EQ(file.number("PRAGMA user_version"), RecordVersion);
    EXPECT_EQ(file.number("SELECT count(*) FROM gap"), 1);
    EXPECT_EQ(file.number("SELECT count(x) + count(log) FROM orders"), 0);
    EXPECT_EQ(file.number("SELECT count(since) FROM orders_log"), 0);
    EXPECT_FALSE(file.failed()) << file.problem().c_str();
}

} // namespace
