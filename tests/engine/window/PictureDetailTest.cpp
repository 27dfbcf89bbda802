// Pictures of two sizes, in a window that changes its size.
#include "engine/graphics/PictureDetail.h"

#include <tuple>

#include <gtest/gtest.h>

#include "engine/graphics/Canvas.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/window/Window.h"
#include "tests/engine/graphics/Pictures.h"
#include "tests/engine/window/Shot.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryFolder.h"

namespace zel {

namespace {

class PictureDetailTest : public testing::Test {
protected:
    PictureDetailTest() {
        for (const auto& [name, side, grey] : {std::tuple{"shown", 2, '\x40'},
                                               {"shown@2x", 4, '\x80'},
                                               {"single", 2, '\x20'},
                                               {"unseen", 2, '\x20'},
                                               {"unseen@2x", 4, '\x20'},
                                               {"other", 2, '\x20'},
                                               {"other@2x", 6, '\x30'}})
            folder.write(std::string(name) + ".zel",
                         zelFile(side, side, 24, std::string(size_t(side * side * 3), grey)));
        EXPECT_TRUE(Window::create(129, 129, 32));
        Window::current()->setSimulatedResolution(100, 100, true);
        PictureDetail::follow();
    }
    ~PictureDetailTest() override {
        ImageHandler::getInstance().clear();
        Window::destroy();
        PictureDetail::follow();
    }
    const Bitmap& bitmap(const char* name) {
        return ImageHandler::getInstance()
            .getImage(folder.path() + "/" + name + ".zel")
            ->getBitmap();
    }
    static void resize(int32_t side) {
        Window::current()->resize(side, side);
        PictureDetail::follow();
    }
    /// Shows a frame with two pictures. The colour of the first.
    uint32_t drawn() {
        canvas.clearWindow();
        canvas.draw(bitmap("shown"), {0, 0, 2, 2}, {0, 0, 50, 50});
        canvas.draw(bitmap("single"), {50, 0, 50, 50});
        const uint32_t color = Shot().at(10, 10);
        Window::current()->swapBuffers();
        PictureDetail::follow();
        return color;
    }

    const LogCapture log{LogInfo};
    const TemporaryFolder folder;
    Canvas& canvas = Canvas::getInstance();
};

TEST_F(PictureDetailTest, FollowsTheWindowsSize) {
    EXPECT_EQ(drawn(), 0xFF404040) << "1.29 window pixels per design pixel";
    const int64_t plain = Bitmap::systemMemory();
    static_cast<void>(bitmap("unseen"));
    static_cast<void>(bitmap("other"));
    resize(130);
    EXPECT_EQ(drawn(), 0xFF404040) << "no gap: what was there, until the other size is read";
    EXPECT_EQ(drawn(), 0xFF808080);
    for (int32_t i = 0; i < 3; ++i)
        drawn();
    EXPECT_EQ(bitmap("shown").width(), 2) << "in pixels of the design, as before";
    EXPECT_EQ(bitmap("single").getData().detail, 1);
    EXPECT_TRUE(bitmap("unseen").isAsleep() && bitmap("other").isAsleep());
    EXPECT_EQ(Bitmap::systemMemory(), plain + (4 * 4 - 2 * 2) * 3);
    EXPECT_FALSE(log.holds("single@2x")) << "no complaint where there is but one size";
    EXPECT_EQ(bitmap("unseen").pixelAt(3, 3), 0xFF202020) << "awake, and of the new size";
    EXPECT_EQ(bitmap("other").pixelAt(0, 0), 0xFF202020);
    EXPECT_TRUE(log.holds("other@2x.zel is 6 x 6, not twice as large as ")) << log.text();
    resize(129);
    for (int32_t i = 0; i < 4; ++i)
        drawn();
    EXPECT_EQ(drawn(), 0xFF404040);
    EXPECT_EQ(Bitmap::systemMemory(), plain);
}

// A depth that no card accepts is refused in the same way as a lack of memory.
TEST_F(PictureDetailTest, ShowsThePlainPictureWhereTheLargeOneIsRefused) {
    resize(130);
    Bitmap made;
    const auto making = [](int32_t detail) {
        BitmapData data = plainPicture(2 * detail, 2 * detail, detail > 1 ? 2 : 3, 0x40);
        data.detail = detail;
        return data;
    };
    ASSERT_TRUE(made.assign(making, "made"));
    for (int32_t twice = 0; twice < 2; ++twice) {
        canvas.clearWindow();
        canvas.draw(made, {0, 0, 2, 2}, {0, 0, 50, 50});
        EXPECT_EQ(Shot().at(10, 10), 0xFF404040);
        Window::current()->swapBuffers();
        made.sleep();
    }
    EXPECT_EQ(log.linesWith("Illegal depth: 2"), 1) << "not tried again";
}

} // namespace

} // namespace zel
