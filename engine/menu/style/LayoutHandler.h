#pragma once

#include "engine/menu/style/Layout.h"

namespace zel {

/// All layouts by name, and the layout and element that definitions go to.
class LayoutHandler {
public:
    /// Built at the first use; lives until release().
    static LayoutHandler& getInstance();
    /// Drops every layout. No menu may be alive.
    static void release();

    /// Starts the layout over, empty, and makes it the current one.
    void defineLayout(const String& name);
    /// Adds the elements of a drawn layout to the current one. On error: log lines; what could be
    /// read is there.
    void loadLayout(const String& imageFile);
    /// Adds an element to the current layout, or takes the one of that name, and makes it current.
    /// An empty kind leaves a known element's kind. The kind "textarea" makes it a text area; a
    /// text area that is there becomes a widget by the kinds that only widgets have, "widget",
    /// "button", "textinput" and "scrollingarea", and takes any other one as its own.
    void defineWidget(const String& name, const String& kind);
    void defineTextArea(const String& name);

    /// What definitions go to; null, and a log line, if there is none.
    Layout* currentLayout();
    ElementDefinition* currentWidget();
    ElementDefinition* currentTextArea();
    /// Null for an unknown name. The address holds until release().
    const Layout* find(const String& name) const;

private:
    ElementDefinition* partOf(ElementDefinition* element);

    std::map<String, Layout> layouts; // by name, lowered
    Layout* current = nullptr;
    ElementDefinition* widget = nullptr;
    ElementDefinition* textArea = nullptr;
};

} // namespace zel
