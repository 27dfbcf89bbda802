#pragma once

#include <vector>

#include "app/career/SavePages.h"
#include "app/screens/RowList.h"
#include "engine/menu/HandledMenuExtension.h"

class CareerDrawer;

/// The saves of the log book that is chosen in the drawer, newest first. The player turns back to
/// one of them; the later ones stay.
class MenuCareerPages : public zel::HandledMenuExtension {
public:
    /// REQUIRES: the drawer outlives the screen.
    explicit MenuCareerPages(CareerDrawer& drawer)
        : HandledMenuExtension("MenuCareerPages"), drawer(drawer) {}

    void onEnter() override;
    void update() override; // the line that counts what is in view
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void showPages();
    void showCard();
    void turnBack();

    CareerDrawer& drawer;
    RowList rows{"page", 50, {"row"}};
    std::vector<SavePage> pages;
    size_t chosen = 0;
};
