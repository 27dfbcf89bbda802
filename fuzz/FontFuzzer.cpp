#include "engine/graphics/Font.h"
#include "fuzz/FuzzFile.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    zel::FontDescription description;
    if (!zel::parseFontDescription(asText(data, size), description))
        return 0;
    require(description.glyphs.size() <= size / 20, "no glyph that isn't in the file");
    require(description.glyphIndex.size() <= 65536, "codes up to 65535");
    require(description.kerning.empty() || description.kerning.size() == 65536, "all or nothing");
    std::string allBytes;
    for (int byte = 0; byte < 256; ++byte)
        allBytes += static_cast<char>(byte);
    const zel::Font font("fuzzed", description);
    require(font.lineHeight() >= 1, "lines don't fall on each other");
    for (uint32_t code = 0; code < 70000; code += 101) {
        const zel::Glyph* glyph = font.glyph(code);
        require(glyph == nullptr || glyph->id == code, "a code finds its own glyph");
        font.kerning(code, 0xFFFFFFFF - code);
    }
    font.width(allBytes);
    return 0;
}
