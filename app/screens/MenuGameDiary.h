#pragma once

#include <functional>

#include "app/book/Diary.h"
#include "app/screens/CareerScreen.h"
#include "app/screens/MadePicture.h"
#include "app/screens/RowList.h"
#include "app/screens/WarStrip.h"

class CareerRecord;
class PilotPages;

/// The squadron diary: what happened since the last flight. It comes after each report, once the
/// war has moved on, and from the office. After the war it leads
/// to its end. A line that is about a pilot opens his page.
class MenuGameDiary : public CareerScreen {
public:
    /// REQUIRES: both outlive the screen.
    MenuGameDiary(CareerRecord& record, PilotPages& pages)
        : CareerScreen("MenuGameDiary"), record(record), pages(pages) {}

    void onEnter() override;
    void update() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    static constexpr int32_t PressStep = 24; // design pixels, until a line is in its place

    std::vector<int32_t> bottoms(const char* list, const std::vector<DiaryLine>& lines,
                                 int32_t space) const;
    void fit(const char* list, std::vector<DiaryLine>& lines, int32_t& space);
    void closeUp(const char* list, const std::vector<DiaryLine>& lines, int32_t& space);
    /// Puts each line below the one before, as high as its text, and hides the rows that are left.
    void showLines(const char* area, const std::vector<DiaryLine>& lines, int32_t most,
                   int32_t space);
    void showSign(const zel::String& name, DiarySign sign, int32_t y);
    /// The button over a line; hidden for one that isn't about a pilot.
    void showPress(const zel::String& name, int32_t pilot, int32_t y, int32_t height);

    /// Calls for each line that is about a pilot, with what is pressed of it.
    void
    forEachPress(const std::function<void(const zel::String& name, int32_t pilot)>& action) const;

    /// Lets keys scroll the area, with a stroke beside it while it has the focus.
    void makeTabStop(const char* area, MadePicture& mark);

    CareerRecord& record;
    PilotPages& pages;
    Diary diary;
    RowList entryPresses{"entry", PressStep, {"press"}};
    RowList newsPresses{"news", PressStep, {"press"}};
    WarStrip strip;
    MadePicture marks[3];
};
