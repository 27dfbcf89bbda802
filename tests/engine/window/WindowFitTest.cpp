#ifdef _WIN32
#include <windows.h>
#endif

#include <gtest/gtest.h>

#include "engine/core/System.h"
#include "engine/window/Window.h"

namespace zel {

namespace {

using system::Extent;

TEST(WindowFit, KeepsTheShape) {
    const struct {
        Extent wanted, room, size;
        const char* what;
    } cases[] = {
        {{1024, 768}, {1280, 934}, {1024, 768}, "room enough"},
        {{1024, 768}, {1024, 768}, {1024, 768}, "just enough"},
        {{1024, 768}, {1366, 672}, {896, 672}, "too low: 672 / 3 * 4"},
        {{1024, 768}, {1366, 671}, {892, 669}, "in whole pixels of the shape"},
        {{1024, 768}, {800, 1000}, {800, 600}, "too narrow"},
        {{1000, 500}, {1366, 400}, {800, 400}, "another shape"},
        {{1024, 768}, {0, 0}, {1024, 768}, "unknown"},
        {{1024, 768}, {1366, 2}, {1024, 768}, "no room worth the name"},
    };
    for (const auto& [wanted, room, size, what] : cases) {
        const Extent fitting = fittingSize(wanted, room);
        EXPECT_EQ(fitting.width, size.width) << what;
        EXPECT_EQ(fitting.height, size.height) << what;
    }
}

#ifndef _WIN32
TEST(WindowFit, LeavesRoomForFrameAndBars) {
    const String before = system::environment("XDG_CURRENT_DESKTOP");
    system::setEnvironment("XDG_CURRENT_DESKTOP", "");
    EXPECT_EQ(system::roomForWindow({1366, 768}).height, 768) << "a bare display";
    system::setEnvironment("XDG_CURRENT_DESKTOP", "GNOME");
    EXPECT_EQ(system::roomForWindow({1366, 768}).width, 1366);
    EXPECT_LE(system::roomForWindow({1366, 768}).height, 768 - 90);
    EXPECT_EQ(system::roomForWindow({0, 0}).height, 0) << "unknown";
    system::setEnvironment("XDG_CURRENT_DESKTOP", before);
}
#else
TEST(WindowFit, LeavesRoomForFrameAndBars) {
    const Extent room = system::roomForWindow({});
    EXPECT_GT(room.height, 0);
    EXPECT_LE(room.height, GetSystemMetrics(SM_CYSCREEN) - GetSystemMetrics(SM_CYCAPTION));
    EXPECT_LT(room.width, GetSystemMetrics(SM_CXSCREEN));
}
#endif

} // namespace

} // namespace zel
