#include "engine/menu/MenuElements.h"

#include <algorithm>
#include <utility>

#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"

namespace zel {

namespace {

template <typename Element>
Element* findIn(const std::map<String, std::unique_ptr<Element>>& elements, const String& name) {
    const auto found = elements.find(name);
    return found != elements.end() ? found->second.get() : nullptr;
}

} // namespace

MenuElements::~MenuElements() = default;

Widget* MenuElements::getWidget(const String& name) const { return findIn(widgets, name); }
TextArea* MenuElements::getTextArea(const String& name) const { return findIn(textAreas, name); }

Widget* MenuElements::put(std::unique_ptr<Widget> widget) {
    const String name = widget->getName();
    std::unique_ptr<Widget>& entry = widgets[name];
    if (entry)
        unlinkWidget(*entry, widgets, textAreas);
    std::unique_ptr<Widget> replaced = std::exchange(entry, std::move(widget));
    linkWidget(name, widgets, textAreas);
    if (replaced)
        deferDeletion(std::move(replaced));
    return entry.get();
}

TextArea* MenuElements::put(std::unique_ptr<TextArea> textArea) {
    const String name = textArea->getName();
    std::unique_ptr<TextArea>& entry = textAreas[name];
    if (entry)
        leaveArea(entry->getBounds());
    entry = std::move(textArea);
    joinArea(name, entry->getBounds(), widgets);
    return entry.get();
}

void MenuElements::removeWidget(const String& name) {
    auto node = widgets.extract(name);
    if (node.empty())
        return;
    unlinkWidget(*node.mapped(), widgets, textAreas);
    deferDeletion(std::move(node.mapped()));
}

void MenuElements::removeTextArea(const String& name) {
    const auto found = textAreas.find(name);
    if (found == textAreas.end())
        return;
    leaveArea(found->second->getBounds());
    textAreas.erase(found);
}

void MenuElements::clearWidgets() {
    for (const auto& [name, widget] : widgets)
        unlinkWidget(*widget, widgets, textAreas);
    std::fill(walk.begin(), walk.end(), nullptr);
    Widgets removed;
    removed.swap(widgets);
    if (depth > 0)
        for (auto& [name, widget] : removed)
            deferred.push_back(std::move(widget));
}

void MenuElements::clearTextAreas() {
    for (const auto& [name, area] : textAreas)
        leaveArea(area->getBounds());
    textAreas.clear();
}

void MenuElements::deferDeletion(std::unique_ptr<Widget> widget) {
    std::replace(walk.begin(), walk.end(), widget.get(), static_cast<Widget*>(nullptr));
    if (depth > 0)
        deferred.push_back(std::move(widget));
}

void MenuElements::endWork() {
    if (--depth == 0)
        deferred.clear();
}

void MenuElements::handlePointer(const Pointer& pointer) {
    walk.clear();
    for (const auto& [name, widget] : widgets)
        walk.push_back(widget.get());
    ++depth;
    for (size_t i = 0; i < walk.size(); ++i) {
        if (walk[i] != nullptr)
            walk[i]->handlePointer(pointer);
    }
    walk.clear();
    endWork();
}

void MenuElements::hit(Widget& widget) {
    ++depth;
    widget.performHit();
    endWork();
}

void MenuElements::resetWidgets() {
    for (const auto& [name, widget] : widgets)
        widget->reset();
}

void MenuElements::moveTo(int32_t contentPhase, float progress) {
    for (const auto& [name, widget] : widgets)
        widget->getBounds().moveTo(contentPhase, progress);
    for (const auto& [name, area] : textAreas)
        area->getBounds().moveTo(contentPhase, progress);
}

void MenuElements::render(int32_t alpha) {
    for (const auto& [name, widget] : widgets) {
        widget->setAlpha(alpha);
        widget->render();
    }
    for (const auto& [name, area] : textAreas) {
        area->setAlpha(alpha);
        area->render();
    }
}

} // namespace zel
