// Goes through the program and writes pictures of the screens named into a folder, for the
// documents; of a window of another size than the design's if there is one.
#include <algorithm>
#include <cstdio>

#include <gtest/gtest.h>

#include "engine/window/Platform.h"
#include "engine/window/Window.h"
#include "tests/app/screens/CareerDriver.h"
#include "tests/app/screens/ScreenTour.h"
#include "tests/engine/menu/GoldenPicture.h"

constexpr int Quality = 68; // of the JPEG: they come with every package

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: screenshots FOLDER [WIDTHxHEIGHT] SCREEN...\n");
        return 2;
    }
    int width = 0, height = 0;
    const bool hasSize = std::sscanf(argv[2], "%dx%d", &width, &height) == 2;
    const std::vector<std::string> wanted(argv + (hasSize ? 3 : 2), argv + argc);
    testing::InitGoogleTest();
    const std::string folder = argv[1];
    const PlayerHome home;
    CareerDriver driver(home, 1, true);
    bool written = driver.screens->untilIdle("MenuMain");
    if (hasSize)
        zel::Window::current()->resize(width, height);
    const auto visit = [&](const std::string& name) {
        if (std::find(wanted.begin(), wanted.end(), name) == wanted.end())
            return;
        const Picture picture = driver.shot();
        written = !picture.pixels.empty() &&
                  writePicture(folder + "/" + name + ".jpg", picture, Quality) && written;
    };
    return tourScreens(driver, visit) && written ? 0 : 1;
}
