#include "engine/graphics/Font.h"
#include "fuzz/FuzzFile.h"

namespace {

zel::FontDescription smallFont() {
    zel::FontDescription font;
    for (const uint32_t code : {65U, 40U, 41U, 200U}) {
        font.glyphIndex.resize(code + 1, -1);
        font.glyphIndex[code] = static_cast<int32_t>(font.glyphs.size());
        font.glyphs.push_back({code, 0, 0, 8, 9, 1, 2, 10, 0, 15});
    }
    return font;
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    zel::disableLogging();
    zel::FontDescription font = smallFont();
    zel::applyFontMetrics(asText(data, size), "fuzzed.cfg", font);
    require(font.glyphs.size() == 4 && font.glyphIndex.size() == 201,
            "metrics add no characters and take none");
    zel::Font("fuzzed", font).width("A()A\xC8 B");
    return 0;
}
