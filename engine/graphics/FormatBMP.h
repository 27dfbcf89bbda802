#pragma once

#include "engine/graphics/RawReader.h"

namespace zel {

/// Uncompressed Windows bitmaps of 24 and 32 bits, bottom up or top down. Other Windows bitmaps
/// are left to FormatANY. 32 bits with an alpha of 0 everywhere, as most programs write them, are
/// taken as opaque.
class FormatBMP : public RawReader {
public:
    using RawReader::RawReader;
    const char* format() const override { return "BMP"; }

protected:
    const char* illegalHeader() const override { return "Illegal BMP header"; }
    bool checkHeader() override;
    bool decode(BitmapData& data) override;

private:
    bool topDown = false;
};

} // namespace zel
