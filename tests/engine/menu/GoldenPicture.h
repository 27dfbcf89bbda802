#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

/// A picture of three bytes a pixel, the top line first.
struct Picture {
    int32_t width = 0, height = 0;
    std::vector<uint8_t> pixels;
};

/// Whether the picture matches the kept one, except for edges that other versions of the OpenGL
/// library round differently: in its colours at half the size, and in its brightness at full size,
/// where a single letter makes a difference, whether it is text or painted. If not, it is written
/// as `newFile`, as PNG or JPEG by its ending, for somebody to look at.
testing::AssertionResult isGoldenPicture(const Picture& picture, const std::string& goldenFile,
                                         const std::string& newFile);

/// Writes PNG or JPEG, by the ending. Folders on the way are made. quality: of a JPEG, up to 100.
bool writePicture(const std::string& file, const Picture& picture, int quality = 80);
