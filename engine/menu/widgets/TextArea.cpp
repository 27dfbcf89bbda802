#include "engine/menu/widgets/TextArea.h"

#include "engine/core/Log.h"
#include "engine/graphics/Font.h"
#include "engine/menu/style/ElementStyle.h"
#include "engine/menu/widgets/ScrollingArea.h"

namespace zel {

namespace {

constexpr const char* TextAreaCategory = "TextArea";

} // namespace

TextArea::TextArea(const String& name) : name(name) { text.setFlow(TextFlow::Wrap); }

void TextArea::setText(const String& newText) {
    text.setText(newText);
    internalUpdate();
}

void TextArea::setRect(const PixelRect& rect) {
    bounds.rect = rect;
    text.setRect(rectOf(rect));
    internalUpdate();
}

void TextArea::setFont(const Font* font) {
    text.setFont(font);
    warnedFont = false;
}

void TextArea::setFont(const FontChoice& choice, const std::vector<String>& themeFonts) {
    const FontResult result = chooseFont(choice, themeFonts);
    if (result.isUnknownIndex)
        log(String("Font with fontIndex=") + choice.index + " does not exist", TextAreaCategory,
            LogError);
    else if (result.font == nullptr && choice.isGiven())
        log("Font cannot be loaded", TextAreaCategory, LogError);
    setFont(result.font);
}

// The text is laid out when it is drawn next; a missing font is logged now.
void TextArea::internalUpdate() {
    if (text.getFont() != nullptr || text.getText().empty() || warnedFont)
        return;
    warnedFont = true;
    log("internalUpdate() has no font", TextAreaCategory, LogError);
}

void TextArea::setAlignment(int32_t bits) {
    AlignX x = AlignX::Left;
    if ((bits & (AlignHCenter | AlignRight)) != 0)
        x = (bits & AlignHCenter) != 0 ? AlignX::Centre : AlignX::Right;
    AlignY y = AlignY::Top;
    if ((bits & (AlignVCenter | AlignBottom)) != 0)
        y = (bits & AlignVCenter) != 0 ? AlignY::Centre : AlignY::Bottom;
    text.setAlign(x, y);
}

void TextArea::render() {
    if (!visible || text.getFont() == nullptr || text.getText().empty())
        return;
    Canvas& canvas = Canvas::getInstance();
    if (bounds.area != nullptr)
        canvas.pushClip(rectOf(bounds.area->getBounds().rect));
    text.draw(canvas,
              {static_cast<float>(bounds.drawX - bounds.rect.x),
               static_cast<float>(bounds.drawY - bounds.rect.y)},
              alpha);
    if (bounds.area != nullptr)
        canvas.popClip();
}

} // namespace zel
