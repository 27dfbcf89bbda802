#include "app/mission/TextLogLines.h"

#include <algorithm>
#include <optional>

#include "engine/core/Log.h"
#include "engine/core/String.h"
#include "engine/core/TextLines.h"

namespace {

constexpr std::string_view KeyName = "mission_text_log";
constexpr std::string_view SectionKind = "key";
constexpr std::string_view SectionName = "system";
constexpr std::string_view Blanks = " \t";

std::string_view bare(std::string_view text) {
    const size_t first = text.find_first_not_of(Blanks);
    return first == text.npos ? std::string_view()
                              : text.substr(first, text.find_last_not_of(Blanks) + 1 - first);
}

/// A line's text without its end, and the end.
struct EndedLine {
    std::string_view text;
    std::string_view end;
};

EndedLine takeLine(std::string_view& rest) {
    const size_t length = std::min(rest.find_first_of("\r\n"), rest.size());
    const size_t ending =
        std::min<size_t>(rest.substr(length, 2) == "\r\n" ? 2 : 1, rest.size() - length);
    const EndedLine line{rest.substr(0, length), rest.substr(length, ending)};
    rest.remove_prefix(length + ending);
    return line;
}

/// What follows the "=" if the line has the key.
std::optional<std::string_view> valueIn(std::string_view line) {
    const size_t equals = line.find('=');
    if (equals == line.npos || !zel::equalsNoCase(bare(line.substr(0, equals)), KeyName))
        return std::nullopt;
    return line.substr(equals + 1);
}

bool isSystemSection(std::string_view line) {
    const std::string_view text = bare(line);
    if (text.size() < 2 || text.front() != '[' || text.back() != ']')
        return false;
    const std::string_view inner = text.substr(1, text.size() - 2);
    const size_t equals = inner.find('=');
    return equals != inner.npos && zel::equalsNoCase(bare(inner.substr(0, equals)), SectionKind) &&
           zel::equalsNoCase(bare(inner.substr(equals + 1)), SectionName);
}

bool isBracket(std::string_view line) { return bare(line).substr(0, 1) == "["; }
bool isSectionEnd(std::string_view line) { return zel::equalsNoCase(bare(line), "[END]"); }

/// The length of the number or word at the start of a text; 0 for anything else.
size_t valueLength(std::string_view text) {
    const auto end = [&](std::string_view letters, size_t start) {
        return std::min(text.find_first_not_of(letters, start), text.size());
    };
    const size_t sign = std::min<size_t>(end("+-", 0), 1);
    if (const size_t number = end("0123456789", sign); number > sign)
        return number;
    return end("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ", 0);
}

/// The line with 1 in place of its value; all that surrounds the value stays.
std::string switchedLine(std::string_view line) {
    const std::string_view after = *valueIn(line);
    const size_t start = std::min(after.find_first_not_of(Blanks), after.size());
    const size_t length = valueLength(after.substr(start));
    std::string result(line.substr(0, line.size() - after.size() + start));
    if (after.empty())
        result += ' ';
    result += '1';
    if (length == 0 && start < after.size())
        result += ' ';
    result += after.substr(start + length);
    return result;
}

/// Builds the new content line by line.
class Switching {
public:
    std::string of(std::string_view settings) {
        while (!settings.empty())
            take(takeLine(settings));
        closeSection();
        if (!hasSection && !hasOwnKey)
            addSection();
        return std::move(content);
    }

private:
    void take(const EndedLine& line) {
        if (isBracket(line.text)) {
            closeSection();
            isInside = isSystemSection(line.text);
            isForeign = !isInside && !isSectionEnd(line.text);
            hasSection = hasSection || isInside;
            hasKeyInside = false;
            indent = "\t";
        }
        const std::optional<std::string_view> value = valueIn(line.text);
        if (value) {
            hasOwnKey = hasOwnKey || !isForeign;
            hasKeyInside = hasKeyInside || isInside;
        }
        content += value && zel::toInt(bare(*value)) == 0 ? switchedLine(line.text)
                                                          : std::string(line.text);
        content += line.end;
        if (!line.end.empty())
            ending = line.end;
        if (!isBracket(line.text) && !bare(line.text).empty())
            indent = line.text.substr(0, line.text.find_first_not_of(Blanks));
        if (!bare(line.text).empty()) {
            lastLine = content.size();
            lastEnding = ending;
        }
    }

    /// A section without the key gets it after its last line that isn't empty.
    void closeSection() {
        if (isInside && !hasKeyInside) {
            const bool isEnded =
                lastLine > 0 && (content[lastLine - 1] == '\n' || content[lastLine - 1] == '\r');
            std::string added = isEnded ? "" : std::string(lastEnding);
            added += std::string(indent) + std::string(KeyName) + " = 1";
            if (isEnded)
                added += lastEnding;
            content.insert(lastLine, added);
        }
        isInside = false;
    }

    void addSection() {
        if (!content.empty() && content.back() != '\n' && content.back() != '\r')
            content += ending;
        const std::string end(ending);
        content +=
            "[KEY = system]" + end + "\t" + std::string(KeyName) + " = 1" + end + "[END]" + end;
    }

    std::string content;
    std::string_view ending = "\r\n"; // of the line before
    std::string_view indent = "\t";   // of the section's lines
    size_t lastLine = 0;              // where the last line that isn't empty ends
    std::string_view lastEnding = ending;
    bool isInside = false; // of the section
    bool hasSection = false;
    bool hasKeyInside = false;
    bool isForeign = false; // in another section
    bool hasOwnKey = false; // outside of other sections
};

} // namespace

int32_t textLogValue(std::string_view settings, bool isReported) {
    int32_t value = 0;
    zel::forEachLine(settings, [&](std::string_view line) {
        if (const std::optional<std::string_view> found = valueIn(line)) {
            if (isReported)
                zel::console(zel::String("startup.cfg: ") + bare(line));
            value = zel::toInt(*found);
        }
    });
    return value;
}

std::string withTextLogOn(std::string_view settings) { return Switching().of(settings); }
