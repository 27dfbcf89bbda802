#include "engine/menu/Menu.h"

#include <algorithm>

#include "engine/core/Log.h"
#include "engine/core/Mouse.h"
#include "engine/core/StatesMachine.h"
#include "engine/menu/ElementStyle.h"
#include "engine/menu/LayoutHandler.h"
#include "engine/menu/ScrollingArea.h"
#include "engine/menu/StandardMenuOverlay.h"
#include "engine/menu/TextArea.h"
#include "engine/menu/ThemeHandler.h"

namespace zel {

namespace {

constexpr const char* Category = "Menu";

template <typename Element>
Element* findIn(const std::map<String, std::unique_ptr<Element>>& elements, const String& name) {
    const auto found = elements.find(name);
    return found != elements.end() ? found->second.get() : nullptr;
}

MenuOverlay* overlayOf(const ThemePicture& picture) {
    return picture.image.empty() ? nullptr
                                 : StandardMenuOverlay::of(picture.image, picture.options);
}

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
        reasonAgainst("Widget", name, getName(), layout, &Layout::widgets, widgets);
    if (!reason.empty()) {
        log(reason, Category, LogWarning);
        return nullptr;
    }
    std::unique_ptr<Widget> widget = createWidgetFromLayout(*layout, name, theme, widgetAlignment);
    Widget* made = widget.get();
    widgets[name] = std::move(widget);
    linkScrollingAreas();
    standElements();
    return made;
}

TextArea* Menu::createTextArea(const String& name) {
    const String reason =
        reasonAgainst("TextArea", name, getName(), layout, &Layout::textAreas, textAreas);
    if (!reason.empty()) {
        log(reason, Category, LogWarning);
        return nullptr;
    }
    std::unique_ptr<TextArea> area =
        createTextAreaFromLayout(*layout, name, theme, textAreaAlignment);
    TextArea* made = area.get();
    textAreas[name] = std::move(area);
    linkScrollingAreas();
    standElements();
    return made;
}

Widget* Menu::getWidget(const String& name) const { return findIn(widgets, name); }
TextArea* Menu::getTextArea(const String& name) const { return findIn(textAreas, name); }

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

void Menu::removeWidget(const String& name) {
    auto node = widgets.extract(name);
    if (node.empty())
        return;
    bury(std::move(node.mapped()));
    linkScrollingAreas();
}

void Menu::removeTextArea(const String& name) {
    textAreas.erase(name);
    linkScrollingAreas();
}

void Menu::clearWidgets() {
    std::map<String, std::unique_ptr<Widget>> gone;
    gone.swap(widgets);
    linkScrollingAreas();
    for (auto& [name, widget] : gone)
        bury(std::move(widget));
}

void Menu::clearTextAreas() { textAreas.clear(); }

void Menu::resetWidgets() {
    for (const auto& [name, widget] : widgets)
        widget->reset();
}

void Menu::bury(std::unique_ptr<Widget> widget) {
    std::replace(walk.begin(), walk.end(), widget.get(), static_cast<Widget*>(nullptr));
    graveyard.push_back(std::move(widget));
    emptyGraveyard();
}

void Menu::emptyGraveyard() {
    if (working == 0)
        graveyard.clear();
}

void Menu::recreateElements() {
    if (layout == nullptr)
        return;
    for (auto& [name, widget] : widgets) {
        std::unique_ptr<Widget> made =
            createWidgetFromLayout(*layout, name, theme, widgetAlignment);
        if (!made)
            continue;
        made->setText(widget->getText());
        made->setTransition(widget->getTransition());
        made->setActive(widget->isActive());
        made->setVisible(widget->isVisible());
        std::swap(widget, made);
        bury(std::move(made));
    }
    for (auto& [name, area] : textAreas) {
        std::unique_ptr<TextArea> made =
            createTextAreaFromLayout(*layout, name, theme, textAreaAlignment);
        if (!made)
            continue;
        made->setText(area->getText());
        made->setVisible(area->isVisible());
        area = std::move(made);
    }
    linkScrollingAreas();
    standElements();
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
    themeBackground = overlayOf(theme->background);
    themeForeground = overlayOf(theme->foreground);
    return true;
}

void Menu::setMenuOverlay(bool isBackground, const String& image, const OverlayOptions& options) {
    MenuOverlay* overlay = StandardMenuOverlay::of(image, options);
    if (overlay == nullptr) {
        log(String("setMenuOverlay background image ") + image + " does not exist", Category,
            LogWarning);
        return;
    }
    if (isBackground)
        setBackgroundOverlay(overlay);
    else
        setForegroundOverlay(overlay);
}

void Menu::setOverlayBlend(Blend background, Blend foreground) {
    backgroundBlend = background;
    foregroundBlend = foreground;
}

bool Menu::hitWidget(const String& name) {
    Widget* widget = getWidget(name);
    const bool isIdle = StatesMachine::getInstance().getPhase() == StatesMachine::Idle;
    if (widget == nullptr || !widget->isVisible() || !widget->isActive() || !isIdle)
        return false;
    ++working;
    widget->performHit();
    --working;
    emptyGraveyard();
    return true;
}

// The elements of an area are named after it: "list.row1" moves with "list".
void Menu::linkScrollingAreas() {
    std::map<ScrollingArea*, int32_t> bottoms;
    const auto link = [&](const String& name, Placing& placing) {
        placing.area = nullptr;
        const int32_t point = name.find('.');
        auto* area =
            point < 1 ? nullptr : dynamic_cast<ScrollingArea*>(getWidget(name.left(point)));
        if (area == nullptr)
            return;
        placing.area = area;
        int32_t& bottom = bottoms[area];
        bottom = std::max(bottom, placing.place.y + placing.place.height);
    };
    for (const auto& [name, widget] : widgets)
        link(name, widget->getPlacing());
    for (const auto& [name, area] : textAreas)
        link(name, area->getPlacing());
    for (const auto& [area, bottom] : bottoms)
        area->setContentBottom(bottom);
}

void Menu::updateWidgets() {
    if (widgets.empty())
        return;
    walk.clear();
    for (const auto& [name, widget] : widgets)
        walk.push_back(widget.get());
    ++working;
    const Pointer pointer = Pointer::read();
    for (size_t i = 0; i < walk.size(); ++i) {
        if (walk[i] != nullptr)
            walk[i]->look(pointer);
    }
    Mouse::takeWheel(); // what no area wanted now must not move one later
    --working;
    walk.clear();
    emptyGraveyard();
}

void Menu::update() {
    for (StateOverlay* overlay : {getThemeBackground(), getBackgroundOverlay(),
                                  getThemeForeground(), getForegroundOverlay()}) {
        if (overlay != nullptr)
            overlay->update();
    }
    updateWidgets();
}

void Menu::standElements() {
    for (const auto& [name, widget] : widgets)
        widget->getPlacing().stand(getContentPhase(), getContentProgress());
    for (const auto& [name, area] : textAreas)
        area->getPlacing().stand(getContentPhase(), getContentProgress());
}

StateOverlay* Menu::getThemeBackground() const { return themeBackground; }
StateOverlay* Menu::getThemeForeground() const { return themeForeground; }

void Menu::render() {
    Canvas& canvas = Canvas::getInstance();
    standElements();
    drawBackground(canvas);
    renderMiddle();
    for (const auto& [name, widget] : widgets) {
        widget->setAlpha(getOpacityByte());
        widget->render();
    }
    for (const auto& [name, area] : textAreas) {
        area->setAlpha(getOpacityByte());
        area->render();
    }
    drawForeground(canvas);
}

void Menu::drawBackground(Canvas& canvas) {
    if (themeBackground == nullptr && getBackgroundOverlay() == nullptr)
        canvas.clear(static_cast<uint32_t>(getOpacityByte()) << 24);
    drawPicture(canvas, &State::getThemeBackground, themeBackgroundBlend);
    drawPicture(canvas, &State::getBackgroundOverlay, backgroundBlend);
}

void Menu::drawForeground(Canvas& canvas) {
    drawPicture(canvas, &State::getThemeForeground, themeForegroundBlend);
    drawPicture(canvas, &State::getForegroundOverlay, foregroundBlend);
}

// Each picture is looked at for itself: two screens on one desk fade what lies on it, not the desk.
void Menu::drawPicture(Canvas& canvas, OverlayOf which, Blend blend) {
    StateOverlay* overlay = (this->*which)();
    if (overlay == nullptr)
        return;
    const StatesMachine& machine = StatesMachine::getInstance();
    const State* active = machine.getActiveState();
    const State* partner = active == this ? machine.getPreviousState() : active;
    const bool isShared = partner != nullptr && (partner->*which)() == overlay;
    const int32_t opacity = getOpacityByte();
    const int32_t alphaBefore = canvas.getAlpha();
    canvas.setBlend(blend);
    canvas.setAlpha(isShared && opacity > 0 ? 255 : opacity);
    overlay->render();
    canvas.setAlpha(alphaBefore);
    canvas.setBlend(Blend::Normal);
}

} // namespace zel
