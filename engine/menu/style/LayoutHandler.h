#pragma once

#include "engine/menu/style/Layout.h"

namespace zel {

/// All layouts by name, and the current layout and elements, which the definition commands change.
class LayoutHandler {
public:
    /// Built at first use; lives until release().
    static LayoutHandler& getInstance();
    /// Deletes all layouts. No menu may be alive.
    static void release();

    /// Begins the layout, or clears the one of that name, and makes it current.
    void defineLayout(const String& name);
    /// Adds the elements of a drawn layout to the current one. On error: log lines; what could be
    /// read is added.
    void loadLayout(const String& imageFile);
    /// Adds an element to the current layout, or takes the one of that name, and makes it current.
    /// An empty kind leaves a known element's kind. The kind "textarea" makes it a text area. An
    /// existing text area becomes a widget by the kinds that only widgets have, "widget", "button",
    /// "textinput" and "scrollingarea", and takes any other kind as its own.
    void defineWidget(const String& name, const String& kind);
    void defineTextArea(const String& name);

    /// Takes the texts of language numbers again, after a change of the language. Elements that
    /// exist keep theirs until Menu::translateElements().
    void translate();

    /// Adds a widget to that layout: like its widget `model`, but that much further right and down,
    /// and without text. False for an unknown layout or model.
    bool defineLike(const String& layout, const String& model, const String& name, int32_t right,
                    int32_t down);

    /// What definition commands change; null, with a log line, without one.
    Layout* currentLayout();
    ElementDefinition* currentWidget();
    ElementDefinition* currentTextArea();
    /// Null for an unknown name. The address is valid until release().
    const Layout* find(const String& name) const;

private:
    ElementDefinition* partOf(ElementDefinition* element);

    std::map<String, Layout> layouts; // by name, lowered
    Layout* current = nullptr;
    ElementDefinition* widget = nullptr;
    ElementDefinition* textArea = nullptr;
};

} // namespace zel
