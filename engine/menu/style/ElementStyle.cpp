#include "engine/menu/style/ElementStyle.h"

#include "engine/core/Log.h"
#include "engine/graphics/Font.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/menu/style/Theme.h"
#include "engine/menu/widgets/ScrollingArea.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/TextInput.h"
#include "engine/sound/SoundHandler.h"

namespace zel {

namespace {

const Theme& orNone(const Theme* theme) {
    static const Theme none;
    return theme != nullptr ? *theme : none;
}

/// The first choice that is given; the theme's first font without any.
FontChoice firstGiven(const FontChoice& own, const FontChoice& layout, const FontChoice& kind,
                      const Theme& theme) {
    for (const FontChoice* choice : {&own, &layout, &kind}) {
        if (choice->isGiven())
            return *choice;
    }
    return theme.fonts.empty() ? FontChoice() : FontChoice{String(), 0};
}

int32_t alignmentOf(const ElementDefinition& element, int32_t fallback) {
    return (element.alignment & AlignHorizontal) != 0 ? element.alignment
                                                      : element.alignment | fallback;
}

std::unique_ptr<Widget> makeWidget(const ElementDefinition& element) {
    if (element.kind == "textinput")
        return std::make_unique<TextInput>(element.name);
    if (element.kind == "scrollingarea")
        return std::make_unique<ScrollingArea>(element.name);
    return std::make_unique<Widget>(element.name);
}

void setBounds(Bounds& bounds, const ElementDefinition& element) {
    bounds.rect = element.restingRect();
    bounds.scrollIn = element.scrollIn;
    bounds.scrollOut = element.scrollOut;
    bounds.moveTo(0, 1.0F);
}

void styleLooks(Widget& widget, const ElementDefinition& element, const WidgetStyle& style,
                const Theme& theme) {
    for (size_t i = 0; i < LookCount; ++i) {
        const auto look = static_cast<WidgetLook>(i);
        const String& image = element.images[i].empty() ? style.images[i] : element.images[i];
        widget.setImage(look,
                        image.empty() ? nullptr : ImageHandler::getInstance().getImage(image));
        widget.setTint(look, style.tints[i].value_or(0xFFFFFFFF));
        const std::optional<uint32_t>& color =
            style.textColors[i] ? style.textColors[i] : theme.textColors[i];
        widget.setTextColor(look, color.value_or(0xFFFFFFFF));
    }
}

const ElementDefinition* findElement(const std::map<String, ElementDefinition>& elements,
                                     const String& name) {
    const auto found = elements.find(name);
    if (found != elements.end())
        return &found->second;
    log(String("createTextAreaFromLayout received unknown identifier ") + name, "LayoutHandler",
        LogWarning);
    return nullptr;
}

} // namespace

FontResult chooseFont(const FontChoice& choice, const std::vector<String>& themeFonts) {
    if (!choice.name.empty()) {
        if (const Font* font = FontHandler::getFont(choice.name))
            return {font, false};
    }
    if (choice.index < 0)
        return {};
    const auto index = static_cast<size_t>(choice.index);
    if (index >= themeFonts.size() || themeFonts[index].empty())
        return {nullptr, true};
    return {FontHandler::getFont(themeFonts[index]), false};
}

void styleWidget(Widget& widget, const Layout& layout, const Theme* givenTheme) {
    static const ElementDefinition none;
    const auto found = layout.widgets.find(widget.getName());
    const ElementDefinition& element = found != layout.widgets.end() ? found->second : none;
    const Theme& theme = orNone(givenTheme);
    const WidgetStyle& style = theme.widgetStyle(widget.getKind());
    styleLooks(widget, element, style, theme);
    widget.setFont(
        chooseFont(firstGiven(element.font, layout.font, style.font, theme), theme.fonts).font);
    widget.setTextOffset(style.textX, style.textY, style.borderX, style.borderY);
    if (!style.sound.empty())
        SoundHandler::getInstance().load(style.sound);
    widget.setSound(style.sound);
}

std::unique_ptr<Widget> createWidgetFromLayout(const Layout& layout, const String& name,
                                               const Theme* theme, int32_t alignment) {
    const ElementDefinition* element = findElement(layout.widgets, name);
    if (element == nullptr)
        return nullptr;
    std::unique_ptr<Widget> widget = makeWidget(*element);
    widget->setKind(element->kind);
    setBounds(widget->getBounds(), *element);
    styleWidget(*widget, layout, theme);
    widget->setAlignment(alignmentOf(*element, alignment));
    widget->setText(element->text);
    widget->setTransition(element->transition);
    return widget;
}

std::unique_ptr<TextArea> createTextAreaFromLayout(const Layout& layout, const String& name,
                                                   const Theme* givenTheme, int32_t alignment) {
    const ElementDefinition* element = findElement(layout.textAreas, name);
    if (element == nullptr)
        return nullptr;
    const Theme& theme = orNone(givenTheme);
    const TextAreaStyle& style = theme.textAreaStyle(element->kind);
    auto area = std::make_unique<TextArea>(element->name);
    setBounds(area->getBounds(), *element);
    area->setFont(firstGiven(element->font, layout.font, style.font, theme), theme.fonts);
    area->setColor(style.color.value_or(theme.textAreaColor.value_or(0xFFFFFFFF)));
    area->setAlignment(alignmentOf(*element, alignment));
    area->setRect(area->getBounds().rect);
    if (!element->text.empty())
        area->setText(element->text);
    return area;
}

} // namespace zel
