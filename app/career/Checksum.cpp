#include "app/career/Checksum.h"

#include <cinttypes>
#include <cstdio>

#define XXH_INLINE_ALL
#include <xxhash.h>

#include "app/career/ChecksumAvx2.h"
#include "engine/core/File.h"

namespace {

uint64_t hashOf(std::string_view bytes) {
#ifdef __x86_64__
    static const bool hasAvx2 = __builtin_cpu_supports("avx2") != 0;
    if (hasAvx2)
        return hashWithAvx2(bytes.data(), bytes.size());
#endif
    return XXH3_64bits(bytes.data(), bytes.size());
}

} // namespace

zel::String checksumOf(std::string_view bytes) {
    char text[20];
    std::snprintf(text, sizeof text, "%016" PRIx64, hashOf(bytes));
    return text;
}

const zel::String& CheckedBytes::checksum() const {
    if (sum.empty())
        sum = checksumOf(content);
    return sum;
}

struct ChecksumOfPieces::HashState {
    XXH3_state_t hash;
};

ChecksumOfPieces::ChecksumOfPieces() : state(std::make_unique<HashState>()) {
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
