#include "engine/graphics/Canvas.h"

#include <gtest/gtest.h>

#include "tests/engine/graphics/Pictures.h"

namespace zel {

namespace {

constexpr DrawKey key(uint32_t texture) { return {texture, 0, 0, 0, 100, 100}; }

void add(DrawBatch& batch, uint32_t texture, const Rect& bounds) {
    batch.add(key(texture), bounds).push_back({bounds.x, bounds.y, 0, 0, 1, 2, 3, 4});
}

/// The textures of the runs, in order.
std::vector<uint32_t> runs(const DrawBatch& batch) {
    std::vector<uint32_t> textures;
    for (size_t index = 0; index < batch.size(); ++index)
        textures.push_back(batch[index].key.texture);
    return textures;
}
using Runs = std::vector<uint32_t>;

TEST(DrawBatch, JoinsWhatTouchesNothingBetween) {
    DrawBatch batch;
    add(batch, 1, {0, 0, 100, 100}); // a background
    add(batch, 2, {10, 10, 20, 10}); // a button
    add(batch, 3, {12, 12, 10, 5});  // its text
    add(batch, 2, {10, 40, 20, 10}); // another button
    add(batch, 3, {12, 42, 10, 5});  // its text
    EXPECT_EQ(runs(batch), (Runs{1, 2, 3}));
    add(batch, 2, {14, 10, 5, 5}); // a mark on the first button's text
    EXPECT_EQ(runs(batch), (Runs{1, 2, 3, 2})) << "it stays above the text";
    add(batch, 1, {300, 300, 5, 5});
    EXPECT_EQ(batch[0].vertices.size(), 2U);
}

TEST(DrawBatch, NeighboursThatFilteringBlendsCountAsTouching) {
    DrawBatch batch;
    add(batch, 1, {0, 0, 10, 10});
    add(batch, 2, {20, 0, 10, 10});
    add(batch, 1, {31, 0, 10, 10}); // one pixel beside it
    EXPECT_EQ(runs(batch), (Runs{1, 2, 1}));
}

TEST(DrawBatch, KeepsAnyNumberOfPieces) {
    DrawBatch batch;
    add(batch, 1, {0, 0, 5, 5});
    for (int32_t count = 0; count < 1000; ++count)
        add(batch, 2, {static_cast<float>(count * 10), 100, 5, 5});
    add(batch, 1, {7003, 102, 5, 5}); // between two of them, on one
    EXPECT_EQ(runs(batch), (Runs{1, 2, 1}));
    EXPECT_EQ(batch[1].vertices.size(), 1000U);
}

TEST(DrawBatch, KnowsTheSameFrameAgain) {
    DrawBatch first;
    DrawBatch second;
    for (DrawBatch* batch : {&first, &second}) {
        add(*batch, 7, {9, 9, 9, 9}); // left over from another frame
        batch->clear();
        add(*batch, 1, {0, 0, 5, 5});
        add(*batch, 2, {2, 2, 5, 5});
    }
    EXPECT_TRUE(first == second);
    add(second, 2, {50, 50, 5, 5});
    EXPECT_FALSE(first == second);
    add(first, 2, {50, 51, 5, 5});
    EXPECT_FALSE(first == second) << "as many, but elsewhere";
}

class CanvasTest : public testing::Test {
protected:
    CanvasTest() {
        EXPECT_TRUE(picture.assign(plainPicture(4, 4, 4, 255), "picture"));
        canvas.setRecorder(&list);
        canvas.clearWindow();
    }
    ~CanvasTest() override { canvas.setRecorder(nullptr); }

    Canvas& canvas = Canvas::getInstance();
    std::vector<Canvas::DrawRecord> list;
    Bitmap picture;
};

TEST_F(CanvasTest, DrawsNothingThatIsNotSeen) {
    canvas.fill({1, 2, 3, 4}, 0x00102030);
    canvas.setAlpha(0);
    canvas.draw(picture, {10, 10, 8, 8});
    canvas.setAlpha(300);
    EXPECT_EQ(canvas.getAlpha(), 255);
    canvas.draw(Bitmap(), {10, 10, 8, 8});
    canvas.draw(picture, std::vector<Quad>(), {0, 0});
    EXPECT_TRUE(list.empty());
    canvas.setAlpha(51);
    canvas.draw(picture, {10, 10, 8, 8}, 0x80FFFFFF);
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].argb, 0x1AFFFFFFU) << "a fifth of a half, rounded";
    canvas.setAlpha(255);
}

} // namespace

} // namespace zel
