#include "tools/career/CareerStart.h"

#include <algorithm>
#include <utility>

#include "app/book/SquadronsToJoin.h"
#include "app/career/DataTables.h"
#include "app/career/Database.h"

zel::String nameProblem(const NameCheck& check) {
    switch (check.fault) {
    case NameFault::None:
        return {};
    case NameFault::Empty:
        return "A pilot's name is needed";
    case NameFault::TooLong:
        return zel::String("A pilot's name has at most ") + LongestPilotName + " letters";
    case NameFault::Character:
        return "The simulator's log can't carry a character of the name";
    case NameFault::OfAce:
        return "There is an ace of this name: " + check.bearer;
    case NameFault::OfPilot:
        return "There is another pilot of this name: " + check.bearer;
    }
    return {};
}

zel::String createCareer(Database& career, const BookTables& tables, const CareerStart& start,
                         Enlistment& enlistment) {
    career.createCareer(start.service);
    if (!career.hasCareer())
        return career.hasBrokenHistory
                   ? "No career is begun: the disk reports an error among the data files"
                   : "No squadron could be made";
    if (start.name) {
        enlistment.name = *start.name;
        if (const NameCheck check = checkPilotName(career, *start.name);
            check.fault != NameFault::None)
            return nameProblem(check);
    }
    if (!start.squadron)
        return {};
    const auto squadrons = squadronsToJoin(career, tables, start.service, start.year, start.month);
    const auto chosen =
        std::find_if(squadrons.begin(), squadrons.end(), [&](const SquadronToJoin& squadron) {
            return squadron.key == *start.squadron;
        });
    if (chosen == squadrons.end())
        return "No squadron " + *start.squadron +
               " can be chosen in that month: squadrons lists those that can";
    enlistment.squadron = chosen->file;
    return {};
}

std::vector<zel::String> squadronsOf(Database& career, const BookTables& tables,
                                     const CareerStart& start) {
    auto squadronFiles = std::exchange(career.squadronFiles, {});
    auto pilotFiles = std::exchange(career.pilotFiles, {});
    auto dataLines = std::exchange(career.dataLines, {});
    const bool wasBroken = career.hasBrokenHistory;
    readDataFiles(career);
    std::vector<zel::String> lines =
        squadronLines(squadronsToJoin(career, tables, start.service, start.year, start.month));
    career.squadronFiles = std::move(squadronFiles);
    career.pilotFiles = std::move(pilotFiles);
    career.dataLines = std::move(dataLines);
    career.hasBrokenHistory = wasBroken;
    return lines;
}
