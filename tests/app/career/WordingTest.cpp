#include "app/career/Wording.h"

#include <gtest/gtest.h>

#include "app/career/CareerTexts.h"
#include "app/career/UnitNames.h"
#include "engine/core/Language.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace {

/// A program whose German table lacks all months but March, and has an empty text for an ace.
struct WordingTest : testing::Test {
    WordingTest() {
        world.folder.write("Language/xx.txt", "20: $1. $2 $3\n21: 1. $1 $2\n33: M\xE4rz\n"
                                              "70: D\xFCnkirchen\n57: Staffel $1\n63: $1. Aero\n"
                                              "718: keinen\n719: einen\n720: $1 Siege\n714:\n");
    }
    ~WordingTest() override { zel::Language::reset(); }

    const SmallWorld world;
};

TEST_F(WordingTest, IsEnglishWithoutALanguage) {
    EXPECT_EQ(dateInLanguage({1917, 3, 1}), "1-March-1917");
    EXPECT_EQ(dateInLanguage({1917, 13, 2}), "2--1917") << "no month";
    EXPECT_EQ(countText(wording::Shotdowns, 1),
              "The pilots of the new squadron have a total number of 1 shotdowns.");
    EXPECT_TRUE(zel::Language::getCode().empty()) << "and chooses none";
}

TEST_F(WordingTest, TakesWhatTheTableHas) {
    ASSERT_TRUE(zel::Language::load("xx"));
    EXPECT_EQ(dateInLanguage({1917, 3, 1}), "1. M\xE4rz 1917");
    EXPECT_EQ(dateInLanguage({1917, 4, 21}), "21. April 1917") << "English where it is missing";
    EXPECT_EQ(textOf(wording::OneAce, {"Ball"}), "The squadron also includes the ace Ball.")
        << "or empty";
    for (const auto& [count, text] :
         {std::pair{-1, "keinen"}, {0, "keinen"}, {1, "einen"}, {2, "2 Siege"}, {80, "80 Siege"}})
        EXPECT_EQ(countText(wording::Shotdowns, count), text);
    EXPECT_EQ(nameInLanguage("Dunkerque"), "D\xFCnkirchen");
    EXPECT_EQ(nameInLanguage("Arras"), "Arras");
    // The bonus for squadrons with a name is a matter of numbers, not of words.
    EXPECT_EQ(unitName(501011), "Staffel 11");
    EXPECT_EQ(unitName(103022), "22nd Aero");
    EXPECT_EQ(unitName(103012), "12. Aero");
    for (const auto& [number, isNamed] : {std::pair{501011, true}, {501101, true}, {999001, false}})
        EXPECT_EQ(hasUnitName(number), isNamed) << number;
}

} // namespace
