#include "app/book/Honours.h"

#include <gtest/gtest.h>

#include "app/book/BookTables.h"
#include "app/book/CsvFile.h"
#include "app/career/Calendar.h"
#include "app/career/Nation.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using Days = std::vector<int32_t>;

/// `count` days from the first one on, `step` days apart.
Days every(int32_t step, int32_t first, int32_t count) {
    Days days;
    for (Calendar day = Calendar::ofNumber(first); count > 0; --count, day.addDays(step))
        days.push_back(day.dateNumber());
    return days;
}

std::string shown(const Honours& honours) {
    std::string text;
    for (const RankGiven& one : honours.ranks)
        text += std::to_string(one.date) + " " + one.rank->name.c_str() + "; ";
    for (const AwardGiven& one : honours.awards)
        text += std::to_string(one.date) + " " + one.award->key + "; ";
    return text;
}

// The days follow from the figures of awards.csv and ranks.csv.
struct ServiceCase {
    const char* what;
    PilotService service;
    const char *honours, *title, *shortTitle;
};
const ServiceCase Cases[] = {
    {"nothing yet",
     {England, 19160901, 19160901, {}, {}, {}},
     "19160901 Second Lieutenant; ",
     "Second Lieutenant A. B",
     "2nd Lt A. B"},
    // A cross takes at least five flights; with 12 victories ranks take half the time.
    {"a quick one",
     {England, 19170409, 19170910, {}, every(7, 19170418, 12), every(4, 19170409, 40)},
     "19170409 Second Lieutenant; 19170710 Lieutenant; 19170810 Captain; "
     "19170426 mention; 19170517 mc; 19170614 mcbar; 19170705 dso; ",
     "Captain A. B DSO MC",
     "Capt A. B DSO MC"},
    // Without victories: twice as long. Bread and butter: 20 flights.
    {"a patient one",
     {England, 19160101, 19170601, {}, {}, every(8, 19160101, 30)},
     "19160101 Second Lieutenant; 19170102 Lieutenant; 19170502 Captain; 19160602 mention; ",
     "Captain A. B",
     "Capt A. B"},
    {"a naval pilot in the new service",
     {England,
      19170901,
      19180701,
      {{19151201, Branch::Navy}},
      every(5, 19170903, 6),
      every(5, 19170903, 60)},
     "19170901 Flight Sub-Lieutenant; 19180401 Lieutenant; 19180502 Captain; "
     "19170924 mention; 19170924 dsc; ",
     "",
     ""},
    {"the last day counts as the day after",
     {Germany, 19170101, 19170105, {}, {19170105}, {19170105}},
     "19170101 Leutnant; ",
     "Leutnant A. B",
     "Lt A. B"},
    {"from the ranks",
     {France, 19170301, 19171230, {}, every(6, 19170303, 8), every(6, 19170303, 50)},
     "19170301 Caporal; 19170402 Sergent; 19170602 Adjudant; 19171202 Sous-lieutenant; "
     "19170304 croix; 19170328 communique; 19170328 medaille; 19171202 legion; ",
     "Sous-lieutenant A. B",
     "S-Lt A. B"},
    {"of another kind of people, whose flights nobody knows",
     {Germany, 19161001, 19170301, {}, every(4, 19161003, 22), {}, false},
     "19161001 Leutnant; 19161004 cup; 19161004 iron2; 19161016 iron1; 19161113 house; "
     "19161219 merite; ",
     "Leutnant A. B",
     "Lt A. B"},
};

TEST(HonoursTest, FollowFromTheDaysOfAService) {
    for (const auto& [what, service, honours, title, shortTitle] : Cases) {
        const Honours given = honoursOf(service, BookTables::instance());
        EXPECT_EQ(shown(given), honours) << what;
        if (*title != '\0') {
            EXPECT_STREQ(titleOf(given, "A. B").c_str(), title) << what;
            EXPECT_STREQ(shortTitleOf(given, "A. B").c_str(), shortTitle) << what;
        }
    }
}

// A Flight Sub-Lieutenant is above a Second Lieutenant by the tables.
TEST(HonoursTest, AnotherBranchPromotesNobody) {
    const Honours given = honoursOf({England,
                                     19170401,
                                     19171201,
                                     {{19170401, Branch::Army}, {19170501, Branch::Navy}},
                                     {},
                                     {},
                                     false},
                                    BookTables::instance());
    EXPECT_EQ(shown(given), "19170401 Second Lieutenant; 19170502 Flight Sub-Lieutenant; ");
    EXPECT_TRUE(given.promotions().empty());
}

// However a service is cut into periods, it brings the same: a later day only adds.
TEST(HonoursTest, NeverChangeWhatWasGiven) {
    for (const int32_t nation : {England, France, Germany, Usa}) {
        PilotService service{nation,
                             19171001,
                             19181111,
                             {{19171001, Branch::Navy}, {19180115, Branch::Army}},
                             every(9, 19171005, 40),
                             every(4, 19171001, 90)};
        const std::string whole = shown(honoursOf(service, BookTables::instance())).c_str();
        const Honours last = honoursOf(service, BookTables::instance());
        for (Calendar day(1917, 10, 1); day.dateNumber() < 19181111; day.addDays(5)) {
            service.until = day.dateNumber();
            const Honours then = honoursOf(service, BookTables::instance());
            ASSERT_LE(then.ranks.size(), last.ranks.size());
            ASSERT_LE(then.awards.size(), last.awards.size());
            for (size_t i = 0; i < then.ranks.size(); ++i)
                EXPECT_TRUE(then.ranks[i].date == last.ranks[i].date &&
                            then.ranks[i].rank->name == last.ranks[i].rank->name)
                    << nation << " " << service.until << "\n"
                    << shown(then) << "\n"
                    << whole;
            for (size_t i = 0; i < then.awards.size(); ++i)
                EXPECT_TRUE(then.awards[i].award == last.awards[i].award &&
                            then.awards[i].date == last.awards[i].date)
                    << nation << " " << service.until;
        }
    }
}

TEST(BookTablesTest, AreWhole) {
    const LogCapture lines;
    const BookTables tables("Data\\Book\\");
    EXPECT_EQ(lines.linesWith("[Book]"), 0) << lines.text();
    EXPECT_EQ(tables.aces.size(), 873U);
    EXPECT_EQ(tables.victories.size(), 5146U);
    EXPECT_EQ(tables.ranks.size(), 34U - 1U);
    for (const AwardRow& award : tables.awards)
        EXPECT_TRUE(award.after.empty() || tables.award(award.after) != nullptr) << award.key;
    // Richthofen: 80 in all, 52 at the end of April 1917, the first on 17 September 1916.
    const RealAce* richthofen = tables.ace("Manfred von Richthofen");
    ASSERT_NE(richthofen, nullptr);
    EXPECT_EQ(BookTables::realScore(*richthofen, 19160916), 0);
    EXPECT_EQ(BookTables::realScore(*richthofen, 19170430), 52);
    EXPECT_EQ(BookTables::realScore(*richthofen, 19181111), 80);
    EXPECT_EQ(tables.ace("Nobody"), nullptr);
}

TEST(CsvFileTest, ReportsBadRowsAndGoesOn) {
    const TemporaryFolder folder;
    const LogCapture lines;
    CsvFile table(
        folder.write("t.csv", "a,b\r\n1,\"x, \"\"y\"\"\"\r\n\r\n2\n3,\"open\n4,G\xC3\xA9\nsix,\n")
            .c_str(),
        "a,b");
    std::string rows;
    while (table.next())
        rows += std::to_string(table.number(0)) + "=" + table.text(1) + ";";
    EXPECT_EQ(rows, "1=x, \"y\";4=G\xE9;0=;");
    EXPECT_EQ(table.number(1), 0);
    EXPECT_TRUE(lines.holds("line 4") && lines.holds("line 5")) << lines.text();
    EXPECT_TRUE(lines.holds("line 7: \"six\" is not a number")) << lines.text();
    EXPECT_FALSE(lines.holds("\"\"")) << "an empty field is none";
    EXPECT_FALSE(CsvFile(folder.file("t.csv").c_str(), "a,c").next());
    EXPECT_TRUE(lines.holds("must begin with")) << lines.text();
}

} // namespace
