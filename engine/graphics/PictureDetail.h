#pragma once

#include <cstdint>

#include "engine/core/String.h"

namespace zel {

class Bitmap;
struct PictureSize;

/// How many pixels pictures have per design pixel: one, or two in a window that is much larger than
/// the design. Screens don't notice: sizes, index files and fonts are in pixels of the design at
/// each detail. Main thread only.
class PictureDetail {
public:
    static constexpr int32_t Plain = 1;
    static constexpr int32_t Doubled = 2;

    /// The detail for that many window pixels per design pixel: doubled from 1.3 on.
    static int32_t forScale(float scale);
    /// The present detail; plain until follow() has found a larger window.
    static int32_t get() { return present; }
    /// Adapts to the canvas. Call this before pictures are loaded, and after each frame. After a
    /// change the pictures on the screen are made again, one a call, then the pixels of all others
    /// are freed until they are needed. Until then what was there is drawn.
    static void follow();
    /// The file with the picture at twice the size: "a/b@2x.png" for "a/b.png".
    static String doubledName(const String& pictureFile);
    /// What is wrong with the size of such a file: "is 5 x 4, not twice as large as a/b.png"; empty
    /// if nothing.
    static String doubledFault(const PictureSize& doubled, const String& pictureFile);

    // For bitmaps with a source.
    static void add(const Bitmap& bitmap);
    static void remove(const Bitmap& bitmap);

private:
    static int32_t present;
    static bool isChanging;      // some bitmaps are stale
    static int32_t framesBefore; // that had been sent at the change
};

} // namespace zel
