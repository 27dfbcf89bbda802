#pragma once

#include <string>

#include "engine/graphics/BitmapReader.h"

namespace zel {

/// All that stb_image decodes: PNG, JPEG, TGA, GIF and others.
class FormatANY : public BitmapReader {
public:
    using BitmapReader::BitmapReader;
    const char* format() const override { return "ANY"; }

protected:
    const char* illegalHeader() const override { return "Illegal ANY header"; }
    bool checkHeader() override;
    bool decode(BitmapData& data) override;

private:
    std::string content; // the whole file
};

} // namespace zel
