#pragma once

#include "app/screens/CareerScreen.h"
#include "app/screens/CitationPile.h"

/// A letter for a rank or a decoration: those that wait, one after the other, and then the diary
/// or the end of the war.
class MenuGameCitation : public CareerScreen {
public:
    /// REQUIRES: the pile outlives the screen.
    explicit MenuGameCitation(CitationPile& pile) : CareerScreen("MenuGameCitation"), pile(pile) {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;
    void onKey(const zel::KeyPress& key) override;

private:
    void showFront();

    CitationPile& pile;
};
