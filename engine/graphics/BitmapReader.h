#pragma once

#include <optional>
#include <string>

#include "engine/core/File.h"
#include "engine/graphics/Bitmap.h"

namespace zel {

/// Reads one kind of picture file. Used once: open, then readPixels.
///
/// Sizes and offsets in a file are held against its length before anything is allocated.
class BitmapReader {
public:
    /// powerOfTwo: the picture is placed in a buffer whose sides are the next powers of two.
    explicit BitmapReader(bool powerOfTwo) : powerOfTwo(powerOfTwo) {}
    virtual ~BitmapReader() = default;
    BitmapReader(const BitmapReader&) = delete;
    BitmapReader& operator=(const BitmapReader&) = delete;

    /// "ZEL", "BMP" or "ANY".
    virtual const char* format() const = 0;
    /// Opens the file and checks its header. Null if all is well, else what is wrong:
    /// "Cannot load file" or "Illegal ZEL header" and the like.
    const char* open(const String& fileName);
    /// Null if all is well, else "Unable to read pixel data", and `data` is as it was.
    const char* readPixels(BitmapData& data);

protected:
    virtual const char* illegalHeader() const = 0;
    virtual bool checkHeader() = 0;
    virtual bool decode(BitmapData& data) = 0;

    /// Allocates the buffer for a picture of that size and gives it its sizes.
    void allocate(BitmapData& data, int32_t width, int32_t height, int32_t depth) const;

    bool powerOfTwo;
    std::optional<File> file;
};

/// Pictures whose rows stand in the file as they are, blue first: the header gives place and size.
class RawReader : public BitmapReader {
public:
    using BitmapReader::BitmapReader;

protected:
    /// padding: bytes behind each row; those behind the last one may be missing.
    bool readRows(BitmapData& data, int32_t padding, bool topDown);

    uint32_t pixelOffset = 0;
    int32_t width = 0;
    int32_t height = 0;
    int32_t depth = 0; // bytes a pixel
};

/// The engine's own raw pictures: rows from the bottom up, without padding, blue first.
class FormatZEL : public RawReader {
public:
    using RawReader::RawReader;
    const char* format() const override { return "ZEL"; }

protected:
    const char* illegalHeader() const override { return "Illegal ZEL header"; }
    bool checkHeader() override;
    bool decode(BitmapData& data) override { return readRows(data, 0, false); }
};

/// Uncompressed Windows bitmaps of 24 and 32 bits, bottom up or top down. Other Windows bitmaps
/// are left to FormatANY. 32 bits with an alpha of 0 everywhere, as most programs write them, are
/// taken as opaque.
class FormatBMP : public RawReader {
public:
    using RawReader::RawReader;
    const char* format() const override { return "BMP"; }

protected:
    const char* illegalHeader() const override { return "Illegal BMP header"; }
    bool checkHeader() override;
    bool decode(BitmapData& data) override;

private:
    bool topDown = false;
};

/// All that stb_image decodes: PNG, JPEG, TGA, GIF and others.
class FormatANY : public BitmapReader {
public:
    using BitmapReader::BitmapReader;
    const char* format() const override { return "ANY"; }

protected:
    const char* illegalHeader() const override { return "Illegal ANY header"; }
    bool checkHeader() override;
    bool decode(BitmapData& data) override;

private:
    std::string content; // the whole file
};

} // namespace zel
