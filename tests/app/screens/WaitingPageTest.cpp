// What the page that waits for a flight says of the logs that it finds, look by look.
#include <filesystem>
#include <map>

#include "engine/menu/widgets/TextArea.h"
#include "tests/app/screens/CareerDriver.h"

namespace {

constexpr int32_t QuietLooks = 5; // until it gives up; the simulator writes at every fourth look
constexpr const char *Waits = "", *Grows = "growing", *Ended = "ended";

struct ByNumber {
    bool operator()(const std::string& a, const std::string& b) const {
        return a.size() != b.size() ? a.size() < b.size() : a < b;
    }
};
using Pieces = std::map<std::string, std::string, ByNumber>; // of a log

class WaitingPage : public CareerScreens {
protected:
    void SetUp() override {
        ASSERT_TRUE(driver.begin("menuButton3>MenuNewYear menuButton1>MenuNewCareer"));
        ASSERT_TRUE(driver.takeOff());
    }
    std::string path(const std::string& name) { return home.simulator + "/data/" + name; }
    void write(const std::string& name, const std::string& content) {
        home.folder.write(path(name), content);
    }
    /// The log's pieces and what is in them; the folder has none of them any more.
    Pieces takeLog() {
        Pieces pieces;
        for (const auto& entry : std::filesystem::directory_iterator(home.folder.file(path(""))))
            if (const std::string name = entry.path().filename().string();
                name.find("].txt") != name.npos)
                pieces[name] = home.folder.read(path(name));
        for (const auto& [name, content] : pieces)
            std::filesystem::remove(home.folder.file(path(name)));
        return pieces;
    }
    /// Which of its two lines the page shows; it never shows both.
    std::string shown() {
        const auto isShown = [&](const char* element) {
            const zel::TextArea* area = driver.screens->menu().getTextArea(element);
            return area != nullptr && area->isVisible() && !driver.text(element).empty();
        };
        EXPECT_FALSE(isShown(Grows) && isShown(Ended));
        return isShown(Grows) ? Grows : isShown(Ended) ? Ended : Waits;
    }
    std::string afterLook() {
        driver.look();
        EXPECT_EQ(driver.state(), "MenuGameFinishMission");
        return shown();
    }
    /// Expects that for so many looks, without a change of the logs.
    void expectQuietly(const std::string& line, int32_t looks) {
        for (int32_t look = 1; look <= looks; ++look)
            EXPECT_EQ(afterLook(), line) << "look " << look;
    }
};

TEST_F(WaitingPage, SaysThatTheFlightGoesOnUntilItIsOver) {
    expectQuietly(Waits, 2 * QuietLooks);
    ASSERT_TRUE(driver.fly());
    const Pieces pieces = takeLog();
    ASSERT_GE(pieces.size(), 4U);
    auto piece = pieces.begin();
    for (const char* line : {Waits, Grows, Grows}) { // of the first one alone it can't know
        write(piece->first, piece->second);
        expectQuietly(line, 4);
        ++piece;
    }
    for (; piece != pieces.end(); ++piece)
        write(piece->first, piece->second);
    EXPECT_TRUE(driver.comeBack());
}

TEST_F(WaitingPage, SaysThatTheSimulatorStoppedInFlight) {
    ASSERT_TRUE(driver.fly());
    const Pieces pieces = takeLog();
    ASSERT_FALSE(pieces.empty());
    const auto& [first, beginning] = *pieces.begin();
    for (const size_t length : {200U, 400U}) {
        write(first, beginning.substr(0, length));
        driver.look();
    }
    EXPECT_EQ(shown(), Grows);
    expectQuietly(Grows, QuietLooks - 1);
    expectQuietly(Ended, 3);
    write(first, beginning.substr(0, 600));
    EXPECT_EQ(afterLook(), Grows) << "it was only a rest";

    ASSERT_TRUE(driver.walk("menuBack>MenuGameMain"));
    ASSERT_TRUE(driver.takeOff());
    expectQuietly(Waits, QuietLooks + 1);
    for (const auto& [name, content] : pieces)
        write("again_" + name, content);
    EXPECT_TRUE(driver.comeBack()) << "flown again";
}

TEST_F(WaitingPage, GivesUpALogOfAnotherMission) {
    const std::string other = "T:0 AType:0 GDate:1917.4.12 MFile:other.msnbin\n";
    write("missionReport(2009-01-01_10-00-00)[0].txt", other);
    EXPECT_EQ(afterLook(), Waits);
    expectQuietly(Waits, QuietLooks - 1);
    EXPECT_EQ(afterLook(), Ended) << "also if it came whole";
    write("missionReport(2009-01-01_10-00-00)[1].txt", "T:9 AType:7\n");
    expectQuietly(Grows, QuietLooks);
    EXPECT_EQ(afterLook(), Ended);
    ASSERT_TRUE(driver.fly());
    EXPECT_TRUE(driver.comeBack());
}

} // namespace
