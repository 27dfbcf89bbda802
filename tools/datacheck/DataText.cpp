#include "tools/datacheck/DataText.h"

#include <algorithm>
#include <string>

#include "app/career/Calendar.h"
#include "engine/core/File.h"

namespace datacheck {

namespace {

constexpr int32_t FirstDate = 19140701;
constexpr int32_t LastDate = 19181231;

/// Why the bytes are not lines of text, and what to do about it; the message is empty if they are.
tools::Finding whyNoText(const zel::String& file, std::string_view bytes) {
    if (bytes.find_first_not_of("\r\n") == bytes.npos)
        return {file, 0, "the file is empty", "write its lines or delete it"};
    const std::string_view mark = bytes.substr(0, 2);
    if (mark == "\xFF\xFE" || mark == "\xFE\xFF")
        return {file, 0, "the file is UTF-16", "save it as plain text (ANSI or UTF-8)"};
    if (bytes.find_first_not_of('\0') == bytes.npos)
        return {file, 0, "the file holds nothing but zero bytes", "write it again"};
    const auto isControl = [](char character) {
        return (character >= 0 && character < ' ' && character != '\t' && character != '\r' &&
                character != '\n') ||
               character == 0x7F;
    };
    if (std::any_of(bytes.begin(), bytes.end(), isControl))
        return {file, 0, "the file is not text", "delete it or save it as plain text"};
    return {};
}

} // namespace

std::vector<TextLine> readText(const zel::String& file, Findings& findings) {
    std::vector<TextLine> lines;
    std::string bytes;
    zel::File source(file, zel::FileRead);
    if (!source.readWhole(bytes)) {
        findings.emplace_back(file, 0, "the file is missing or can't be read");
        return lines;
    }
    if (tools::Finding finding = whyNoText(file, bytes); !finding.message.empty()) {
        findings.push_back(std::move(finding));
        return lines;
    }
    while (source.hasLine()) {
        lines.push_back({source.lineNumber(), source.getLine()});
        const TextLine& line = lines.back();
        if (line.text.find('\t') >= 0)
            findings.emplace_back(file, line.number, "a tab", "write a single blank instead");
        else if (!isPlain(line.text))
            findings.emplace_back(file, line.number, "a character outside of ASCII",
                                  "write ae for an umlaut, e for an accent");
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
