#include "app/book/Condolence.h"

#include <gtest/gtest.h>

#include "app/book/BookTables.h"
#include "app/book/WarEnd.h"
#include "app/career/CareerTexts.h"
#include "tests/app/book/HandMadeRecord.h"

namespace {

/// The player's last flight, on 24 September 1917.
struct Fallen : HandMadeRecord {
    enum Pilots : int32_t { Player, Successor, Friend, Enemy };

    Fallen() {
        addPilot(career, 0, "Karl Bauer", {0, 3, 2});
        addPilot(career, emptySquadron(career, England), "James McCudden", {0, 15, 20});
        career.squadrons[1].squadronFile = -1;
        career.squadrons[0].squadronFile = -1;
        flight = &addFlight(19170924, {{Player, 0, "Erich Sommer", "albatrosd5", Germany, 1},
                                       {Friend, 0, "Karl Bauer", "albatrosd5", Germany, 2},
                                       {Enemy, 1, "James McCudden", "se5a", England, 1}});
        flight->reports[0].dead = 1;
        career.pilots[Player].alive = 0;
        career.pilots[Player].missions = 1;
    }
    void succeed() {
        career.playerPilot = Successor;
        events.postings.push_back(
            {19170930,
             {PostingKind::Succeeded, PostingCause::Replacement, Successor, -1, Player, {}},
             0});
    }
    FlownMission* flight;
};

TEST(CondolenceTest, SaysHowHeFell) {
    struct Case {
        void (*end)(PilotReport& own);
        const char* text;
        int32_t shooter = -2; // who hit him; -1 for one whom the log doesn't list
    };
    const Case cases[] = {
        {[](PilotReport& own) { own.shotdownBy = 2; }, "James McCudden shot him down."},
        {[](PilotReport& own) { own.shotdownByOwn = 1; }, "one of our own brought him down."},
        {[](PilotReport& own) { own.shotDown = 1; }, "crashed, and no enemy had a part in it."},
        {[](PilotReport& own) { own.shotDown = 1; }, "His machine crashed. It", 2},
        {[](PilotReport& own) { own.shotDown = 1; }, "His machine crashed. It", -1},
        {[](PilotReport& own) {
             own.shotDown = 1;
             own.shotdownByOwn = 0; // himself
         },
         "His machine crashed. It"},
        {[](PilotReport&) {}, "He died of his wounds."},
    };
    for (const Case& one : cases) {
        Fallen record;
        one.end(record.flight->reports[0]);
        if (one.shooter > -2)
            Fallen::addEvent(*record.flight, FlightEventKind::Hit, 60, one.shooter, 0);
        record.succeed();
        const Condolence letter =
            condolenceFor(record.tables(), record.career, BookTables::instance(), Fallen::Player);
        const std::string text = letter.text.c_str();
        EXPECT_NE(text.find(one.text), std::string::npos) << text;
        EXPECT_EQ(text.find("in deep sorrow"), 0U) << "a German's";
        EXPECT_NE(text.find("It was his first flight with us."), std::string::npos);
        EXPECT_EQ(text.find("victor"), std::string::npos) << "he had none: " << text;
        EXPECT_EQ(letter.date, 19170924);
        EXPECT_NE(std::string(letter.successor.c_str()).find("Otto von der Heydt"),
                  std::string::npos);
    }
}

TEST(CondolenceTest, KnowsWhetherSomebodyFollows) {
    Fallen record;
    SqliteFile& tables = record.tables();
    EXPECT_EQ(lastFallen(tables, record.career), Fallen::Player);
    EXPECT_FALSE(
        condolenceFor(tables, record.career, BookTables::instance(), Fallen::Player).hasSuccessor)
        << "not yet";
    Fallen later;
    later.career.pilots[Fallen::Player].shotdowns = 7;
    later.succeed();
    SqliteFile& followed = later.tables();
    EXPECT_EQ(lastFallen(followed, later.career), Fallen::Player);
    const Condolence letter =
        condolenceFor(followed, later.career, BookTables::instance(), Fallen::Player);
    EXPECT_TRUE(letter.hasSuccessor);
    EXPECT_NE(std::string(letter.text.c_str()).find("In one flight he won 7 victories."),
              std::string::npos);
    setDate(later.career, 1918, 11, 11);
    EXPECT_EQ(
        condolenceFor(followed, later.career, BookTables::instance(), Fallen::Player).successor,
        letter.successor)
        << "as on that day";
    later.career.pilots[Fallen::Successor].missions = 1;
    EXPECT_EQ(lastFallen(followed, later.career), -1) << "he flies";
    EXPECT_EQ(predecessorOf(followed, later.career, Fallen::Successor), Fallen::Player);
}

// The record lacks the flight in which he fell.
TEST(CondolenceTest, KnowsOnlyWhatTheRecordHas) {
    Fallen record;
    record.flight->reports[0].dead = 0;
    record.succeed();
    SqliteFile& tables = record.tables();
    const Condolence letter =
        condolenceFor(tables, record.career, BookTables::instance(), Fallen::Player);
    EXPECT_EQ(letter.date, 19170930) << "of the posting";
    const std::string text = letter.text.c_str();
    EXPECT_NE(text.find("from his last flight. It was"), std::string::npos) << text;
    record.career.player().alive = 0;
    setDate(record.career, 1918, 11, 11);
    EXPECT_EQ(
        condolenceFor(tables, record.career, BookTables::instance(), Fallen::Successor).successor,
        "The war is over. Nobody takes his place.");
}

// The board in every state: among the first, below them, without a victory, after a fall.
TEST(WarEndTest, PutsThePlayerOnTheBoard) {
    struct Case {
        int32_t victories;
        size_t rows;
        int32_t place; // of the last row
        bool isOwn, hasGap;
    };
    constexpr Case Cases[] = {{50, 11, 11, false, false},
                              {9, 11, 11, true, false},
                              {7, 11, 14, true, true},
                              {0, 11, 11, false, false}};
    for (const auto& [victories, rows, place, isOwn, hasGap] : Cases) {
        Fallen record;
        record.succeed();
        record.career.pilots[Fallen::Successor].missions = 3;
        record.career.pilots[Fallen::Successor].shotdowns = uint16_t(victories);
        squadronOf(record.career, Germany, {40, 38, 36, 34, 32, 30, 28, 26, 24, 8, 8, 8});
        setDate(record.career, 1918, 11, 11);
        const WarEnd end = readWarEnd(record.tables(), record.career, BookTables::instance());
        ASSERT_EQ(end.board.size(), rows) << victories;
        EXPECT_EQ(end.board.back().place, place) << victories;
        EXPECT_EQ(end.board.back().isOwn, isOwn) << victories;
        EXPECT_EQ(end.hasGap, hasGap) << victories;
        EXPECT_EQ(end.board.front().isOwn, victories == 50);
        EXPECT_EQ(end.pilot.pilot, Fallen::Successor);
        EXPECT_EQ(end.fallen, std::vector<int32_t>{Fallen::Player});
        const std::string lines = careerLines(end).c_str();
        EXPECT_NE(lines.find("Before him: "), std::string::npos);
        EXPECT_EQ(lines.find("You brought nobody down") != std::string::npos, victories == 0);
    }
    Fallen last;
    last.succeed();
    EXPECT_EQ(readWarEnd(last.tables(), last.career, BookTables::instance()).pilot.pilot,
              Fallen::Player);
}

} // namespace
