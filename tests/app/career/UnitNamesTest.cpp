#include "app/career/UnitNames.h"

#include <gtest/gtest.h>

#include "tests/support/HandMade.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace {

// The names of all units of the war are compared with data/history in ShippedDataTest.
TEST(UnitNames, HaveTheirExceptions) {
    const std::pair<int32_t, const char*> names[] = {
        {-1, "(-1)"},          {101228, "(101228)"},  {101901, "1eme Esc de Chasse"},
        {103000, "(103000)"},  {103001, "1th Aero"},  {101903, "3eme Esc Observation"},
        {103011, "11th Aero"}, {103021, "21st Aero"}, {501301, "Marine-Feldjagdstaffel 1"},
        {501500, "FA 300"},    {501501, "(501501)"},
    };
    for (const auto& [number, name] : names) {
        EXPECT_EQ(unitName(number), name);
        EXPECT_EQ(hasUnitName(number), name[0] != '(') << number;
    }
}

TEST(UnitNames, TakeTheNumberFromTheFile) {
    const SmallWorld world;
    Database career;
    emptySquadron(career, Germany);
    addFile(career, "501011", {});
    for (const auto& [file, number] : {std::pair{0, 501011}, {1, -1}, {-1, -1}})
        EXPECT_EQ(unitNumber(career, file), number);
}

} // namespace
