#pragma once

#include "engine/menu/HandledMenuExtension.h"

/// A page that reports what went wrong. It shows why in the element "reason".
class MenuNotification : public zel::HandledMenuExtension {
public:
    using zel::HandledMenuExtension::HandledMenuExtension;

    void onEnter() override;

    /// Whether the menus have a page of that name.
    static bool isPage(const char* name);
    /// Asks for the change from that menu to the page of that name. Without such a page nothing
    /// happens. The reason is drawn as it is.
    static void show(zel::Menu& menu, const char* page, const zel::String& why);
    /// The widget that was just hit leads to that page, this once. Without such a page it leads
    /// where it always does.
    static void divert(zel::Widget& widget, const char* page, const zel::String& why);

private:
    static zel::String reason; // of the page shown next
};
