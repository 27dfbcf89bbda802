#include "app/record/Shelf.h"

#include <filesystem>
#include <memory>

#include <gtest/gtest.h>

#include "app/career/Database.h"
#include "app/career/SaveFile.h"
#include "app/record/CareerRecord.h"
#include "app/record/ShelfFolders.h"
#include "tests/support/LogCapture.h"
#include "tests/support/SmallCareer.h"

namespace fs = std::filesystem;

namespace {

struct ShelfProgram {
    ShelfProgram() { career.observer = &record; }
    /// A new career whose player has that name, saved or not.
    void begin(const char* name) {
        career.createCareer(ServiceGerman);
        zel::copyText(career.player().name, name);
    }
    /// Gives it another day, and something for the record.
    void goOn(int32_t days = 1) {
        Calendar date = career.calendar();
        date.addDays(days);
        career.year = date.getYear();
        career.month = date.getMonth();
        career.day = date.getDay();
        career.observer->onBaseChange(career);
    }
    bool load() { return career.loadFile(SaveFileName); }
    int64_t bases() { return record.read(career).number("SELECT count(*) FROM base"); }
    /// "1 Hans Braun" for each career, the current one with "*", those put away with "-".
    std::string list() const {
        std::string text;
        for (const ShelvedCareer& one : shelf.careers())
            text += std::to_string(one.number) + " " + std::string(one.summary.pilot.view()) +
                    (one.isCurrent   ? "*"
                     : one.isPutAway ? "-"
                                     : "") +
                    "\n";
        return text;
    }

    /// The pages of a career by their names; those that are damaged with "!".
    std::string pages(size_t of = 0) const {
        std::string text;
        for (const SavePage& page : Shelf::pages(shelf.careers()[of]))
            text += std::string(page.name.view()) + (page.isWhole ? " " : "! ");
        return text;
    }
    bool turnBack(const char* name, size_t of = 0) {
        const ShelvedCareer one = shelf.careers()[of];
        for (const SavePage& page : Shelf::pages(one))
            if (page.name == name)
                return shelf.turnBack(one, page);
        return false;
    }

    CareerRecord record;
    Database career;
    Shelf shelf{career, record};
};

struct ShelfTest : testing::Test {
    ShelfTest() { world.addHistory(); }
    std::string user(const std::string& name) const { return world.folder.file("user/" + name); }
    SmallWorld world;
};

} // namespace

// What every system takes: no reserved characters, no blank or full stop at the end, not too long.
TEST_F(ShelfTest, NamesFoldersForEverySystem) {
    const struct {
        int32_t number;
        std::string pilot, folder;
    } cases[] = {
        {3, "Erich Sommer", "0003 Erich Sommer"},
        {12345, "Jean d'Aul. ..", "12345 Jean d'Aul"},
        {1, "a/b\\c:d*e?f\"g<h>i|j\n", "0001 a_b_c_d_e_f_g_h_i_j_"},
        {1, std::string(63, 'x'), "0001 " + std::string(40, 'x')},
        {1, " .. ", "0001 Unknown"},
        {1, "CON", "0001 CON"},
#ifndef _WIN32
        {1, "Ren\xE9", "0001 Ren\xC3\xA9"},
#endif
    };
    for (const auto& [number, pilot, folder] : cases) {
        EXPECT_EQ(shelfFolderName(number, pilot).view(), folder);
        EXPECT_EQ(numberOfFolder(folder), number);
    }
    for (const char* other : {"", "x", "-3 a", "3a", "0 a", "10000000 a", "99999999999 a"})
        EXPECT_EQ(numberOfFolder(other), 0) << other;
}

// A new career never takes the place of one that is there. Each has its own record wherever it is.
TEST_F(ShelfTest, KeepsEachCareerWhole) {
    ShelfProgram program;
    program.begin("Hans Braun");
    EXPECT_EQ(program.list(), "");
    ASSERT_TRUE(program.shelf.save()) << program.shelf.problem().english().view();
    program.goOn();
    ASSERT_TRUE(program.shelf.save());
    EXPECT_EQ(program.list(), "1 Hans Braun*\n");
    const int64_t first = program.bases();

    program.begin("Otto Klein");
    EXPECT_EQ(program.list(), "1 Hans Braun*\n") << "nothing moves before it is saved";
    ASSERT_TRUE(program.shelf.save());
    EXPECT_EQ(program.list(), "2 Otto Klein*\n1 Hans Braun\n");
    program.goOn();
    program.goOn();
    ASSERT_TRUE(program.shelf.save());
    const int64_t second = program.bases();
    EXPECT_NE(second, first);

    ASSERT_TRUE(program.shelf.take(1)) << program.shelf.problem().english().view();
    EXPECT_FALSE(program.career.hasCareer()) << "it could be saved over the other one";
    ASSERT_TRUE(program.load());
    EXPECT_STREQ(program.career.player().name, "Hans Braun");
    EXPECT_EQ(program.bases(), first);
    EXPECT_EQ(program.list(), "1 Hans Braun*\n2 Otto Klein\n");
    EXPECT_TRUE(fs::exists(user("Careers/0002 Otto Klein/Pages")) ||
                fs::exists(user("Careers/0002 Otto Klein/savegame_v03.wty.bak")));

    ASSERT_TRUE(program.shelf.putAway(1) && program.shelf.putAway(2));
    EXPECT_EQ(program.list(), "2 Otto Klein-\n1 Hans Braun-\n");
    EXPECT_FALSE(fs::exists(user("Saves")));
    ASSERT_TRUE(program.shelf.take(2) && program.load());
    EXPECT_EQ(program.bases(), second);
    EXPECT_TRUE(program.record.gaps().empty());
    EXPECT_FALSE(program.shelf.take(3));
    EXPECT_EQ(program.shelf.problem().english(), "There is no career of the number 3");

    // A number is gone for good with its folder.
    program.begin("Fritz Braun");
    ASSERT_TRUE(program.shelf.save() && program.shelf.putAway(3));
    fs::remove_all(user("Careers/Put away/0003 Fritz Braun"));
    program.begin("Fritz Klein");
    ASSERT_TRUE(program.shelf.save() && program.shelf.putAway(4));
    EXPECT_TRUE(fs::exists(user("Careers/Put away/0004 Fritz Klein")));
}

// Killed between two renames, or changed by hand: afterwards each career is in one place.
TEST_F(ShelfTest, EndsWhatWasInterrupted) {
    ShelfProgram program;
    program.begin("Hans Braun");
    ASSERT_TRUE(program.shelf.save());
    program.begin("Otto Klein");
    ASSERT_TRUE(program.shelf.save());
    program.record.close();
    const std::string both = "2 Otto Klein*\n1 Hans Braun\n";
    const auto restart = [&] {
        ShelfProgram other;
        EXPECT_TRUE(other.shelf.tidy()) << other.shelf.problem().english().view();
        EXPECT_FALSE(fs::exists(user("Saves.next")));
        return other.list();
    };
    EXPECT_EQ(restart(), both) << "nothing to do";
    fs::rename(user("Careers/0001 Hans Braun"), user("Saves.next"));
    EXPECT_EQ(restart(), both) << "taken, and the current one still there";
    fs::rename(user("Careers/0001 Hans Braun"), user("Saves.next"));
    fs::rename(user("Saves"), user("Careers/0002 Otto Klein"));
    fs::create_directories(user("Saves")); // by an earlier version of the program
    EXPECT_EQ(restart(), "1 Hans Braun*\n2 Otto Klein\n") << "the current one already on the shelf";
    world.folder.write("user/Saves.next/record.db", "a career that was never saved");
    world.folder.write("user/Saves.next/savegame_v03.wty.77-1.new", "its draft");
    EXPECT_EQ(restart(), "1 Hans Braun*\n2 Otto Klein\n");
    // Files of no career, as programs that watch folders leave them, keep no career out.
    fs::rename(user("Saves"), user("Saves.next"));
    world.folder.write("user/Saves/desktop.ini", "1");
    EXPECT_EQ(restart(), "1 Hans Braun*\n2 Otto Klein\n");
    fs::rename(user("Saves"), user("Careers/0001 Hans Braun"));
    world.folder.write("user/Saves/desktop.ini", "2");
    world.folder.write("user/Saves.next/desktop.ini", "3");
    EXPECT_EQ(restart(), "2 Otto Klein\n1 Hans Braun\n");
    {
        ShelfProgram third;
        EXPECT_TRUE(third.shelf.take(1)) << third.shelf.problem().english().view();
    }
    EXPECT_EQ(world.folder.read("user/Saves.other/desktop.ini"), "1");
    EXPECT_EQ(world.folder.read("user/Saves.other-2/desktop.ini"), "2");
    EXPECT_EQ(world.folder.read("user/Saves.next.other/desktop.ini"), "3");
    fs::copy(user("Careers/0002 Otto Klein"), user("Careers/0002 Otto Klein (copy)"));
    fs::copy(user("Saves"), user("Careers/My other one"), fs::copy_options::recursive);
    ShelfProgram other;
    EXPECT_TRUE(other.shelf.tidy());
    EXPECT_TRUE(fs::exists(user("Careers/0003 My other one")));
    EXPECT_TRUE(fs::exists(user("Careers/0004 Otto Klein (copy)")));
    EXPECT_EQ(other.shelf.careers().size(), 4U);
}

// Folders and numbers that aren't the program's.
TEST_F(ShelfTest, TakesOtherNumbersForNone) {
    ShelfProgram program;
    program.begin("Hans Braun");
    ASSERT_TRUE(program.shelf.save());
    program.record.close();
    world.folder.write("user/Careers/2024 backup/letter.txt", "of mine");
    fs::copy(user("Saves"), user("Careers/2147483647 Hans Braun"), fs::copy_options::recursive);
    world.folder.write("user/Careers/last number.txt", "2147483647\n");
    world.folder.write("user/Saves/number.txt", "2147483647\n");
    EXPECT_EQ(program.list(), "1 Hans Braun*\n0 Hans Braun\n");
    ASSERT_TRUE(program.shelf.tidy()) << program.shelf.problem().english().view();
    EXPECT_TRUE(program.shelf.putAway(2)) << program.shelf.problem().english().view();
    EXPECT_EQ(program.list(), "1 Hans Braun\n2 Hans Braun-\n");
    EXPECT_EQ(world.folder.read("user/Careers/2024 backup/letter.txt"), "of mine");
    world.folder.write("user/Careers/last number.txt", "9999999\n");
    Problem unread;
    EXPECT_EQ(nextNumber(shelfFolders(unread)), 3);
}

// Each move that can't be made leaves all careers where they are, and says why.
TEST_F(ShelfTest, LeavesAllWhereItIsOnError) {
    ShelfProgram program;
    program.begin("Hans Braun");
    ASSERT_TRUE(program.shelf.save());
    world.folder.write("user/Careers", "a file in the place of the folder");
    program.begin("Otto Klein");
    EXPECT_FALSE(program.shelf.save());
    EXPECT_FALSE(program.shelf.problem().empty());
    EXPECT_EQ(program.list(), "1 Hans Braun*\n");
    EXPECT_TRUE(program.career.hasCareer() && program.career.isUnsaved) << "it can be tried again";
    program.goOn();
    const int64_t bases = program.bases();
    fs::remove(user("Careers"));
    ASSERT_TRUE(program.shelf.save());
    EXPECT_EQ(program.bases(), bases);
    EXPECT_EQ(program.list(), "2 Otto Klein*\n1 Hans Braun\n");

    // What still waits in Saves.next gets its own place before another career is saved there.
    fs::rename(user("Careers/0001 Hans Braun"), user("Saves.next")); // left by another program
    program.begin("Fritz Braun");
    ASSERT_TRUE(program.shelf.save());
    const std::string three = "2 Otto Klein\n1 Hans Braun\n";
    EXPECT_EQ(program.list(), "3 Fritz Braun*\n" + three);
    fs::rename(user("Careers"), user("hidden"));
    world.folder.write("user/Careers", "a file in the place of the folder");
    program.begin("Fritz Klein");
    EXPECT_FALSE(program.shelf.save());
    program.begin("Hans Klein");
    EXPECT_FALSE(program.shelf.save());
    fs::remove(user("Careers"));
    fs::rename(user("hidden"), user("Careers"));
    ASSERT_TRUE(program.shelf.save()) << program.shelf.problem().english().view();
    EXPECT_EQ(program.list(), "5 Hans Klein*\n3 Fritz Klein\n4 Fritz Braun\n" + three);

    fs::resize_file(user("Careers/0001 Hans Braun/savegame_v03.wty"), 1000);
    EXPECT_FALSE(program.shelf.take(1));
    EXPECT_NE(program.shelf.problem().english().view().find("is damaged"), std::string_view::npos);
    EXPECT_TRUE(program.career.hasCareer());
#ifndef _WIN32
    fs::rename(user("Saves"), user("elsewhere"));
    fs::create_directory_symlink("elsewhere", user("Saves"));
    EXPECT_FALSE(program.shelf.putAway(5));
    EXPECT_NE(program.shelf.problem().english().view().find("is a link"), std::string_view::npos);
#endif
}

#ifndef _WIN32
// A folder that can't be listed is not an empty one: nothing is written over what may be in it.
TEST_F(ShelfTest, TakesNoUnreadFolderForAnEmptyOne) {
    ShelfProgram program;
    program.begin("Hans Braun");
    ASSERT_TRUE(program.shelf.save());
    program.begin("Otto Klein");
    const auto hide = [&](const char* name) { // a link to itself: not even root can read it
        fs::rename(user(name), user("hidden"));
        fs::create_directory_symlink(name, user(name));
    };
    const auto bringBack = [&](const char* name) {
        fs::remove(user(name));
        fs::rename(user("hidden"), user(name));
    };
    hide("Saves");
    EXPECT_FALSE(program.shelf.save());
    EXPECT_FALSE(program.shelf.careers().empty()) << "there is one, whatever it is";
    bringBack("Saves");
    ASSERT_TRUE(program.shelf.save());
    EXPECT_EQ(program.list(), "3 Otto Klein*\n2 Hans Braun\n");

    hide("Careers");
    program.begin("Fritz Braun");
    Problem unread;
    EXPECT_EQ(program.shelf.careers(unread).size(), 1U);
    EXPECT_NE(unread.english().view().find("can't be read"), std::string_view::npos);
    EXPECT_FALSE(program.shelf.take(2) || program.shelf.save() || program.shelf.tidy());
    EXPECT_EQ(program.shelf.problem().english(), unread.english());
    bringBack("Careers");
    ASSERT_TRUE(program.shelf.save());
    EXPECT_EQ(program.list(), "4 Fritz Braun*\n3 Otto Klein\n2 Hans Braun\n");
}
#endif

// Pages: the last ten and the last of each month, each whole; going back loses none of them.
TEST_F(ShelfTest, KeepsPages) {
    ShelfProgram program;
    program.begin("Hans Braun");
    constexpr int32_t Saves = 40;
    for (int32_t save = 0; save < Saves; ++save) {
        program.goOn(5); // from 6 December 1915 to 18 June 1916
        ASSERT_TRUE(program.shelf.save());
    }
    const auto names = [&] { return program.pages(); };
    const std::string all =
        "present 19160613 19160608 19160603 19160529 19160524 19160519 19160514 "
        "19160509 19160504 19160429 19160424 "
        "19160419 19160330 19160229 19160130 19151231 ";
    EXPECT_EQ(names(), all);
    const std::string save = user(SaveFileName);
    const auto unrecorded = [](std::string_view) { return SaveMatch::Unknown; };
    const auto back = [&](const char* name) { return program.turnBack(name) && program.load(); };
    ASSERT_TRUE(back("19160130")) << program.shelf.problem().english().view();
    EXPECT_EQ(program.career.calendar().dateNumber(), 19160130);
    EXPECT_EQ(program.bases(), 13) << "the record is cut to the page";
    EXPECT_EQ(names(), "present 19160618 19160613 19160608 19160603 19160529 19160524 19160519 "
                       "19160514 19160509 19160504 19160429 19160424 "
                       "19160419 19160330 19160229 19151231 ");
    ASSERT_TRUE(back("19160613")) << "a page after the one that was gone back to";
    EXPECT_EQ(program.bases(), 40) << "the record has what was cut before";
    ASSERT_TRUE(back("19160130") && back("19160618")) << "the page that was left first";
    EXPECT_EQ(program.career.calendar().dateNumber(), 19160618);
    EXPECT_EQ(program.bases(), 41);
    EXPECT_TRUE(program.record.gaps().empty());
    EXPECT_EQ(newestWholePage(save, unrecorded), save + ".bak");

    // One that is damaged is shown as such, refused, and costs no other page its place.
    for (const auto& entry : fs::directory_iterator(user("Saves/Pages")))
        if (entry.path().filename().string().find(" 19160529 ") != std::string::npos) {
            std::string content =
                world.folder.read("user/Saves/Pages/" + entry.path().filename().string());
            content[content.size() / 2] ^= 1;
            world.folder.write("user/Saves/Pages/" + entry.path().filename().string(), content);
        }
    EXPECT_NE(names().find(" 19160529! "), std::string::npos) << names();
    EXPECT_FALSE(back("19160529"));
    world.folder.write("user/Saves/savegame_v03.wty.bak", "no save");
    world.folder.write("user/Saves/savegame_v03.wty", "no save either");
    EXPECT_NE(newestWholePage(save, unrecorded).view().find(" 19160613 "), std::string_view::npos);
    ASSERT_TRUE(back("19160613")) << program.shelf.problem().english().view();
    EXPECT_EQ(program.career.calendar().dateNumber(), 19160613);
    EXPECT_EQ(names().find("present damaged! damaged-2! 19160608 "), 0U) << names();
}

// What the record calls changed is no way back, though it has all its parts.
TEST_F(ShelfTest, KeepsADamagedSaveAsADamagedPage) {
    ShelfProgram program;
    const auto saveAfter = [&](int32_t days) {
        program.goOn(days);
        return program.shelf.save();
    };
    const auto damage = [&](const char* folder, const char* ending = "") {
        const std::string name = std::string("user/") + folder + "/savegame_v03.wty" + ending;
        std::string content = world.folder.read(name);
        content[24] ^= 1; // which nothing uses
        world.folder.write(name, content);
    };
    program.begin("Hans Braun");
    ASSERT_TRUE(saveAfter(1) && saveAfter(1) && saveAfter(1));
    damage("Saves", ".bak");
    EXPECT_EQ(program.pages(), "present 19151203! 19151202 ");
    EXPECT_FALSE(program.turnBack("19151203"));
    ASSERT_TRUE(program.load() && saveAfter(1));
    EXPECT_EQ(program.pages(), "present 19151204 19151203! 19151202 ");

    damage("Saves");
    ASSERT_TRUE(program.turnBack("19151202") && program.load() && saveAfter(4));
    EXPECT_EQ(program.pages(), "present 19151202 19151204 19151205! 19151203! ");
    program.begin("Otto Klein");
    ASSERT_TRUE(program.shelf.save());
    damage("Careers/0001 Hans Braun");
    ASSERT_TRUE(program.turnBack("19151204", 1)) << program.shelf.problem().english().view();
    EXPECT_EQ(program.pages(1), "present 19151202 19151206! 19151205! 19151203! ");
    // Without a present save the way back begins at the pages.
    fs::resize_file(user("Careers/0001 Hans Braun/savegame_v03.wty"), 1000);
    ASSERT_TRUE(program.shelf.take(1)) << program.shelf.problem().english().view();
    EXPECT_FALSE(program.load());
    EXPECT_TRUE(hasEarlierSave(program.career, SaveFileName));
    EXPECT_TRUE(program.turnBack("19151202") && program.load());
}

// Saves that the record can't have are whole all the same.
TEST_F(ShelfTest, KnowsPagesThatTheRecordLacks) {
    ShelfProgram program;
    const auto saveAfter = [&](int32_t days) {
        program.goOn(days);
        program.career.observer->onWarAdvanced(program.career); // begins to write the record
        return program.shelf.save();
    };
    program.begin("Hans Braun");
    ASSERT_TRUE(saveAfter(1) && saveAfter(1));
    program.record.close();
    fs::remove(user("Saves/record.db")); // as of a program before there was one
    ASSERT_TRUE(program.load() && saveAfter(1) && saveAfter(1) && saveAfter(1));
    EXPECT_EQ(program.pages(), "present 19151205 19151204 19151203 19151202 ");
    for (const char* page : {"19151202", "19151203"}) {
        ASSERT_TRUE(program.turnBack(page) && program.load());
        EXPECT_FALSE(program.career.repairs.changed) << page;
    }
    ASSERT_TRUE(program.turnBack("19151206") && program.load() && saveAfter(1) && saveAfter(1));
    EXPECT_EQ(program.pages(), "present 19151207 19151206 19151203 19151202 19151205 19151204 ");
    // Put into its place by hand: the record is cut as of its day.
    fs::copy_file(user("Saves/savegame_v03.wty.bak"), user("older"));
    ASSERT_TRUE(saveAfter(1) && saveAfter(1));
    fs::rename(user("older"), user(SaveFileName));
    ASSERT_TRUE(program.load() && saveAfter(4) && saveAfter(1));
    EXPECT_EQ(program.pages(), "present 19151211 19151209 19151208 19151207 19151206 19151203 "
                               "19151202 19151205 19151204 ");
}
