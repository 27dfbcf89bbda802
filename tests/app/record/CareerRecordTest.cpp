#include "app/record/CareerRecord.h"

#include <filesystem>
#include <functional>

#include <gtest/gtest.h>

#include "app/record/RecordSchema.h"
#include "tests/app/record/RecordedProgram.h"

namespace fs = std::filesystem;

namespace {

using Program = RecordedProgram;
using CareerRecordTest = RecordTest;

// The next process finds exactly what was saved, including the day of the save.
TEST_F(CareerRecordTest, HoldsWhatIsSaved) {
    std::string first;
    std::string second;
    {
        Program program;
        program.begin();
        for (int32_t period = 0; period < 6; ++period) // until aces have come
            program.goOn();
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
    EXPECT_EQ(inFile("SELECT min(other IS NOT NULL) FROM posting WHERE kind = 'joined' AND cause = "
                     "'history'"),
              1)
        << "an ace who joins takes somebody's place";
    EXPECT_EQ(inFile("SELECT count(*) FROM posting WHERE kind = 'joined' AND cause = 'start'"),
              inFile("SELECT sum(pilots) FROM (SELECT count(DISTINCT pilot) AS pilots FROM posting"
                     " WHERE date = 19151201 AND kind = 'joined' AND cause = 'start')"));
}

struct UnusableRecord {
    std::string content;
    const char *name, *line; // the name under which it is kept, and what is logged
};

/// Each way in which a record can be unusable, made from a whole one.
std::vector<UnusableRecord> unusableRecords(const TemporaryFolder& folder) {
    const std::string whole = folder.read(RecordTest::RecordFile);
    std::string hollow = whole;
    hollow.replace(hollow.size() / 3, hollow.size() / 3, hollow.size() / 3, 'x');
    const auto with = [&](size_t place, char byte) {
        std::string content = whole;
        content[place] = byte;
        return content;
    };
    const auto changed = [&](const char* sql) {
        const std::string path = folder.write(RecordTest::RecordFile, whole);
        SqliteFile file;
        EXPECT_TRUE(file.open(path, SqliteFile::MustExist) && file.run(sql)) << sql;
        file.close();
        return folder.read(RecordTest::RecordFile);
    };
    const char* const damaged = "is damaged";
    return {
        {"", "", "The record of the war is missing"},
        {"no database at all", "record-damaged.db", damaged},
        {whole.substr(0, whole.size() / 2), "record-damaged-2.db", damaged},
        {hollow, "record-damaged-3.db", damaged},
        {with(18, 3), "record-damaged-4.db", damaged}, // read-only for ever
        {with(47, 9), "record-damaged-5.db", damaged}, // an unknown format of the schema
        {changed("DROP TABLE meta"), "record-damaged-6.db", damaged},
        {changed("DROP TABLE base"), "record-damaged-7.db", damaged},
        {changed("ALTER TABLE victory RENAME COLUMN died TO fell"), "record-damaged-8.db", damaged},
        {changed("ALTER TABLE gap ADD COLUMN x NOT NULL DEFAULT 0"), "record-damaged-9.db",
         damaged},
        {changed("PRAGMA user_version = -1"), "record-damaged-10.db", damaged},
        {changed("PRAGMA user_version = 0"), "record-damaged-11.db", damaged},
        {changed("UPDATE meta SET value = value + 1 WHERE key = 'career'"),
         "record-other-career.db", "is of another career"},
        {changed("PRAGMA user_version = 99"), "record-newer.db", "was written by a later version"},
    };
}

// It stays where it is until the career is saved.
TEST_F(CareerRecordTest, BeginsAgainWhereItCantBeUsed) {
    int32_t date = 0;
    {
        Program program;
        program.begin();
        program.goOn();
        ASSERT_TRUE(program.save());
        date = program.date();
    }
    const std::string save = run.save();
    for (const auto& [content, name, line] : unusableRecords(run.folder)) {
        const LogCapture lines;
        fs::remove(path());
        if (!content.empty())
            run.folder.write(RecordFile, content);
        run.folder.write(SaveFile, save);
        Program program;
        ASSERT_TRUE(program.load()) << line;
        EXPECT_TRUE(lines.holds(line)) << name << lines.text();
        EXPECT_TRUE(lines.holds("it has nothing before " + std::to_string(date))) << lines.text();
        ASSERT_EQ(program.record.gaps().size(), 1U);
        EXPECT_EQ(program.record.gaps()[0].since, 19151201);
        EXPECT_EQ(program.record.gaps()[0].until, date);
        EXPECT_EQ(!content.empty(), fs::exists(path())) << name;
        program.goOn();
        const std::string figures = program.figures();
        ASSERT_TRUE(program.save());
        if (!content.empty()) {
            EXPECT_EQ(run.folder.read(std::string("user/Saves/") + name), content) << name;
        }
        ASSERT_TRUE(program.load());
        EXPECT_EQ(program.figures(), figures) << name;
        EXPECT_EQ(program.record.gaps().size(), 1U) << "the gap is kept with the rest";
    }
}

// What other tools add to the file is left alone, and reported once.
TEST_F(CareerRecordTest, ToleratesTablesOfOthers) {
    Program program;
    program.begin();
    ASSERT_TRUE(program.save());
    EXPECT_TRUE(program.record.close());
    {
        SqliteFile tool;
        ASSERT_TRUE(tool.open(path(), SqliteFile::MustExist) &&
                    tool.run("CREATE TABLE notes(text); CREATE INDEX mine ON victory(victor)"));
    }
    ASSERT_TRUE(program.load());
    program.goOn();
    EXPECT_TRUE(program.save());
    EXPECT_EQ(inFile("SELECT count(*) FROM page"), 2);
    ASSERT_TRUE(program.load());
    EXPECT_EQ(run.lines.linesWith("was changed or damaged outside of Wingtally"), 1);
    EXPECT_EQ(run.lines.linesWith("[Record]"), 1) << run.lines.text();
    // A changed letter harms no page, and is noticed all the same.
    EXPECT_TRUE(program.record.close());
    std::string content = run.folder.read(RecordFile);
    content[content.rfind("joined") + 1] ^= 1;
    run.folder.write(RecordFile, content);
    ASSERT_TRUE(program.load());
    EXPECT_EQ(run.lines.linesWith("was changed or damaged outside of Wingtally"), 2);
    EXPECT_TRUE(program.record.gaps().empty());
}

// While another program writes, the record can be read; while it locks all others out, that is
// reported.
TEST_F(CareerRecordTest, IsReadWhereItCantBeWritten) {
    Program program;
    program.begin();
    ASSERT_TRUE(program.save());
    const std::string figures = program.figures();
    EXPECT_TRUE(program.record.close());
    SqliteFile other;
    ASSERT_TRUE(other.open(path(), SqliteFile::MustExist) && other.begin());
    ASSERT_TRUE(program.load());
    EXPECT_EQ(program.figures(), figures);
    program.goOn();
    EXPECT_NE(program.figures(), figures);
    EXPECT_TRUE(program.record.gaps().empty());
    EXPECT_TRUE(program.record.close());
    other.rollback();
    ASSERT_TRUE(other.run("PRAGMA journal_mode = DELETE; BEGIN EXCLUSIVE;"
                          "INSERT INTO gap(since, until) VALUES(1, 2)"));
    ASSERT_TRUE(program.load());
    EXPECT_TRUE(program.record.read(program.career).failed());
    EXPECT_TRUE(program.record.read(program.career).problem() == "database is locked");
    other.close();
    ASSERT_TRUE(program.load());
    EXPECT_EQ(program.figures(), figures);
}

// An error costs neither the career nor, once it is over, the record.
TEST_F(CareerRecordTest, WaitsUntilTheFileCanBeUsed) {
    Program program;
    program.begin();
    const std::string draft = run.userFolder() + "/Saves/record-new.db";
    fs::create_directories(draft);
    EXPECT_TRUE(program.save());
    EXPECT_EQ(run.lines.linesWith("The record of the war can't be used"), 1) << run.lines.text();
    EXPECT_TRUE(fs::exists(run.userFolder() + "/Saves/savegame_v03.wty"));
    fs::remove(draft);
    EXPECT_TRUE(program.save());
    const int64_t victories = inFile("SELECT count(*) FROM victory");
    const std::string saved = program.figures();
    EXPECT_GT(victories, 0);

    EXPECT_TRUE(program.record.close());
    SqliteFile other;
    ASSERT_TRUE(other.open(path(), SqliteFile::MustExist) && other.run("BEGIN IMMEDIATE"));
    ASSERT_TRUE(program.load());
    program.goOn();
    EXPECT_TRUE(program.save());
    EXPECT_EQ(run.lines.linesWith("The record of the war can't be used"), 3) << run.lines.text();
    EXPECT_NE(program.figures(), saved) << "what has happened since can be read";
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

// A file of the version before each step keeps its rows through the step; a step that fails leaves
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
    EXPECT_TRUE(step(2)) << "nothing is left to do";
    EXPECT_FALSE(step(3));
    EXPECT_EQ(looked.number("PRAGMA user_version"), 2);
    EXPECT_EQ(looked.number("SELECT count(*) FROM gap"), 1);
}

// A file of each version before keeps its rows, and becomes what a new file is.
TEST_F(CareerRecordTest, BringsEarlierSchemasForward) {
    const auto contents = [](SqliteFile& file) {
        std::string text;
        for (SqliteStatement row(file, "SELECT name, sql FROM sqlite_master ORDER BY name");
             row.next();)
            text += std::string(row.rawText(0)) + ": " + std::string(row.rawText(1)) + "\n";
        return text;
    };
    SqliteFile fresh;
    ASSERT_TRUE(fresh.openInMemory() && migrateRecord(fresh));
    for (int32_t version = 1; version < RecordVersion; ++version) {
        SqliteFile file;
        ASSERT_TRUE(file.openInMemory() && migrateRecord(file, RecordSteps, version));
        // Orders of the first version were never written.
        const bool hasRows =
            file.run("INSERT INTO gap(since, until) VALUES(19160101, 19160201);"
                     "INSERT INTO victory(date, flight, victor, victor_name, victor_squadron,"
                     " victor_aircraft, victim_name, victim_aircraft, died)"
                     " VALUES(19160101, 1, 7, 'A', 2, 'dh2', 'B', 'fokkere3', 1);"
                     "INSERT INTO posting(date, kind, cause, pilot, name, squadron)"
                     " VALUES(19160101, 'transferred', 'invitation', 7, 'A', 3)") &&
            (version < 2 || file.run("INSERT INTO orders_log VALUES('a log', 19160101)"));
        ASSERT_TRUE(hasRows) << file.problem().c_str();
        EXPECT_TRUE(migrateRecord(file)) << file.problem().c_str();
        EXPECT_EQ(file.number("PRAGMA user_version"), RecordVersion);
        EXPECT_EQ(contents(file), contents(fresh)) << version;
        for (const char* table : {"gap", "victory WHERE flight = 1", "posting WHERE pilot = 7"})
            EXPECT_EQ(file.number((std::string("SELECT count(*) FROM ") + table).c_str()), 1);
        EXPECT_EQ(file.number("SELECT count(*) FROM orders_log"), version < 2 ? 0 : 1);
    }
}

} // namespace
