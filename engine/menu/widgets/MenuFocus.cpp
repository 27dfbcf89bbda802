#include "engine/menu/widgets/MenuFocus.h"

#include <algorithm>

#include "engine/menu/Menu.h"
#include "engine/menu/widgets/AreaLinks.h"
#include "engine/menu/widgets/FocusOrder.h"
#include "engine/menu/widgets/ScrollingArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Mouse.h"
#include "engine/window/Platform.h"

namespace zel {

namespace {

constexpr const char* BackWidget = "menuBack";
constexpr int32_t LineStep = 48; // design pixels by which an arrow key scrolls

struct ArrowKey {
    int32_t symbol;
    int32_t stepX, stepY;
};

constexpr ArrowKey ArrowKeys[] = {
    {KeyUp, 0, -1}, {KeyDown, 0, 1}, {KeyLeft, -1, 0}, {KeyRight, 1, 0}};

/// The only widget besides "menuBack", lists and their rows that can be pressed; null if there are
/// none or several.
Widget* onlyWidget(const Menu& menu) {
    std::vector<Widget*> widgets = focusOrder(menu);
    const auto doesNotCount = [&](Widget* widget) {
        return widget == menu.getWidget(BackWidget) || widget->getBounds().area != nullptr ||
               asArea(widget) != nullptr;
    };
    widgets.erase(std::remove_if(widgets.begin(), widgets.end(), doesNotCount), widgets.end());
    return widgets.size() == 1 ? widgets.front() : nullptr;
}

/// The area that keys scroll: the one that has the focus, the widget's own, or else the first in
/// reading order that can be used; null if there is none.
ScrollingArea* areaFor(const Menu& menu, Widget* widget) {
    if (ScrollingArea* area = asArea(widget))
        return area;
    if (widget != nullptr && widget->getBounds().area != nullptr)
        return widget->getBounds().area;
    ScrollingArea* first = nullptr;
    for (const auto& [name, element] : menu.getWidgets()) {
        ScrollingArea* area = asArea(element.get());
        if (area == nullptr || !area->isActive() || !area->isVisible())
            continue;
        const PixelRect& rect = area->getBounds().rect;
        if (first == nullptr || rect.y < first->getBounds().rect.y)
            first = area;
    }
    return first;
}

/// Where a key moves the focus from the widget, which may be null; null for nowhere.
Widget* targetOf(const Menu& menu, Widget* widget, const KeyPress& key) {
    for (const ArrowKey& arrow : ArrowKeys) {
        if (key.symbol == arrow.symbol)
            return nextInDirection(menu, widget, arrow.stepX, arrow.stepY);
    }
    if (key.symbol == KeyTab)
        return nextInOrder(menu, widget, key.shift);
    if (widget != nullptr && (key.symbol == KeyPageUp || key.symbol == KeyPageDown))
        return nextPage(menu, *widget, key.symbol == KeyPageUp ? -1 : 1);
    if (key.symbol == KeyHome || key.symbol == KeyEnd) {
        const ScrollingArea* area = areaFor(menu, widget);
        const bool isElsewhere =
            area != nullptr && (widget == nullptr || widget->getBounds().area != area);
        return isElsewhere ? nullptr : firstOrLast(menu, area, key.symbol == KeyEnd);
    }
    return nullptr;
}

/// Scrolls the area by an arrow key; false if it can't scroll further.
bool scrollByLine(ScrollingArea& area, const KeyPress& key) {
    const int32_t before = area.getOffset();
    if (key.symbol == KeyUp || key.symbol == KeyDown)
        area.scrollBy(key.symbol == KeyUp ? -LineStep : LineStep);
    return area.getOffset() != before;
}

/// What a key does to an area when the focus has nowhere to go.
void scroll(ScrollingArea& area, const KeyPress& key) {
    const int32_t page = area.getBounds().rect.height;
    if (key.symbol == KeyHome)
        area.scrollToStart();
    else if (key.symbol == KeyEnd)
        area.scrollToEnd();
    else if (key.symbol == KeyPageUp || key.symbol == KeyPageDown)
        area.scrollBy(key.symbol == KeyPageUp ? -page : page);
    else
        scrollByLine(area, key);
}

} // namespace

void MenuFocus::takeKeys(Menu& menu, const std::vector<KeyPress>& keys) {
    for (const KeyPress& key : keys)
        takeKey(menu, key);
}

void MenuFocus::takeKey(Menu& menu, const KeyPress& key) {
    Widget* widget = menu.getWidget(name);
    if (widget != nullptr && key.symbol != KeyTab && key.symbol != KeyEscape &&
        key.symbol != KeyReturn && key.symbol != KeyEnter && widget->takeKey(key))
        return;
    if (ScrollingArea* area = asArea(widget); area != nullptr && scrollByLine(*area, key))
        return;
    if (const Widget* target = targetOf(menu, widget, key))
        give(menu, *target);
    else if (ScrollingArea* area = areaFor(menu, widget))
        scroll(*area, key);
    // A held key hits once: its repetitions must not hit the next screen.
    if (!key.repeated)
        takeHitKey(menu, key);
}

// A row that the wheel has moved out of view is shown before it can be hit.
void MenuFocus::takeHitKey(Menu& menu, const KeyPress& key) {
    const bool isHit = key.symbol == KeyReturn || key.symbol == KeyEnter || key.symbol == KeySpace;
    const bool isEscape = key.symbol == KeyEscape;
    Widget* widget = menu.getWidget(name);
    if (asArea(widget) != nullptr)
        widget = nullptr; // it isn't a button
    if (isHit && widget != nullptr) {
        const Bounds& bounds = widget->getBounds();
        if (bounds.area == nullptr || bounds.area->isWhollyShown(bounds.rect))
            menu.hitWidget(name);
        else
            bounds.area->show(bounds.rect);
    } else if (isHit || (isEscape && !menu.hitWidget(BackWidget))) {
        if (const Widget* only = onlyWidget(menu))
            menu.hitWidget(only->getName());
    }
}

void MenuFocus::give(Menu& menu, const Widget& widget) {
    clear(menu);
    name = widget.getName();
    pointerX = Mouse::getX();
    pointerY = Mouse::getY();
    menu.getWidget(name)->setFocused(true);
    const Bounds& bounds = widget.getBounds();
    if (bounds.area != nullptr)
        bounds.area->show(bounds.rect);
}

bool MenuFocus::set(Menu& menu, const String& target) {
    const Widget* widget = menu.getWidget(target);
    if (widget == nullptr || !widget->canFocus())
        return false;
    give(menu, *widget);
    return true;
}

void MenuFocus::clear(Menu& menu) {
    if (Widget* widget = menu.getWidget(name))
        widget->setFocused(false);
    name = String();
}

// A text input keeps the focus while the mouse moves: only a hit elsewhere takes it.
void MenuFocus::follow(Menu& menu) {
    if (name.empty())
        return;
    const Widget* widget = menu.getWidget(name);
    const bool hasMoved = Mouse::getX() != pointerX || Mouse::getY() != pointerY;
    if (widget == nullptr || !widget->canFocus() || (hasMoved && !widget->wantsKeys()))
        clear(menu);
}

void MenuFocus::takeHit(Menu& menu, Widget& widget) {
    if (menu.getWidget(widget.getName()) != &widget)
        return;
    if (widget.wantsKeys())
        give(menu, widget);
    else if (name != widget.getName())
        clear(menu);
}

} // namespace zel
