#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

/// Whether the pixels (three bytes each, the top line first) are those of the kept picture, but for
/// what other versions of the OpenGL library round differently at edges. If not, they are written
/// as `newFile`, as PNG or JPEG by its ending, for somebody to look at.
testing::AssertionResult isGoldenPicture(const std::vector<uint8_t>& pixels, int32_t width,
                                         int32_t height, const std::string& goldenFile,
                                         const std::string& newFile);

/// The picture at half its size, each pixel the mean of four. REQUIRES: even sides.
std::vector<uint8_t> halved(const std::vector<uint8_t>& pixels, int32_t width, int32_t height);

/// Writes three bytes a pixel as PNG or JPEG, by the ending. Folders on the way are made.
bool writePicture(const std::string& file, const std::vector<uint8_t>& pixels, int32_t width,
                  int32_t height);
