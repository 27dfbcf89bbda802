#include "app/book/Citation.h"

#include <gtest/gtest.h>

#include "app/book/BookTables.h"
#include "app/career/Nation.h"
#include "engine/core/Language.h"

namespace {

// A letter for each rank and each worn decoration, once, whatever day the search begins from.
TEST(CitationTest, BringsWhatWasGivenAfterADay) {
    PilotRecord pilot;
    pilot.name = "Edward Harcourt";
    pilot.nation = England;
    pilot.since = 19171001;
    pilot.until = 19180501;
    PilotService service{England, pilot.since, pilot.until, {{pilot.since, Branch::Navy}}, {}, {}};
    for (int32_t day = 1; day <= 25; day += 2)
        service.victories.push_back(19171100 + day);
    service.flights = service.victories;
    pilot.served = service;
    pilot.honours = honoursOf(service, BookTables::instance());

    std::string all;
    for (const Citation& one : citationsAfter(pilot, 0))
        all += std::to_string(one.date) + " " + one.title.c_str() + " " + one.picture + "; ";
    // Neither a mention nor a rank's new name in another service brings a letter.
    EXPECT_EQ(all, "19171110 Distinguished Service Cross dsc; 19180202 Flight Lieutenant star; ");
    const std::vector<Citation> after = citationsAfter(pilot, 19171110);
    ASSERT_EQ(after.size(), 1U);
    EXPECT_STREQ(after[0].pilot.c_str(),
                 "Flight Lieutenant Edward Harcourt DSC, Royal Naval Air Service.");
    const Citation first = citationsAfter(pilot, 19171109)[0];
    EXPECT_STREQ(first.text.c_str(),
                 "For conspicuous gallantry in the air: 5 victories in 5 flights.");
    EXPECT_STREQ(first.pilot.c_str(),
                 "Flight Sub-Lieutenant Edward Harcourt, Royal Naval Air Service.")
        << "not with the cross that it brings";
    EXPECT_STREQ(serviceName(England, Branch::Any, 19180401).c_str(), "Royal Air Force");
}

// An observer gets decorations for flights alone; the texts use the cases of their language.
TEST(CitationTest, CountsWithoutVictoriesAndInTheDative) {
    PilotRecord pilot;
    pilot.name = "Jean Roy";
    pilot.nation = France;
    pilot.since = 19170101;
    pilot.served = {France, pilot.since, 19170601, {}, {}, {}};
    for (int32_t day = 1; day <= 28; ++day)
        pilot.served.flights.push_back(19170200 + day);
    pilot.honours = honoursOf(pilot.served, BookTables::instance());
    ASSERT_FALSE(citationsAfter(pilot, 0).empty());
    EXPECT_STREQ(citationsAfter(pilot, 0)[0].text.c_str(),
                 "Cited in the order of the army: in 25 flights always ready to attack.");
    pilot.nation = pilot.served.nation = Germany;
    for (int32_t day = 1; day <= 12; ++day)
        pilot.served.victories.push_back(19170200 + day);
    pilot.honours = honoursOf(pilot.served, BookTables::instance());
    ASSERT_TRUE(zel::Language::load("de"));
    const std::vector<Citation> letters = citationsAfter(pilot, 0);
    EXPECT_NE(letters.back().text.view().find(" Fl\374gen"), std::string_view::npos)
        << letters.back().text.c_str();
    EXPECT_STREQ(serviceName(Germany, Branch::Army, 19170601).c_str(), "Deutsche Fliegertruppe");
    zel::Language::reset();
}

} // namespace
