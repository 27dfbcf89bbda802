#pragma once

#include "app/book/WarEnd.h"
#include "app/screens/CareerScreen.h"

class CareerRecord;
class ReportPages;

/// The end of the war, in place of the diary: what remains of the career, and the board of the
/// aces with their victories in this war and in the real one. The player's row is set in gold
/// rules.
class MenuGameWarOver : public CareerScreen {
public:
    /// REQUIRES: both outlive the screen.
    MenuGameWarOver(CareerRecord& record, ReportPages& pages)
        : CareerScreen("MenuGameWarOver"), record(record), pages(pages) {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void showSheet(const WarEnd& end);
    void showFigures(const WarEnd& end);
    void showRibbons(const Honours& honours);
    void showBoard(const WarEnd& end);
    void showRow(int32_t number, const StandingRow& row, int32_t lower);
    void makeRoom(int32_t number, const StandingRow& row) const;
    /// The name, with the first name as an initial if the full name doesn't fit.
    zel::String fitting(const zel::String& element, const StandingRow& row) const;

    CareerRecord& record;
    ReportPages& pages;
};
