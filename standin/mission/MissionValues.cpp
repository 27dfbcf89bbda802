#include "standin/mission/MissionValues.h"

#include <algorithm>
#include <charconv>

#include "engine/core/String.h"

namespace standin {

namespace {

bool isDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(),
                                        [](char digit) { return digit >= '0' && digit <= '9'; });
}

/// Three whole numbers without a sign.
bool parseThree(std::string_view text, char separator, int32_t (&numbers)[3]) {
    const size_t first = text.find(separator);
    const size_t second = first == text.npos ? first : text.find(separator, first + 1);
    if (second == text.npos)
        return false;
    const std::string_view parts[] = {
        text.substr(0, first), text.substr(first + 1, second - first - 1), text.substr(second + 1)};
    for (size_t part = 0; part < 3; ++part)
        if (!isDigits(parts[part]) || !parseWhole(parts[part], numbers[part]))
            return false;
    return true;
}

bool isTime(const int32_t (&parts)[3]) { return parts[0] < 24 && parts[1] < 60 && parts[2] < 60; }

bool isDate(const int32_t (&parts)[3]) {
    constexpr int32_t Days[] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const auto [day, month, year] = parts;
    if (month < 1 || month > 12 || year < 1900 || year > 1999)
        return false;
    const bool leapDay = month == 2 && year % 4 == 0 && year != 1900;
    return day >= 1 && day <= Days[month] + (leapDay ? 1 : 0);
}

} // namespace

bool parseWhole(std::string_view text, int32_t& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

bool parseNumber(std::string_view text, double& number) {
    if (text.find_first_not_of("-.0123456789") != text.npos)
        return false;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

bool parseList(std::string_view text, std::vector<int32_t>& numbers) {
    numbers.clear();
    if (text.size() < 2 || text.front() != '[' || text.back() != ']')
        return false;
    text = text.substr(1, text.size() - 2);
    while (!text.empty()) {
        const size_t comma = std::min(text.find(','), text.size());
        int32_t number = 0;
        if (!parseWhole(text.substr(0, comma), number) || comma + 1 == text.size())
            return false;
        numbers.push_back(number);
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return true;
}

bool parseTime(std::string_view text, int32_t (&parts)[3]) {
    return parseThree(text, ':', parts) && isTime(parts);
}

bool parseDate(std::string_view text, int32_t (&parts)[3]) {
    return parseThree(text, '.', parts) && isDate(parts);
}

int32_t wholeOf(const MissionBlock& block, std::string_view key) {
    int32_t number = 0;
    const MissionEntry* entry = block.find(key);
    return entry != nullptr && parseWhole(entry->value, number) ? number : 0;
}

double numberOf(const MissionBlock& block, std::string_view key, double otherwise) {
    double number = 0;
    const MissionEntry* entry = block.find(key);
    return entry != nullptr && parseNumber(entry->value, number) ? number : otherwise;
}

std::string textOf(const MissionBlock& block, std::string_view key) {
    std::string text;
    const MissionEntry* entry = block.find(key);
    return entry != nullptr && unquoted(entry->value, text) ? text : "";
}

std::vector<int32_t> listOf(const MissionBlock& block, std::string_view key) {
    std::vector<int32_t> list;
    const MissionEntry* entry = block.find(key);
    if (entry != nullptr && !parseList(entry->value, list))
        list.clear();
    return list;
}

Vector positionOf(const MissionBlock& block) {
    return {numberOf(block, "XPos"), numberOf(block, "YPos"), numberOf(block, "ZPos")};
}

std::string plainPath(std::string_view path) {
    std::string result(path);
    for (char& character : result)
        character = character == '\\' ? '/' : zel::lower(character);
    return result;
}

int32_t lineOf(const MissionBlock& block, std::string_view key) {
    const MissionEntry* entry = block.find(key);
    return entry != nullptr ? entry->line : block.line;
}

} // namespace standin
