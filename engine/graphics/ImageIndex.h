#pragma once

#include <string_view>
#include <vector>

#include "engine/core/String.h"

namespace zel {

/// How long an image's bitmap keeps its texture.
enum ImageLifetime : int32_t { LifetimeShort = 0, LifetimeLong = 1, LifetimePersistent = 2 };

/// A translation and a two-by-two matrix: x' = a x + b y + tx, y' = c x + d y + ty.
struct FrameTransform {
    bool used = false;
    float tx = 0, ty = 0;
    float a = 1, b = 0, c = 0, d = 1;
};

/// A rectangle of a bitmap in pixels, from the top left. A negative width or height extends
/// backwards from x or y: the frame is drawn mirrored. Four times -1 means the whole bitmap.
struct FrameRect {
    int32_t x, y, width, height;
};
constexpr FrameRect WholeBitmap = {-1, -1, -1, -1};
inline bool operator==(const FrameRect& a, const FrameRect& b) {
    return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}

/// The description of one image in an index file.
struct ImageDescription {
    String name;
    String groupName;                       // empty: in none
    std::vector<FrameRect> frames;          // at least one
    std::vector<FrameTransform> transforms; // by frame; may be shorter or longer
    float positionX = 0, positionY = 0;     // added to the position at which it is drawn
    float scaleX = 1, scaleY = 1;
    float rotation = 0;             // degrees, clockwise, around the handle
    float handleX = 0, handleY = 0; // the image's origin within it
    float imageScale = 1;           // bitmap pixels per pixel of the image
    int32_t lifetime = LifetimeShort;
};

/// An animation of a group: a stretch of its transforms.
struct AnimationEntry {
    String name;
    int32_t first = 0, last = 0; // indices of transforms
    float speed = 0;             // as in the file; nothing uses it
};

/// An image group: members that move together.
struct GroupDescription {
    String name;
    std::vector<String> members; // names of images
    std::vector<AnimationEntry> animations;
    std::vector<FrameTransform> transforms;
};

/// The content of an index file: what images a picture holds, and their groups.
struct ImageIndex {
    std::vector<ImageDescription> images; // in the order of the file
    std::vector<GroupDescription> groups;
};

constexpr int32_t MaxIndexSize = 1 << 22; // bytes of an index file

/// The name of a picture's index file: "a/b.idx" for "a/b.png".
String imageIndexName(const String& pictureFile);

/// Reads the text of an index file. Nothing in it is an error: unknown lines are ignored, and a bad
/// number counts as 0. scale: factor for the numbers of "dims" until the file sets its own.
/// docs/formats.md describes the file.
ImageIndex parseImageIndex(std::string_view text, int32_t lifetime, float scale);

} // namespace zel
