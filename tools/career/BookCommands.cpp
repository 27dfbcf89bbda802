#include "tools/career/BookCommands.h"

#include "app/book/Diary.h"
#include "app/book/LogBookText.h"
#include "app/book/ServiceText.h"
#include "app/career/Database.h"

std::vector<zel::String> logBookPage(SqliteFile& record, const Database& career) {
    return logBookLines(readLogBook(record, career));
}

std::vector<zel::String> diaryPage(SqliteFile& record, const Database& career) {
    return diaryLines(readDiary(record, career));
}

std::vector<zel::String> serviceRecord(SqliteFile& record, const Database& career) {
    return serviceLines(readPilot(record, career, career.playerPilot), career);
}

std::vector<zel::String> pilotPage(SqliteFile& record, const Database& career,
                                   std::string_view name) {
    const std::vector<int32_t> found = pilotsNamed(career, name);
    if (found.size() == 1)
        return pilotLines(readPilot(record, career, found.front()), career);
    return severalPilots(career, found);
}
