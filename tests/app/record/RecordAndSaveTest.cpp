// How the record follows the saves: back, forward, to another career and to another course of the
// war.

#include <filesystem>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "app/career/CareerLock.h"
#include "app/record/RecordSeal.h"
#include "engine/core/LockFile.h"
#include "engine/core/Random.h"
#include "tests/app/record/RecordedProgram.h"

namespace fs = std::filesystem;

namespace {

using Program = RecordedProgram;
using RecordAndSaveTest = RecordTest;

TEST_F(RecordAndSaveTest, ASecondProgramOnlyReads) {
    std::string figures;
    {
        Program first;
        first.begin();
        ASSERT_TRUE(first.save());
        figures = first.figures();
    }
    const std::string record = run.folder.read(RecordFile);
    const std::string save = run.save();
    zel::LockFile other;
    ASSERT_TRUE(other.take(run.folder.file("user/career.lock")));
    {
        CareerLock lock;
        Program second;
        second.career.lock = &lock;
        ASSERT_TRUE(second.load());
        EXPECT_TRUE(second.career.isReadOnly);
        second.goOn();
        EXPECT_NE(second.figures(), figures) << "its own war can be read";
        EXPECT_FALSE(second.save());
    }
    EXPECT_TRUE(run.save() == save && run.folder.read(RecordFile) == record);
    size_t files = 0;
    for (const auto& entry : fs::directory_iterator(run.folder.file("user/Saves")))
        files += entry.is_regular_file() ? 1 : 0;
    EXPECT_EQ(files, 2u);
    {
        CareerLock lock;
        Program second;
        second.career.lock = &lock;
        ASSERT_TRUE(second.load() && second.career.isReadOnly);
        other.release();
        second.begin(ServiceEnglish);
        ASSERT_TRUE(second.save());
    }
    EXPECT_EQ(sealOf(path()), RecordSeal::Whole) << "what it begins afterwards is its own";
#ifndef _WIN32
    // If the lock file is removed, another program can take the lock. Then the first can't save. On
    // Windows the name stays until the first closes the file.
    CareerLock lock;
    Program first;
    first.career.lock = &lock;
    ASSERT_TRUE(first.load() && first.save());
    fs::remove(run.folder.file("user/career.lock"));
    ASSERT_TRUE(other.take(run.folder.file("user/career.lock")));
    EXPECT_FALSE(first.save());
#endif
}

// Loading a save, whichever it is, leaves the record as it was.
TEST_F(RecordAndSaveTest, ALoadRemovesNothing) {
    std::string older;
    int32_t last = 0;
    std::string figures;
    {
        Program program;
        program.begin();
        ASSERT_TRUE(program.save());
        older = run.save();
        program.goOn();
        ASSERT_TRUE(program.save());
        last = program.date();
        figures = program.figures();
    }
    const std::string newer = run.save();
    const std::string record = run.folder.read(RecordFile);
    const auto withByte = [](std::string content, size_t place, char value) {
        content[place] = value;
        return content;
    };
    // If only the career's number differed, loading would restore it.
    const auto otherCareer = [&] {
        return withByte(withByte(newer, 32, char(newer[32] ^ 1)), 24, 1);
    };
    const struct {
        const char* what;
        std::string save;
        std::vector<std::pair<int32_t, int32_t>> gaps;
    } cases[] = {
        {"the save before", older, {}},
        {"a damaged save", withByte(newer, 24, 1), {{last, last}}},
        {"a save whose date is damaged",
         withByte(newer, 12, 0x7D),
         {{last, 19170000 + last % 10000}}},
        {"a save from before all pages", withByte(older, 20, 1), {{19151201, 19151201}}},
        {"another career's save", otherCareer(), {{19151201, last}}},
    };
    for (const auto& [what, save, gaps] : cases) {
        run.folder.write(SaveFile, save);
        {
            Program program;
            ASSERT_TRUE(program.load()) << what;
            program.figures();
            program.goOn();
            ASSERT_EQ(program.record.gaps().size(), gaps.size()) << what;
            for (size_t i = 0; i < gaps.size(); ++i) {
                EXPECT_EQ(program.record.gaps()[i].since, gaps[i].first) << what;
                EXPECT_EQ(program.record.gaps()[i].until, gaps[i].second) << what;
            }
        }
        EXPECT_EQ(run.folder.read(RecordFile), record) << what;
        run.folder.write(SaveFile, newer);
        Program program;
        ASSERT_TRUE(program.load());
        EXPECT_EQ(program.figures(), figures) << what;
        EXPECT_TRUE(program.record.gaps().empty()) << what;
    }
}

// Two careers in turn: the record of each is found wherever it is, and has its name after a save.
TEST_F(RecordAndSaveTest, FindsTheRecordOfACareerAgain) {
    const auto recordOf = [&](const Program& program) {
        return inFile("SELECT value FROM meta WHERE key = 'career'") == program.career.careerNumber;
    };
    std::string saves[2];
    std::string figures[2];
    for (int32_t i = 0; i < 2; ++i) {
        Program program;
        program.begin(i == 0 ? ServiceGerman : ServiceEnglish);
        EXPECT_EQ(fs::exists(path()), i == 1);
        ASSERT_TRUE(program.save());
        EXPECT_TRUE(recordOf(program));
        saves[i] = run.save();
        figures[i] = program.figures();
    }
    EXPECT_EQ(run.lines.linesWith("it is kept as"), 1) << run.lines.text();
    for (const int32_t i : {0, 1, 1, 0, 1}) {
        run.folder.write(SaveFile, saves[i]);
        Program program;
        ASSERT_TRUE(program.load());
        EXPECT_EQ(program.figures(), figures[i]);
        EXPECT_TRUE(program.record.gaps().empty());
        program.goOn();
        ASSERT_TRUE(program.save());
        EXPECT_TRUE(recordOf(program));
        EXPECT_TRUE(program.load());
        EXPECT_TRUE(program.record.gaps().empty());
        saves[i] = run.save();
        figures[i] = program.figures();
    }
    // Killed after a career's own record was moved away, and before another got its name.
    fs::rename(path(), run.userFolder() + "/Saves/record-new.db");
    Program program;
    ASSERT_TRUE(program.load());
    EXPECT_EQ(program.figures(), figures[1]);
}

// A save that fails takes nothing from the career whose save stays.
TEST_F(RecordAndSaveTest, LeavesARecordToTheSaveThatStays) {
    Program one;
    one.begin();
    ASSERT_TRUE(one.save());
    const std::string figures = one.figures();
    Program two;
    two.begin(ServiceEnglish);
    run.folder.write(std::string(SaveFile) + ".bak/x", "a folder in the way");
    EXPECT_FALSE(two.save());
    fs::remove_all(run.folder.file(std::string(SaveFile) + ".bak"));
    ASSERT_TRUE(one.load());
    EXPECT_EQ(one.figures(), figures);
    EXPECT_EQ(inFile("SELECT value FROM meta WHERE key = 'career'"), one.career.careerNumber);
    EXPECT_TRUE(one.record.close());
    ASSERT_TRUE(two.save());
    EXPECT_EQ(inFile("SELECT value FROM meta WHERE key = 'career'"), two.career.careerNumber);
}

// What happened on a timeline that the save doesn't know isn't its past.
TEST_F(RecordAndSaveTest, KnowsTheCoursesOfTheWarApart) {
    std::string start;
    int32_t since = 0;
    {
        Program program;
        program.begin();
        ASSERT_TRUE(program.save());
        start = run.save();
        since = program.date();
        for (int32_t i = 0; i < 2; ++i) {
            program.goOn();
            ASSERT_TRUE(program.save());
        }
    }
    run.folder.write(SaveFile, start);
    int32_t until = 0;
    {
        Program program;
        zel::seedSharedRandom(4711);
        program.career.observer = nullptr;
        ASSERT_TRUE(program.load());
        program.goOn();
        program.goOn();
        ASSERT_TRUE(program.save());
        until = program.date();
    }
    Program program;
    ASSERT_TRUE(program.load());
    ASSERT_EQ(program.record.gaps().size(), 1U);
    EXPECT_EQ(program.record.gaps()[0].since, since);
    EXPECT_EQ(program.record.gaps()[0].until, until);
    ASSERT_TRUE(program.save());
    EXPECT_EQ(inFile("SELECT max(date) <= " + std::to_string(since) + " FROM posting"), 1);
}

// Saving without the record leaves a gap, which is noted.
TEST_F(RecordAndSaveTest, KnowsWhatItHasMissed) {
    for (const bool isSameDay : {false, true}) {
        int32_t since = 0;
        int32_t until = 0;
        {
            Program program;
            program.begin();
            ASSERT_TRUE(program.save());
            since = program.date();
            program.career.observer = nullptr;
            if (isSameDay)
                program.career.swapPilots(program.career.playerPilot,
                                          program.career.squadron(0).slots[0]);
            else
                program.goOn();
            ASSERT_TRUE(program.save());
            until = program.date();
        }
        for (int32_t time = 0; time < 2; ++time) {
            Program program;
            ASSERT_TRUE(program.load());
            ASSERT_EQ(program.record.gaps().size(), 1U) << isSameDay;
            EXPECT_EQ(program.record.gaps()[0].since, since);
            EXPECT_EQ(program.record.gaps()[0].until, until);
            ASSERT_TRUE(program.save());
        }
        fs::remove_all(run.userFolder());
    }
}

// The later save replaces the other one, in the record too.
TEST_F(RecordAndSaveTest, HoldsTheSaveOfOneProgram) {
    Program one;
    one.begin();
    ASSERT_TRUE(one.save());
    Program two;
    ASSERT_TRUE(two.load());
    two.goOn();
    ASSERT_TRUE(two.save());
    one.goOn();
    const std::string figures = one.figures();
    ASSERT_TRUE(one.save());
    EXPECT_EQ(one.figures(), figures);
    EXPECT_EQ(inFile("SELECT count(*) FROM page"), 2);
    ASSERT_TRUE(two.load());
    EXPECT_EQ(two.figures(), figures);
}

} // namespace
