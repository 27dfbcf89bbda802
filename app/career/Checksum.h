#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "engine/core/String.h"

/// XXH3's 64 bits of the bytes, in sixteen hexadecimal digits: it finds damage, not forgery.
zel::String checksumOf(std::string_view bytes);
/// The same 64 bits of bytes that come in pieces.
class ChecksumOfPieces {
public:
    ChecksumOfPieces();
    ~ChecksumOfPieces();
    void add(std::string_view piece);
    uint64_t value() const;

private:
    struct State;
    std::unique_ptr<State> state;
};
/// Of a whole file; empty if it can't be read.
zel::String checksumOfFile(const zel::String& name);
