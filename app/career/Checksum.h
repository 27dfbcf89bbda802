#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "engine/core/String.h"

/// The 64-bit XXH3 hash of the bytes, in sixteen hexadecimal digits: it finds damage, not forgery.
zel::String checksumOf(std::string_view bytes);
/// Bytes whose checksum is computed once, when it is first asked for: that takes almost as long as
/// reading them. REQUIRES: the bytes outlive it and don't change.
class CheckedBytes {
public:
    CheckedBytes() = default;
    // Implicit, so that callers without a checksum just pass the bytes.
    CheckedBytes(std::string_view bytes) : content(bytes) {}
    CheckedBytes(const std::string& bytes) : content(bytes) {}

    std::string_view bytes() const { return content; }
    bool empty() const { return content.empty(); }
    const zel::String& checksum() const;

private:
    std::string_view content;
    mutable zel::String sum;
};
/// The same hash of bytes that come in pieces.
class ChecksumOfPieces {
public:
    ChecksumOfPieces();
    ~ChecksumOfPieces();
    void add(std::string_view piece);
    uint64_t value() const;

private:
    struct HashState;
    std::unique_ptr<HashState> state;
};
/// The checksum of a whole file; empty if it can't be read.
zel::String checksumOfFile(const zel::String& name);
