#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace zel {

/// For the operations below that take any kind of text: String, std::string, literals.
template <typename T>
using IfText = std::enable_if_t<std::is_convertible_v<const T&, std::string_view>>;

/// The engine's text: bytes of one code page (TextEncoding.h), compared, cut and lowered as bytes.
///
/// A second text is stored beside the first and copied with it; it takes no part in comparing,
/// joining or cutting.
class String {
public:
    String() = default;
    String(const char* text); // a null pointer is the empty text
    String(std::string_view text) : text(text) {}
    String(std::string text) : text(std::move(text)) {}
    explicit String(char character) : text(1, character) {}
    String(int32_t number); // in decimal
    String(const String& other) : text(other.text), companion(other.copyOfCompanion()) {}
    String(String&&) noexcept = default;
    String& operator=(const String& other);
    String& operator=(String&&) noexcept = default;
    virtual ~String() = default;

    const char* c_str() const { return text.c_str(); }
    int32_t length() const { return static_cast<int32_t>(text.size()); }
    bool empty() const { return text.empty(); }
    std::string_view view() const { return text; }
    operator std::string_view() const { return text; } // NOLINT: a text is a view of itself

    template <typename T, typename = IfText<T>> String& operator+=(const T& other) {
        text += std::string_view(other);
        return *this;
    }
    String& operator+=(int32_t number);

    template <typename T, typename = IfText<T>>
    friend String operator+(const String& first, const T& second) {
        String result(first);
        result += second;
        return result;
    }
    friend String operator+(const String& first, int32_t second) {
        String result(first);
        result += second;
        return result;
    }

    // A single character would be joined as a number: write String('c').
    String& operator+=(char) = delete;
    friend String operator+(const String&, char) = delete;

    /// Compares bytes over the shorter length; on a tie the shorter text is lower.
    template <typename T, typename = IfText<T>>
    friend bool operator==(const String& a, const T& b) {
        return a.view().compare(b) == 0;
    }
    template <typename T, typename = IfText<T>>
    friend bool operator!=(const String& a, const T& b) {
        return a.view().compare(b) != 0;
    }
    template <typename T, typename = IfText<T>> friend bool operator<(const String& a, const T& b) {
        return a.view().compare(b) < 0;
    }

    /// The C library's atoi, clamped to the range of the result: leading blanks, a sign, digits; 0
    /// without digits.
    int32_t toInt() const;
    /// A copy with A to Z lowered; bytes above 127 stay, in any locale.
    String toLower() const;
    /// A copy without that character at both ends.
    String trim(char character) const;
    /// Fills `result` with the parts between the delimiters. Adjacent delimiters give empty parts;
    /// a text without one gives one part; an empty delimiter doesn't split.
    void split(std::string_view delimiter, std::vector<String>& result) const;
    String left(int32_t count) const;  // the first characters; all of them if there are fewer
    String right(int32_t count) const; // the last characters
    /// Position of the first such character; -1 if there is none.
    int32_t find(char character) const;
    /// Clears `size` bytes of the buffer, then copies at most size - 1. A size below 3 does
    /// nothing.
    void copyTo(char* buffer, int32_t size) const;

    const std::string& secondText() const { return companion != nullptr ? *companion : none(); }
    void setSecondText(std::string_view newText) {
        companion = std::make_unique<std::string>(newText);
    }

private:
    std::string text;
    // Few texts have one, and a long log has a hundred thousand texts.
    std::unique_ptr<std::string> companion;

    std::unique_ptr<std::string> copyOfCompanion() const;
    static const std::string& none();
};

/// The same operations on a view, without a copy. `lower` changes only A to Z.
char lower(char character);
bool equalsNoCase(std::string_view a, std::string_view b);
inline std::string_view trimmed(std::string_view text, char character) {
    while (!text.empty() && text.front() == character)
        text.remove_prefix(1);
    while (!text.empty() && text.back() == character)
        text.remove_suffix(1);
    return text;
}
/// What String::toInt gives.
int32_t toInt(std::string_view text);
/// Leading blanks, sign, digits, point and exponent, the same on every system; 0 without a number.
float toFloat(std::string_view text);
/// Six significant digits and no forced point: 213679, 1050.25, 1e+06. The same on every system.
String formatFloat(float value);
/// The text in a fixed array, up to its first zero byte or its end.
std::string_view arrayText(const char* array, size_t size);
template <size_t Size> std::string_view arrayText(const char (&array)[Size]) {
    return arrayText(array, Size);
}
/// Clears the array and copies at most Size - 1 bytes.
void copyText(char* array, size_t size, std::string_view text);
template <size_t Size> void copyText(char (&array)[Size], std::string_view text) {
    copyText(array, Size, text);
}

} // namespace zel
