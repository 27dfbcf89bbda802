// What is drawn of two screens while they fade into each other.
#include <algorithm>
#include <fstream>
#include <numeric>

#include <gtest/gtest.h>

#include "engine/graphics/Canvas.h"
#include "engine/window/StateOverlay.h"
#include "engine/window/StatesMachine.h"
#include "tests/engine/graphics/Pictures.h"
#include "tests/engine/menu/ScreenDriver.h"
#include "tests/support/Printers.h"

using namespace zel;

namespace {

constexpr const char* Office = R"(
theme.definetheme office
theme.definebackgroundimage desk
theme.defineforegroundimage lamp
theme.definewidgetimage button plate all
layout.definelayout l
layout.definewidget b button
layout.definewidgetsize 100 40
)";

std::string screen(const char* definitions, const char* entering) {
    return std::string("init:\n") + definitions + "preload:\nsettheme office\nsetlayout l\n" +
           entering + "onenter:\naddwidget b\nsetlocalflag entered on\n";
}

/// Two screens, A and B, that begin with A; and what each frame of the fade draws.
class Fade : public testing::Test {
protected:
    void start(const char* list, const std::string& a, const std::string& b) {
        driver = std::make_unique<ScreenDriver>(
            std::initializer_list<ScreenDriver::Script>{{"A", a}, {list, b}});
        for (const char* name : {"desk", "lamp", "plate", "papersA", "papersB"})
            std::ofstream(name, std::ios::binary) << zelFile(1, 1, 24, "dot");
        ASSERT_TRUE(driver->untilIdle("A"));
    }

    /// The draw lists of the frames in which both screens are seen.
    std::vector<std::vector<Canvas::DrawRecord>> fadeTo(const char* state) {
        StatesMachine& machine = StatesMachine::getInstance();
        machine.setActiveState(machine.getState(state));
        std::vector<std::vector<Canvas::DrawRecord>> frames;
        std::vector<Canvas::DrawRecord> records;
        Canvas::getInstance().setRecorder(&records);
        while (!machine.isSettled()) {
            driver->step();
            if (machine.getPhase() != StatesMachine::CrossFade)
                continue;
            machine.render();
            frames.push_back(records);
        }
        Canvas::getInstance().setRecorder(nullptr);
        EXPECT_GT(frames.size(), 5U);
        return frames;
    }

    std::unique_ptr<ScreenDriver> driver;
};

using Alphas = std::vector<int32_t>;

/// The alphas of all calls that draw a picture whose name begins with that, in order.
Alphas alphas(const std::vector<Canvas::DrawRecord>& frame, std::string_view picture) {
    Alphas found;
    for (const Canvas::DrawRecord& record : frame) {
        if (record.name.rfind(picture, 0) == 0)
            found.push_back(static_cast<int32_t>(record.argb >> 24));
    }
    return found;
}

int32_t sum(const Alphas& values) { return std::accumulate(values.begin(), values.end(), 0); }

} // namespace

TEST_F(Fade, LeavesTheSharedDeskAlone) {
    // The second list's B is drawn on top: it comes up over A, and dissolves from above it.
    for (const char* list : {"B", "B alpha"}) {
        start(list, screen(Office, "setmenuoverlay bg papersA\n"),
              screen("", "setmenuoverlay bg papersB\n"));
        for (const char* target : {"B", "A"}) {
            std::vector<int32_t> coming;
            for (const std::vector<Canvas::DrawRecord>& frame : fadeTo(target)) {
                EXPECT_EQ(alphas(frame, "desk"), Alphas{255}) << list << " to " << target;
                EXPECT_EQ(alphas(frame, "lamp"), Alphas{255}) << list << " to " << target;
                EXPECT_EQ(frame.front().name, "desk") << list << " to " << target;
                EXPECT_EQ(frame.back().name, "lamp") << list << " to " << target;
                EXPECT_EQ(sum(alphas(frame, "papers")), 255) << "one goes as the other comes";
                EXPECT_EQ(sum(alphas(frame, "plate")), 255) << "widgets as well";
                coming.push_back(sum(alphas(frame, std::string("papers") + target)));
            }
            EXPECT_TRUE(std::is_sorted(coming.begin(), coming.end())) << list << " to " << target;
            EXPECT_LT(coming.front(), 64);
            EXPECT_GT(coming.back(), 191);
        }
        driver.reset();
    }
}

TEST_F(Fade, CountsAScreenOnceThoughItWasOvertaken) {
    start("B", screen(Office, "setmenuoverlay bg papersA\n"), screen("", ""));
    StatesMachine& machine = StatesMachine::getInstance();
    State* a = machine.getActiveState();
    const StateOverlay* papers = a->getBackgroundOverlay();
    for (const char* target : {"B", "A"}) { // back before A was left
        machine.setActiveState(machine.getState(target));
        driver->step();
        driver->step();
    }
    ASSERT_TRUE(driver->untilIdle("A"));
    EXPECT_EQ(papers->getUserCount(), 1);
}

TEST_F(Fade, BringsUpUnsharedPicturesOverTheOldOnes) {
    const auto bare = [](const char* entering) {
        return std::string("onenter:\n") + entering + "setlocalflag entered on\n";
    };
    start("B", bare("setmenuoverlay bg papersA\n"), bare("setmenuoverlay bg papersB\n"));
    std::vector<int32_t> coming;
    for (const std::vector<Canvas::DrawRecord>& frame : fadeTo("B")) {
        EXPECT_EQ(alphas(frame, "papersA"), Alphas{255});
        coming.push_back(sum(alphas(frame, "papersB")));
    }
    EXPECT_TRUE(std::is_sorted(coming.begin(), coming.end()));
    EXPECT_GT(coming.back(), 191);
}

TEST_F(Fade, SharesOverlaysOfScripts) {
    constexpr const char* Shared = "onenter:\nsetmenuoverlay bg desk ignoreaspectratio\n"
                                   "setmenuoverlay fg none\nsetlocalflag a on\n";
    start("B", Shared, Shared);
    StateOverlay* desk = driver->menu().getBackgroundOverlay();
    ASSERT_NE(desk, nullptr);
    EXPECT_EQ(desk->getUserCount(), 1);
    EXPECT_TRUE(driver->log.holds("[Menu] setMenuOverlay background image none does not exist"));
    for (const std::vector<Canvas::DrawRecord>& frame : fadeTo("B"))
        EXPECT_EQ(alphas(frame, "desk"), Alphas{255});
    EXPECT_EQ(driver->menu().getBackgroundOverlay(), desk);
    EXPECT_EQ(desk->getUserCount(), 1);
    driver->menu().setMenuOverlay(true, "papersA", {});
    EXPECT_EQ(desk->getUserCount(), 0);
    const StateOverlay* papers = driver->menu().getBackgroundOverlay();
    EXPECT_EQ(papers->getUserCount(), 1);
    fadeTo("A");
    EXPECT_EQ(papers->getUserCount(), 0);
    EXPECT_EQ(desk->getUserCount(), 1);
    EXPECT_EQ(driver->log.linesWith("Duplicate MenuOverlay"), 0);
}
