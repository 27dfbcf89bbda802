#include "engine/core/Language.h"

#include <cstdlib>

#include <gtest/gtest.h>

#include "engine/core/Log.h"
#include "engine/core/Registry.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace std::string_literals;
using zel::Language;

TEST(LanguageFile, ReadsNumbersAndTexts) {
    const auto table = zel::parseLanguage(
        "12: Hello\r\n\r\n12: World\r# 13: no\n 14 :  a:b  \n15:\n-16: no\nx17: no\n18 no\n0019: \0zero\n: no"s);
    EXPECT_EQ(table,
              (std::map<int32_t, zel::String>{{12, "World"}, {14, "a:b"}, {15, ""}, {19, "zero"}}));
    EXPECT_EQ(zel::parseLanguage("1: two\\nlines").at(1), "two\nlines");
    EXPECT_EQ(zel::parseLanguage("99999999999: x").begin()->first, INT32_MAX);
    EXPECT_EQ(zel::parseLanguage("\xEF\xBB\xBF"
                                 "1: x")
                  .count(1),
              1u)
        << "an editor's mark";
}

TEST(LanguageFile, FindsTheCodeOfALocale) {
    const char* codes = "en 1033 2057\r\nde 1031 103\nfr\nxx 1036  7\n";
    EXPECT_EQ(zel::findLanguageCode(codes, "2057"), "en");
    EXPECT_EQ(zel::findLanguageCode(codes, "1031"), "de");
    EXPECT_EQ(zel::findLanguageCode(codes, "103"), "de") << "texts of equal length";
    EXPECT_EQ(zel::findLanguageCode(codes, "7"), "xx");
    for (const char* unknown : {"", "10", "en", "fr", "9999"})
        EXPECT_EQ(zel::findLanguageCode("en 1033\nfr\n", unknown), "") << unknown;
}

class LanguageTest : public testing::Test {
protected:
    LanguageTest() : before(zel::system::currentDirectory()) {
        zel::setApplicationTitle("Wingtally");
        zel::setUserDirectory(folder.path() + "/user");
        zel::Registry::reset();
        Language::reset();
        folder.write("Language/en.txt", "1: One\n2: $2 of $1\n3: $8 $1 $1\n");
        folder.write("Language/de.txt", "1: Eins\n");
        folder.write("Language/fr.txt", "1: Un\n");
        zel::system::changeDirectory(folder.path());
    }
    ~LanguageTest() override {
        zel::system::changeDirectory(before);
        zel::setUserDirectory("");
        zel::Registry::reset();
        Language::reset();
    }
    const zel::String before;
    TemporaryFolder folder;
};

TEST_F(LanguageTest, GivesTextsByTheirNumber) {
    const LogCapture log(zel::LogInfo);
    EXPECT_TRUE(Language::setLanguage("en"));
    EXPECT_TRUE(log.holds("[Language] Successfully read language en"));
    EXPECT_EQ(Language::get(1), "One");
    EXPECT_EQ(Language::get(2, "x", "y"), "y of x");
    EXPECT_EQ(Language::get(2), " of ") << "marks without an argument vanish";
    EXPECT_EQ(Language::get(3, "a", "", "", "", "", "", "", "h"), "h a $1") << "the first of each";
    EXPECT_EQ(Language::get(2, "x", "C:\\new"), "C:\\new of x")
        << "a line feed only where it is written";
    EXPECT_EQ(Language::get(4), "(String 4)");
    EXPECT_EQ(Language::get(-1), "(String -1)");
}

TEST(LanguageMarks, AreFilledAtOnce) {
    const std::pair<const char*, const char*> texts[] = {
        {"$2 of $1", "y of $2"}, {"$1 $1", "$2 $2"}, {"$3|", "|"}, {"$9 $ $", "$9 $ $"}, {"", ""}};
    for (const auto& [text, filled] : texts)
        EXPECT_EQ(zel::fillMarks(text, {"$2", "y"}), filled) << text;
}

TEST_F(LanguageTest, HasAWordForEachNumber) {
    folder.write("Language/pl.txt", "1: Jeden\n");
    const struct {
        const char* code;
        const char* text;
        const char* filled; // for 0, 1, 2, 5, 12, 21, 22, 104, 112
    } cases[] = {
        {"pl", "$1{a|b|c}", "c a b c c c b b c"},
        {"fr", "$1{a|b}", "a a b b b b b b b"},
        {"de", "$1{a|b}", "b a b b b b b b b"},
        {"pl", "$1{a|b}", "b a b b b b b b b"}, // one form is missing
        {"pl", "$2{a|b|c}{", "c{ c{ c{ c{ c{ c{ c{ c{ c{"},
    };
    for (const auto& [code, text, filled] : cases) {
        ASSERT_TRUE(Language::load(code));
        std::string all;
        for (const int32_t number : {0, 1, 2, 5, 12, 21, 22, 104, 112})
            all += (all.empty() ? "" : " ") + std::string(zel::fillMarks(text, {number}).view());
        EXPECT_EQ(all, filled) << code << " " << text;
    }
    ASSERT_TRUE(Language::load("pl"));
    EXPECT_EQ(zel::fillMarks("$1 $1{lot|loty} $2 {$1{", {3, "x"}), "3 loty x {3{");
}

TEST_F(LanguageTest, KeepsItsTableWhenAFileIsMissing) {
    ASSERT_TRUE(Language::setLanguage("de"));
    const LogCapture log;
    for (const char* code : {"it", "", "../Language/en", "..\\Language\\en"}) {
        EXPECT_FALSE(Language::setLanguage(code));
        EXPECT_TRUE(log.holds("[Language] Failed to read language "s + code)) << code;
    }
    EXPECT_TRUE(log.holds(" w "));
    EXPECT_EQ(Language::get(1), "Eins");
    EXPECT_EQ(Language::getCode(), "de");
}

TEST_F(LanguageTest, ChoosesThePreferenceThenTheSystemsLanguageThenEnglish) {
    zel::system::setEnvironment("LC_ALL", "de_AT.UTF-8"); // 3079
    folder.write("Language/langcodes.dat", "en 1033\nde 1031 3079\nit 1040\n");
    EXPECT_EQ(Language::get(1), "Eins") << "chosen at the first need";
    folder.write("Language/fr.txt", "1: Un\n7: Fran\u00E7ais\n");
    folder.write("Language/de.txt", "1: Eins\n7:Deutsch\n");
    const std::vector<zel::KnownLanguage> known = Language::known(7);
    ASSERT_EQ(known.size(), 2u) << "those with a name";
    EXPECT_EQ(known[0].code + known[0].name, "deDeutsch");
    EXPECT_EQ(known[1].code + known[1].name, "frFran\xE7"
                                             "ais");
    ASSERT_TRUE(Language::choose("fr"));
    Language::reset();
    EXPECT_EQ(Language::get(1), "Un") << "the player's choice";
    EXPECT_FALSE(Language::choose("xx"));
    zel::Registry::set("_Language", "xx");
    zel::system::setEnvironment("LC_ALL", "it_IT");
    Language::reset();
    const LogCapture log;
    EXPECT_EQ(Language::get(1), "One");
    EXPECT_TRUE(log.holds("Failed to read language it")) << "named, but without a file";
    zel::system::setEnvironment("LC_ALL", "");
}

TEST_F(LanguageTest, ChoosesOnce) {
    const TemporaryFolder empty;
    zel::system::changeDirectory(empty.path());
    const LogCapture log;
    for (int time = 0; time < 3; ++time)
        EXPECT_EQ(Language::get(1), "(String 1)");
    EXPECT_EQ(log.linesWith("Failed to read language en"), 1);
}

} // namespace
