#include "engine/core/TextLines.h"

namespace zel {

String unescapeLineFeeds(const String& text) {
    constexpr std::string_view Escaped = "\\n";
    std::string result(text.view());
    for (size_t position = result.find(Escaped); position != result.npos;
         position = result.find(Escaped, position + 1))
        result.replace(position, Escaped.size(), "\n");
    return String(std::move(result));
}

} // namespace zel
