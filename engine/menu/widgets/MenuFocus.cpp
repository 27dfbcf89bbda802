#include "engine/menu/widgets/MenuFocus.h"

#include <algorithm>
#include <cstdlib>

#include "engine/menu/Menu.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Mouse.h"
#include "engine/window/Platform.h"

namespace zel {

namespace {

constexpr const char* BackWidget = "menuBack";

struct ArrowKey {
    int32_t symbol;
    int32_t stepX, stepY;
};

constexpr ArrowKey ArrowKeys[] = {
    {KeyUp, 0, -1}, {KeyDown, 0, 1}, {KeyLeft, -1, 0}, {KeyRight, 1, 0}};

struct Middle {
    int32_t x, y;
};

Middle middleOf(const Widget& widget) {
    const PixelRect place = widget.getBounds().currentRect();
    return {place.x + place.width / 2, place.y + place.height / 2};
}

/// What the focus can reach, by rows from the top and within a row from the left.
std::vector<Widget*> reachable(const Menu& menu) {
    std::vector<Widget*> widgets;
    for (const auto& [name, widget] : menu.getWidgets()) {
        if (widget->canFocus())
            widgets.push_back(widget.get());
    }
    std::stable_sort(widgets.begin(), widgets.end(), [](const Widget* a, const Widget* b) {
        const Middle first = middleOf(*a);
        const Middle second = middleOf(*b);
        return first.y != second.y ? first.y < second.y : first.x < second.x;
    });
    return widgets;
}

/// The only widget besides "menuBack" that can be pressed; null if there are none or several.
Widget* onlyWidget(const Menu& menu) {
    std::vector<Widget*> widgets = reachable(menu);
    widgets.erase(std::remove(widgets.begin(), widgets.end(), menu.getWidget(BackWidget)),
                  widgets.end());
    return widgets.size() == 1 ? widgets.front() : nullptr;
}

} // namespace

Widget* nextInOrder(const Menu& menu, const Widget* from, bool backwards) {
    const std::vector<Widget*> widgets = reachable(menu);
    if (widgets.empty())
        return nullptr;
    const auto found = std::find(widgets.begin(), widgets.end(), from);
    if (found == widgets.end())
        return backwards ? widgets.back() : widgets.front();
    const auto index = static_cast<size_t>(found - widgets.begin());
    const size_t step = backwards ? widgets.size() - 1 : 1;
    return widgets[(index + step) % widgets.size()];
}

// The distance aside counts double, so that a column is walked before it is left.
Widget* nextInDirection(const Menu& menu, const Widget* from, int32_t stepX, int32_t stepY) {
    if (from == nullptr)
        return nextInOrder(menu, nullptr, stepX + stepY < 0);
    const Middle start = middleOf(*from);
    Widget* best = nullptr;
    int32_t bestDistance = 0;
    for (Widget* widget : reachable(menu)) {
        const Middle middle = middleOf(*widget);
        const int32_t ahead = (middle.x - start.x) * stepX + (middle.y - start.y) * stepY;
        const int32_t aside =
            std::abs((middle.x - start.x) * stepY) + std::abs((middle.y - start.y) * stepX);
        const int32_t distance = ahead + 2 * aside;
        if (ahead > 0 && (best == nullptr || distance < bestDistance)) {
            best = widget;
            bestDistance = distance;
        }
    }
    return best;
}

void MenuFocus::takeKeys(Menu& menu, const std::vector<Key>& keys) {
    for (const Key& key : keys)
        takeKey(menu, key);
}

void MenuFocus::takeKey(Menu& menu, const Key& key) {
    Widget* widget = menu.getWidget(name);
    if (widget != nullptr && key.symbol != KeyTab && key.symbol != KeyEscape &&
        key.symbol != KeyReturn && key.symbol != KeyEnter && widget->takeKey(key))
        return;
    Widget* target = nullptr;
    for (const ArrowKey& arrow : ArrowKeys) {
        if (key.symbol == arrow.symbol)
            target = nextInDirection(menu, widget, arrow.stepX, arrow.stepY);
    }
    if (key.symbol == KeyTab)
        target = nextInOrder(menu, widget, key.shift);
    if (target != nullptr)
        give(menu, *target);
    // A key that is held down hits once: the next screen must not be hit by its repetitions.
    if (!key.repeated)
        takeHitKey(menu, key);
}

void MenuFocus::takeHitKey(Menu& menu, const Key& key) {
    const bool isHit = key.symbol == KeyReturn || key.symbol == KeyEnter || key.symbol == KeySpace;
    const bool isEscape = key.symbol == KeyEscape;
    if (isHit && menu.getWidget(name) != nullptr)
        menu.hitWidget(name);
    else if (isHit || (isEscape && !menu.hitWidget(BackWidget))) {
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
}

void MenuFocus::clear(Menu& menu) {
    if (Widget* widget = menu.getWidget(name))
        widget->setFocused(false);
    name = String();
}

// A field that is typed into keeps the focus while the mouse moves: only a hit elsewhere takes it.
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
