#include "app/record/RecordText.h"

#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/career/Wording.h"
#include "app/record/RecordPages.h"

zel::String recordGapText(const RecordGap& gap) {
    const auto dateText = [](int32_t date) { return dateInLanguage(Calendar::ofNumber(date)); };
    if (gap.since == gap.until)
        return textOf(wording::RecordGapOfDay, {dateText(gap.since)});
    return textOf(wording::RecordGap, {dateText(gap.since), dateText(gap.until)});
}
