#include "app/record/Shelf.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "app/record/ShelfFolders.h"
#include "tests/app/record/ShelfProgram.h"

namespace fs = std::filesystem;

// Names that every system accepts: no reserved characters, no blank or full stop at the end, not
// too long.
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

// A new career never overwrites an existing one. Each has its own record wherever it is.
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
    EXPECT_EQ(program.shelf.problem().english(), "There is no career number 3");

    // The number of a deleted folder isn't used again.
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
    EXPECT_TRUE(program.record.close());
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
    // Files that belong to no career, such as those that file managers leave, keep no career out.
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
    EXPECT_TRUE(program.record.close());
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
