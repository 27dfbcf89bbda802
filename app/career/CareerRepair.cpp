#include "app/career/CareerRepair.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "app/career/Database.h"
#include "app/career/SlotRepair.h"
#include "app/career/ValueRepair.h"
#include "engine/core/Log.h"

namespace {

void logRepair(const zel::String& what) { zel::log(what, "Database", zel::LogWarning); }

/// Sets an index that names nothing to -1 and counts it.
void checkIndex(int32_t& index, size_t count, int32_t& faults, int32_t none = -1) {
    if (index != none && (index < 0 || static_cast<size_t>(index) >= count)) {
        index = none;
        ++faults;
    }
}

class CareerRepair {
public:
    CareerRepair(Database& career, Soundness soundness, CareerRepairs& repairs)
        : career(career), soundness(std::move(soundness)), repairs(repairs) {}

    /// False if too little is left for a career to go on.
    bool run() {
        if (career.squadrons.empty() || career.pilots.empty())
            return false;
        if (!soundness.pilots)
            repairPilots();
        repairFiles();
        report(repairs.places, repairSlots(career, soundness.living),
               " places in squadrons were wrong");
        if (!soundness.pilots)
            for (Pilot& pilot : career.pilots)
                pilot.squadron = std::max(pilot.squadron, 0); // in no slot, and counted above
        if (repairs.faults() > 0) { // what was repaired may not fit the rest
            soundness.doubtful.resize(career.pilots.size());
            std::iota(soundness.doubtful.begin(), soundness.doubtful.end(), 0);
        }
        report(repairs.values, repairValues(career, soundness.doubtful, soundness.files),
               " names, nations and figures were impossible");
        if (!repairPlayer())
            return false;
        repairInvitation();
        return true;
    }

private:
    void repairPilots() {
        int32_t faults = 0;
        for (Pilot& pilot : career.pilots) {
            checkIndex(pilot.pilotFile, career.pilotFiles.size(), faults);
            checkIndex(pilot.squadron, career.squadrons.size(), faults); // his slot knows it
        }
        report(repairs.pilots, faults, " pilots had no such file or squadron");
    }

    void repairFiles() {
        int32_t faults = 0;
        if (!soundness.lines) {
            for (SquadronFile& file : career.squadronFiles)
                repairLines(file.lines, faults);
            for (PilotFile& file : career.pilotFiles)
                repairLines(file.lines, faults);
        }
        for (int32_t i = 0; i < career.squadronCount(); ++i) {
            const auto own = static_cast<int16_t>(career.isSquadronFile(i) ? i : -1);
            faults += career.squadrons[i].squadronFile != own;
            career.squadrons[i].squadronFile = own;
        }
        repairPilotFiles(faults);
        report(repairs.references, faults, " references of the data files led nowhere");
    }

    void repairLines(int32_t (&lines)[LineReferenceCount], int32_t& faults) const {
        for (int32_t& line : lines)
            checkIndex(line, career.dataLines.size(), faults);
    }

    /// A file and its pilot name each other. Where only one does, the pilot's mark as one of the
    /// history decides.
    void repairPilotFiles(int32_t& faults) {
        for (PilotFile& file : career.pilotFiles)
            checkIndex(file.pilotIndex, career.pilots.size(), faults);
        const auto agrees = [&](int32_t pilot) {
            const int32_t file = career.pilots[pilot].pilotFile;
            return file >= 0 && career.pilotFiles[file].pilotIndex == pilot;
        };
        for (int32_t i = 0; i < career.pilotFileCount(); ++i) {
            int32_t& index = career.pilotFiles[i].pilotIndex;
            if (index < 0 || career.pilots[index].pilotFile == i)
                continue;
            ++faults;
            if (career.pilots[index].historic != 0 && !agrees(index))
                career.pilots[index].pilotFile = i;
            else
                index = -1;
        }
        for (int32_t i = 0; i < career.pilotCount(); ++i) {
            Pilot& pilot = career.pilots[i];
            if (pilot.pilotFile < 0 || agrees(i))
                continue;
            ++faults;
            int32_t& index = career.pilotFiles[pilot.pilotFile].pilotIndex;
            if (pilot.historic != 0 && index < 0)
                index = i;
            else
                pilot.pilotFile = -1;
        }
        for (PilotFile& file : career.pilotFiles) {
            const uint8_t joined = file.pilotIndex >= 0 ? 1 : 0;
            faults += file.joined != joined;
            file.joined = joined;
        }
    }

    /// REQUIRES: a player. Only a squadron of his nation other than his own can invite him.
    void repairInvitation() {
        int32_t faults = 0;
        int32_t& pending = career.invitationSquadron;
        if (pending != NoSearch)
            checkIndex(pending, career.squadrons.size(), faults, NoInvitation);
        if (pending >= 0 && (pending == career.player().squadron ||
                             career.squadron(pending).nation != career.player().nation)) {
            pending = NoInvitation;
            ++faults;
        }
        if (career.previousInvitation != NoSearch)
            checkIndex(career.previousInvitation, career.squadrons.size(), faults, NoInvitation);
        if (career.invitationMonth < 1 || career.invitationMonth > 12 ||
            career.invitationYear < FirstSaveYear || career.invitationYear > LastSaveYear + 1) {
            career.invitationYear = career.year;
            career.invitationMonth = career.month;
            ++faults;
        }
        report(repairs.invitation, faults, " values of the invitation were out of range");
    }

    bool repairPlayer() {
        if (career.isPilot(career.playerPilot)) {
            const Squadron& squadron = career.playerSquadron();
            const auto end = squadron.slots + squadron.pilotCount;
            if (std::find(squadron.slots, end, career.playerPilot) != end)
                return true;
        }
        const int32_t nation = career.isPilot(career.playerPilot) ? career.player().nation : 0;
        const Squadron* place = nullptr;
        for (const Squadron& squadron : career.squadrons)
            if (squadron.pilotCount > 0 &&
                (place == nullptr || (squadron.nation == nation && place->nation != nation)))
                place = &squadron;
        if (place == nullptr)
            return false;
        career.playerPilot = place->slots[0];
        repairs.playerMoved = true;
        logRepair("Save file: the player was in no squadron; he is now " +
                  zel::String(zel::arrayText(career.player().name)));
        return true;
    }

    static void report(int32_t& kind, int32_t faults, const char* what) {
        kind += faults;
        if (faults > 0)
            logRepair(zel::String("Save file: ") + faults + what + "; put right");
    }

    Database& career;
    Soundness soundness;
    CareerRepairs& repairs;
};

} // namespace

bool repairCareer(Database& career, const Soundness& soundness, CareerRepairs& repairs) {
    return CareerRepair(career, soundness, repairs).run();
}
