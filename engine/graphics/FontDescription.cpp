#include "engine/graphics/FontDescription.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "engine/core/Log.h"
#include "engine/core/TextLines.h"
#include "engine/graphics/ByteReader.h"

namespace zel {

namespace {

constexpr std::string_view Magic = "BMF\x03";
constexpr size_t GlyphSize = 20;
constexpr size_t KerningPairSize = 10;
constexpr size_t KerningSize = 65536;
constexpr uint32_t MaxCode = 65535; // above it is only the mark of an invalid character

enum FontBlock : uint8_t { InfoBlock = 1, CommonBlock, PagesBlock, CharactersBlock, KerningBlock };

void readInfo(ByteReader block, FontDescription& font) {
    FontInfo& info = font.info;
    info.size = block.i16();
    info.bits = block.u8();
    info.charset = block.u8();
    info.stretch = block.u16();
    info.antialias = block.u8();
    for (uint8_t& side : info.padding)
        side = block.u8();
    for (uint8_t& direction : info.spacing)
        direction = block.u8();
    info.outline = block.u8();
    font.fontName = String(block.zeroTerminated());
}

void readCommon(ByteReader block, FontDescription& font) {
    font.lineHeight = block.u16();
    font.base = block.u16();
    font.scaleW = block.u16();
    font.scaleH = block.u16();
    font.pages = block.u16();
    for (uint8_t& channel : font.common)
        channel = block.u8();
}

void readPages(ByteReader block, FontDescription& font) {
    font.pageNames.clear();
    while (font.pageNames.size() < font.pages && block.left() > 0)
        font.pageNames.emplace_back(block.zeroTerminated());
}

void readGlyphs(ByteReader block, FontDescription& font) {
    while (block.left() >= GlyphSize) {
        Glyph glyph = {};
        glyph.id = block.u32();
        glyph.x = block.u16();
        glyph.y = block.u16();
        glyph.width = block.u16();
        glyph.height = block.u16();
        glyph.xOffset = block.i16();
        glyph.yOffset = block.i16();
        glyph.xAdvance = block.i16();
        glyph.page = block.u8();
        glyph.channel = block.u8();
        if (glyph.id <= MaxCode) {
            if (glyph.id >= font.glyphIndex.size())
                font.glyphIndex.resize(glyph.id + 1, -1);
            font.glyphIndex[glyph.id] = static_cast<int32_t>(font.glyphs.size());
        }
        font.glyphs.push_back(glyph); // counts for the kerning's index in any case
    }
}

void readKerning(ByteReader block, FontDescription& font) {
    const uint64_t glyphCount = font.glyphs.size();
    if (glyphCount == 0)
        return; // the index of a pair depends on it
    font.kerning.assign(KerningSize, 0);
    while (block.left() >= KerningPairSize) {
        const uint64_t first = block.u32();
        const uint64_t second = block.u32();
        const int16_t amount = block.i16();
        const uint64_t index = first * glyphCount + second;
        if (index < KerningSize)
            font.kerning[index] = amount;
    }
}

int16_t sum(int16_t value, int32_t change) {
    return static_cast<int16_t>(std::clamp<int64_t>(int64_t(value) + change,
                                                    std::numeric_limits<int16_t>::min(),
                                                    std::numeric_limits<int16_t>::max()));
}

/// Empty unless all of the word is a number: 0 would be the code of a glyph.
std::optional<int32_t> wholeNumber(std::string_view word) {
    const bool hasSign = !word.empty() && (word.front() == '-' || word.front() == '+');
    const std::string_view digits = word.substr(hasSign ? 1 : 0);
    if (digits.empty() || digits.find_first_not_of("0123456789") != digits.npos)
        return std::nullopt;
    return toInt(word);
}

/// A decimal code, or one character in round brackets. Null if the font lacks it.
Glyph* findGlyph(std::string_view character, FontDescription& font) {
    const bool isQuoted =
        character.size() == 3 && character.front() == '(' && character.back() == ')';
    const int32_t code =
        isQuoted ? static_cast<unsigned char>(character[1]) : wholeNumber(character).value_or(-1);
    if (code < 0 || static_cast<size_t>(code) >= font.glyphIndex.size())
        return nullptr;
    const int32_t index = font.glyphIndex[code];
    return index >= 0 ? &font.glyphs[index] : nullptr;
}

/// False if the line is an incomplete correction.
bool applyMetricsLine(std::string_view line, FontDescription& font) {
    std::vector<std::string_view> words = splitAtBlanks(line);
    words.erase(std::remove(words.begin(), words.end(), std::string_view()), words.end());
    const auto number = [&words](size_t index) {
        return index < words.size() ? wholeNumber(words[index]) : std::nullopt;
    };
    const String keyword = words.empty() ? String() : String(words[0]).toLower();
    if (keyword == "charoffset") {
        font.charOffset = sum(0, number(1).value_or(font.charOffset));
        return number(1).has_value();
    }
    const bool isMove = keyword == "singlecharoffset";
    if (!isMove && keyword != "widthofchar")
        return true; // a comment
    Glyph* glyph = words.size() > 1 ? findGlyph(words[1], font) : nullptr;
    if (glyph == nullptr || !number(2) || (isMove && !number(3)))
        return false;
    if (isMove) {
        glyph->xOffset = sum(glyph->xOffset, *number(2));
        glyph->yOffset = sum(glyph->yOffset, *number(3));
    } else {
        glyph->xAdvance = sum(0, *number(2));
    }
    return true;
}

} // namespace

bool parseFontDescription(std::string_view content, FontDescription& font) {
    font = {};
    if (content.substr(0, Magic.size()) != Magic)
        return false;
    ByteReader file(content.substr(Magic.size()));
    while (file.left() > 0) {
        const uint8_t kind = file.u8();
        const size_t length = file.u32();
        if (file.hasFailed())
            break;
        const ByteReader block(file.bytes(std::min(length, file.left())));
        if (kind == InfoBlock)
            readInfo(block, font);
        else if (kind == CommonBlock)
            readCommon(block, font);
        else if (kind == PagesBlock)
            readPages(block, font);
        else if (kind == CharactersBlock)
            readGlyphs(block, font);
        else if (kind == KerningBlock)
            readKerning(block, font);
    }
    return true;
}

void applyFontMetrics(std::string_view text, const String& fileName, FontDescription& font) {
    forEachLine(text, [&](std::string_view line) {
        if (!applyMetricsLine(line, font))
            log("Bad line in " + fileName + ": " + line, "Font", LogWarning);
    });
}

} // namespace zel
