#include "app/career/Checksum.h"

#include <cinttypes>
#include <cstdio>
#include <string>

#include <gtest/gtest.h>

namespace {

std::string digits(uint64_t value) {
    char text[20];
    std::snprintf(text, sizeof text, "%016" PRIx64, value);
    return text;
}

// A checksum made on one processor is checked on another: with or without AVX2, whole or in pieces,
// it is the same for short, medium and long texts.
TEST(Checksum, IsTheSameWhateverTheProcessorAndThePieces) {
    EXPECT_EQ(checksumOf(""), "2d06800538d394c2") << "of the published algorithm";
    std::string bytes;
    for (size_t size : {1, 3, 8, 16, 17, 128, 129, 240, 241, 1024, 1025, 4096, 100000}) {
        while (bytes.size() < size)
            bytes += static_cast<char>(bytes.size() * 7 + bytes.size() / 256);
        ChecksumOfPieces pieces;
        pieces.add(std::string_view(bytes).substr(0, size / 3));
        pieces.add(std::string_view(bytes).substr(size / 3));
        EXPECT_EQ(std::string(checksumOf(bytes).view()), digits(pieces.value())) << size;
    }
}

} // namespace
