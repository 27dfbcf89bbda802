#include "app/record/RecordText.h"

#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/career/Wording.h"
#include "app/record/RecordWriter.h"

zel::String recordGapText(const RecordGap& gap) {
    const auto dateText = [](int32_t date) {
        return dateInLanguage({date / 10000, date / 100 % 100, date % 100});
    };
    return textOf(wording::RecordGap, {dateText(gap.since), dateText(gap.until)});
}
