// The pages of a career, as the shelf turns them.
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "app/career/SaveFile.h"
#include "app/career/SavePages.h"
#include "tests/app/record/ShelfProgram.h"
#include "tests/support/HeldFile.h"

namespace fs = std::filesystem;

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
    const auto unrecorded = [](const CheckedBytes&) { return SaveMatch::Unknown; };
    const auto back = [&](const char* name) { return program.turnBack(name) && program.load(); };
    ASSERT_TRUE(back("19160130")) << program.shelf.problem().english().view();
    EXPECT_EQ(program.career.calendar().dateNumber(), 19160130);
    EXPECT_EQ(program.bases(), 13) << "the record is cut to the page";
    EXPECT_EQ(names(), "present 19160618 19160613 19160608 19160603 19160529 19160524 19160519 "
                       "19160514 19160509 19160504 19160429 19160424 "
                       "19160419 19160330 19160229 19151231 ");
    ASSERT_TRUE(back("19160613")) << "a page after the one that he went back to";
    EXPECT_EQ(program.bases(), 40) << "the record has what was cut before";
    ASSERT_TRUE(back("19160130") && back("19160618")) << "the page that he left first";
    EXPECT_EQ(program.career.calendar().dateNumber(), 19160618);
    EXPECT_EQ(program.bases(), 41);
    EXPECT_TRUE(program.record.gaps().empty());
    EXPECT_EQ(newestWholePage(save, unrecorded), save + ".bak");

    // A damaged page is shown as such, refused, and takes no other page's place.
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

// A save that the record reports as changed isn't offered, even if its structure is complete.
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

    for (const char* ending : {"", ".bak"}) {
        HeldFile held(user("Saves/savegame_v03.wty") + ending);
        EXPECT_TRUE(!held.isHeld() || !program.turnBack("19151202")) << ending;
    }
    EXPECT_EQ(program.pages(), "present 19151204 19151203! 19151202 ") << "they may be whole";

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
    // Without any save the record is kept under the checksum of the last one that it knows.
    fs::remove(user("Saves/savegame_v03.wty"));
    for (const auto& entry : fs::directory_iterator(user("Saves/Pages")))
        if (entry.path().extension() == ".db")
            fs::remove(entry.path());
    EXPECT_TRUE(program.turnBack("19151202") && program.load());
    std::string kept;
    for (const auto& entry : fs::directory_iterator(user("Saves/Pages")))
        if (entry.path().extension() == ".db")
            kept += entry.path().filename().string();
    EXPECT_EQ(kept.size(), std::string("record 0123456789abcdef.db").size()) << kept;
}

// Saves missing from the record are still whole.
TEST_F(ShelfTest, KnowsPagesThatTheRecordLacks) {
    ShelfProgram program;
    const auto saveAfter = [&](int32_t days) {
        program.goOn(days);
        program.career.observer->onWarAdvanced(program.career); // begins to write the record
        return program.shelf.save();
    };
    program.begin("Hans Braun");
    ASSERT_TRUE(saveAfter(1) && saveAfter(1));
    EXPECT_TRUE(program.record.close());
    fs::remove(user("Saves/record.db")); // as left by a program from before the record
    ASSERT_TRUE(program.load() && saveAfter(1) && saveAfter(1) && saveAfter(1));
    EXPECT_EQ(program.pages(), "present 19151205 19151204 19151203 19151202 ");
    for (const char* page : {"19151202", "19151203"}) {
        ASSERT_TRUE(program.turnBack(page) && program.load());
        EXPECT_FALSE(program.career.repairs.changed) << page;
    }
    ASSERT_TRUE(program.turnBack("19151206") && program.load() && saveAfter(1) && saveAfter(1));
    EXPECT_EQ(program.pages(), "present 19151207 19151206 19151203 19151202 19151205 19151204 ");
    // Put into place by hand: the record is cut to its day.
    fs::copy_file(user("Saves/savegame_v03.wty.bak"), user("older"));
    ASSERT_TRUE(saveAfter(1) && saveAfter(1));
    fs::rename(user("older"), user(SaveFileName));
    ASSERT_TRUE(program.load() && saveAfter(4) && saveAfter(1));
    EXPECT_EQ(program.pages(), "present 19151211 19151209 19151208 19151207 19151206 19151203 "
                               "19151202 19151205 19151204 ");
}
