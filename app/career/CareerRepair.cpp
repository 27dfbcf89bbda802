#include "app/career/CareerRepair.h"

#include <algorithm>
#include <vector>

#include "app/career/Database.h"
#include "engine/core/Log.h"

namespace {

void logRepair(const zel::String& what) { zel::log(what, "Database", zel::LogWarning); }

/// Sets an index that names nothing to `none` and counts it.
template <typename Index> void checkIndex(Index& index, size_t count, Index none, int32_t& faults) {
    if (index != none && (index < 0 || static_cast<size_t>(index) >= count)) {
        index = none;
        ++faults;
    }
}

class CareerRepair {
public:
    CareerRepair(Database& career, const Soundness& soundness, CareerRepairs& repairs)
        : career(career), soundness(soundness), repairs(repairs) {}

    /// False if there is nothing that a career could go on from.
    bool run() {
        if (career.squadrons.empty() || career.pilots.empty())
            return false;
        repairFiles();
        if (!soundness.pilots)
            repairPilots();
        repairSlots();
        if (!repairPlayer())
            return false;
        repairInvitation();
        return true;
    }

private:
    void repairFiles() {
        int32_t faults = 0;
        if (!soundness.lines) {
            for (SquadronFile& file : career.squadronFiles)
                repairLines(file.lines, faults);
            for (PilotFile& file : career.pilotFiles)
                repairLines(file.lines, faults);
        }
        for (PilotFile& file : career.pilotFiles) {
            checkIndex(file.pilotIndex, career.pilots.size(), -1, faults);
            const uint8_t joined = file.pilotIndex >= 0 ? 1 : 0;
            faults += file.joined != joined;
            file.joined = joined;
        }
        report(repairs.references, faults, " references of the data files led nowhere");
    }

    void repairLines(int32_t (&lines)[LineReferenceCount], int32_t& faults) const {
        for (int32_t& line : lines)
            checkIndex(line, career.dataLines.size(), -1, faults);
    }

    void repairPilots() {
        int32_t faults = 0;
        for (Pilot& pilot : career.pilots) {
            checkIndex(pilot.pilotFile, career.pilotFiles.size(), -1, faults);
            if (!career.isSquadron(pilot.squadron)) {
                pilot.squadron = 0; // repairSlots gives him the squadron that lists him
                ++faults;
            }
        }
        report(repairs.pilots, faults, " pilots had no such file or squadron");
    }

    void repairSlots() {
        int32_t faults = 0;
        std::vector<bool> placed(career.pilots.size());
        for (int32_t i = 0; i < career.squadronCount(); ++i) {
            Squadron& squadron = career.squadron(i);
            checkIndex(squadron.squadronFile, career.squadronFiles.size(), int16_t(-1), faults);
            const int32_t listed = std::min<int32_t>(squadron.pilotCount, SlotCount);
            int32_t kept = 0;
            for (int32_t slot = 0; slot < listed; ++slot) {
                const int32_t pilot = squadron.slots[slot];
                if (!career.isPilot(pilot) || placed[pilot])
                    continue;
                placed[pilot] = true;
                Pilot& holder = career.pilot(pilot);
                faults += holder.squadron != i;
                holder.squadron = i;
                squadron.slots[kept++] = pilot;
            }
            faults += kept != squadron.pilotCount;
            squadron.pilotCount = static_cast<uint8_t>(kept);
            std::fill(squadron.slots + kept, squadron.slots + SlotCount, -1);
        }
        report(repairs.places, faults, " places in squadrons were wrong");
    }

    /// REQUIRES: a player. Only a squadron of his nation other than his own can invite him.
    void repairInvitation() {
        int32_t faults = 0;
        int32_t& pending = career.invitationSquadron;
        if (pending != NoSearch)
            checkIndex(pending, career.squadrons.size(), NoInvitation, faults);
        if (pending >= 0 && (pending == career.player().squadron ||
                             career.squadron(pending).nation != career.player().nation)) {
            pending = NoInvitation;
            ++faults;
        }
        if (career.previousInvitation != NoSearch)
            checkIndex(career.previousInvitation, career.squadrons.size(), NoInvitation, faults);
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
