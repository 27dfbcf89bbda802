#include "app/career/CareerTexts.h"

#include <algorithm>
#include <numeric>

#include "app/career/Database.h"
#include "app/career/UnitNames.h"

namespace {

constexpr size_t AceRows = 10;
constexpr const char* NoAces = "(NO PILOTS WITH MORE THAN 5 SHOTDOWNS)"; // sic: five are enough

zel::String scoreLine(const Database& career, int32_t index) {
    const Pilot& pilot = career.pilot(index);
    return zel::String(zel::arrayText(pilot.name)) +
           (index == career.playerPilot ? " (you!)" : "") + ": " + pilot.shotdowns;
}

} // namespace

zel::String serviceText(int32_t service) {
    const char* name = service == ServiceEnglish  ? "English"
                       : service == ServiceGerman ? "German"
                                                  : "French";
    return zel::String("Service: ") + name;
}

zel::String startDateText(int32_t year, int32_t month) {
    return "Start date: " + Calendar::monthName(month) + " " + year;
}

zel::String pilotNameText(const Database& career) {
    return zel::String("Your pilot's name: ") + zel::arrayText(career.player().name);
}

bool isWarOver(const Database& career) { return career.calendar().dateNumber() >= FirstDayOfPeace; }

zel::String missionButtonText(const Database& career) {
    return isWarOver(career) ? "The War is over!" : "Next Mission";
}

zel::String baseText(const Database& career) {
    return zel::String("Current base: Near ") + zel::arrayText(career.playerSquadron().baseName);
}

zel::String squadronText(const Database& career) {
    const int32_t number = unitNumber(career, career.playerSquadron().squadronFile);
    return hasUnitName(number) ? unitName(number) : zel::String();
}

zel::String playerText(const Database& career, int32_t predecessor) {
    const Pilot& player = career.player();
    zel::String text = zel::arrayText(player.name);
    if (career.isPilot(predecessor))
        text += zel::String(", successor to ") + zel::arrayText(career.pilot(predecessor).name);
    return text + ": victories " + player.shotdowns + ", missions " + player.missions;
}

std::vector<zel::String> squadronLines(const Database& career, size_t most) {
    std::vector<zel::String> lines;
    for (const int32_t pilot : career.squadronRoster(career.player().squadron))
        if (lines.size() < most)
            lines.push_back(scoreLine(career, pilot));
    return lines;
}

std::vector<int32_t> bestPilots(const std::vector<Pilot>& pilots, size_t count) {
    std::vector<int32_t> best(pilots.size());
    std::iota(best.begin(), best.end(), 0);
    const auto end = best.begin() + static_cast<std::ptrdiff_t>(std::min(count, best.size()));
    std::partial_sort(best.begin(), end, best.end(), [&](int32_t a, int32_t b) {
        const Pilot& first = pilots[a];
        const Pilot& second = pilots[b];
        if (first.shotdowns != second.shotdowns)
            return first.shotdowns > second.shotdowns;
        if (first.missions != second.missions)
            return first.missions > second.missions;
        return a < b;
    });
    best.erase(end, best.end());
    return best;
}

std::vector<zel::String> aceLines(const Database& career) {
    std::vector<zel::String> lines;
    for (const int32_t index : bestPilots(career.pilots, AceRows)) {
        const Pilot& pilot = career.pilot(index);
        if (pilot.shotdowns >= AceShotdowns)
            lines.push_back(scoreLine(career, index) + (pilot.alive == 0 ? " RIP" : ""));
        else
            lines.emplace_back(lines.empty() ? NoAces : "");
    }
    return lines;
}
