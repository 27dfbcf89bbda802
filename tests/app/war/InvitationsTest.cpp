#include "app/war/Invitations.h"

#include <gtest/gtest.h>

#include "app/career/InvitationSchedule.h"
#include "app/war/InvitationLetter.h"
#include "tests/support/Draws.h"
#include "tests/support/HandMade.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace {

/// A French player, the only man of squadron 0, with these victories, on 1 January 1916, when his
/// countrymen fly nothing but the Nieuport 11. An invitation may come.
struct InvitedCareer {
    explicit InvitedCareer(int32_t shotdowns = 0) {
        squadronOf(career, France, {shotdowns});
        setDate(career, 1916, 1, 1);
        career.invitationYear = 1915;
        career.invitationMonth = 12;
    }
    int32_t due() const { return career.invitationYear * 100 + career.invitationMonth; }

    SmallWorld world;
    LogCapture lines;
    Database career;
};

TEST(Invitations, AreScheduledOverTheEndsOfYears) {
    const struct {
        int32_t year, month, ahead, due;
    } cases[] = {{1917, 10, 1, 191711}, {1917, 11, 1, 191712},  {1917, 12, 1, 191801},
                 {1915, 12, 4, 191604}, {1915, 12, 13, 191701}, {1916, 1, 30, 191807},
                 {1916, 6, 6, 191612},  {1916, 6, 0, 191606}};
    InvitedCareer test;
    for (const auto& [year, month, ahead, due] : cases) {
        setDate(test.career, year, month, 30);
        test.career.invitationSquadron = 3;
        scheduleInvitation(test.career, ahead);
        EXPECT_EQ(test.due(), due);
        EXPECT_EQ(test.career.invitationSquadron, -2);
    }
    EXPECT_TRUE(test.lines.holds("PROGRESS INVITATION DATE TO 1918/7\n")) << test.lines.text();
}

TEST(Invitations, AreLookedForWhenTheirMonthHasCome) {
    InvitedCareer test;
    squadronOf(test.career, France, {14});
    const zel::Random before = zel::sharedRandom();

    test.career.invitationYear = 1916;
    test.career.invitationMonth = 2;
    EXPECT_FALSE(invitationDue(test.career));
    EXPECT_EQ(test.lines.text(), "NEXT INVITATION: 1916/2\n");
    test.career.invitationSquadron = 1;
    EXPECT_FALSE(invitationDue(test.career)) << "also a pending one waits for its month";
    test.career.invitationMonth = 1;
    EXPECT_TRUE(invitationDue(test.career)) << "the day doesn't count";
    EXPECT_TRUE(test.lines.holds("CURRENT DATE: 1916/1\n"));
    EXPECT_EQ(drawsBetween(before, zel::sharedRandom()), 0);

    test.career.invitationSquadron = -2;
    EXPECT_TRUE(invitationDue(test.career));
    EXPECT_EQ(test.career.invitationSquadron, 1);
    EXPECT_EQ(drawsBetween(before, zel::sharedRandom()), 600);
}

TEST(Invitations, ArePutOffWhenNoneIsFound) {
    for (const int32_t state : {-1, -2}) { // no search; a search in vain
        InvitedCareer test;
        test.career.invitationSquadron = state;
        zel::Random draws = zel::sharedRandom();
        EXPECT_FALSE(invitationDue(test.career));
        for (int32_t i = 0; state == -2 && i < 600; ++i)
            draws.next();
        const int32_t latest = draws.getInt(2, 4);
        EXPECT_EQ(test.due(), 191601 + draws.getInt(1, latest));
        EXPECT_EQ(test.career.invitationSquadron, -2);
        EXPECT_EQ(drawsBetween(draws, zel::sharedRandom()), 0);
    }
}

TEST(Invitations, WeighTheFiveBestOfASquadron) {
    const SmallWorld world;
    Database career;
    squadronOf(career, Germany, {14});
    squadronOf(career, Germany, {1, 4, 10, 2, 8, 6});
    emptySquadron(career, Germany);
    EXPECT_FLOAT_EQ(squadronStrength(career, 0), 5.0F);
    EXPECT_FLOAT_EQ(squadronStrength(career, 1), (10 * 5 + 8 * 4 + 6 * 3 + 4 * 2 + 2 * 1) / 14.0F);
    EXPECT_EQ(squadronStrength(career, 2), 0);
    EXPECT_EQ(squadronStrength(career, -1), 0);
    career.pilots[0].alive = 0; // a dead man's victories count until his slot is given away
    EXPECT_FLOAT_EQ(squadronStrength(career, 0), 5.0F);
}

// One pilot's victories weigh 5/14; the bar is 5, his victories, and the first five of them again.
TEST(Invitations, ComeFromSquadronsThatWouldHaveHim) {
    const struct { int32_t shotdowns, strongest; } cases[] = {{0, 14}, {3, 30}, {5, 42}, {7, 47}};
    for (const auto& [shotdowns, strongest] : cases) {
        InvitedCareer test(shotdowns);
        squadronOf(test.career, France, {strongest});
        EXPECT_EQ(pickInvitationSquadron(test.career), 1) << shotdowns;
        test.career.pilots[1].shotdowns = static_cast<uint16_t>(strongest + 1);
        EXPECT_EQ(pickInvitationSquadron(test.career), -1) << shotdowns;
    }
}

TEST(Invitations, PreferNamesAndTheTypeOfTheDay) {
    InvitedCareer test;
    for (const int32_t shotdowns : {14, 9, 1, 0})
        squadronOf(test.career, France, {shotdowns});
    squadronOf(test.career, Germany, {10});
    addFile(test.career, "101300", {}); // a number without a unit
    addFile(test.career, "101301", {"date=19151201 aircraft=nieuport11"});
    addFile(test.career, "101002", {"date=19151201 aircraft=dh2"});
    addFile(test.career, "101003", {"date=19170101 aircraft=Nieuport11"});
    addFile(test.career, "101004", {"date=19151201 aircraft=nieuport11"});
    addFile(test.career, "501005", {"date=19151201 aircraft=nieuport11"});

    std::vector<int32_t> order;
    for (int32_t i = 0; i < 5; ++i) {
        const zel::Random before = zel::sharedRandom();
        const int32_t found = pickInvitationSquadron(test.career);
        EXPECT_EQ(drawsBetween(before, zel::sharedRandom()), 600);
        order.push_back(found);
        if (found >= 0)
            test.career.squadrons[static_cast<size_t>(found)].nation = England;
    }
    EXPECT_EQ(order, (std::vector<int32_t>{3, 4, 2, 1, -1}))
        << "a name and the type by strength, a name, the type; never another nation's";
}

TEST(Invitations, NeverComeTwiceFromTheSquadronRefusedLastNorFromAnEqual) {
    InvitedCareer test(4);
    squadronOf(test.career, France, {4});
    for (int32_t i = 0; i < 8; ++i)
        EXPECT_EQ(pickInvitationSquadron(test.career), -1) << "his own came first";
    test.career.pilots[1].shotdowns = 6;
    squadronOf(test.career, France, {5});
    for (const auto& [refused, inviting] : {std::pair{-2, 1}, {1, 2}, {2, 1}}) {
        test.career.previousInvitation = refused;
        EXPECT_EQ(pickInvitationSquadron(test.career), inviting);
    }
}

TEST(InvitationLetter, NamesTheLeaderAndTheAces) {
    const struct {
        std::vector<int32_t> shotdowns; // of the inviting squadron's pilots 1, 2, ...
        const char* key;                // 101300 is a number without a unit
        const char* start;
        int32_t sum;
    } cases[] = {
        {{}, "101003", "You have been invited to join Esc 3.", 0},
        {{}, "101300", "You have been invited to join a new squadron.", 0},
        {{4, 7, 4}, "101300", "Pilot 2 has invited you to join his squadron.", 15},
        {{5, 9, 4},
         "101003",
         "Pilot 2 has invited you to join Esc 3. The squadron also includes the ace Pilot 1.",
         18},
        {{5, 9, 6, 0, 8},
         "101003",
         "Pilot 2 has invited you to join Esc 3. The squadron also includes the following aces: "
         "Pilot 5, Pilot 3 and Pilot 1.",
         28},
    };
    for (const auto& [shotdowns, key, start, sum] : cases) {
        InvitedCareer test;
        squadronOf(test.career, France, shotdowns);
        addFile(test.career, "101300", {});
        addFile(test.career, key, {});
        test.career.invitationSquadron = 1;
        InvitationLetter letter;
        EXPECT_TRUE(letter.open(test.career));
        EXPECT_EQ(letter.text(), zel::String(start) +
                                     " The pilots of the new squadron have a total number of " +
                                     sum + " shotdowns. Will you accept the invitation?");
    }
}

TEST(InvitationLetter, StaysPendingWithNobodyToChangePlacesWith) {
    InvitedCareer test;
    emptySquadron(test.career, France);
    test.career.invitationSquadron = 1;
    InvitationLetter letter;
    ASSERT_TRUE(letter.open(test.career));
    EXPECT_FALSE(letter.accept(test.career));
    EXPECT_EQ(test.career.invitationSquadron, 1);
    EXPECT_EQ(test.due(), 191512);
    test.career.invitationSquadron = -1;
    EXPECT_FALSE(letter.open(test.career)) << "none is pending";
    EXPECT_EQ(letter.text(), "");
    EXPECT_FALSE(letter.accept(test.career));
}

TEST(InvitationLetter, ChangesThePlaceOfThePlayerOrRemembersARefusal) {
    for (uint32_t seed = 1; seed <= 24; ++seed) {
        const bool accepts = seed % 2 == 0;
        InvitedCareer test;
        squadronOf(test.career, France, {1, 0, 3});
        test.career.invitationSquadron = 1;
        zel::Random::setStaticNumber(seed);
        InvitationLetter letter;
        zel::Random draws(seed); // the letter's own
        ASSERT_TRUE(letter.open(test.career));
        if (accepts)
            ASSERT_TRUE(letter.accept(test.career));
        else
            letter.refuse(test.career);
        EXPECT_EQ(test.career.squadrons[0].slots[0], accepts ? 2 : 0) << "the worst of the three";
        EXPECT_EQ(test.career.squadrons[1].slots[1], accepts ? 0 : 2);
        EXPECT_EQ(test.career.player().squadron, accepts ? 1 : 0);
        EXPECT_EQ(test.career.pilots[2].squadron, accepts ? 0 : 1);
        EXPECT_EQ(test.career.previousInvitation, accepts ? -2 : 1);
        EXPECT_EQ(test.career.invitationSquadron, -2);
        const int32_t upper = accepts ? 6 : draws.getInt(3, 6);
        const int32_t lower = draws.getInt(1, 3);
        EXPECT_EQ(test.due(), 191601 + draws.getInt(lower, upper));
        EXPECT_TRUE(!accepts || !letter.accept(test.career)) << "it is answered";
    }
}

} // namespace
