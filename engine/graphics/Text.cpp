#include "engine/graphics/Text.h"

#include <algorithm>
#include <set>

#include "engine/core/Log.h"
#include "engine/graphics/Font.h"
#include "engine/graphics/Image.h"
#include "engine/graphics/TextBreaking.h"

namespace zel {

namespace {

// More than any rectangle holds: a wrong height must not cost a layout of hours.
constexpr int32_t MostLines = 4096;

int32_t whole(float value) {
    return static_cast<int32_t>(std::clamp(value, -1.0e6F, 1.0e6F)); // bounds senseless sizes
}

/// Where something of that size starts in the room: at 0, centred, or at the end.
int32_t startOf(int32_t room, int32_t size, uint8_t alignment) {
    const int32_t rest = room - size;
    return alignment == 0 ? 0 : alignment == 1 ? (rest >= 0 ? rest / 2 : (rest - 1) / 2) : rest;
}

} // namespace

void Text::setFont(const Font* newFont) {
    laidOut = laidOut && font == newFont;
    font = newFont;
}

void Text::setText(const String& newText) {
    if (text == newText)
        return;
    text = newText;
    laidOut = false;
}

void Text::setRect(const Rect& newRect) {
    laidOut = laidOut && rect.width == newRect.width && rect.height == newRect.height;
    rect = newRect;
}

void Text::setAlign(AlignX x, AlignY y) {
    laidOut = laidOut && alignX == x && alignY == y;
    alignX = x;
    alignY = y;
}

void Text::setFlow(TextFlow newFlow) {
    laidOut = laidOut && flow == newFlow;
    flow = newFlow;
}

void Text::draw(Canvas& canvas, Point offset, int32_t alpha) const {
    if (font == nullptr || text.empty())
        return;
    layOut();
    const auto shade = static_cast<uint32_t>(std::clamp(alpha, 0, 255));
    const uint32_t tint = (color & 0xFFFFFF) | ((color >> 24) * shade + 127) / 255 << 24;
    for (const GlyphPage& page : pages)
        if (const Image* image = font->pageImage(page.number))
            canvas.draw(image->getBitmap(), page.quads, {rect.x + offset.x, rect.y + offset.y},
                        tint);
}

void Text::layOut() const {
    if (laidOut)
        return;
    laidOut = true;
    ++layouts;
    cut = false;
    brokenLines.clear();
    for (GlyphPage& page : pages)
        page.quads.clear();
    if (font == nullptr || text.empty())
        return;
    breakLines();
    placeGlyphs();
}

void Text::breakLines() const {
    const std::string plain = plainText(text);
    std::vector<std::string> broken;
    if (flow == TextFlow::Line) {
        std::string line = plain;
        std::replace(line.begin(), line.end(), '\n', ' ');
        broken.push_back(shortenedTo(*font, line, whole(rect.width)));
        cut = broken.front() != line;
    } else {
        const int32_t room = std::clamp(whole(rect.height) / font->lineHeight(), 1, MostLines);
        const auto mostLines = static_cast<size_t>(room);
        broken = brokenIntoLines(*font, plain, whole(rect.width), mostLines);
        cut = broken.size() > mostLines;
        broken.resize(std::min(broken.size(), mostLines));
    }
    for (std::string& line : broken) {
        const int32_t lineWidth = font->width(line);
        brokenLines.push_back({std::move(line), lineWidth});
    }
}

void Text::placeGlyphs() const {
    std::set<char> missing;
    int32_t top = startOf(whole(rect.height), height(), static_cast<uint8_t>(alignY));
    for (const BrokenLine& line : brokenLines) {
        int32_t pen = startOf(whole(rect.width), line.width, static_cast<uint8_t>(alignX));
        const Glyph* previous = nullptr;
        for (const char character : line.text) {
            const Glyph* glyph = font->glyph(character);
            if (glyph == nullptr) {
                missing.insert(character);
                continue;
            }
            if (previous != nullptr)
                pen += font->kerning(previous->id, glyph->id) + font->charOffset();
            if (character != ' ' && glyph->width > 0 && glyph->height > 0)
                quadsOf(glyph->page).push_back(glyphQuad(*glyph, pen, top));
            pen += glyph->xAdvance;
            previous = glyph;
        }
        top += font->lineHeight();
    }
    for (const char character : missing)
        log("Tried to add non-existent char: " + String(character) + " (ascii-value) of " + text +
                " (mapped: -1) in font " + font->getName(),
            "Text", LogWarning);
}

Quad Text::glyphQuad(const Glyph& glyph, int32_t pen, int32_t top) {
    const auto width = static_cast<float>(glyph.width);
    const auto height = static_cast<float>(glyph.height);
    return {{static_cast<float>(glyph.x), static_cast<float>(glyph.y), width, height},
            {static_cast<float>(pen + glyph.xOffset), static_cast<float>(top + glyph.yOffset),
             width, height},
            0xFFFFFFFF};
}

std::vector<Quad>& Text::quadsOf(int32_t page) const {
    for (GlyphPage& known : pages)
        if (known.number == page)
            return known.quads;
    pages.push_back({page, {}});
    return pages.back().quads;
}

int32_t Text::lineCount() const {
    layOut();
    return static_cast<int32_t>(brokenLines.size());
}

int32_t Text::width() const {
    layOut();
    int32_t widest = 0;
    for (const BrokenLine& line : brokenLines)
        widest = std::max(widest, line.width);
    return widest;
}

int32_t Text::height() const { return font != nullptr ? lineCount() * font->lineHeight() : 0; }

bool Text::isCut() const {
    layOut();
    return cut;
}

std::vector<String> Text::lines() const {
    layOut();
    std::vector<String> result;
    for (const BrokenLine& line : brokenLines)
        result.emplace_back(line.text);
    return result;
}

int32_t Text::widthOf(const Font* font, std::string_view text) {
    return font != nullptr ? font->width(text) : 0;
}

} // namespace zel
