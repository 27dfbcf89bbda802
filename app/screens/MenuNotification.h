#pragma once

#include "engine/menu/HandledMenuExtension.h"

/// A page that tells what went wrong: why, in the element "reason", and in "path" where the
/// settings file is looked for.
class MenuNotification : public zel::HandledMenuExtension {
public:
    using zel::HandledMenuExtension::HandledMenuExtension;

    void onEnter() override;

    /// Asks for the change from that menu to the page of that name. Without such a page nothing
    /// happens.
    static void show(zel::Menu& menu, const char* page, const zel::String& reason);
    /// The widget that was just hit leads to that page, this once. Without such a page it leads
    /// where it always does.
    static void divert(zel::Widget& widget, const char* page, const zel::String& reason);

private:
    static zel::String reason; // of the page shown next
};
