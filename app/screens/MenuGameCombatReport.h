#pragma once

#include <vector>

#include "app/screens/CareerScreen.h"

class Flight;
struct ReportEntry;

/// What happened to everybody in the last mission, one column per side. Leaving the page by any way
/// advances the war.
class MenuGameCombatReport : public CareerScreen {
public:
    explicit MenuGameCombatReport(Flight& flight)
        : CareerScreen("MenuGameCombatReport"), flight(flight) {}

    void onEnter() override;
    void onLeave() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void clearColumns();
    void fillColumn(const char* column, const std::vector<ReportEntry>& entries);
    void showNote(const zel::String& note);
    void takeFont(const zel::String& line, const char* element);
    void setLine(const zel::String& line, const zel::String& text, const char* narrowElement);
    void showSheet(int32_t sheet); // from 1 on

    Flight& flight;
    int32_t sheetCount = 1;
};
