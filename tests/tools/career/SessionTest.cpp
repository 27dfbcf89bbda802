#include "tools/career/Session.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "app/war/Invitations.h"
#include "standin/StandIn.h"
#include "tests/support/CareerInvariants.h"
#include "tests/support/PinnedRun.h"
#include "tests/support/Printers.h"
#include "tools/career/BookCommands.h"

namespace {

/// A quiet session over the delivered data.
struct SessionTest : testing::Test {
    void makeSimulator() const {
        tools::Finding finding;
        ASSERT_TRUE(standin::makeSimulatorFolder(run.simulatorFolder(), finding)) << finding.text();
    }
    /// Expects that the command failed, with one line that says so.
    void expectProblem(bool result, const char* part) const {
        const std::string problem(session.problem().view());
        EXPECT_FALSE(result) << part;
        EXPECT_NE(problem.find(part), std::string::npos) << problem;
        EXPECT_EQ(problem.find('\n'), std::string::npos) << problem;
    }

    PinnedRun run{11};
    Session session{true, 0};
    Database& career = *Database::instance();
};

TEST_F(SessionTest, ShowsTheRecordOfTheWar) {
    makeSimulator();
    const zel::String file = run.folder.file("record.json");
    expectProblem(session.flights(), "There is no career yet");
    expectProblem(session.writeBook(file), "There is no career yet");
    ASSERT_TRUE(session.newCareer({ServiceGerman, 1917, 3}) && session.mission() && session.fly() &&
                session.report())
        << session.problem().c_str();
    EXPECT_TRUE(session.flights() && session.victories("") && session.victories("von") &&
                session.postings() && session.showBook(logBookPage) &&
                session.showBook(diaryPage) && session.showBook(serviceRecord) && session.why(0) &&
                session.why(2))
        << session.problem().c_str();
    ASSERT_TRUE(session.exportRecord(file)) << session.problem().c_str();
    const std::string json = run.folder.read("record.json");
    for (const char* part : {"\n\"flight\": [\n{\"number\":1,\"date\":", "\"log\":\"missionReport(",
                             "\"kind\":\"landing\"", "\n\"victory\": [\n{\"id\":1,",
                             "\"cause\":\"replacement\"", "\"from_squadron\":null"})
        EXPECT_NE(json.find(part), std::string::npos) << part;
    expectProblem(session.exportRecord(run.folder.path()), "can't be written");
    ASSERT_TRUE(session.writeBook(run.folder.file("book.html"))) << session.problem().c_str();
    EXPECT_EQ(run.folder.read("book.html").find("<!DOCTYPE html>"), 0U);
    Session unrecorded(true, 0, false);
    ASSERT_TRUE(unrecorded.newCareer({ServiceGerman, 1915, 12}));
    EXPECT_FALSE(unrecorded.flights());
    EXPECT_EQ(unrecorded.problem(), "This call keeps no record");
}

// Nothing that isn't saved is lost by changing to another career or page.
TEST_F(SessionTest, ChangesBetweenCareers) {
    const auto take = [&](int32_t number) {
        return session.onShelf([=](ShelfCommands& shelf) { return shelf.take(number); });
    };
    const auto turnBack = [&](const char* page) {
        return session.onShelf([=](ShelfCommands& shelf) { return shelf.turnBack(page); });
    };
    expectProblem(turnBack("19160101"), "There is no current career");
    ASSERT_TRUE(session.newCareer({ServiceGerman, 1915, 12}) && session.save());
    const std::string first = career.player().name;
    const std::string page(career.calendar().dateText().view());
    ASSERT_TRUE(session.newCareer({ServiceFrench, 1915, 12}));
    expectProblem(take(1), "save it first");
    ASSERT_TRUE(session.save()) << session.problem().c_str();
    EXPECT_TRUE(session.onShelf(&ShelfCommands::careers) && session.onShelf(&ShelfCommands::pages));
    expectProblem(take(3), "There is no career number 3");
    ASSERT_TRUE(take(1)) << session.problem().c_str();
    expectProblem(session.save(), "There is no career yet");
    ASSERT_TRUE(session.load());
    EXPECT_EQ(career.player().name, first);
    ASSERT_TRUE(session.advance(1) && session.save() && session.advance(1));
    expectProblem(turnBack(page.c_str()), "save it first");
    ASSERT_TRUE(session.load());
    expectProblem(turnBack("19170101"), "There is no page 19170101");
    ASSERT_TRUE(turnBack(page.c_str()) && session.load()) << session.problem().c_str();
    EXPECT_EQ(career.calendar().dateText(), page);

    ASSERT_TRUE(session.advance(1) && session.save()) << session.problem().c_str();
    for (const char* lost : {"user/Saves/savegame_v03.wty", "user/Saves/savegame_v03.wty.bak"})
        ASSERT_TRUE(std::filesystem::remove(run.folder.file(lost)));
    expectProblem(session.load(), "pages lists the saves before it");
}

TEST_F(SessionTest, GoesOnUntilADay) {
    makeSimulator();
    ASSERT_TRUE(session.newCareer({ServiceFrench, 1916, 1}));
    ASSERT_TRUE(session.until(19160201)) << session.problem().c_str();
    EXPECT_GE(career.calendar().dateNumber(), 19160201);
    EXPECT_LT(career.calendar().dateNumber(), 19160220);
    career.year = 1918; // without the battles in between
    career.month = 10;
    ASSERT_TRUE(session.until(19191231));
    const int32_t end = career.calendar().dateNumber();
    EXPECT_GE(end, 19181111);
    EXPECT_LT(end, 19181130) << "the war ends, and the career with it";
    EXPECT_EQ(careerFaults(career), "");
    EXPECT_TRUE(session.until(19191231));
    EXPECT_EQ(career.calendar().dateNumber(), end);
    expectProblem(session.mission(), "The War is over!");
}

TEST_F(SessionTest, AnswersInvitations) {
    makeSimulator();
    ASSERT_TRUE(session.newCareer({ServiceGerman, 1917, 3}));
    for (int32_t i = 0; i < 20 && !invitationDue(career); ++i)
        ASSERT_TRUE(session.advance(1));
    const int32_t inviting = career.invitationSquadron;
    ASSERT_GE(inviting, 0);
    EXPECT_NE(career.player().squadron, inviting);
    ASSERT_TRUE(session.refuseInvitation());
    EXPECT_EQ(career.previousInvitation, inviting);
    for (const auto answer : {&Session::acceptInvitation, &Session::refuseInvitation})
        expectProblem((session.*answer)(), "No invitation waits");
    career.invitationYear = career.year - 1;
    career.invitationSquadron = inviting;
    ASSERT_TRUE(session.showInvitation());
    EXPECT_EQ(career.invitationSquadron, inviting) << "left unanswered it stays";
    ASSERT_TRUE(session.acceptInvitation()) << session.problem().c_str();
    EXPECT_EQ(career.player().squadron, inviting);
    EXPECT_EQ(careerFaults(career), "");
}

TEST_F(SessionTest, EnlistsWhomAndWhereItIsTold) {
    const auto start = [](const char* name, const char* key) {
        return CareerStart{ServiceGerman, 1917, 4, zel::String(name), zel::String(key)};
    };
    expectProblem(session.newCareer(start("max IMMELMANN", "501011")),
                  "There is an ace of this name: Max Immelmann");
    for (const char* key : {"102056", "501999", "Jasta 11", ""})
        expectProblem(session.newCareer(start("Emil Kurz", key)), "can be chosen in that month");
    EXPECT_EQ(career.calendar().dateNumber(), 19151201) << "no war is fought for it";
    ASSERT_TRUE(session.newCareer(start("Emil Kurz", "501011"))) << session.problem().c_str();
    EXPECT_EQ(zel::arrayText(career.player().name), "Emil Kurz");
    EXPECT_EQ(zel::arrayText(career.playerSquadron().key), "501011");
    const size_t lines = career.dataLines.size();
    EXPECT_TRUE(session.squadrons({ServiceFrench, 1916, 3}));
    EXPECT_EQ(career.dataLines.size(), lines);
    EXPECT_EQ(loadedCareerFaults(career), "");
}

TEST_F(SessionTest, NeedsACareer) {
    makeSimulator();
    for (const auto command :
         {&Session::save, &Session::status, &Session::mission, &Session::squadron, &Session::aces,
          &Session::showInvitation, &Session::acceptInvitation, &Session::refuseInvitation,
          &Session::report})
        expectProblem((session.*command)(), "There is no career yet");
    expectProblem(session.advance(1), "There is no career yet");
    expectProblem(session.until(19181111), "There is no career yet");
    expectProblem(session.load(), "No career could be loaded");
    expectProblem(session.fly(), "");
    EXPECT_EQ(run.save(), "");
}

TEST_F(SessionTest, NeedsTheSimulator) {
    ASSERT_TRUE(session.newCareer({ServiceFrench, 1915, 12}));
    for (const auto command : {&Session::mission, &Session::fly, &Session::report})
        expectProblem((session.*command)(), "Rise of Flight was not found");
    expectProblem(session.until(19181111), "Rise of Flight was not found");
    run.folder.write("sim/data/startup.cfg", "[KEY = system]\r\nmission_text_log = 0\r\n[END]\r\n");
    expectProblem(session.mission(), "writes no text log");
    EXPECT_TRUE(session.status()) << "everything else goes on";
    run.folder.write("sim/data/startup.cfg", "mission_text_log = 1\r\n");
    expectProblem(session.mission(), "can't be written to");
    EXPECT_EQ(career.calendar().dateNumber(), 19151201);
}

TEST_F(SessionTest, WaitsForALogInVain) {
    makeSimulator();
    ASSERT_TRUE(session.newCareer({ServiceFrench, 1915, 12}));
    ASSERT_TRUE(session.mission());
    expectProblem(session.report(), "No log of a finished flight");
    run.folder.write("sim/data/missionReport(x)[0].txt", "T:0 AType:15 VER:18\r\n");
    expectProblem(session.report(), "No log of a finished flight");
    EXPECT_EQ(career.calendar().dateNumber(), 19151201) << "the war waits with him";
    ASSERT_TRUE(session.fly());
    EXPECT_TRUE(session.report()) << session.problem().c_str();
}

} // namespace
