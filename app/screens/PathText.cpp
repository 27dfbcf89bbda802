#include "app/screens/PathText.h"

#include <string>
#include <vector>

#include "engine/core/System.h"

namespace {

constexpr std::string_view LostMiddle = "...";
constexpr std::string_view PathSeparators = "\\/";

std::string shownPath(const zel::String& path) {
    const zel::String home = zel::system::environment("HOME");
    std::string shown(path.view());
    const size_t length = size_t(home.length());
    const bool isOwn = length > 1 && shown.compare(0, length, home.c_str()) == 0;
    if (isOwn && home.view().front() == '/' && (shown.size() == length || shown[length] == '/'))
        shown.replace(0, length, "~");
    return std::string(zel::system::shownText(shown).view());
}

/// The names of a path, each with the separators after it.
std::vector<std::string> partsOf(const std::string& path) {
    std::vector<std::string> parts;
    for (size_t start = 0; start < path.size();) {
        const size_t separator = path.find_first_of(PathSeparators, start);
        const size_t next =
            std::min(path.find_first_not_of(PathSeparators, separator), path.size());
        parts.push_back(path.substr(start, next - start));
        start = next;
    }
    return parts;
}

/// The first part and as many of the last ones as fit, with "..." between them.
std::string withoutMiddle(const std::string& path, size_t letters) {
    if (path.size() <= letters)
        return path;
    const std::vector<std::string> parts = partsOf(path);
    const char separator = path[std::min(path.find_first_of(PathSeparators), path.size() - 1)];
    const std::string head = parts.front() + std::string(LostMiddle) + separator;
    std::string tail;
    for (size_t i = parts.size() - 1; i > 0; --i) {
        if (head.size() + parts[i].size() + tail.size() > letters)
            break;
        tail.insert(0, parts[i]);
    }
    if (!tail.empty())
        return head + tail;
    return std::string(LostMiddle) + path.substr(path.size() - (letters - LostMiddle.size()));
}

/// Broken after separators; a name that is longer than a line is broken inside.
std::vector<std::string> broken(const std::string& path, size_t letters) {
    std::vector<std::string> lines(1);
    for (std::string part : partsOf(path)) {
        if (lines.back().size() + part.size() > letters && !lines.back().empty())
            lines.emplace_back();
        for (; part.size() > letters; part.erase(0, letters)) {
            lines.back() = part.substr(0, letters);
            lines.emplace_back();
        }
        lines.back() += part;
    }
    return lines;
}

} // namespace

zel::String shortPath(const zel::String& path, size_t letters) {
    return withoutMiddle(shownPath(path), letters);
}

zel::String pathInLines(const zel::String& path, size_t letters, size_t lines) {
    const std::string shown = shownPath(path);
    std::vector<std::string> texts = broken(shown, letters);
    for (size_t room = letters * lines; texts.size() > lines; --room)
        texts = broken(withoutMiddle(shown, room), letters);
    std::string joined;
    for (const std::string& text : texts)
        joined += (joined.empty() ? "" : "\n") + text;
    return joined;
}
