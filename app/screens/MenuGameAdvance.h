#pragma once

#include "app/screens/CareerScreen.h"

class CitationPile;

/// The page on which the war moves on: leaving the combat report advances it. The page then shows
/// the new date until the player continues, to the letters that wait for him, or to the diary.
class MenuGameAdvance : public CareerScreen {
public:
    /// REQUIRES: the pile outlives the screen.
    explicit MenuGameAdvance(CitationPile& pile) : CareerScreen("MenuGameAdvance"), pile(pile) {}

    void onEntered() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    CitationPile& pile;
};
