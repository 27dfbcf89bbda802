#pragma once

#include "app/screens/CareerScreen.h"

class CitationPile;
class ReportPages;

/// The page on which the war moves on: leaving the combat report advances it. The page then shows
/// the new date until the player continues, to the letters that wait for him, to the diary or
/// to the end of the war.
class MenuGameAdvance : public CareerScreen {
public:
    /// REQUIRES: both outlive the screen.
    MenuGameAdvance(CitationPile& pile, ReportPages& pages)
        : CareerScreen("MenuGameAdvance"), pile(pile), pages(pages) {}

    void onEntered() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    CitationPile& pile;
    ReportPages& pages;
};
