#pragma once

#include "app/screens/CareerScreen.h"

class CareerDrawer;
class CareerRecord;
class CitationPile;

/// The letter to the family of the player's pilot who fell, and the card with his successor. The
/// player goes on with him, or closes the career's book, which then is on the shelf as that of a
/// fallen pilot. After the war the book leads to its end.
class MenuGameFallen : public CareerScreen {
public:
    /// REQUIRES: all three outlive the screen.
    MenuGameFallen(CareerRecord& record, CitationPile& pile, CareerDrawer& drawer)
        : CareerScreen("MenuGameFallen"), record(record), pile(pile), drawer(drawer) {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void close(zel::Widget& plate);
    /// The one who fell in the last period; otherwise the one with whom the book was closed or
    /// saved.
    int32_t fallenPilot(const Database& career) const;

    CareerRecord& record;
    CitationPile& pile;
    CareerDrawer& drawer;
    int32_t fallen = -1; // whom the letter is about
};
