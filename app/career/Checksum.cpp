#include "app/career/Checksum.h"

#include <cinttypes>
#include <cstdio>

#define XXH_INLINE_ALL
#include <xxhash.h>

#include "engine/core/File.h"

zel::String checksumOf(std::string_view bytes) {
    char text[20];
    std::snprintf(text, sizeof text, "%016" PRIx64,
                  static_cast<uint64_t>(XXH3_64bits(bytes.data(), bytes.size())));
    return text;
}

const zel::String& CheckedBytes::checksum() const {
    if (sum.empty())
        sum = checksumOf(content);
    return sum;
}

struct ChecksumOfPieces::State {
    XXH3_state_t hash;
};

ChecksumOfPieces::ChecksumOfPieces() : state(std::make_unique<State>()) {
    XXH3_64bits_reset(&state->hash);
}
ChecksumOfPieces::~ChecksumOfPieces() = default;

void ChecksumOfPieces::add(std::string_view piece) {
    XXH3_64bits_update(&state->hash, piece.data(), piece.size());
}

uint64_t ChecksumOfPieces::value() const { return XXH3_64bits_digest(&state->hash); }

zel::String checksumOfFile(const zel::String& name) {
    std::string content;
    const bool isRead = zel::readFileWhole(name, content) == zel::FileFault::None;
    return isRead ? checksumOf(content) : zel::String();
}
