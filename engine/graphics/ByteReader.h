#pragma once

#include <cstdint>
#include <string_view>

namespace zel {

/// Takes little-endian numbers and texts off the front of a block of memory. A read past the end
/// gives 0 or the empty text, consumes the rest, and sets hasFailed().
class ByteReader {
public:
    explicit ByteReader(std::string_view content) : rest(content) {}

    size_t left() const { return rest.size(); }
    bool hasFailed() const { return failed; }

    uint8_t u8() { return static_cast<uint8_t>(number(1)); }
    uint16_t u16() { return static_cast<uint16_t>(number(2)); }
    int16_t i16() { return static_cast<int16_t>(number(2)); }
    uint32_t u32() { return number(4); }
    /// A view of the next `count` bytes of the block.
    std::string_view bytes(size_t count) {
        if (count > rest.size()) {
            failed = true;
            rest = {};
            return {};
        }
        const std::string_view result = rest.substr(0, count);
        rest.remove_prefix(count);
        return result;
    }
    /// Up to the next zero byte, which is consumed too.
    std::string_view zeroTerminated() {
        const size_t end = rest.find('\0');
        if (end == rest.npos)
            return bytes(rest.size() + 1);
        const std::string_view result = bytes(end);
        bytes(1);
        return result;
    }

private:
    uint32_t number(size_t count) {
        uint32_t result = 0;
        int shift = 0;
        for (const char byte : bytes(count)) {
            result |= uint32_t(static_cast<unsigned char>(byte)) << shift;
            shift += 8;
        }
        return result;
    }

    std::string_view rest;
    bool failed = false;
};

} // namespace zel
