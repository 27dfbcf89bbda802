#include "app/screens/HangingLines.h"

#include <string>

#include "engine/graphics/Font.h"
#include "engine/graphics/TextBreaking.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr size_t MostLines = 12;           // of one text
constexpr std::string_view Indent = "   "; // of its second line and on

} // namespace

void addHangingLines(std::vector<zel::String>& lines, const zel::Widget* row,
                     const zel::String& text) {
    const zel::Font* font = row != nullptr ? row->getFont() : nullptr;
    if (font == nullptr) {
        lines.push_back(text);
        return;
    }
    const int32_t width = row->getBounds().rect.width;
    const std::string first = zel::brokenIntoLines(*font, text.view(), width, 1).front();
    lines.emplace_back(first);
    const std::string_view rest = zel::trimmed(text.view().substr(first.size()), ' ');
    if (rest.empty())
        return;
    for (const std::string& line :
         zel::brokenIntoLines(*font, rest, width - font->width(Indent), MostLines))
        lines.push_back(zel::String(Indent) + line);
}
