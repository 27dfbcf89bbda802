#include "engine/menu/Menu.h"

#include <algorithm>

#include "engine/core/Log.h"
#include "engine/menu/StandardMenuOverlay.h"
#include "engine/menu/style/ElementStyle.h"
#include "engine/menu/style/LayoutHandler.h"
#include "engine/menu/style/ThemeHandler.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/StatesMachine.h"

namespace zel {

namespace {

constexpr const char* Category = "Menu";

template <typename Element>
Element* findIn(const std::map<String, std::unique_ptr<Element>>& elements, const String& name) {
    const auto found = elements.find(name);
    return found != elements.end() ? found->second.get() : nullptr;
}

/// The theme's overlay; should it have none, or one of no known name, its image's.
MenuOverlay* overlayOf(const ThemeOverlay& named, const String& image) {
    MenuOverlay* overlay = nullptr;
    if (!named.name.empty())
        overlay = MenuOverlay::find(named.name);
    if (overlay == nullptr && !named.name.empty())
        overlay = StandardMenuOverlay::of(named.name, named.options);
    if (overlay == nullptr && !image.empty())
        overlay = StandardMenuOverlay::of(image, {});
    return overlay;
}

/// The state that fades into or out of this one just now; null if there is none.
const State* partnerOf(const State& state) {
    const StatesMachine& machine = StatesMachine::getInstance();
    const State* const active = machine.getActiveState();
    const State* const previous = machine.getPreviousState();
    if (&state == active)
        return previous;
    return &state == previous ? active : nullptr;
}

/// Whether a state that is drawn comes before its partner, which isn't drawn while it is invisible.
bool isDrawnFirst(const State& state, const State& partner) {
    const StatesMachine& machine = StatesMachine::getInstance();
    const bool isLower = machine.isNewStateOnTop() == (&state == machine.getPreviousState());
    return isLower || partner.getOpacity() <= 0;
}

bool isDrawnLast(const State& state, const State& partner) {
    return !isDrawnFirst(state, partner) || partner.getOpacity() <= 0;
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
    linkWidget(name, widgets, textAreas);
    moveToPhase(made->getBounds());
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
    joinArea(name, made->getBounds(), widgets);
    moveToPhase(made->getBounds());
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

bool Menu::setWidgetKind(const String& name, const String& kind) {
    Widget* widget = getWidget(name);
    const bool isKnown = theme != nullptr && theme->widgets.count(kind.toLower()) != 0;
    if (widget == nullptr || !isKnown) {
        log(widget == nullptr ? "setWidgetKind() of unknown widget " + name
                              : "setWidgetKind() to unknown kind " + kind,
            Category, LogWarning);
        return false;
    }
    widget->setKind(kind.toLower());
    styleWidget(*widget, *layout, theme);
    return true;
}

void Menu::removeWidget(const String& name) {
    auto node = widgets.extract(name);
    if (node.empty())
        return;
    unlinkWidget(*node.mapped(), widgets, textAreas);
    deferDeletion(std::move(node.mapped()));
}

void Menu::removeTextArea(const String& name) {
    const auto found = textAreas.find(name);
    if (found == textAreas.end())
        return;
    leaveArea(found->second->getBounds());
    textAreas.erase(found);
}

void Menu::clearWidgets() {
    for (const auto& [name, widget] : widgets)
        unlinkWidget(*widget, widgets, textAreas);
    Widgets gone;
    gone.swap(widgets);
    for (auto& [name, widget] : gone)
        deferDeletion(std::move(widget));
}

void Menu::clearTextAreas() {
    for (const auto& [name, area] : textAreas)
        leaveArea(area->getBounds());
    textAreas.clear();
}

void Menu::resetWidgets() {
    for (const auto& [name, widget] : widgets)
        widget->reset();
}

void Menu::deferDeletion(std::unique_ptr<Widget> widget) {
    std::replace(walk.begin(), walk.end(), widget.get(), static_cast<Widget*>(nullptr));
    deferred.push_back(std::move(widget));
    deleteDeferred();
}

void Menu::deleteDeferred() {
    if (working == 0)
        deferred.clear();
}

void Menu::recreateElements() {
    if (layout == nullptr)
        return;
    for (auto& [name, widget] : widgets) {
        std::unique_ptr<Widget> made =
            createWidgetFromLayout(*layout, name, theme, widgetAlignment);
        if (!made)
            continue;
        made->setKind(widget->getKind());
        styleWidget(*made, *layout, theme);
        made->setText(widget->getText());
        made->setTransition(widget->getTransition());
        made->setActive(widget->isActive());
        made->setVisible(widget->isVisible());
        made->setFocused(widget->isFocused());
        unlinkWidget(*widget, widgets, textAreas);
        std::swap(widget, made);
        linkWidget(name, widgets, textAreas);
        deferDeletion(std::move(made));
    }
    for (auto& [name, area] : textAreas) {
        std::unique_ptr<TextArea> made =
            createTextAreaFromLayout(*layout, name, theme, textAreaAlignment);
        if (!made)
            continue;
        made->setText(area->getText());
        made->setVisible(area->isVisible());
        leaveArea(area->getBounds());
        area = std::move(made);
        joinArea(name, area->getBounds(), widgets);
    }
    moveElements();
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
    themeBackground = overlayOf(theme->backgroundOverlay, theme->backgroundImage);
    themeForeground = overlayOf(theme->foregroundOverlay, theme->foregroundImage);
    return true;
}

void Menu::setMenuOverlay(bool isBackground, const String& image, const OverlayOptions& options) {
    MenuOverlay* overlay = StandardMenuOverlay::of(image, options);
    if (overlay == nullptr) {
        log(String("setMenuOverlay background image ") + image + " does not exist", Category,
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
    ++working;
    widget->performHit();
    --working;
    deleteDeferred();
    return true;
}

void Menu::updateWidgets() {
    walk.clear();
    for (const auto& [name, widget] : widgets)
        walk.push_back(widget.get());
    ++working;
    const Pointer pointer = Pointer::read();
    for (size_t i = 0; i < walk.size(); ++i) {
        if (walk[i] != nullptr)
            walk[i]->handlePointer(pointer);
    }
    --working;
    walk.clear();
    deleteDeferred();
}

void Menu::update() {
    for (StateOverlay* overlay : {getThemeBackground(), getBackgroundOverlay(),
                                  getThemeForeground(), getForegroundOverlay()}) {
        if (overlay != nullptr)
            overlay->update();
    }
    updateWidgets();
}

void Menu::moveToPhase(Bounds& bounds) const {
    bounds.moveTo(getContentPhase(), getContentProgress());
}

void Menu::moveElements() {
    for (const auto& [name, widget] : widgets)
        moveToPhase(widget->getBounds());
    for (const auto& [name, area] : textAreas)
        moveToPhase(area->getBounds());
}

StateOverlay* Menu::getThemeBackground() const { return themeBackground; }
StateOverlay* Menu::getThemeForeground() const { return themeForeground; }

int32_t Menu::getDrawAlpha() const {
    const State* partner = partnerOf(*this);
    if (partner == nullptr || !StatesMachine::getInstance().sharesBackgroundOverlay() ||
        !isDrawnFirst(*this, *partner))
        return getOpacityByte();
    return 255 - partner->getOpacityByte();
}

void Menu::render() {
    Canvas& canvas = Canvas::getInstance();
    const int32_t alpha = getDrawAlpha();
    moveElements();
    drawBackground(canvas);
    renderMiddle();
    for (const auto& [name, widget] : widgets) {
        widget->setAlpha(alpha);
        widget->render();
    }
    for (const auto& [name, area] : textAreas) {
        area->setAlpha(alpha);
        area->render();
    }
    drawForeground(canvas);
}

void Menu::drawBackground(Canvas& canvas) {
    if (themeBackground == nullptr && getBackgroundOverlay() == nullptr)
        canvas.clear(static_cast<uint32_t>(getOpacityByte()) << 24);
    drawPicture(canvas, &State::getThemeBackground, themeBackgroundBlend, isDrawnFirst);
    drawPicture(canvas, &State::getBackgroundOverlay, backgroundBlend, isDrawnFirst);
}

void Menu::drawForeground(Canvas& canvas) {
    drawPicture(canvas, &State::getThemeForeground, themeForegroundBlend, isDrawnLast);
    drawPicture(canvas, &State::getForegroundOverlay, foregroundBlend, isDrawnLast);
}

// A picture that both states show is drawn once and at full strength: two screens on one desk fade
// what lies on it, not the desk.
void Menu::drawPicture(Canvas& canvas, OverlayOf which, Blend blend, DrawsShared drawsShared) {
    StateOverlay* overlay = (this->*which)();
    if (overlay == nullptr)
        return;
    const State* partner = partnerOf(*this);
    const bool isShared = partner != nullptr && (partner->*which)() == overlay;
    if (isShared && !drawsShared(*this, *partner))
        return;
    const int32_t alphaBefore = canvas.getAlpha();
    canvas.setBlend(blend);
    canvas.setAlpha(isShared ? 255 : getDrawAlpha());
    overlay->render();
    canvas.setAlpha(alphaBefore);
    canvas.setBlend(Blend::Normal);
}

} // namespace zel
