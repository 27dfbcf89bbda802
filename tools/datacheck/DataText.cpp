#include "tools/datacheck/DataText.h"

#include <algorithm>
#include <string>

#include "app/career/Calendar.h"
#include "engine/core/File.h"

namespace datacheck {

namespace {

constexpr int32_t FirstDate = 19140701;
constexpr int32_t LastDate = 19181231;

/// What keeps the bytes from being lines of text; empty if nothing does.
zel::String whyNoText(std::string_view bytes) {
    if (bytes.find_first_not_of("\r\n") == bytes.npos)
        return "the file is empty: write its lines or delete it";
    const std::string_view mark = bytes.substr(0, 2);
    if (mark == "\xFF\xFE" || mark == "\xFE\xFF")
        return "the file is UTF-16: save it as plain text (ANSI or UTF-8)";
    if (bytes.find_first_not_of('\0') == bytes.npos)
        return "the file holds nothing but zero bytes: write it anew";
    const auto isControl = [](char character) {
        return (character >= 0 && character < ' ' && character != '\t' && character != '\r' &&
                character != '\n') ||
               character == 0x7F;
    };
    if (std::any_of(bytes.begin(), bytes.end(), isControl))
        return "the file is no text: delete it or save it as plain text";
    return {};
}

} // namespace

std::vector<TextLine> readText(const zel::String& file, Faults& faults) {
    std::vector<TextLine> lines;
    std::string bytes;
    zel::File source(file, zel::FileRead);
    if (!source.readWhole(bytes)) {
        faults.push_back({file, 1, "the file is missing or can't be read"});
        return lines;
    }
    const zel::String reason = whyNoText(bytes);
    if (!reason.empty()) {
        faults.push_back({file, 1, reason});
        return lines;
    }
    while (source.hasLine()) {
        lines.push_back({source.lineNumber(), source.getLine()});
        const TextLine& line = lines.back();
        if (line.text.find('\t') >= 0)
            faults.push_back({file, line.number, "a tab: write a single blank instead"});
        else if (!isPlain(line.text.view()))
            faults.push_back(
                {file, line.number,
                 "a character outside ASCII: write ae for an umlaut, e for an accent"});
    }
    return lines;
}

bool isPlain(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char character) { return character >= ' ' && character <= '~'; });
}

bool isDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char character) {
        return character >= '0' && character <= '9';
    });
}

bool isWarDate(std::string_view text) {
    if (text.size() != 8 || !isDigits(text))
        return false;
    const int32_t number = zel::toInt(text);
    const int32_t day = number % 100;
    return number >= FirstDate && number <= LastDate && day >= 1 &&
           day <= Calendar::daysInMonth(number / 10000, number / 100 % 100);
}

} // namespace datacheck
