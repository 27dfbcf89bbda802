#include "engine/graphics/ImageIndex.h"

#include <gtest/gtest.h>

#include "tests/support/Printers.h"

namespace {

using namespace std::string_literals;

zel::ImageIndex parse(std::string_view text, float scale = 1) {
    return zel::parseImageIndex(text, zel::LifetimeLong, scale);
}

/// The first frame of the only image of the text.
zel::FrameRect frame(const std::string& lines, float scale = 1) {
    const zel::ImageIndex index = parse("image a\n" + lines, scale);
    return index.images.size() == 1 ? index.images[0].frames.at(0) : zel::FrameRect{};
}

/// Numbers with commas between them.
std::string text(std::initializer_list<float> numbers) {
    std::string result;
    for (const float number : numbers)
        result += (result.empty() ? "" : ",") + zel::formatFloat(number);
    return result;
}

std::string text(const zel::FrameRect& rect) {
    return std::to_string(rect.x) + "," + std::to_string(rect.y) + "," +
           std::to_string(rect.width) + "," + std::to_string(rect.height);
}

/// Position, scale, rotation and handle.
std::string placing(const zel::ImageDescription& image) {
    return text({image.positionX, image.positionY, image.scaleX, image.scaleY, image.rotation,
                 image.handleX, image.handleY});
}

TEST(ImageIndex, ReadsRectangles) {
    EXPECT_EQ(text(frame("")), "-1,-1,-1,-1") << "the whole bitmap";
    EXPECT_EQ(text(frame("dims 10 20 30 40")), "10,20,30,40");
    EXPECT_EQ(text(frame("dims 10 20 30 40 mirrorx")), "40,20,-30,40");
    EXPECT_EQ(text(frame("dims 10 20 30 40 mirrory")), "10,60,30,-40");
    EXPECT_EQ(text(frame("dims 10 20 30 40 MirrorY mirrorx")), "40,60,-30,-40");
    EXPECT_EQ(text(frame("raster 16\nrdims 2 3 1 1")), "32,48,16,16");
    EXPECT_EQ(text(frame("raster 16 8\nrdims 1 1 2 2")), "16,8,32,16");
    EXPECT_EQ(text(frame("raster 16 0 4\nrdims 1 1 2 2")), "16,16,8,32") << "0 is missing";
    EXPECT_EQ(text(frame("rdims 5 6 7 8")), "5,6,7,8") << "the units are 1 at first";
    EXPECT_EQ(text(frame("dims  5 x 6")), "0,5,0,6") << "an empty argument, and no number";
    EXPECT_EQ(text(frame("dims 1 2")), "1,2,0,0");
    const auto frames = parse("image a\ndims 1 1 1 1\ndims 2 2 2 2").images.at(0).frames;
    ASSERT_EQ(frames.size(), 2u);
    EXPECT_EQ(frames[1].x, 2);
}

TEST(ImageIndex, ScalesRectangles) {
    EXPECT_EQ(text(frame("dims 10 20 30 45", 0.5F)), "5,10,15,23") << "rounded";
    EXPECT_EQ(text(frame("resolutionscale 2\ndims 1 2 3 4")), "2,4,6,8");
    EXPECT_EQ(text(frame("resolutionscale 2\nrdims 1 2 3 4")), "1,2,3,4");
    const auto images =
        parse("image a\ndims 1 1 1 1\nresolutionscale 3\ndims 1 1 1 1\nimage b").images;
    ASSERT_EQ(images.size(), 2u);
    EXPECT_EQ(images[0].frames[0].x, 1);
    EXPECT_EQ(images[0].frames[1].x, 3) << "for those that follow it";
    EXPECT_EQ(images[0].imageScale, 1);
    EXPECT_EQ(images[1].imageScale, 3);
    EXPECT_EQ(parse("image a", 0.5F).images.at(0).imageScale, 0.5F);
}

TEST(ImageIndex, ReadsHowAnImageIsPlaced) {
    const auto images = parse("image a\nposition 1.5 -2\nscale 2\nrotation 45\nhandle 3 4\n"
                              "lifetime persistent\nimage b\nscale 2 0\nimage c")
                            .images;
    ASSERT_EQ(images.size(), 3u);
    EXPECT_EQ(placing(images[0]), "1.5,-2,2,2,45,3,4");
    EXPECT_EQ(placing(images[1]), "0,0,2,0,0,0,0") << "each image begins again";
    EXPECT_EQ(placing(images[2]), "0,0,1,1,0,0,0");
    EXPECT_EQ(images[2].lifetime, zel::LifetimePersistent) << "but a lifetime stays";
    EXPECT_EQ(parse("lifetime forever\nimage a").images.at(0).lifetime, zel::LifetimeLong);
}

TEST(ImageIndex, NamesAndGroupsImages) {
    const auto index = parse("PREFIX plate_\r\nIMAGE back\r\n\r\nGroup plates\n\0image go\n"
                             "prefix\nimage go\nunknown line\nnothing"s);
    ASSERT_EQ(index.images.size(), 3u);
    EXPECT_EQ(index.images[0].name, "plate_back");
    EXPECT_EQ(index.images[1].name, "plate_go");
    EXPECT_EQ(index.images[2].name, "go");
    EXPECT_EQ(index.images[2].groupName, "plates");
    EXPECT_TRUE(index.groups.empty());
    EXPECT_TRUE(parse("dims 1 2 3 4\nimage\nscale 2").images.empty()) << "no name, no image";
}

TEST(ImageIndex, ReadsTransformsAndGroups) {
    const auto index = parse("image a\nanimframe 3 tx=5\nimagegroup all a  b\n"
                             "animframe 1 ty=2 a=0.5 b=-1 c=2 d=x\nanimation press 0 1 0.25\n"
                             "image b\nanimframe 0\nanimation late 2 3 4\nimagegroup more b");
    ASSERT_EQ(index.images.size(), 2u);
    const auto& transforms = index.images[0].transforms;
    ASSERT_EQ(transforms.size(), 4u);
    for (size_t i = 0; i < 3; ++i)
        EXPECT_FALSE(transforms[i].used) << i;
    EXPECT_TRUE(transforms[3].used);
    EXPECT_EQ(transforms[3].tx, 5);
    EXPECT_EQ(transforms[3].a, 1);
    ASSERT_EQ(index.images[1].transforms.size(), 1u) << "to the image again";
    EXPECT_FALSE(index.images[1].transforms[0].used);
    ASSERT_EQ(index.groups.size(), 2u);
    const auto& all = index.groups[0];
    EXPECT_EQ(all.name, "all");
    EXPECT_EQ(all.members, (std::vector<zel::String>{"a", "b"}));
    ASSERT_EQ(all.transforms.size(), 2u);
    EXPECT_EQ(all.transforms[1].a, 0.5F);
    EXPECT_EQ(all.transforms[1].d, 0);
    ASSERT_EQ(all.animations.size(), 2u) << "the group stays open until the next";
    EXPECT_EQ(all.animations[0].name, "press");
    EXPECT_EQ(all.animations[0].last, 1);
    EXPECT_EQ(all.animations[0].speed, 0.25F);
    EXPECT_EQ(all.animations[1].name, "late");
}

TEST(ImageIndex, KeepsToItsBounds) {
    EXPECT_EQ(text(frame("dims 99999999999 -99999999999 40000 1e9")), "32768,-32768,32768,1");
    EXPECT_EQ(text(frame("resolutionscale nan\ndims 1 1 1 1")), "0,0,0,0");
    EXPECT_EQ(text(frame("resolutionscale inf\ndims 1 1 1 1")), "0,0,0,0");
    EXPECT_EQ(text(frame("raster 2147483647\nrdims 2147483647 -2147483647 0 1")),
              "32768,-32768,0,32768");
    for (const char* number : {"2000000000", "4096", "-1", "99999999999999"})
        EXPECT_TRUE(parse("image a\nanimframe "s + number + " tx=1").images[0].transforms.empty())
            << number;
    EXPECT_EQ(parse("image a\nanimframe 4095").images[0].transforms.size(), 4096u);
    std::string many;
    for (int i = 0; i < 1000; ++i)
        many += "image a\nanimframe 4095\n";
    size_t transforms = 0;
    for (const auto& image : parse(many).images)
        transforms += image.transforms.size();
    EXPECT_EQ(transforms, 65536u) << "a small file doesn't make large lists";
}

} // namespace
