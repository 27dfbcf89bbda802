#pragma once

#include <vector>

#include "app/book/Standing.h"
#include "app/screens/CareerScreen.h"
#include "app/screens/RowList.h"

class PilotPages;

/// The ten best pilots of the war, of both sides and including the fallen, with what the pilots of
/// history had really done by that day; below them the player's own place. A row opens its pilot's
/// page.
class MenuGameTopAces : public CareerScreen {
public:
    /// REQUIRES: the pages outlive the screen.
    explicit MenuGameTopAces(PilotPages& pages);

    void onEnter() override;
    void update() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void showAce(const Database& career, size_t index);
    void showOwn(const Database& career);

    PilotPages& pages;
    std::vector<StandingRow> aces;
    RowList rows;
};
