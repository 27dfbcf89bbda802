#pragma once

#include "engine/menu/HandledMenuExtension.h"

/// The last page before a new career. It creates the career, shows the player who he is and, once
/// he confirms, simulates the war up to his first day.
///
/// What was chosen on the pages before is in the global strings `service` (0 French, 1 English,
/// 2 German), `startYear` and `startMonth`.
class MenuNewCareer : public zel::HandledMenuExtension {
public:
    MenuNewCareer() : HandledMenuExtension("MenuNewCareer") {}

    void reset() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    int32_t chosen(const char* what) const { return getGlobalString(what).toInt(); }
    void startCareer();
    void goBack();
};
