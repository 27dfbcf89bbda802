// The sample program on a real display: what the eye sees of it.
//
// The pictures in golden/ were made by this test, looked at, and kept. When one differs on purpose
// run the test, look at the new picture, which it leaves beside the program, and copy it over.
#include <cstdio>
#include <cstdlib>

#include <gtest/gtest.h>
#include <stb_image_write.h>

#include "engine/core/Platform.h"
#include "engine/core/Window.h"
#include "engine/graphics/Bitmap.h"
#include "engine/graphics/Canvas.h"
#include "engine/menu/HandledMenuExtension.h"
#include "engine/menu/Widget.h"
#include "tests/engine/menu/ScreenDriver.h"
#include "tests/engine/menu/TestApp.h"

namespace {

constexpr int32_t Width = 1024;
constexpr int32_t Height = 768;
// Other versions of the OpenGL library round differently at edges.
constexpr int32_t FarOff = 24;         // of 255, in any channel
constexpr double ShareAllowed = 0.005; // of the pixels may be that far off

class Looks : public zel::HandledMenuExtension {
public:
    Looks() : HandledMenuExtension("Looks") {}
    void onEnter() override { setActive("idle", false); }
};

bool isFarOff(const uint8_t* pixel, uint32_t golden) {
    for (int32_t channel = 0; channel < 3; ++channel) {
        const auto kept = static_cast<int32_t>(golden >> (16 - 8 * channel) & 0xFF);
        if (std::abs(pixel[channel] - kept) > FarOff)
            return true;
    }
    return false;
}

/// The share of pixels that are far off; 1 if the picture isn't there or of another size.
double difference(const std::vector<uint8_t>& pixels, const std::string& file) {
    zel::Bitmap golden;
    if (!golden.load(file, false) || golden.width() != Width || golden.height() != Height)
        return 1.0;
    int32_t off = 0;
    const uint8_t* pixel = pixels.data();
    for (int32_t y = 0; y < Height; ++y) {
        for (int32_t x = 0; x < Width; ++x, pixel += 3)
            off += isFarOff(pixel, golden.pixelAt(x, y));
    }
    return static_cast<double>(off) / (Width * Height);
}

class ScreenPictures : public testing::Test {
protected:
    ScreenPictures() {
        whenMenusAreLoaded() = [this] {
            zel::ZelLoop::registerPersistent(std::make_unique<Looks>());
            EXPECT_TRUE(zel::Window::create(Width, Height, 32)) << driver->log.text();
            zel::Window::current()->setSimulatedResolution(Width, Height, true);
        };
    }
    void start() {
        driver = std::make_unique<ScreenDriver>(SAMPLE_FOLDER);
        ASSERT_TRUE(driver->untilIdle("Start"));
    }
    std::vector<uint8_t> shot() {
        driver->step(); // draws
        driver->step(); // shows it and draws it again
        return zel::Canvas::getInstance().readPixels();
    }
    void expectPicture(const std::string& name) {
        const std::vector<uint8_t> pixels = shot();
        ASSERT_EQ(pixels.size(), static_cast<size_t>(Width) * Height * 3);
        const double share = difference(pixels, std::string(GOLDEN_FOLDER) + "/" + name + ".png");
        EXPECT_LE(share, ShareAllowed) << name;
        if (share <= ShareAllowed)
            return;
        const std::string file = std::string(NEW_PICTURES_FOLDER) + "/" + name + ".png";
        stbi_write_png(file.c_str(), Width, Height, 3, pixels.data(), Width * 3);
        std::fprintf(stderr, "written: %s\n", file.c_str());
    }
    void visit(const char* screen) {
        driver->press((std::string("to") + screen).c_str());
        ASSERT_TRUE(driver->untilIdle(screen));
        driver->moveTo(5, 5);
    }

    std::unique_ptr<ScreenDriver> driver;
};

} // namespace

TEST_F(ScreenPictures, AreTheKeptOnes) {
    start();
    driver->moveTo(5, 5);
    expectPicture("Start");
    for (const char* screen : {"Texts", "Places", "Painted"}) {
        visit(screen);
        expectPicture(screen);
        driver->press("menuBack");
        ASSERT_TRUE(driver->untilIdle("Start"));
    }
}

TEST_F(ScreenPictures, ShowEveryLook) {
    start();
    visit("Looks");
    const zel::Place place = driver->widget("shown")->getPlacing().place;
    driver->moveTo(place.x + 10, place.y + 10);
    driver->step();
    EXPECT_TRUE(driver->menu().hitWidget("own")); // its section removes it, and "bare" with it
    expectPicture("Looks");
    driver->press("button");
    driver->key(zel::KeyTab);
    expectPicture("LooksAfter");
}

TEST_F(ScreenPictures, ShowWhatScrolls) {
    start();
    visit("Moving");
    driver->press("name");
    for (const char letter : {'L', 'u', 'f', 'b', 'e', 'r', 'y'})
        driver->key(letter, letter);
    driver->moveTo(600, 100);
    for (int32_t wheel = 0; wheel < 2; ++wheel)
        driver->wheel(false);
    driver->moveTo(5, 5);
    expectPicture("Moving");
}

TEST_F(ScreenPictures, FollowTheWindow) {
    start();
    zel::Window::current()->resize(1200, 768);
    driver->moveTo(0, 0);
    shot();
    const std::vector<uint8_t> wide = shot();
    ASSERT_EQ(wide.size(), 1200U * Height * 3);
    const size_t middle = (Height / 2) * 1200U * 3;
    const size_t inBar = middle + 80U * 3;
    EXPECT_EQ(wide[inBar] + wide[inBar + 1] + wide[inBar + 2], 0) << "88 pixels at either side";
    const size_t inPicture = middle + 100U * 3;
    EXPECT_GT(wide[inPicture] + wide[inPicture + 1] + wide[inPicture + 2], 0);
    driver->pressAtWindow("toLooks", 88);
    EXPECT_TRUE(driver->untilIdle("Looks")) << "the mouse is where the picture is";
}
