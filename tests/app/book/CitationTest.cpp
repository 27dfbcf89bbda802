#include "app/book/Citation.h"

#include <gtest/gtest.h>

#include "app/career/Nation.h"

namespace {

// A letter for each rank and each decoration that is worn, once, whatever day it is asked from.
TEST(CitationTest, BringsWhatWasGivenAfterADay) {
    PilotRecord pilot;
    pilot.name = "Edward Harcourt";
    pilot.nation = England;
    pilot.since = 19171001;
    pilot.until = 19180501;
    PilotService service{England, pilot.since, pilot.until, {{pilot.since, Branch::Navy}}, {}, {}};
    for (int32_t day = 1; day <= 25; day += 2) {
        pilot.flights.push_back(19171100 + day);
        pilot.victories.push_back({19171100 + day, "X", "albatrosd5", false});
        service.victories.push_back(19171100 + day);
    }
    service.flights = pilot.flights;
    pilot.victoryCount = 13;
    pilot.honours = honoursOf(service);

    std::string all;
    for (const Citation& one : citationsAfter(pilot, 0))
        all += std::to_string(one.date) + " " + one.title.c_str() + " " + one.picture + "; ";
    // Neither a mention nor a rank's new name in another service brings a letter.
    EXPECT_EQ(all, "19171110 Distinguished Service Cross dsc; 19180202 Flight Lieutenant star; ");
    const std::vector<Citation> after = citationsAfter(pilot, 19171110);
    ASSERT_EQ(after.size(), 1U);
    EXPECT_STREQ(after[0].pilot.c_str(),
                 "Flight Lieutenant Edward Harcourt DSC, Royal Naval Air Service.");
    EXPECT_STREQ(citationsAfter(pilot, 19171109)[0].text.c_str(),
                 "For conspicuous gallantry in the air: 5 victories in 5 flights.");
    EXPECT_STREQ(serviceName(England, Branch::Any, 19180401).c_str(), "Royal Air Force");
}

} // namespace
