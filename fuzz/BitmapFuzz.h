#pragma once

#include "engine/graphics/BitmapReader.h"
#include "fuzz/FuzzFile.h"

/// Reads the input by one of the readers, with and without sides of powers of two, and holds the
/// result against what the reader promises.
template <typename Reader> int fuzzReader(const uint8_t* data, size_t size) {
    static const FuzzFolder folder;
    const std::string name = folder.write("picture", data, size);
    bool wasRead[2] = {};
    for (const bool powerOfTwo : {false, true}) {
        Reader reader(powerOfTwo);
        zel::BitmapData read;
        if (reader.open(name) != nullptr || reader.readPixels(read) != nullptr) {
            require(read.pixels.empty() && read.width == 0, "a failed read leaves nothing behind");
            continue;
        }
        wasRead[powerOfTwo ? 1 : 0] = true;
        require(read.depth == 3 || read.depth == 4, "3 or 4 bytes a pixel");
        require(read.pictureWidth >= 1 && read.pictureWidth <= read.width &&
                    read.pictureHeight >= 1 && read.pictureHeight <= read.height &&
                    read.width <= zel::MaxPictureSide && read.height <= zel::MaxPictureSide,
                "a picture of a sane size");
        require(read.pixels.size() == read.rowSize() * static_cast<size_t>(read.height),
                "a buffer of its size");
        require(!powerOfTwo || ((read.width & (read.width - 1)) == 0 &&
                                (read.height & (read.height - 1)) == 0),
                "sides of powers of two");
        std::vector<uint32_t> line(static_cast<size_t>(read.pictureWidth));
        read.lineArgb(0, line.data());
        read.lineArgb(read.pictureHeight - 1, line.data());
    }
    require(wasRead[0] == wasRead[1], "the placing doesn't decide whether a file is read");
    return 0;
}
