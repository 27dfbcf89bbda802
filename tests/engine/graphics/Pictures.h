#pragma once

#include <cstdint>
#include <string>
#include <string_view>

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
    return Bytes()
        .text("ZG")
        .u32(offset)
        .u16(width)
        .u16(height)
        .u16(bits)
        .u32(0)
        .fill(offset - 16, '\x55')
        .text(pixels);
}

inline std::string bmpFile(int32_t width, int32_t height, uint32_t bits, std::string_view pixels,
                           uint32_t compression = 0) {
    return Bytes()
        .text("BM")
        .u32(54 + static_cast<uint32_t>(pixels.size()))
        .u32(0)
        .u32(54)
        .u32(40)
        .u32(static_cast<uint32_t>(width))
        .u32(static_cast<uint32_t>(height))
        .u16(1)
        .u16(bits)
        .u32(compression)
        .fill(20, '\0')
        .text(pixels);
}
