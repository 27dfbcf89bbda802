#include "engine/menu/Menu.h"

#include "engine/core/Log.h"
#include "engine/menu/MenuPictures.h"
#include "engine/menu/StandardMenuOverlay.h"
#include "engine/menu/style/ElementStyle.h"
#include "engine/menu/style/LayoutHandler.h"
#include "engine/menu/style/ThemeHandler.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/StatesMachine.h"

namespace zel {

namespace {

constexpr const char* MenuCategory = "Menu";

/// Why an element can't be made; empty if it can. `kind` is "Widget" or "TextArea".
template <typename Element>
String reasonAgainst(const String& kind, const String& name, const String& state,
                     const Layout* layout,
                     const std::map<String, ElementDefinition> Layout::*definitions,
                     const std::map<String, std::unique_ptr<Element>>& elements) {
    if (layout == nullptr)
        return String("No layout set in state ") + state + " before creating " +
               (kind == "Widget" ? "widget" : kind.view()) + " " + name;
    if (elements.count(name) != 0)
        return kind + " " + name + " already exists";
    if ((layout->*definitions).count(name) == 0)
        return kind + " " + name + " does not exist in layout " + layout->name;
    return {};
}

} // namespace

Menu::Menu(const String& name, int32_t flags) : State(name, flags) {}

Menu::~Menu() = default;

Widget* Menu::addWidget(const String& name, const String& text, const String& transition) {
    Widget* widget = createWidget(name);
    if (widget != nullptr && !text.empty())
        widget->setText(text);
    if (widget != nullptr && !transition.empty())
        widget->setTransition(transition);
    return widget;
}

TextArea* Menu::addTextArea(const String& name, const String& text) {
    TextArea* area = createTextArea(name);
    if (area != nullptr && !text.empty())
        area->setText(text);
    return area;
}

Widget* Menu::createWidget(const String& name) {
    const String reason =
        reasonAgainst("Widget", name, getName(), layout, &Layout::widgets, elements.getWidgets());
    if (!reason.empty()) {
        log(reason, MenuCategory, LogWarning);
        return nullptr;
    }
    Widget* widget = elements.put(createWidgetFromLayout(*layout, name, theme, widgetAlignment));
    widget->getBounds().moveTo(getContentPhase(), getContentProgress());
    return widget;
}

Widget* Menu::createRow(const String& model, const String& name, int32_t down) {
    if (layout != nullptr)
        LayoutHandler::getInstance().defineLike(layout->name, model, name, 0, down);
    return createWidget(name);
}

TextArea* Menu::createTextArea(const String& name) {
    const String reason = reasonAgainst("TextArea", name, getName(), layout, &Layout::textAreas,
                                        elements.getTextAreas());
    if (!reason.empty()) {
        log(reason, MenuCategory, LogWarning);
        return nullptr;
    }
    TextArea* area =
        elements.put(createTextAreaFromLayout(*layout, name, theme, textAreaAlignment));
    area->getBounds().moveTo(getContentPhase(), getContentProgress());
    return area;
}

bool Menu::setText(const String& name, const String& text) {
    if (Widget* widget = getWidget(name)) {
        widget->setText(text);
        return true;
    }
    TextArea* area = getTextArea(name);
    if (area != nullptr)
        area->setText(text);
    return area != nullptr;
}

bool Menu::setWidgetKind(const String& name, const String& kind) {
    Widget* widget = getWidget(name);
    const bool isKnown = theme != nullptr && theme->widgets.count(kind.toLower()) != 0;
    if (widget == nullptr || !isKnown) {
        log(widget == nullptr ? "setWidgetKind() of unknown widget " + name
                              : "setWidgetKind() to unknown kind " + kind,
            MenuCategory, LogWarning);
        return false;
    }
    widget->setKind(kind.toLower());
    styleWidget(*widget, *layout, theme);
    return true;
}

void Menu::translateElements() {
    if (layout == nullptr)
        return;
    for (const auto* definitions : {&layout->widgets, &layout->textAreas})
        for (const auto& [name, definition] : *definitions)
            if (definition.textNumber != 0)
                setText(name, definition.text);
}

void Menu::recreateElements() {
    if (layout == nullptr)
        return;
    for (const auto& [name, before] : elements.getWidgets()) {
        std::unique_ptr<Widget> widget =
            createWidgetFromLayout(*layout, name, theme, widgetAlignment);
        if (!widget)
            continue;
        widget->setKind(before->getKind());
        styleWidget(*widget, *layout, theme);
        widget->setText(before->getText());
        widget->setTransition(before->getTransition());
        widget->setActive(before->isActive());
        widget->setVisible(before->isVisible());
        widget->setFocused(before->isFocused());
        elements.put(std::move(widget));
    }
    for (const auto& [name, before] : elements.getTextAreas()) {
        std::unique_ptr<TextArea> area =
            createTextAreaFromLayout(*layout, name, theme, textAreaAlignment);
        if (!area)
            continue;
        area->setText(before->getText());
        area->setVisible(before->isVisible());
        elements.put(std::move(area));
    }
    elements.moveTo(getContentPhase(), getContentProgress());
}

bool Menu::setLayout(const String& name) {
    const Layout* found = LayoutHandler::getInstance().find(name);
    if (found != nullptr)
        layout = found;
    return found != nullptr;
}

bool Menu::setTheme(const String& name) {
    const Theme* found = ThemeHandler::getInstance().find(name);
    if (found == nullptr)
        return false;
    theme = found;
    themeBackground = themePicture(theme->backgroundOverlay, theme->backgroundImage);
    themeForeground = themePicture(theme->foregroundOverlay, theme->foregroundImage);
    return true;
}

void Menu::setMenuOverlay(bool isBackground, const String& image, const OverlayOptions& options) {
    MenuOverlay* overlay = StandardMenuOverlay::of(image, options);
    if (overlay == nullptr) {
        log(String("setMenuOverlay background image ") + image + " does not exist", MenuCategory,
            LogWarning);
        return;
    }
    StateOverlay* const before = isBackground ? getBackgroundOverlay() : getForegroundOverlay();
    if (isBackground)
        setBackgroundOverlay(overlay);
    else
        setForegroundOverlay(overlay);
    if (!isOverlayUser)
        return;
    overlay->addUser();
    if (before != nullptr)
        before->removeUser();
}

bool Menu::hitWidget(const String& name) {
    Widget* widget = getWidget(name);
    const bool isIdle = StatesMachine::getInstance().getPhase() == StatesMachine::Idle;
    if (widget == nullptr || !widget->isVisible() || !widget->isActive() || !isIdle)
        return false;
    elements.hit(*widget);
    return true;
}

void Menu::update() {
    const Pointer pointer = Pointer::read(); // once for all: reading resets the wheel
    for (StateOverlay* overlay : {getThemeBackground(), getBackgroundOverlay(),
                                  getThemeForeground(), getForegroundOverlay()}) {
        if (overlay == nullptr)
            continue;
        overlay->update();
        overlay->handlePointer(pointer);
    }
    elements.handlePointer(pointer);
}

StateOverlay* Menu::getThemeBackground() const { return themeBackground; }
StateOverlay* Menu::getThemeForeground() const { return themeForeground; }

void Menu::render() {
    Canvas& canvas = Canvas::getInstance();
    elements.moveTo(getContentPhase(), getContentProgress());
    drawBackground(canvas);
    renderMiddle();
    elements.render(drawAlphaOf(*this));
    drawForeground(canvas);
}

void Menu::drawBackground(Canvas& canvas) {
    if (themeBackground == nullptr && getBackgroundOverlay() == nullptr)
        canvas.clear(static_cast<uint32_t>(getOpacityByte()) << 24);
    drawPictureBehind(canvas, *this, &State::getThemeBackground, themeBackgroundBlend);
    drawPictureBehind(canvas, *this, &State::getBackgroundOverlay, backgroundBlend);
}

void Menu::drawForeground(Canvas& canvas) {
    drawPictureInFront(canvas, *this, &State::getThemeForeground, themeForegroundBlend);
    drawPictureInFront(canvas, *this, &State::getForegroundOverlay, foregroundBlend);
}

} // namespace zel
