#include "engine/graphics/TextBreaking.h"

#include <algorithm>

#include "engine/graphics/Font.h"

namespace zel {

namespace {

constexpr std::string_view Ellipsis = "...";

/// The pen of one line, as the font moves it.
class Pen {
public:
    explicit Pen(const Font& font) : font(font) {}

    /// The pen's position after the character.
    int64_t add(char character) {
        const Glyph* glyph = font.glyph(character);
        if (glyph == nullptr)
            return place;
        if (hasPrevious)
            place += font.kerning(previous, character) + font.charOffset();
        place += glyph->xAdvance;
        previous = character;
        hasPrevious = true;
        return place;
    }

private:
    const Font& font;
    int64_t place = 0;
    char previous = 0;
    bool hasPrevious = false;
};

/// The number of characters of the paragraph that make its first line; all of them if they fit.
size_t firstLine(const Font& font, std::string_view paragraph, int32_t width) {
    Pen pen(font);
    size_t lastBlank = 0; // 0: none after a word
    bool hasWord = false;
    for (size_t place = 0; place < paragraph.size(); ++place) {
        const int64_t reached = pen.add(paragraph[place]);
        if (paragraph[place] == ' ') { // blanks may extend past the edge
            if (hasWord && paragraph[place - 1] != ' ')
                lastBlank = place;
            continue;
        }
        hasWord = true;
        if (reached > width && place > 0)
            return lastBlank > 0 ? lastBlank : place;
    }
    return paragraph.size();
}

std::string_view withoutBlanksAtEnd(std::string_view text) {
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

void breakParagraph(const Font& font, std::string_view paragraph, int32_t width, size_t mostLines,
                    std::vector<std::string>& lines) {
    do {
        const size_t length = firstLine(font, paragraph, width);
        lines.emplace_back(withoutBlanksAtEnd(paragraph.substr(0, length)));
        paragraph.remove_prefix(length);
        while (!paragraph.empty() && paragraph.front() == ' ')
            paragraph.remove_prefix(1);
    } while (!paragraph.empty() && lines.size() <= mostLines);
}

} // namespace

std::string plainText(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char character : text) {
        if (character == '\t')
            result += ' ';
        else if (character != '\r' && character != '\0')
            result += character;
    }
    return result;
}

std::vector<std::string> brokenIntoLines(const Font& font, std::string_view text, int32_t width,
                                         size_t mostLines) {
    std::vector<std::string> lines;
    for (size_t start = 0; start <= text.size() && lines.size() <= mostLines;) {
        const size_t end = std::min(text.find('\n', start), text.size());
        breakParagraph(font, text.substr(start, end - start), width, mostLines, lines);
        start = end + 1;
    }
    return lines;
}

std::string shortenedTo(const Font& font, std::string_view text, int32_t width) {
    if (font.width(text) <= width)
        return std::string(text);
    // The widths grow with the length except for some kerning: good enough for a binary search.
    size_t fits = 0;
    size_t tooLong = text.size();
    const auto candidate = [&](size_t length) {
        return std::string(withoutBlanksAtEnd(text.substr(0, length))) + std::string(Ellipsis);
    };
    while (fits + 1 < tooLong) {
        const size_t middle = (fits + tooLong) / 2;
        (font.width(candidate(middle)) <= width ? fits : tooLong) = middle;
    }
    const std::string result = candidate(fits);
    return font.width(result) <= width ? result : std::string();
}

} // namespace zel
