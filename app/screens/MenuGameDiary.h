#pragma once

#include "app/book/Diary.h"
#include "app/screens/CareerScreen.h"
#include "app/screens/MadePicture.h"
#include "app/screens/WarStrip.h"

class CareerRecord;

/// The squadron diary: what happened since the last flight. It comes after each report, once the
/// war has moved on, and from the office. After the war it leads
/// to its end.
class MenuGameDiary : public CareerScreen {
public:
    /// REQUIRES: the record outlives the screen.
    explicit MenuGameDiary(CareerRecord& record) : CareerScreen("MenuGameDiary"), record(record) {}

    void onEnter() override;

private:
    void fitReal(std::vector<DiaryLine>& lines, int32_t& space);
    /// Puts each line below the one before, as high as its text, and hides the rows that are left.
    void showLines(const char* area, const std::vector<DiaryLine>& lines, int32_t most,
                   int32_t space);
    void showSign(const zel::String& name, DiarySign sign, int32_t y);

    /// Lets keys scroll the area, with a stroke beside it while it has the focus.
    void makeStop(const char* area, MadePicture& mark);

    CareerRecord& record;
    WarStrip strip;
    MadePicture marks[3];
};
