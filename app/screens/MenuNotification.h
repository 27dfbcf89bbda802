#pragma once

#include "engine/menu/HandledMenuExtension.h"

/// A page that reports what went wrong. It shows why in the element "reason". "menuButton1" leads
/// back.
class MenuNotification : public zel::HandledMenuExtension {
public:
    using zel::HandledMenuExtension::HandledMenuExtension;

    void onEnter() override;

    /// Whether the menus have a page of that name.
    static bool isPage(const char* name);
    /// Requests the change from that menu to the named page. Does nothing if there is no such page.
    /// The reason is drawn verbatim.
    static void show(zel::Menu& menu, const char* page, const zel::String& why);
    /// Makes the widget that was just hit lead to that page, this once. If there is no such page,
    /// it leads where it normally does. `back`: the screen to which the page leads back; empty for
    /// that of its script.
    static void divert(zel::Widget& widget, const char* page, const zel::String& why,
                       const zel::String& back = {});

    /// The screen to which the page shown last leads back; empty for that of its script.
    static const zel::String& back() { return wayBack; }

private:
    static zel::String reason; // of the page shown next
    static zel::String wayBack;
};
