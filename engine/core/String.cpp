#include "engine/core/String.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace zel {

namespace {

bool isBlank(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

std::string_view withoutLeadingBlanks(std::string_view text) {
    size_t start = 0;
    while (start < text.size() && isBlank(text[start]))
        ++start;
    return text.substr(start);
}

} // namespace

String::String(const char* text) : text(text != nullptr ? text : "") {}
String::String(int32_t number) : text(std::to_string(number)) {}

String& String::operator=(const String& other) {
    if (this != &other) {
        text = other.text;
        companion = other.copyOfCompanion();
    }
    return *this;
}

std::unique_ptr<std::string> String::copyOfCompanion() const {
    if (companion == nullptr)
        return nullptr;
    return std::make_unique<std::string>(*companion);
}

const std::string& String::none() {
    static const std::string empty;
    return empty;
}

String& String::operator+=(int32_t number) {
    text += std::to_string(number);
    return *this;
}

int32_t String::toInt() const { return zel::toInt(text); }

String String::toLower() const {
    String result(*this);
    for (char& character : result.text)
        character = lower(character);
    return result;
}

String String::trim(char character) const {
    String result(trimmed(text, character));
    result.companion = copyOfCompanion();
    return result;
}

void String::split(std::string_view delimiter, std::vector<String>& result) const {
    result.clear();
    std::string_view rest = text;
    if (!delimiter.empty()) {
        for (size_t end = rest.find(delimiter); end != rest.npos; end = rest.find(delimiter)) {
            result.emplace_back(rest.substr(0, end));
            rest.remove_prefix(end + delimiter.size());
        }
    }
    result.emplace_back(rest);
}

String String::left(int32_t count) const { return String(view().substr(0, std::max(count, 0))); }

String String::right(int32_t count) const {
    const auto kept = std::min(text.size(), static_cast<size_t>(std::max(count, 0)));
    return String(view().substr(text.size() - kept));
}

int32_t String::find(char character) const {
    const size_t position = text.find(character);
    return position == text.npos ? -1 : static_cast<int32_t>(position);
}

void String::copyTo(char* buffer, int32_t size) const {
    if (size >= 3)
        copyText(buffer, static_cast<size_t>(size), text);
}

char lower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A'))
                                                : character;
}

bool equalsNoCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                              [](char x, char y) { return lower(x) == lower(y); });
}

int32_t toInt(std::string_view text) {
    text = withoutLeadingBlanks(text);
    const bool negative = !text.empty() && text.front() == '-';
    if (negative || (!text.empty() && text.front() == '+'))
        text.remove_prefix(1);
    constexpr int64_t Limit = int64_t(1) << 31; // larger numbers are clamped to it
    int64_t value = 0;
    for (const char character : text) {
        const int32_t digit = character - '0';
        if (digit < 0 || digit > 9)
            break;
        value = value * 10 + digit;
        if (value > Limit)
            value = Limit;
    }
    if (negative)
        return static_cast<int32_t>(-value);
    return static_cast<int32_t>(value < Limit ? value : Limit - 1);
}

float toFloat(std::string_view text) {
    text = withoutLeadingBlanks(text);
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) // beyond a double: too large or too small
        value = std::strtod(std::string(text).c_str(), nullptr);
    else if (error != std::errc() || !std::isfinite(value)) // "nan" isn't a number
        return 0;
    constexpr double Most = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(value, -Most, Most));
}

String formatFloat(float value) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, static_cast<double>(value),
                                      std::chars_format::general, 6);
    return String(std::string_view(buffer, static_cast<size_t>(result.ptr - buffer)));
}

std::string_view arrayText(const char* array, size_t size) {
    const void* end = std::memchr(array, 0, size);
    return {array,
            end != nullptr ? static_cast<size_t>(static_cast<const char*>(end) - array) : size};
}

void copyText(char* array, size_t size, std::string_view text) {
    std::memset(array, 0, size);
    std::memcpy(array, text.data(), std::min(text.size(), size - 1));
}

} // namespace zel
