#include "app/book/DiaryText.h"

#include "app/book/DiaryWording.h"
#include "app/book/RealWar.h"
#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"

zel::String daysText(int32_t from, int32_t until) {
    const zel::String last = shortDate(Calendar::ofNumber(until));
    if (from == until)
        return bookDate(Calendar::ofNumber(until));
    const bool isOneMonth = from / 100 == until / 100;
    const int32_t day = from % 100;
    const zel::String first = !isOneMonth ? shortDayText(from)
                              : day == 1  ? textOf(wording::FirstDayAlone)
                                          : textOf(wording::DayAlone, {day});
    return textOf(wording::DaysTo, {first, last});
}

std::vector<zel::String> diaryLines(const Diary& diary) {
    std::vector<zel::String> lines = {daysText(diary.from, diary.until)};
    for (const auto* list : {&diary.squadron, &diary.front, &diary.real})
        for (const DiaryLine& line : *list)
            lines.push_back(line.text);
    lines.push_back(flightOfText(diary.war, diary.war.flown == 0));
    lines.push_back(servedText(diary.war));
    return lines;
}
