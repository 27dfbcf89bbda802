#pragma once

#include <vector>

#include "app/report/ReportText.h"
#include "app/screens/CareerScreen.h"

namespace zel {
class Font;
}
class ReportPages;

/// What happened to everybody in a mission and why, one column per side: the last one, after which
/// the war moves on, or one of the log book.
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
    const zel::Font* fontOf(const zel::String& element) const;
    void setLine(const zel::String& line, const zel::String& text, const zel::Font* font,
                 const char* narrowElement);
    void setReason(const char* column, int32_t place, const ReportEntry& entry);
    void setEntry(const char* column, int32_t place, const ReportEntry& entry);
    void showSheet(int32_t sheet); // from 1 on

    ReportPages& pages;
    ReportColumns columns;
    const zel::Font* pilotFont = nullptr; // of the lines and the reason, as the layout has them
    const zel::Font* causeFont = nullptr;
    const zel::Font* reasonFont = nullptr;
    bool endsDay = true; // by being left; the other page of the flight doesn't
    int32_t sheetCount = 1;
    int32_t shownSheet = 1;
};
