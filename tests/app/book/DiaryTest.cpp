#include <tuple>

#include <gtest/gtest.h>

#include "app/book/BookTables.h"
#include "app/book/DiaryText.h"
#include "app/book/LogBook.h"
#include "app/book/PilotRecord.h"
#include "app/book/RealWar.h"
#include "app/career/WarPeriods.h"
#include "engine/core/Language.h"
#include "tests/app/book/HandMadeRecord.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryFolder.h"

namespace {

std::vector<std::string> texts(const std::vector<DiaryLine>& lines) {
    std::vector<std::string> all;
    for (const DiaryLine& line : lines)
        all.push_back(line.text.c_str());
    return all;
}
using Texts = std::vector<std::string>;

/// A flight of 24 September in Jasta 11 and the week after it. The player is pilot 0.
struct DiaryTest : testing::Test {
    enum Pilots : int32_t { Player, Successor, Friend, Ace, Newcomer, Second, Enemy };

    DiaryTest() {
        Database& career = record.career;
        addPilot(career, 0, "Karl Bauer", {0, 3, 0});
        addPilot(career, 0, "Kurt Wolff", {0, 20, 0});
        addPilot(career, 0, "Emil Neu", {});
        addPilot(career, 0, "Franz Alt", {0, 1, 0});
        const int32_t other = emptySquadron(career, England);
        addPilot(career, other, "James McCudden", {0, 15, 0});
        career.pilots[Player].shotdowns = 7;
        career.pilots[Player].missions = 14;
    }
    void fly(bool fell) {
        FlownMission& flight =
            record.addFlight(19170924, {{Player, 0, "Erich Sommer", "albatrosd5", Germany, 1},
                                        {Friend, 0, "Karl Bauer", "albatrosd5", Germany, 2},
                                        {Enemy, 1, "James McCudden", "se5a", England, 1}});
        HandMadeRecord::credit(flight, 2, 1);
        flight.reports[1].dead = 1;
        win(Player, Enemy, 0, 0, "Alan Fry");
        if (!fell)
            return;
        HandMadeRecord::credit(flight, 2, 0);
        flight.reports[0].dead = 1;
        record.career.pilots[Player].alive = 0;
        record.career.playerPilot = Successor;
        post({PostingKind::Succeeded, PostingCause::Replacement, Successor, -1, Player, {}});
    }
    void win(int32_t victor, int32_t victim, int32_t flight, int32_t squadron,
             const char* name = "") {
        record.events.victories.push_back(
            {flight == 0 ? 19170924 : 19170930,
             {victor, *name == '\0' ? victim : -1, name, "albatrosd5", "se5a", true, flight == 0},
             squadron,
             1 - squadron,
             flight});
    }
    void post(const Posting& posting, int32_t squadron = 0, int32_t date = 19170930) {
        record.events.postings.push_back({date, posting, squadron});
    }
    Diary read() { return readDiary(record.tables(), record.career, BookTables::instance()); }

    HandMadeRecord record;
};

TEST_F(DiaryTest, SaysThatNothingIsWrittenYet) {
    const Diary diary = read();
    EXPECT_EQ(texts(diary.squadron), Texts{"You have joined the squadron. Nothing is written here "
                                           "yet: fly your first mission."});
    EXPECT_EQ(texts(diary.front), Texts{"Nobody has scored since you came."});
    EXPECT_STREQ(flightOfText(diary.war, true).c_str(),
                 ("Flight 1 of about " + std::to_string(periodsToCome(19170930))).c_str())
        << "what he has flown before isn't the player's";
    EXPECT_STREQ(daysText(diary.from, diary.until).c_str(), "30 September 1917");
}

TEST_F(DiaryTest, HasTheOwnLineFirstAndTheRestByWeight) {
    fly(false);
    win(Ace, Enemy, -1, 0);
    win(Ace, Enemy, -1, 0);
    win(Enemy, Second, -1, 1);
    post({PostingKind::Died, PostingCause::ShotDown, Second, -1, Enemy, {}});
    post({PostingKind::Joined, PostingCause::Replacement, Newcomer, -1, Second, {}});
    // Of another squadron.
    post({PostingKind::Joined, PostingCause::Replacement, Successor, -1, Friend, {}}, 1);
    const Diary diary = read();
    EXPECT_EQ(texts(diary.squadron),
              (Texts{"You brought down Alan Fry. 7 victories now.",
                     "You are awarded: Iron Cross II.", "You are awarded: Cup of honour.",
                     "Karl Bauer fell to James McCudden. He had 3 victories.",
                     "Franz Alt fell to James McCudden. He had 1 victory.",
                     "Kurt Wolff: 2 victories, 20 now.", "Emil Neu has come."}));
    EXPECT_EQ(texts(diary.front),
              (Texts{"Kurt Wolff: 20 victories (2 new)", "James McCudden: 15 victories (1 new)",
                     "Erich Sommer: 7 victories (1 new)"}));
    EXPECT_STREQ(daysText(diary.from, diary.until).c_str(), "24 to 30 Sept 1917");
    const std::tuple<const char*, int32_t, int32_t, const char*> days[] = {
        {"de", 19170906, 19170912, "6. bis 12. Sep. 1917"},
        {"fr", 19170601, 19170610, "1er au 10 juin 1917"},
        {"fr", 19170528, 19170601, "28 mai au 1er juin 1917"},
        {"pl", 19170906, 19170912, "6 \x96 12 IX 1917"}};
    for (const auto& [code, from, until, text] : days) {
        ASSERT_TRUE(zel::Language::load(code));
        EXPECT_STREQ(daysText(from, until).c_str(), text);
    }
    zel::Language::reset();
}

TEST_F(DiaryTest, TellsOfThePlayersEndAndHisSuccessor) {
    fly(true);
    const Diary diary = read();
    ASSERT_GE(diary.squadron.size(), 3U);
    EXPECT_STREQ(diary.squadron[0].text.c_str(), "You brought down Alan Fry. 7 victories now.");
    EXPECT_STREQ(diary.squadron[1].text.c_str(),
                 "Your pilot Leutnant Erich Sommer fell to James McCudden, with 7 victories.");
    EXPECT_STREQ(diary.squadron[2].text.c_str(),
                 "Leutnant Otto von der Heydt takes his place: you fly as him now.");
}

// Nobody falls to himself, and a gun has no name of its own.
TEST_F(DiaryTest, NamesWhoBroughtThemDown) {
    const FlightPlane player{Player, 0, "Erich Sommer", "albatrosd5", Germany, 1};
    FlownMission& own = record.addFlight(19170910, {player});
    own.reports[0].shotDown = 1;
    own.reports[0].shotdownByOwn = 0;
    FlownMission& last =
        record.addFlight(19170924, {player,
                                    {Friend, 0, "Karl Bauer", "albatrosd5", Germany, 2},
                                    {-1, -1, "Vehicle[7]", "13pdrAAA", England, 1}});
    HandMadeRecord::credit(last, 2, 0);
    last.reports[1].shotdownByOwn = 1;
    last.reports[0].dead = last.reports[1].dead = 1;
    record.career.pilots[Player].alive = 0;
    const std::vector<std::string> lines = texts(read().squadron);
    EXPECT_EQ(lines[0],
              "Your pilot Leutnant Erich Sommer fell to anti-aircraft fire, with 7 victories.");
    EXPECT_EQ(lines[1], "Karl Bauer fell. He had 3 victories.");
    EXPECT_STREQ(readPilot(record.file, record.career, BookTables::instance(), Player)
                     .postings.back()
                     .other.c_str(),
                 "anti-aircraft fire");
    const LogBook book = readLogBook(record.file, record.career, BookTables::instance());
    EXPECT_FALSE(book.flights[0].isShotDown);
    EXPECT_TRUE(book.flights[1].isShotDown);
}

// Neither a first day nor ranks are made up for a record that can't be read.
TEST_F(DiaryTest, SaysThatTheRecordCannotBeRead) {
    fly(false);
    record.tables().run("DROP TABLE victory");
    const Diary diary = readDiary(record.file, record.career, BookTables::instance());
    EXPECT_TRUE(record.file.failed());
    EXPECT_EQ(texts(diary.squadron), Texts{"The record of the war can't be read."});
    EXPECT_TRUE(diary.front.empty() && !diary.real.empty());
    const PilotRecord pilot = readPilot(record.file, record.career, BookTables::instance(), Player);
    EXPECT_STREQ(titleOf(pilot.honours, pilot.name).c_str(), "Erich Sommer");
    EXPECT_EQ(pilot.victoryCount, 7);
}

TEST(RealWarTest, ChoosesTheMostImportantByDate) {
    TemporaryFolder folder;
    folder.write("aces.csv", "name,nation,born,victories,fate,fate_date,acepotential,source\n"
                             "Werner Voss,Germany,1897,48,killed,19170923,,x\n"
                             "Poor Man,Germany,,5,captured,19170922,,x\n"
                             "Max von M\374ller,Germany,,30,killed,19170925,,x\n"
                             "Otto von M\374ller,Germany,,9,killed,19170926,,x\n"
                             "Fritz M\374ller,Germany,,8,killed,19170926,,x\n");
    folder.write("victories_by_day.csv", "name,date,victim_type,source\n"
                                         "Werner Voss,19170901,EA,x\nWerner Voss,19170905,EA,x\n"
                                         "Werner Voss,19170905,EA,x\nNobody,19170905,EA,x\n");
    folder.write("events.csv", "date,place,text_en,text_pl,text_de,weight,source\n"
                               "19170920,Ypres,\"The Menin Road, at dawn.\",,Im Nebel.,5,x\n"
                               "19170921,Ypres,Rain.,,,1,x\n19170921,Ypres,Mud.,,,1,x\n"
                               "19170921,Ypres,Fog.,,,1,x\n19170232,Ypres,Never.,,,1,x\n"
                               "19170925,Ypres,Muller falls.,Ginie.,,1,x\n"
                               "19170926,Ypres,The end of Otto von M\374ller.,,,5,x\n");
    folder.write("ranks.csv", "");
    folder.write("awards.csv", "");
    const LogCapture lines;
    const BookTables tables((folder.path() + "/").c_str());
    EXPECT_EQ(tables.events.size(), 6U);
    EXPECT_TRUE(lines.holds("events.csv, line 6") && lines.holds("victories_by_day.csv, line 5"))
        << lines.text();
    EXPECT_EQ(texts(realWar(tables, 19170905, 19170924)),
              (Texts{"5 September: Werner Voss wins 2 victories and has 3 now.",
                     "20 September: The Menin Road, at dawn.",
                     "22 September: Poor Man, 5 victories, is captured.",
                     "23 September: Werner Voss, 48 victories, is killed."}));
    EXPECT_EQ(texts(realWar(tables, 19170910, 19170915)),
              Texts{"5 September: Werner Voss wins 2 victories and has 3 now."})
        << "the nearest before";
    EXPECT_EQ(texts(realWar(tables, 19170923, 19170923)),
              Texts{"22 September: Poor Man, 5 victories, is captured."})
        << "the day itself isn't over";
    EXPECT_EQ(texts(realWar(tables, 19170925, 19170927)),
              (Texts{"25 September: Muller falls.", "26 September: The end of Otto von M\374ller.",
                     "26 September: Fritz M\374ller, 8 victories, is killed."}))
        << "an ace whom an event names has no second line";
    EXPECT_EQ(texts(realWar(tables, 19160910, 19160915)), Texts{"Nothing is known of these days."});
    // Where there is no translation the text is English.
    const std::tuple<const char*, int32_t, const char*> translations[] = {
        {"de", 19170920, "20. September: Im Nebel."},
        {"de", 19170925, "25. September: Muller falls."},
        {"fr", 19170925, "25 septembre\xA0: Muller falls."},
        {"pl", 19170925, "25 wrze\006nia: Ginie."}};
    for (const auto& [code, date, text] : translations) {
        ASSERT_TRUE(zel::Language::load(code));
        EXPECT_EQ(texts(realWar(tables, date, date + 1)).front(), text);
    }
    zel::Language::reset();
}

// The means of the years are 15.25, 14.25, 13.25 and 11.25 days.
TEST(WarPeriodsTest, CountsThePeriodsToCome) {
    const std::pair<int32_t, int32_t> cases[] = {
        {19151201, 84}, {19180101, 28}, {19181110, 1}, {19181111, 0}, {19190101, 0}};
    for (const auto& [date, periods] : cases)
        EXPECT_EQ(periodsToCome(date), periods) << date;
}

} // namespace
