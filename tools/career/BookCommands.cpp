#include "tools/career/BookCommands.h"

#include "app/book/Condolence.h"
#include "app/book/DiaryText.h"
#include "app/book/LogBookText.h"
#include "app/book/ServiceText.h"
#include "app/book/WarEnd.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/record/Sqlite.h"
#include "tools/career/SessionWording.h"

std::vector<zel::String> logBookPage(SqliteFile& record, const Database& career) {
    return logBookLines(readLogBook(record, career));
}

std::vector<zel::String> diaryPage(SqliteFile& record, const Database& career) {
    return diaryLines(readDiary(record, career));
}

std::vector<zel::String> serviceRecord(SqliteFile& record, const Database& career) {
    return serviceLines(readPilot(record, career, career.playerPilot), career);
}

std::vector<zel::String> letterPage(SqliteFile& record, const Database& career) {
    const int32_t fallen = career.player().alive == 0
                               ? career.playerPilot
                               : predecessorOf(record, career, career.playerPilot);
    if (fallen < 0)
        return {textOf(record.number("SELECT count(*) FROM gap") > 0 ? wording::FallIsUnknown
                                                                     : wording::NobodyFell)};
    return condolenceLines(condolenceFor(record, career, fallen));
}

std::vector<zel::String> endPage(SqliteFile& record, const Database& career) {
    if (!isWarOver(career))
        return {textOf(wording::WarGoesOn)};
    return warEndLines(readWarEnd(record, career));
}

std::vector<zel::String> pilotPage(SqliteFile& record, const Database& career,
                                   std::string_view name) {
    const std::vector<int32_t> found = pilotsNamed(career, name);
    if (found.size() == 1)
        return pilotLines(readPilot(record, career, found.front()), career);
    return severalPilots(career, found);
}
