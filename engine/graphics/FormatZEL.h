#pragma once

#include "engine/graphics/RawReader.h"

namespace zel {

/// The engine's own raw pictures: rows from the bottom up, without padding, blue first.
class FormatZEL : public RawReader {
public:
    using RawReader::RawReader;
    const char* format() const override { return "ZEL"; }

protected:
    const char* illegalHeader() const override { return "Illegal ZEL header"; }
    bool checkHeader() override;
    bool decode(BitmapData& data) override { return readRows(data, 0, false); }
};

} // namespace zel
