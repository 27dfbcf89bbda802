#pragma once

#include <vector>

#include "app/screens/CareerScreen.h"

class ReportPages;
struct ReportEntry;

/// What happened to everybody in a mission and why, one column per side: in the last one, after
/// which the war moves on, or in one of the log book.
class MenuGameCombatReport : public CareerScreen {
public:
    /// REQUIRES: the pages outlive the screen.
    explicit MenuGameCombatReport(ReportPages& pages)
        : CareerScreen("MenuGameCombatReport"), pages(pages) {}

    void onEnter() override;
    void onLeave() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;
    void onKey(const zel::KeyPress& key) override;

private:
    void clearColumns();
    void fillColumn(const char* column, const std::vector<ReportEntry>& entries);
    void setReason(const zel::String& name, const ReportEntry& entry);
    void takeFont(const zel::String& line, const char* element);
    void setLine(const zel::String& line, const zel::String& text, const char* narrowElement);
    void showSheet(int32_t sheet); // from 1 on

    ReportPages& pages;
    bool endsDay = true; // by being left; the other page of the flight doesn't
    int32_t sheetCount = 1;
    int32_t shownSheet = 1;
};
