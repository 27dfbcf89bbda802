#include "app/screens/PencilSheet.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "engine/graphics/Font.h"
#include "engine/graphics/Image.h"

namespace {

constexpr int32_t BytesPerPixel = 4;
constexpr float Dash = 10;
constexpr float DashGap = 4;
constexpr float ArrowSize = 11;
constexpr float ArrowTurn = 2.65F; // of its sides, from the way
constexpr float Pressure = 0.95F;  // of the pencil

} // namespace

PencilSheet::PencilSheet(int32_t width, int32_t height, int32_t detail)
    : lowest(height * detail), detail(detail), scale(static_cast<float>(detail)) {
    picture.detail = detail;
    // Old graphics cards show no other detail.
    picture.allocate(width * detail, height * detail, BytesPerPixel, detail == 1);
}

// Blends over what is there; the picture keeps straight alpha.
void PencilSheet::blend(int32_t x, int32_t y, const Ink& ink, float alpha) {
    if (x < 0 || y < 0 || x >= picture.pictureWidth || y >= lowest || alpha <= 0)
        return;
    uint8_t* pixel = picture.line(y) + std::ptrdiff_t{x} * BytesPerPixel;
    const float below = static_cast<float>(pixel[3]) / 255;
    const float above = std::min(alpha, 1.0F);
    const float all = above + below * (1 - above);
    const std::array<uint8_t, 3> color{ink.red, ink.green, ink.blue};
    for (size_t i = 0; i < color.size(); ++i) {
        const float mixed = (static_cast<float>(color[i]) * above +
                             static_cast<float>(pixel[i]) * below * (1 - above)) /
                            all;
        pixel[i] = static_cast<uint8_t>(std::lround(mixed));
    }
    pixel[3] = static_cast<uint8_t>(std::lround(all * 255));
}

void PencilSheet::line(Point from, Point to, float width, const Ink& ink) {
    from = {from.x * scale, from.y * scale};
    to = {to.x * scale, to.y * scale};
    width *= scale;
    const float dx = to.x - from.x;
    const float dy = to.y - from.y;
    const float length = dx * dx + dy * dy;
    const float reach = width / 2 + 1;
    const auto left = static_cast<int32_t>(std::max(0.0F, std::min(from.x, to.x) - reach));
    const auto top = static_cast<int32_t>(std::max(0.0F, std::min(from.y, to.y) - reach));
    const float right =
        std::min(static_cast<float>(picture.pictureWidth), std::max(from.x, to.x) + reach);
    const float bottom =
        std::min(static_cast<float>(picture.pictureHeight), std::max(from.y, to.y) + reach);
    for (int32_t y = top; static_cast<float>(y) < bottom; ++y)
        for (int32_t x = left; static_cast<float>(x) < right; ++x) {
            const float px = static_cast<float>(x) + 0.5F - from.x;
            const float py = static_cast<float>(y) + 0.5F - from.y;
            const float along =
                length > 0 ? std::clamp((px * dx + py * dy) / length, 0.0F, 1.0F) : 0;
            const float distance = std::hypot(px - along * dx, py - along * dy);
            blend(x, y, ink, std::clamp(width / 2 + 0.5F - distance, 0.0F, 1.0F) * Pressure);
        }
}

/// drawn: how far the dashes have come, for the next piece.
void PencilSheet::dashes(Point from, Point to, const Ink& ink, float& drawn) {
    const float length = std::hypot(to.x - from.x, to.y - from.y);
    for (float begin = 0; begin < length;) {
        const float phase = std::fmod(drawn, Dash + DashGap);
        const bool isDash = phase < Dash;
        const float piece = std::min(length - begin, (isDash ? Dash : Dash + DashGap) - phase);
        const auto point = [&](float distance) {
            const float part = distance / length;
            return Point{from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
        };
        if (isDash)
            line(point(begin), point(begin + piece), 2, ink);
        begin += std::max(piece, 0.01F);
        drawn += std::max(piece, 0.01F);
    }
}

void PencilSheet::arrow(Point from, Point to, const Ink& ink) {
    const float angle = std::atan2(to.y - from.y, to.x - from.x);
    const Point tip{(from.x + to.x) / 2, (from.y + to.y) / 2};
    for (const float turn : {ArrowTurn, -ArrowTurn})
        line(tip,
             {tip.x + ArrowSize * std::cos(angle + turn),
              tip.y + ArrowSize * std::sin(angle + turn)},
             2, ink);
}

// Row by row, between the outline's first crossing and its second, and so on.
void PencilSheet::fill(const std::vector<Point>& outline, const Ink& ink, float alpha) {
    std::vector<float> crossings;
    for (int32_t y = 0; y < lowest; ++y) {
        const float middle = static_cast<float>(y) + 0.5F;
        crossings.clear();
        for (size_t i = 0; i < outline.size(); ++i) {
            const Point first = outline[i];
            const Point second = outline[(i + 1) % outline.size()];
            const Point a{first.x * scale, first.y * scale};
            const Point b{second.x * scale, second.y * scale};
            if ((a.y <= middle) != (b.y <= middle))
                crossings.push_back(a.x + (b.x - a.x) * (middle - a.y) / (b.y - a.y));
        }
        std::sort(crossings.begin(), crossings.end());
        const auto right = static_cast<float>(picture.pictureWidth);
        for (size_t i = 1; i < crossings.size(); i += 2) {
            const auto from = static_cast<int32_t>(std::clamp(crossings[i - 1], 0.0F, right));
            const auto to = static_cast<int32_t>(std::clamp(crossings[i], 0.0F, right));
            for (int32_t x = from; x < to; ++x)
                blend(x, y, ink, alpha);
        }
    }
}

void PencilSheet::ring(Point centre, float radius, float width, const Ink& ink) {
    centre = {centre.x * scale, centre.y * scale};
    radius *= scale;
    width *= scale;
    const float reach = radius + width;
    for (auto y = static_cast<int32_t>(centre.y - reach); static_cast<float>(y) <= centre.y + reach;
         ++y)
        for (auto x = static_cast<int32_t>(centre.x - reach);
             static_cast<float>(x) <= centre.x + reach; ++x) {
            const float distance = std::hypot(static_cast<float>(x) + 0.5F - centre.x,
                                              static_cast<float>(y) + 0.5F - centre.y);
            const float off = std::fabs(distance - radius);
            blend(x, y, ink, std::clamp(width / 2 + 0.5F - off, 0.0F, 1.0F) * Pressure);
        }
}

void PencilSheet::disc(Point centre, float radius, const Ink& ink, float alpha) {
    centre = {centre.x * scale, centre.y * scale};
    radius *= scale;
    for (auto y = static_cast<int32_t>(centre.y - radius - 1);
         static_cast<float>(y) <= centre.y + radius + 1; ++y)
        for (auto x = static_cast<int32_t>(centre.x - radius - 1);
             static_cast<float>(x) <= centre.x + radius + 1; ++x) {
            const float distance = std::hypot(static_cast<float>(x) + 0.5F - centre.x,
                                              static_cast<float>(y) + 0.5F - centre.y);
            blend(x, y, ink, std::clamp(radius + 0.5F - distance, 0.0F, 1.0F) * alpha);
        }
}

/// base: of the letters, at the left, in the middle or at the right of the text.
void PencilSheet::write(const zel::Font* font, Point base, std::string_view text, const Ink& ink,
                        Align align) {
    if (font == nullptr)
        return;
    const int32_t width = font->width(text);
    auto pen = static_cast<int32_t>(base.x) - (align == Align::Left     ? 0
                                               : align == Align::Centre ? width / 2
                                                                        : width);
    const int32_t top = static_cast<int32_t>(base.y) - font->base();
    char before = 0;
    for (const char letter : text) {
        const zel::Glyph* glyph = font->glyph(letter);
        const zel::Image* page = glyph != nullptr ? font->pageImage(glyph->page) : nullptr;
        if (page == nullptr)
            continue;
        if (before != 0)
            pen += font->kerning(before, letter) + font->charOffset();
        writeLetter(*glyph, page->getBitmap(), pen + glyph->xOffset, top + glyph->yOffset, ink);
        pen += glyph->xAdvance;
        before = letter;
    }
}

void PencilSheet::writeLetter(const zel::Glyph& glyph, const zel::Bitmap& page, int32_t left,
                              int32_t top, const Ink& ink) {
    page.refresh();
    const int32_t theirs = page.getData().detail; // may be less, where a font has but one size
    for (int32_t y = 0; y < glyph.height * detail; ++y)
        for (int32_t x = 0; x < glyph.width * detail; ++x) {
            const uint32_t argb = page.pixelAt(glyph.x * theirs + x * theirs / detail,
                                               glyph.y * theirs + y * theirs / detail);
            blend(left * detail + x, top * detail + y, ink, static_cast<float>(argb >> 24) / 255);
        }
}
