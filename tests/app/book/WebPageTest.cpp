#include "app/book/WebPage.h"

#include <cstdlib>

#include <gtest/gtest.h>

#include "app/book/BookTables.h"
#include "app/career/Aircraft.h"
#include "engine/core/Language.h"
#include "tests/app/book/HandMadeRecord.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

namespace {

struct WebPageTest : testing::Test {
    WebPageTest() { initPlaneNames(); }
    ~WebPageTest() override { zel::Language::reset(); }

    /// Adds `count` flights; every second one brings a victory over a man of that name.
    void addFlights(int32_t count, const char* victim) {
        const FlightPlane own{0, 0, "Erich Sommer", "albatrosd3", Germany, 1};
        const FlightPlane other{30, 0, victim, "sopcamel", England, 1};
        for (int32_t i = 0; i < count; ++i) {
            FlownMission& flown =
                record.addFlight(19170101 + i / 28 % 9 * 100 + i % 28, {own, other});
            flown.reports[0].damage = 0.1F;
            flown.reports[0].injuryPercent = i % 7 == 0 ? 20 : 0;
            FlightEvent event;
            event.kind = FlightEventKind::Kill;
            event.seconds = 60;
            event.actor = 0;
            event.target = 1;
            event.hasPosition = true;
            event.x = 211000;
            event.z = 62000;
            if (i % 2 == 0) {
                record.credit(flown, 0, 1);
                flown.events.push_back(event);
            }
        }
    }
    /// The findings of the validator, none for a valid page. It doesn't run on Windows, where the
    /// page is the same.
    std::string findings([[maybe_unused]] const std::string& html) const {
#ifdef _WIN32
        return {};
#else
        const std::string file = folder.write("page.html", html);
        const std::string out = folder.file("findings.txt");
        // SVG has elements whose attributes the validator's HTML table doesn't know.
        const std::string command =
            "tidy -errors -quiet --mute PROPRIETARY_ATTRIBUTE \"" + file + "\" 2> \"" + out + "\"";
        EXPECT_EQ(std::system(command.c_str()) >> 8, 0) << folder.read("findings.txt");
        return folder.read("findings.txt");
#endif
    }
    static int32_t count(const std::string& text, const char* part) {
        int32_t found = 0;
        for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
            ++found;
        return found;
    }

    HandMadeRecord record;
    TemporaryFolder folder;
};

TEST_F(WebPageTest, IsValidInEveryLanguage) {
    addFlights(83, "Albert <Reed> & \"Son\"");
    for (const char* code : {"en", "de", "fr", "es", "it", "pl"}) {
        ASSERT_TRUE(zel::Language::load(code));
        const WebPage page = webPageOf(record.tables(), record.career, BookTables::instance());
        ASSERT_EQ(page.problem, "");
        EXPECT_EQ(findings(page.html), "") << code;
        EXPECT_NE(page.html.find(std::string("<html lang=\"") + code), std::string::npos);
        EXPECT_EQ(count(page.html, "<tr class=\"won\">"), 42);
        EXPECT_EQ(count(page.html, "Albert &lt;Reed&gt; &amp; &quot;Son&quot;</td>"), 42);
        EXPECT_EQ(count(page.html, "<Reed>"), 0) << "a name is text, whatever it holds";
        for (const char* foreign : {"<script", "http:", "https:", "url(", "<img", "{{"})
            EXPECT_EQ(count(page.html, foreign), 0) << foreign;
        EXPECT_EQ(count(page.html, "<svg "), 1 + 3 + 1 + 1 + 2)
            << "emblem, charts, a ribbon, machines, sketches";
        EXPECT_EQ(count(page.html, "<title>"), count(page.html, "<desc>") + 1);
    }
}

TEST_F(WebPageTest, ShowsAFlightWithoutAVictory) {
    addFlights(1, "Albert Reed");
    record.events.flights[0].mission.reports[0].kills.clear();
    record.events.flights[0].mission.reports[1].shotdownBy = -1;
    const WebPage page = webPageOf(record.tables(), record.career, BookTables::instance());
    EXPECT_EQ(findings(page.html), "");
    EXPECT_EQ(count(page.html, "id=\"victories\""), 0);
}

TEST_F(WebPageTest, NamesTheBestMonthOfTheLastPilot) {
    addFlights(5, "Albert Reed");
    setDate(record.career, 1918, 3, 5);
    record.credit(record.addFlight(19180301, {{1, 0, "Otto von der Heydt", "fokkerdr1", Germany, 1},
                                              {30, 0, "Albert Reed", "sopcamel", England, 1}}),
                  0, 1);
    const std::string html = webPageOf(record.tables(), record.career, BookTables::instance()).html;
    EXPECT_EQ(count(html, "<span>best month</span> <b>Mar 1918, 1</b>"), 1);
}

TEST_F(WebPageTest, IsntWrittenWithoutAFlightOrWithoutARecord) {
    const WebPage page = webPageOf(record.tables(), record.career, BookTables::instance());
    EXPECT_EQ(page.html, "");
    EXPECT_EQ(page.problem, "There is no flight yet");
    EXPECT_TRUE(record.file.run("DROP TABLE flight_report"));
    const WebPage unreadable = webPageOf(record.file, record.career, BookTables::instance());
    EXPECT_EQ(unreadable.html, "");
    EXPECT_EQ(unreadable.reason, "The record of the war can't be read.");
}

} // namespace
