#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/graphics/Bitmap.h"

/// Numbers and texts as the bytes of a file, little-endian.
class Bytes {
public:
    Bytes& u8(uint32_t value) { return number(value, 1); }
    Bytes& u16(uint32_t value) { return number(value, 2); }
    Bytes& u32(uint32_t value) { return number(value, 4); }
    Bytes& text(std::string_view text) {
        content += text;
        return *this;
    }
    /// The text and a zero byte.
    Bytes& zeroTerminated(std::string_view text) { return this->text(text).u8(0); }
    Bytes& fill(size_t count, char value) {
        content.append(count, value);
        return *this;
    }
    operator const std::string&() const { return content; } // NOLINT: it is one

private:
    Bytes& number(uint32_t value, int count) {
        for (; count > 0; --count, value >>= 8)
            content += static_cast<char>(value);
        return *this;
    }
    std::string content;
};

inline std::string zelFile(uint32_t width, uint32_t height, uint32_t bits, std::string_view pixels,
                           uint32_t offset = 16) {
    Bytes header;
    header.text("ZG").u32(offset).u16(width).u16(height).u16(bits).u32(0);
    return header.fill(offset - 16, '\x55').text(pixels);
}

inline std::string bmpFile(int32_t width, int32_t height, uint32_t bits, std::string_view pixels,
                           uint32_t compression = 0) {
    Bytes header;
    header.text("BM").u32(54 + static_cast<uint32_t>(pixels.size())).u32(0).u32(54).u32(40);
    header.u32(static_cast<uint32_t>(width)).u32(static_cast<uint32_t>(height)).u16(1).u16(bits);
    return header.u32(compression).fill(20, '\0').text(pixels);
}

/// A picture in memory whose bytes all have that value.
inline zel::BitmapData plainPicture(int32_t width, int32_t height, int32_t depth, uint8_t value) {
    zel::BitmapData data;
    data.width = data.pictureWidth = width;
    data.height = data.pictureHeight = height;
    data.depth = depth;
    data.pixels.assign(data.rowSize() * static_cast<size_t>(height), value);
    return data;
}

inline std::string fontBlock(uint32_t kind, const std::string& content) {
    return Bytes().u8(kind).u32(static_cast<uint32_t>(content.size())).text(content);
}

/// Where a character is on its page, in pixels.
struct GlyphPlace {
    uint32_t x = 10;
    uint32_t y = 20;
    uint32_t width = 8;
    uint32_t height = 9;
};

/// A character that is drawn a pixel to the left and 3 down.
inline std::string glyph(uint32_t code, uint32_t advance, const GlyphPlace& place = {}) {
    Bytes bytes;
    bytes.u32(code).u16(place.x).u16(place.y).u16(place.width).u16(place.height);
    return bytes.u16(0xFFFF).u16(3).u16(advance).u8(0).u8(15);
}

inline std::string kerningPair(uint32_t first, uint32_t second, int32_t amount) {
    return Bytes().u32(first).u32(second).u16(static_cast<uint32_t>(amount));
}

inline std::string fontFile(const std::string& glyphs, const std::string& kerning = "",
                            const std::string& page = "page.zel", char version = 3) {
    const std::string info = Bytes().u16(18).u8(0).u8(0).u16(100).u8(1).u32(0).u16(0).u8(2);
    const std::string common = Bytes().u16(25).u16(17).u16(256).u16(128).u16(1).u8(1).u32(0);
    std::string result = std::string("BMF") + version;
    result += fontBlock(1, Bytes().text(info).zeroTerminated("seed"));
    result += fontBlock(2, common);
    result += fontBlock(3, Bytes().zeroTerminated(page));
    result += fontBlock(4, glyphs);
    return kerning.empty() ? result : result + fontBlock(5, kerning);
}
