#include "app/book/OrdersText.h"

#include <gtest/gtest.h>

#include "app/book/PilotRecord.h"

namespace {

constexpr MapPoint Field = {213678, 59607}; // near Arras

TEST(OrdersText, SaysWhereTheFightIs) {
    struct {
        float north, east; // of the field
        const char* task;
        const char* legend;
    } const fights[] = {
        {0, 300, "Patrol over your field, and attack whatever comes.",
         "Red ring: the fight, over your field"},
        {15000, 0, "Patrol near Lens, 15 km north of your field, and attack whatever you meet.",
         "Red ring: the fight, 15 km north"},
        {-300, -20000,
         "Patrol near St. Pol, 20 km west of your field, and attack whatever you meet.",
         "Red ring: the fight, 20 km west"},
        {8000, 20000,
         "Patrol near Douai, 22 km east-north-east of your field, and attack whatever "
         "you meet.",
         "Red ring: the fight, 22 km east-north-east"},
        {-16000, -14000, "Patrol 21 km south-west of your field, and attack whatever you meet.",
         "Red ring: the fight, 21 km south-west"},
    };
    for (const auto& fight : fights) {
        const MapPoint place{Field.x + fight.north, Field.z + fight.east};
        EXPECT_EQ(taskText(Field, place, false), fight.task);
        EXPECT_EQ(fightText(Field, place), fight.legend);
    }
}

TEST(OrdersText, NamesThePlayerInHisColumn) {
    PilotRecord player;
    player.name = "Ernst Udet";
    EXPECT_EQ(rosterName(player, 25), "Ernst Udet (you)");
    player.name = "Friedrich von Falkenhausen";
    EXPECT_EQ(rosterName(player, 25), "F. von Falkenhausen (you)");
    EXPECT_EQ(rosterName(player, 16), "F. von ... (you)");
    RankRow rank;
    rank.shortName = "Flt Sub-Lt";
    player.honours.ranks.push_back({19170402, &rank});
    player.name = "Giles Bateman";
    EXPECT_EQ(rosterName(player, 27), "Flt Sub-Lt G. Bateman (you)");
    EXPECT_EQ(rosterName(player, 26), "Flt Sub-Lt Bateman (you)");
    EXPECT_EQ(rosterName(player, 23), "Giles Bateman (you)");
}

} // namespace
