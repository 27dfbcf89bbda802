#include "app/record/RecordText.h"

#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/career/Wording.h"
#include "app/record/RecordWriter.h"

zel::String recordGapText(const RecordGap& gap) {
    return textOf(wording::RecordGap, {dateInLanguage(Calendar::ofNumber(gap.since)),
                                       dateInLanguage(Calendar::ofNumber(gap.until))});
}
