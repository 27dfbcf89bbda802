// What is drawn of two screens while they fade into each other.
#include <algorithm>
#include <fstream>

#include <gtest/gtest.h>

#include "engine/core/StateOverlay.h"
#include "engine/core/StatesMachine.h"
#include "engine/graphics/Canvas.h"
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

int32_t alphaOf(const Canvas::Record& record) { return static_cast<int32_t>(record.argb >> 24); }

/// Two screens, A and B, that begin with A; and what each frame of the fade draws.
class Fade : public testing::Test {
protected:
    void start(const char* list, const std::string& a, const std::string& b) {
        driver = std::make_unique<ScreenDriver>(
            std::initializer_list<ScreenDriver::Script>{{"A", a.c_str()}, {list, b.c_str()}});
        for (const char* name : {"desk", "lamp", "plate", "papersA", "papersB"})
            std::ofstream(name, std::ios::binary) << zelFile(1, 1, 24, "dot");
        ASSERT_TRUE(driver->untilIdle("A"));
    }

    /// The draw lists of the frames in which both screens are seen.
    std::vector<std::vector<Canvas::Record>> fadeTo(const char* state) {
        StatesMachine& machine = StatesMachine::getInstance();
        machine.setActiveState(machine.getState(state));
        std::vector<std::vector<Canvas::Record>> frames;
        std::vector<Canvas::Record> records;
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

/// The alphas of all calls that draw the picture, in their order.
std::vector<int32_t> alphas(const std::vector<Canvas::Record>& frame, const char* picture) {
    std::vector<int32_t> found;
    for (const Canvas::Record& record : frame) {
        if (record.name == picture)
            found.push_back(alphaOf(record));
    }
    return found;
}

using Alphas = std::vector<int32_t>;

} // namespace

TEST_F(Fade, LeavesTheSharedDeskAlone) {
    // The second list's B is drawn on top: it comes up over A, and dissolves from above it.
    for (const char* list : {"B", "B alpha"}) {
        start(list, screen(Office, "setmenuoverlay bg papersA\n"),
              screen("", "setmenuoverlay bg papersB\n"));
        for (const char* target : {"B", "A"}) {
            std::vector<int32_t> coming;
            for (const std::vector<Canvas::Record>& frame : fadeTo(target)) {
                EXPECT_EQ(alphas(frame, "desk"), Alphas{255}) << list << " to " << target;
                EXPECT_EQ(alphas(frame, "lamp"), Alphas{255}) << list << " to " << target;
                EXPECT_EQ(frame.front().name, "desk") << list << " to " << target;
                EXPECT_EQ(frame.back().name, "lamp") << list << " to " << target;
                int32_t papers = 0;
                for (const Canvas::Record& record : frame)
                    papers +=
                        record.name == "papersA" || record.name == "papersB" ? alphaOf(record) : 0;
                EXPECT_EQ(papers, 255) << "one goes as the other comes";
                int32_t buttons = 0;
                for (const int32_t alpha : alphas(frame, "plate"))
                    buttons += alpha;
                EXPECT_EQ(buttons, 255) << "widgets as well";
                const Alphas now = alphas(frame, *target == 'A' ? "papersA" : "papersB");
                coming.push_back(now.empty() ? 0 : now.front());
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
    for (const std::vector<Canvas::Record>& frame : fadeTo("B")) {
        EXPECT_EQ(alphas(frame, "papersA"), Alphas{255});
        const Alphas now = alphas(frame, "papersB");
        coming.push_back(now.empty() ? 0 : now.front());
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
    for (const std::vector<Canvas::Record>& frame : fadeTo("B"))
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
