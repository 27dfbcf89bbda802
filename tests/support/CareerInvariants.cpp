#include "tests/support/CareerInvariants.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "app/career/Database.h"
#include "app/career/NewCareer.h"

namespace {

/// Collects the faults; `check` is told what must hold and whom it is about.
class Faults {
public:
    void check(bool holds, const char* rule, size_t index) {
        if (!holds && ++count <= 10)
            text += std::string(rule) + " (" + std::to_string(index) + ")\n";
    }
    std::string text;

private:
    int count = 0;
};

template <size_t Size> bool ends(const char (&text)[Size]) {
    return zel::arrayText(text).size() < Size;
}

template <typename Record>
bool linesAreValid(const Record& file, const std::vector<DataLine>& dataLines) {
    for (const int32_t line : file.lines)
        if (line < -1 || (line >= 0 && static_cast<size_t>(line) >= dataLines.size()))
            return false;
    return true;
}

/// The number of slots that each pilot is in.
std::vector<int32_t> checkSquadrons(const Database& career, Faults& faults) {
    std::vector<int32_t> places(career.pilots.size());
    for (size_t i = 0; i < career.squadrons.size(); ++i) {
        const Squadron& squadron = career.squadrons[i];
        faults.check(squadron.pilotCount <= SlotCount, "pilotCount of a squadron", i);
        faults.check(squadron.squadronFile >= -1 &&
                         squadron.squadronFile < int32_t(career.squadronFiles.size()),
                     "a squadron's file", i);
        faults.check(ends(squadron.key) && ends(squadron.baseName) && ends(squadron.earliestDate),
                     "a squadron's texts", i);
        for (int32_t slot = 0; slot < SlotCount; ++slot) {
            const int32_t pilot = squadron.slots[slot];
            if (slot >= squadron.pilotCount) {
                faults.check(pilot == -1, "a free slot holds -1", i);
                continue;
            }
            faults.check(career.isPilot(pilot), "a used slot names a pilot", i);
            if (!career.isPilot(pilot))
                continue;
            ++places[size_t(pilot)];
            faults.check(career.pilots[size_t(pilot)].squadron == int32_t(i),
                         "a slot's pilot names its squadron", i);
        }
    }
    return places;
}

void checkPilots(const Database& career, const std::vector<int32_t>& places, Faults& faults) {
    for (size_t i = 0; i < career.pilots.size(); ++i) {
        const Pilot& pilot = career.pilots[i];
        faults.check(career.isSquadron(pilot.squadron), "a pilot's squadron", i);
        faults.check(places[i] <= 1, "a pilot is in one slot", i);
        faults.check(pilot.pilotFile >= -1 && pilot.pilotFile < int32_t(career.pilotFiles.size()),
                     "a pilot's file", i);
        faults.check(ends(pilot.name), "a pilot's name", i);
    }
    faults.check(career.isPilot(career.playerPilot) && places[size_t(career.playerPilot)] == 1,
                 "the player is in a slot", size_t(career.playerPilot));
}

void checkFiles(const Database& career, Faults& faults) {
    for (size_t i = 0; i < career.squadronFiles.size(); ++i)
        faults.check(linesAreValid(career.squadronFiles[i], career.dataLines),
                     "a squadron file's lines", i);
    for (size_t i = 0; i < career.pilotFiles.size(); ++i) {
        const PilotFile& file = career.pilotFiles[i];
        faults.check(linesAreValid(file, career.dataLines), "a pilot file's lines", i);
        faults.check(file.pilotIndex == -1 || career.isPilot(file.pilotIndex),
                     "a pilot file's pilot", i);
        faults.check(file.joined == 0 || file.pilotIndex >= 0, "joined is somebody", i);
    }
    for (size_t i = 0; i < career.dataLines.size(); ++i)
        faults.check(ends(career.dataLines[i].text), "a data line's text", i);
}

void checkDates(const Database& career, Faults& faults) {
    faults.check(career.year >= 1915 && career.year <= 1919, "the year", size_t(career.year));
    faults.check(career.day >= 1 && career.day <= Calendar::daysInMonth(career.year, career.month),
                 "the day is one of its month", size_t(career.day));
    faults.check(career.invitationMonth >= 1 && career.invitationMonth <= 12,
                 "the invitation's month", size_t(career.invitationMonth));
    for (const int32_t squadron : {career.invitationSquadron, career.previousInvitation})
        faults.check(squadron == -1 || squadron == -2 || career.isSquadron(squadron),
                     "an invitation's squadron", size_t(squadron));
}

void checkCompleteness(const Database& career, const std::vector<int32_t>& places, Faults& faults) {
    for (size_t i = 0; i < career.pilots.size(); ++i)
        faults.check(career.pilots[i].alive == 0 || places[i] == 1, "a living pilot is in a slot",
                     i);
    for (size_t i = 0; i < career.squadrons.size(); ++i)
        faults.check(career.squadrons[i].squadronFile ==
                         (i < career.squadronFiles.size() ? int32_t(i) : -1),
                     "the first squadrons have the files of their indices", i);
    for (size_t i = 0; i < career.pilotFiles.size(); ++i) {
        const PilotFile& file = career.pilotFiles[i];
        faults.check((file.joined != 0) == (file.pilotIndex >= 0), "joined and pilotIndex", i);
        faults.check(file.pilotIndex < 0 ||
                         career.pilots[size_t(file.pilotIndex)].pilotFile == int32_t(i),
                     "a joined pilot names his file", i);
    }
    faults.check(!career.isSquadron(career.invitationSquadron) ||
                     career.squadrons[size_t(career.invitationSquadron)].nation ==
                         career.pilots[size_t(career.playerPilot)].nation,
                 "an invitation comes from the player's nation", size_t(career.invitationSquadron));
    const int32_t date = career.calendar().dateNumber();
    faults.check(date >= 19151201, "the date isn't before the war", size_t(date));
}

template <size_t Size> bool isPlain(const char (&text)[Size]) {
    const std::string_view plain = zel::arrayText(text);
    return std::none_of(plain.begin(), plain.end(),
                        [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F; });
}

bool isNation(const Database& career, int32_t nation) {
    return nation == France || nation == England || nation == Usa || nation == Germany ||
           std::any_of(career.squadronFiles.begin(), career.squadronFiles.end(),
                       [&](const auto& f) { return nationOfKey(zel::arrayText(f.key)) == nation; });
}

void checkValues(const Database& career, Faults& faults) {
    for (size_t i = 0; i < career.squadrons.size(); ++i) {
        const Squadron& squadron = career.squadrons[i];
        faults.check(isNation(career, squadron.nation), "a squadron's nation", i);
        faults.check(squadron.onChannelMap <= 1 && squadron.active <= 1, "a squadron's flags", i);
        for (const float place : {squadron.baseX, squadron.baseY, squadron.baseZ})
            faults.check(place > -1e6F && place < 1e6F, "a squadron's base", i);
        faults.check(isPlain(squadron.key) && isPlain(squadron.baseName), "control characters", i);
    }
    for (size_t i = 0; i < career.pilots.size(); ++i) {
        const Pilot& pilot = career.pilots[i];
        faults.check(isNation(career, pilot.nation), "a pilot's nation", i);
        faults.check(pilot.alive <= 1, "a pilot lives or doesn't", i);
        faults.check(pilot.historic == (pilot.pilotFile >= 0 ? 1 : 0), "a pilot of the history", i);
        faults.check(pilot.shotdowns < 1000 && pilot.missions < 4000, "a pilot's figures", i);
        faults.check(pilot.skill < 32 || pilot.historic == 1, "a pilot's skill", i);
        faults.check(isPlain(pilot.name), "control characters in a name", i);
    }
}

} // namespace

std::string careerFaults(const Database& career) {
    if (!career.hasCareer())
        return "no career\n";
    Faults faults;
    const std::vector<int32_t> places = checkSquadrons(career, faults);
    checkPilots(career, places, faults);
    checkFiles(career, faults);
    checkDates(career, faults);
    if (faults.text.empty()) // it goes by the indices
        checkCompleteness(career, places, faults);
    return faults.text;
}

std::string loadedCareerFaults(const Database& career) {
    Faults faults;
    if (career.hasCareer())
        checkValues(career, faults);
    return careerFaults(career) + faults.text;
}
