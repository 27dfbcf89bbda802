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

std::vector<zel::String> logBookPage(SqliteFile& record, const Database& career,
                                     const BookTables& tables) {
    return logBookLines(readLogBook(record, career, tables));
}

std::vector<zel::String> diaryPage(SqliteFile& record, const Database& career,
                                   const BookTables& tables) {
    return diaryLines(readDiary(record, career, tables));
}

std::vector<zel::String> serviceRecord(SqliteFile& record, const Database& career,
                                       const BookTables& tables) {
    return serviceLines(readPilot(record, career, tables, career.playerPilot), career);
}

std::vector<zel::String> letterPage(SqliteFile& record, const Database& career,
                                    const BookTables& tables) {
    const int32_t fallen = career.player().alive == 0
                               ? career.playerPilot
                               : predecessorOf(record, career, career.playerPilot);
    if (fallen < 0)
        return {textOf(record.number("SELECT count(*) FROM gap") > 0 ? wording::FallIsUnknown
                                                                     : wording::NobodyFell)};
    return condolenceLines(condolenceFor(record, career, tables, fallen));
}

std::vector<zel::String> endPage(SqliteFile& record, const Database& career,
                                 const BookTables& tables) {
    if (!isWarOver(career))
        return {textOf(wording::WarGoesOn)};
    return warEndLines(readWarEnd(record, career, tables));
}

std::vector<zel::String> pilotPage(SqliteFile& record, const Database& career,
                                   const BookTables& tables, std::string_view name) {
    const std::vector<int32_t> found = pilotsNamed(career, name);
    if (found.size() == 1)
        return pilotLines(readPilot(record, career, tables, found.front()), career);
    return severalPilots(career, found);
}
