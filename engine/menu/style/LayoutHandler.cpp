#include "engine/menu/style/LayoutHandler.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "engine/core/Language.h"
#include "engine/core/Log.h"
#include "engine/core/Shutdown.h"
#include "engine/menu/style/LayoutImage.h"

namespace zel {

namespace {

constexpr const char* LayoutHandlerCategory = "LayoutHandler";

std::unique_ptr<LayoutHandler>& layoutHandler() {
    static std::unique_ptr<LayoutHandler> handler;
    return handler;
}

/// Whether only widgets can be of that kind.
bool isForWidgets(const String& kind) {
    constexpr const char* Kinds[] = {"widget", "button", "textinput", "scrollingarea"};
    return std::any_of(std::begin(Kinds), std::end(Kinds),
                       [&](const char* known) { return equalsNoCase(known, kind); });
}

/// The element of that name in one list: the existing one, or else the other list's, or a new one.
/// An element that is in both stays in both.
ElementDefinition& moveTo(std::map<String, ElementDefinition>& to,
                          std::map<String, ElementDefinition>& from, const String& name) {
    if (const auto present = to.find(name); present != to.end())
        return present->second;
    if (auto node = from.extract(name); !node.empty())
        return to.insert(std::move(node)).position->second;
    ElementDefinition& element = to[name];
    element.name = name;
    return element;
}

} // namespace

LayoutHandler& LayoutHandler::getInstance() {
    if (!layoutHandler()) {
        layoutHandler() = std::make_unique<LayoutHandler>();
        setShutdownStep(ShutdownStep::Layouts, release);
    }
    return *layoutHandler();
}

void LayoutHandler::release() { layoutHandler().reset(); }

void LayoutHandler::defineLayout(const String& name) {
    current = &layouts[name.toLower()];
    *current = Layout();
    current->name = name;
    widget = textArea = nullptr;
}

void LayoutHandler::loadLayout(const String& imageFile) {
    if (Layout* layout = currentLayout())
        loadLayoutImage(imageFile, *layout);
}

void LayoutHandler::defineWidget(const String& name, const String& kind) {
    Layout* layout = currentLayout();
    if (layout == nullptr)
        return;
    const bool staysTextArea = !isForWidgets(kind) &&
                               layout->widgets.find(name) == layout->widgets.end() &&
                               layout->textAreas.find(name) != layout->textAreas.end();
    if (staysTextArea || equalsNoCase(kind, "textarea"))
        widget = &moveTo(layout->textAreas, layout->widgets, name);
    else
        widget = &moveTo(layout->widgets, layout->textAreas, name);
    if (!kind.empty())
        widget->kind = kind.toLower();
}

void LayoutHandler::defineTextArea(const String& name) {
    Layout* layout = currentLayout();
    if (layout == nullptr)
        return;
    const auto [entry, isNew] = layout->textAreas.try_emplace(name);
    textArea = &entry->second;
    if (isNew) {
        textArea->name = name;
        textArea->kind = "textarea";
    }
}

bool LayoutHandler::defineLike(const String& layoutName, const String& model, const String& name,
                               int32_t right, int32_t down) {
    const auto layout = layouts.find(layoutName.toLower());
    if (layout == layouts.end() || layout->second.widgets.count(model) == 0)
        return false;
    ElementDefinition element = layout->second.widgets[model];
    element.name = name;
    element.text = String();
    element.textNumber = 0;
    element.rect.x += right;
    element.rect.y += down;
    layout->second.widgets[name] = std::move(element);
    return true;
}

void LayoutHandler::translate() {
    for (auto& [layoutName, layout] : layouts)
        for (auto* elements : {&layout.widgets, &layout.textAreas})
            for (auto& [name, element] : *elements)
                if (element.textNumber != 0)
                    element.text = Language::get(element.textNumber);
}

Layout* LayoutHandler::currentLayout() {
    if (current == nullptr)
        log("defineWidget() without layout", LayoutHandlerCategory, LogError);
    return current;
}

ElementDefinition* LayoutHandler::partOf(ElementDefinition* element) {
    if (currentLayout() != nullptr && element == nullptr)
        log("definition of a part without its element", LayoutHandlerCategory, LogError);
    return element;
}

ElementDefinition* LayoutHandler::currentWidget() { return partOf(widget); }
ElementDefinition* LayoutHandler::currentTextArea() { return partOf(textArea); }

const Layout* LayoutHandler::find(const String& name) const {
    const auto found = layouts.find(name.toLower());
    return found != layouts.end() ? &found->second : nullptr;
}

} // namespace zel
