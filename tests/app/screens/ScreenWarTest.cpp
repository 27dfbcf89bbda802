#include <algorithm>

#include <gtest/gtest.h>

#include "app/book/BookTables.h"
#include "app/book/Diary.h"
#include "app/book/LogBookText.h"
#include "app/book/LogBookWording.h"
#include "app/book/SavedHonours.h"
#include "app/book/ServiceText.h"
#include "app/book/ServiceWording.h"
#include "app/book/WarEnd.h"
#include "app/book/WebPage.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/career/Nation.h"
#include "app/career/SaveSummary.h"
#include "app/career/Wording.h"
#include "app/record/Sqlite.h"
#include "engine/menu/widgets/Widget.h"
#include "tests/app/screens/CareerDriver.h"

namespace {

std::vector<int32_t> scores() {
    std::vector<int32_t> all;
    for (const Pilot& pilot : Database::instance()->pilots)
        all.push_back(pilot.shotdowns);
    return all;
}

size_t count(const std::string& text, const std::string& part) {
    size_t found = 0;
    for (size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1))
        ++found;
    return found;
}

/// The figures of a pilot's own page are those of the save, to the last victory.
PilotRecord expectSums(SqliteFile& record, int32_t pilot) {
    const Database& career = *Database::instance();
    PilotRows rows;
    PilotRecord page = readPilot(record, career, BookTables::instance(), pilot, &rows);
    EXPECT_EQ(page.victories.size(), career.pilot(pilot).shotdowns) << page.name.c_str();
    int32_t machines = 0;
    for (const MachineCount& machine : machinesOf(page))
        machines += machine.count;
    EXPECT_EQ(machines, career.pilot(pilot).shotdowns) << page.name.c_str();
    return page;
}

/// before: the scores at the last flight.
void expectSums(SqliteFile& record, const std::vector<int32_t>& before) {
    const Database& career = *Database::instance();
    const LogBook book = readLogBook(record, career, BookTables::instance());
    const WarEnd end = readWarEnd(record, career, BookTables::instance());
    std::vector<int32_t> own = end.fallen;
    own.push_back(end.pilot.pilot);
    int32_t victories = 0;
    size_t flights = 0;
    for (const int32_t pilot : own) {
        const PilotRecord page = expectSums(record, pilot);
        victories += career.pilot(pilot).shotdowns;
        flights += page.flights.size();
        const zel::String flown = countText(wording::FlightsFlown, int32_t(page.flights.size()));
        EXPECT_NE(flyingText(page).view().find((" " + flown).view()), std::string_view::npos)
            << "the save also counts missions that nobody flew";
        const auto last = std::find_if(book.flights.rbegin(), book.flights.rend(),
                                       [&](const BookFlight& one) { return one.pilot == pilot; });
        ASSERT_NE(last, book.flights.rend());
        EXPECT_EQ(last->total, career.pilot(pilot).shotdowns) << page.name.c_str();
    }
    EXPECT_EQ(book.victories, victories);
    EXPECT_EQ(book.flights.size(), flights);
    EXPECT_EQ(careerLines(end).view().find(
                  countText(wording::BookFlights, int32_t(end.pilot.flights.size())).view()),
              0U);
    std::vector<StandingRow> lists = aceRows(career, BookTables::instance(), 10);
    for (const auto& list : {rosterRows(career, BookTables::instance()), end.board})
        lists.insert(lists.end(), list.begin(), list.end());
    for (const StandingRow& row : lists)
        EXPECT_EQ(size_t(row.victories), expectSums(record, row.pilot).victories.size());
    const std::string html = webPageOf(record, career, BookTables::instance()).html;
    EXPECT_EQ(count(html, "<th scope=\"row\""), flights + size_t(victories));
    EXPECT_NE(html.find(countText(wording::Victories, victories).c_str()), html.npos);
    for (const DiaryLine& line : readDiary(record, career, BookTables::instance()).squadron)
        if (line.sign == DiarySign::Scored && line.pilot != end.pilot.pilot) {
            const int32_t now = career.pilot(line.pilot).shotdowns;
            const int32_t won =
                now - (size_t(line.pilot) < before.size() ? before[size_t(line.pilot)] : 0);
            EXPECT_NE(line.text.view().find(countText(wording::Victories, won).view()),
                      std::string_view::npos)
                << line.text.c_str();
        }
}

} // namespace

// After almost three years without play.
TEST(ScreenWar, IsJoinedInItsLastMonths) {
    const PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(
        driver.begin("menuButton3>MenuNewYear menuButton4>MenuNewMonth1918 month10>MenuEnlist"));
    EXPECT_NE(driver.text("date").find("-October-1918"), std::string::npos);
    EXPECT_EQ(Database::instance()->playerSquadron().nation, Germany);
}

// Every period of a war, from orders to report, through the screens.
TEST(ScreenWar, LastsUntilTheArmistice) {
    const PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(driver.begin("menuButton1>MenuNewYear menuButton1>MenuEnlist"));
    standin::FlightOptions flight;
    int32_t missions = 0;
    int32_t most = 0; // of one of the players
    std::vector<int32_t> lastScores;
    while (!isWarOver(*Database::instance())) {
        const int32_t before = Database::instance()->calendar().dateNumber();
        lastScores = scores();
        ASSERT_TRUE(driver.takeOff());
        flight.seed = uint32_t(++missions);
        ASSERT_TRUE(driver.fly(flight));
        ASSERT_TRUE(driver.comeBack());
        most = std::max<int32_t>(most, Database::instance()->player().missions);
        ASSERT_GT(Database::instance()->calendar().dateNumber(), before);
    }
    EXPECT_FALSE(driver.widget("menuButton1")->isActive());
    EXPECT_GT(missions, 80);
    EXPECT_GT(most, 0);
    ASSERT_TRUE(driver.walk("menuBack>MenuMain menuButton2>MenuGameMain"));
    const zel::String file = home.folder.file("user/Saves/record.db");
    SqliteFile record;
    ASSERT_TRUE(record.open(file, SqliteFile::ReadOnly));
    expectSums(record, lastScores);
    const Database& career = *Database::instance();
    const PilotRecord player =
        readPilot(record, career, BookTables::instance(), career.playerPilot);
    const Honours shelved = savedHonours(
        file, summaryOf(home.folder.file("user/Saves/savegame_v03.wty")), BookTables::instance());
    EXPECT_STREQ(titleOf(shelved, player.name).c_str(),
                 titleOf(player.honours, player.name).c_str());
    EXPECT_EQ(shelved.awards.size(), player.honours.awards.size());
    EXPECT_EQ(driver.text("menuButton1"), "The War is over!");
}
