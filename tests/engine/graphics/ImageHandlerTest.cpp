#include "engine/graphics/ImageHandler.h"

#include <gtest/gtest.h>

#include "engine/core/Log.h"
#include "tests/engine/graphics/Pictures.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

namespace {

class ImageHandlerTest : public testing::Test {
protected:
    ~ImageHandlerTest() override {
        handler.clear();
        handler.setFlags(0);
    }
    /// A picture of 8 x 4, and its index if there is one.
    zel::String picture(const std::string& name, const std::string& index = "") {
        if (!index.empty())
            folder.write(name + ".idx", index);
        return folder.write(name + ".zel", zelFile(8, 4, 24, std::string(96, 'p')));
    }

    TemporaryFolder folder;
    zel::ImageHandler& handler = zel::ImageHandler::getInstance();
};

TEST_F(ImageHandlerTest, RegistersWhatTheIndexNames) {
    const zel::String file = picture("sheet", "image one\ndims 1 1 2 2\nimage two\n");
    const LogCapture log(zel::LogInfo);
    ASSERT_TRUE(handler.loadBitmap(file));
    EXPECT_TRUE(log.holds("[ImageHandler] Loaded bitmap " + std::string(file.view()) + "\n"));
    const zel::Image* one = handler.getImage("one");
    ASSERT_NE(one, nullptr);
    EXPECT_EQ(one->frameRect(), (zel::FrameRect{1, 1, 2, 2}));
    EXPECT_EQ(handler.getImage("two")->frameRect(), (zel::FrameRect{0, 0, 8, 4}));
    EXPECT_EQ(&one->getBitmap(), &handler.getImage("two")->getBitmap());
    one->getBitmap().sleep();
    ASSERT_TRUE(handler.loadBitmap(file));
    EXPECT_EQ(handler.getImage("one"), one) << "not loaded twice";
    EXPECT_FALSE(one->getBitmap().isAsleep()) << "but read again before it is drawn";
    EXPECT_EQ(handler.getImage("One"), nullptr);
    EXPECT_TRUE(log.holds(" w "));
    EXPECT_TRUE(log.holds("[ImageHandler] Did not find image One"));
}

TEST_F(ImageHandlerTest, TakesABitmapWithoutIndexAsOneImage) {
    const zel::String file = picture("folder.d/plain");
    handler.setFlags(175);
    const LogCapture log(zel::LogInfo);
    ASSERT_TRUE(handler.loadBitmap(file, zel::LifetimeShort, 2));
    EXPECT_TRUE(log.holds("Loaded bitmap " + std::string(file.view()) + " (no .idx file)"));
    const zel::Image* image = handler.getImage(file);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->getBitmap().getData().width, 8) << "a power of two already";
    EXPECT_EQ(image->width(), 4) << "two pixels of the bitmap for one";
    EXPECT_EQ(handler.getFlags(), 175);
}

TEST_F(ImageHandlerTest, LoadsWhatIsAskedFor) {
    const zel::String waiting = picture("waiting", "image late");
    const zel::String plain = picture("plain");
    handler.getQueue().add(folder.path() + "/none.zel");
    handler.getQueue().add(waiting);
    handler.getQueue().add(waiting);
    const LogCapture log(zel::LogInfo);
    EXPECT_NE(handler.getImage("late"), nullptr) << "out of the queue";
    EXPECT_FALSE(handler.getQueue().hasWork());
    EXPECT_EQ(log.linesWith("is in the queue and exists"), 1);
    EXPECT_TRUE(log.holds("[BitmapLoadingQueue] " + std::string(waiting.view()) +
                          " is in the queue and exists"));
    EXPECT_TRUE(log.holds(" w "));
    EXPECT_TRUE(log.holds("/none.zel is in the queue but does not exist"));
    EXPECT_NE(handler.getImage(plain), nullptr) << "a file by its name";
    EXPECT_FALSE(log.holds("Did not find"));
    EXPECT_EQ(handler.getImage(waiting), nullptr) << "its index gave it other names";
    EXPECT_EQ(handler.getImage(""), nullptr);
}

TEST_F(ImageHandlerTest, FindsGroupsByTheirMembers) {
    ASSERT_TRUE(handler.loadBitmap(picture(
        "groups",
        "image a\nimage b\ngroup pair\nimage c\nimagegroup all c later a\nanimation n 1 2 3")));
    const zel::ImageGroup* pair = handler.getImageGroup("pair");
    ASSERT_NE(pair, nullptr);
    EXPECT_EQ(pair->getImages().size(), 2u);
    const zel::ImageGroup* all = handler.getImageGroup("all");
    ASSERT_NE(all, nullptr);
    ASSERT_EQ(all->getImages().size(), 2u);
    EXPECT_EQ(all->getImages()[0]->getName(), "c");
    EXPECT_NE(all->animation("n"), nullptr);
    EXPECT_EQ(all->animation("m"), nullptr);
    ASSERT_TRUE(handler.loadBitmap(picture("more", "image later")));
    EXPECT_EQ(handler.getImageGroup("all")->getImages().size(), 3u);
    const LogCapture log;
    EXPECT_EQ(handler.getImageGroup("none"), nullptr);
    EXPECT_TRUE(log.holds(" w "));
    EXPECT_TRUE(log.holds("[ImageHandler] Map did not find imagegroup none"));
}

TEST_F(ImageHandlerTest, KeepsImagesUntilItIsCleared) {
    const int64_t before = zel::Bitmap::systemMemory();
    ASSERT_TRUE(handler.loadBitmap(picture("first", "image same")));
    const zel::Image* first = handler.getImage("same");
    ASSERT_TRUE(handler.loadBitmap(picture("second", "image same\ndims 1 1 1 1")));
    EXPECT_NE(handler.getImage("same"), first) << "the last one of a name";
    EXPECT_EQ(first->width(), 8) << "the former is still there";
    first->getBitmap().textureMade(5, 1);
    handler.releaseShortLived();
    EXPECT_EQ(first->getBitmap().getTexture().handle, 0u);
    handler.getQueue().add("x");
    handler.clear();
    EXPECT_EQ(zel::Bitmap::systemMemory(), before);
    EXPECT_FALSE(handler.getQueue().hasWork());
}

TEST_F(ImageHandlerTest, TriesAndReportsEachNameOnce) {
    const zel::String broken = folder.write("broken.zel", "no picture");
    const zel::String none = folder.file("none.zel");
    const LogCapture log(zel::LogDebug);
    for (int32_t frame = 0; frame < 3; ++frame) {
        for (const zel::String& name : {broken, none, zel::String("late")})
            EXPECT_EQ(handler.getImage(name), nullptr) << name.view();
        EXPECT_FALSE(handler.loadBitmap(broken));
        EXPECT_FALSE(handler.loadBitmap(none));
    }
    EXPECT_EQ(log.linesWith("Did not find image"), 3);
    EXPECT_EQ(log.linesWith("Illegal ANY header"), 1);
    EXPECT_EQ(log.linesWith("none.zel does not exist"), 1);
    ASSERT_TRUE(handler.loadBitmap(picture("later", "image late")));
    EXPECT_NE(handler.getImage("late"), nullptr) << "a name that has come meanwhile";
    picture("broken");
    EXPECT_EQ(handler.getImage(broken), nullptr);
    handler.clear();
    EXPECT_NE(handler.getImage(broken), nullptr) << "repaired, and asked for again";
}

/// An image of a bitmap of 8 x 4.
class ImageTest : public testing::Test {
protected:
    ImageTest() { EXPECT_TRUE(bitmap.assign(plainPicture(8, 4, 3, 0), "eight by four")); }
    zel::Image image(const std::string& lines) const {
        return {bitmap, zel::parseImageIndex("image a\n" + lines, 0, 1).images.at(0)};
    }
    static void expect(const zel::ImageQuad& quad, const zel::Corner (&wanted)[4]) {
        for (int i = 0; i < 4; ++i) {
            EXPECT_NEAR(quad.corners[i].x, wanted[i].x, 1e-4) << i;
            EXPECT_NEAR(quad.corners[i].y, wanted[i].y, 1e-4) << i;
            EXPECT_EQ(quad.corners[i].u, wanted[i].u) << i;
            EXPECT_EQ(quad.corners[i].v, wanted[i].v) << i;
        }
    }
    zel::Bitmap bitmap;
};

TEST_F(ImageTest, StandsWithItsHandleWhereItIsDrawn) {
    expect(image("").quad(100, 50),
           {{100, 50, 0, 0}, {108, 50, 8, 0}, {108, 54, 8, 4}, {100, 54, 0, 4}});
    expect(image("dims 2 1 4 2\nhandle 2 1\nposition 10 20").quad(0, 0),
           {{8, 19, 2, 1}, {12, 19, 6, 1}, {12, 21, 6, 3}, {8, 21, 2, 3}});
    expect(image("dims 2 1 4 2 mirrorx").quad(0, 0),
           {{0, 0, 6, 1}, {4, 0, 2, 1}, {4, 2, 2, 3}, {0, 2, 6, 3}});
    expect(image("scale 2 3\nhandle 4 2").quad(0, 0),
           {{-8, -6, 0, 0}, {8, -6, 8, 0}, {8, 6, 8, 4}, {-8, 6, 0, 4}});
    expect(image("handle 4 2\nrotation 90").quad(0, 0),
           {{2, -4, 0, 0}, {2, 4, 8, 0}, {-2, 4, 8, 4}, {-2, -4, 0, 4}});
    expect(image("animframe 0 tx=1 b=1").quad(0, 0),
           {{1, 0, 0, 0}, {9, 0, 8, 0}, {13, 4, 8, 4}, {5, 4, 0, 4}});
}

TEST_F(ImageTest, StretchesIntoARectangle) {
    const zel::Image drawn = image("dims 2 1 4 2 mirrory\nscale 9\nhandle 1 1");
    expect(drawn.quadInto({10, 20, 100, 50}),
           {{10, 20, 2, 3}, {110, 20, 6, 3}, {110, 70, 6, 1}, {10, 70, 2, 1}});
    EXPECT_EQ(drawn.width(), 36);
    EXPECT_EQ(drawn.height(), 18);
}

} // namespace
