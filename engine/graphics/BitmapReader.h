#pragma once

#include <optional>

#include "engine/core/File.h"
#include "engine/graphics/Bitmap.h"

namespace zel {

/// Reads one kind of picture file. Used once: open, then readPixels.
///
/// Sizes and offsets in a file are checked against its length before anything is allocated.
class BitmapReader {
public:
    /// powerOfTwo: the picture is placed in a buffer whose sides are the next powers of two.
    explicit BitmapReader(bool powerOfTwo) : powerOfTwo(powerOfTwo) {}
    virtual ~BitmapReader() = default;
    BitmapReader(const BitmapReader&) = delete;
    BitmapReader& operator=(const BitmapReader&) = delete;

    /// "ZEL", "BMP" or "ANY".
    virtual const char* format() const = 0;
    /// Opens the file and checks its header. Null if all is well, otherwise what is wrong:
    /// "Cannot load file" or "Illegal ZEL header" and the like.
    const char* open(const String& fileName);
    /// Null if all is well, otherwise "Unable to read pixel data", and `data` is as it was.
    const char* readPixels(BitmapData& data);
    /// The picture's size in pixels, according to its header. REQUIRES: open() has accepted it.
    int32_t getWidth() const { return width; }
    int32_t getHeight() const { return height; }
    /// What is wrong with a picture whose format it knows, such as "too large: 9000 by 50 pixels,
    /// at most 8192 by 8192"; empty if there is nothing to say.
    const String& getFault() const { return fault; }

protected:
    virtual const char* illegalHeader() const = 0;
    virtual bool checkHeader() = 0;
    virtual bool decode(BitmapData& data) = 0;

    /// Takes the size if a picture may have it. If not: false, and the fault says why.
    bool acceptSize(int64_t newWidth, int64_t newHeight);

    bool powerOfTwo;
    int32_t width = 0; // of the picture, in pixels
    int32_t height = 0;
    std::optional<File> file;
    String fault;
};

} // namespace zel
