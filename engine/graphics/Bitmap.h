#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "engine/core/String.h"

namespace zel {

/// The order of the three colours in a pixel; a fourth byte is always alpha.
enum class ChannelOrder : uint8_t { Rgb, Bgr };

/// Longest side of a picture, in pixels, that any reader accepts.
constexpr int32_t MaxPictureSide = 8192;

/// The result of a reader: a buffer of pixels with the picture in it.
///
/// Row 0 is the bottom line, as OpenGL takes it; rows follow one another without padding. Where the
/// buffer is larger than the picture, the picture is in the last rows and at the start of each, and
/// the rest is 0; so line y of the picture, counted from the top, is row height - 1 - y.
struct BitmapData {
    int32_t width = 0; // of the buffer
    int32_t height = 0;
    int32_t pictureWidth = 0; // of the picture in it
    int32_t pictureHeight = 0;
    int32_t depth = 0;  // bytes per pixel: 3 or 4
    int32_t detail = 1; // picture pixels per design pixel, along either side
    ChannelOrder order = ChannelOrder::Rgb;
    std::vector<uint8_t> pixels;

    /// Makes it a clear picture of that size. powerOfTwo: the buffer's sides become powers of two,
    /// as graphics cards before OpenGL 2.0 need them.
    void allocate(int32_t newWidth, int32_t newHeight, int32_t newDepth, bool powerOfTwo);
    size_t rowSize() const { return static_cast<size_t>(width) * static_cast<size_t>(depth); }
    /// A line of the picture, counted from the top. REQUIRES: 0 <= y < pictureHeight.
    const uint8_t* line(int32_t y) const {
        return pixels.data() + static_cast<size_t>(height - 1 - y) * rowSize();
    }
    uint8_t* line(int32_t y) {
        return pixels.data() + static_cast<size_t>(height - 1 - y) * rowSize();
    }
    /// The same as ARGB: one number a pixel, pictureWidth of them. Alpha is 255 where the picture
    /// has none. REQUIRES: 0 <= y < pictureHeight.
    void lineArgb(int32_t y, uint32_t* result) const;
};

/// A size in pixels.
struct PictureSize {
    int32_t width = 0;
    int32_t height = 0;
};
/// The size of a picture file according to its header; nothing is decoded. 0 by 0 if no reader
/// accepts it.
PictureSize pictureSizeOf(const String& fileName);

/// One picture: its pixels in memory, and a texture once it has been drawn.
///
/// The pixels need no window. The canvas makes the texture at the first drawing, reports it by
/// textureMade(), and sets the function that releases it.
///
/// A bitmap with a source can be made again: it follows PictureDetail, and its pixels may be freed
/// until something needs them.
class Bitmap {
public:
    /// Makes the picture at a detail, or at 1 if it has no other. On error: log lines, and a
    /// picture without pixels.
    using PixelSource = std::function<BitmapData(int32_t detail)>;

    Bitmap() = default;
    virtual ~Bitmap();
    Bitmap(const Bitmap&) = delete;
    Bitmap& operator=(const Bitmap&) = delete;

    /// Reads the file by the first reader that accepts its header: ZEL, BMP, and then everything
    /// that stb_image decodes. powerOfTwo: the buffer's sides become powers of two.
    /// On error: false and a log line; the bitmap is without pixels, and drawing it draws nothing.
    bool load(const String& fileName, bool powerOfTwo);
    /// Likewise, in the size that PictureDetail wants: NAME@2x.png instead of NAME.png at twice the
    /// detail, if there is one, whose sides never become powers of two.
    bool loadFollowing(const String& fileName, bool powerOfTwo);
    /// Why the last load() failed: "no such file", "too large: ..." and the like; empty if it
    /// didn't.
    const String& getError() const { return error; }
    /// Takes a picture made in memory; `name` replaces the file name. On error (a depth other than
    /// 3 and 4, a side out of range, a buffer of another size): false and a log line.
    bool assign(BitmapData newData, const String& name);
    /// Likewise, made by a source at the present detail and after each change of it.
    bool assign(PixelSource newSource, const String& name);
    /// Frees pixels and texture.
    void unload();

    bool isLoaded() const { return data.width > 0; } // has a picture
    const String& getName() const { return name; }
    /// The picture's size in pixels of the design, the same at each detail; 0 without a picture.
    int32_t width() const { return data.pictureWidth / data.detail; }
    int32_t height() const { return data.pictureHeight / data.detail; }
    const BitmapData& getData() const { return data; }
    /// ARGB of a pixel, y counted from the top; 0 outside the picture.
    uint32_t pixelAt(int32_t x, int32_t y) const;

    // Drawing leaves what a bitmap shows unchanged, so these are const.
    /// Whether it was made at another detail than the present one.
    bool isStale() const;
    /// Makes it again if it is stale or asleep. On error: a stale picture is still there. One that
    /// was asleep is gone, and isn't tried again until the next load.
    void refresh() const;
    /// Makes it again at the plain detail, where it stays until the next load. False if it has that
    /// already or on error.
    bool makePlain() const;
    /// Frees pixels and texture of a bitmap with a source until something needs them.
    void sleep() const;
    bool isAsleep() const { return isLoaded() && data.pixels.empty(); }

    // The texture. Drawing leaves everything else of a bitmap unchanged, so it is mutable.
    struct Texture {
        uint32_t handle = 0;     // 0: none
        uint32_t generation = 0; // of the OpenGL context, as the canvas counts them
        uint32_t refusedIn = 0;  // generation of the context that could not make it; 0: none
        int64_t bytes = 0;
    };
    const Texture& getTexture() const { return texture; }
    /// The canvas has made a texture of it. An earlier one is released.
    void textureMade(uint32_t handle, uint32_t generation) const;
    /// The context of that generation can't make a texture of it, and isn't asked again.
    void refuseTexture(uint32_t generation) const { texture.refusedIn = generation; }
    /// Releases the texture. The next drawing makes a new one from the pixels.
    void dropTexture() const;
    /// Forgets a texture that was lost with its window.
    void textureLost() const;
    /// The function that deletes a texture by its handle; null, as initially, for none.
    static void setTextureRelease(void (*release)(uint32_t handle));

    /// Bytes of all pixel buffers, and of all textures, at present.
    static int64_t systemMemory();
    static int64_t graphicsMemory();

private:
    int32_t wantedDetail() const;
    bool adopt(BitmapData& newData) const;
    bool adoptFromSource(PixelSource newSource);
    bool makeAgain() const;
    String loadedName() const;

    String name;
    String error;
    PixelSource source;              // null: can't be made again
    bool isFile = false;             // what the source reads
    mutable int32_t askedDetail = 1; // of the source
    mutable bool staysPlain = false; // whatever the present detail is
    mutable BitmapData data;
    mutable Texture texture;
};

} // namespace zel
