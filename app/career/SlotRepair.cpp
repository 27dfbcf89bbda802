#include "app/career/SlotRepair.h"

#include <algorithm>
#include <vector>

#include "app/career/Database.h"
#include "app/career/NewCareer.h"

namespace {

class SlotRepair {
public:
    SlotRepair(Database& career, int32_t living)
        : career(career), placed(career.pilots.size()), unplacedLiving(living) {}

    int32_t run() {
        findHoles();
        if (!holes.empty()) {
            fillFrom(outOfSlots(true));
            fillWithNamed();
            const auto wasFree = [](const Hole& hole) {
                return !hole.isUsed || hole.slot >= PilotsOfNewSquadron;
            };
            holes.erase(std::remove_if(holes.begin(), holes.end(), wasFree), holes.end());
            fillFrom(outOfSlots(false));
        }
        closeHoles();
        if (unplacedLiving > 0)
            for (const int32_t pilot : outOfSlots(true)) {
                career.pilot(pilot).alive = 0;
                ++faults;
            }
        return faults;
    }

private:
    /// A slot that names no pilot of its squadron.
    struct Hole {
        int32_t squadron;
        int32_t slot;
        int32_t named;
        bool isUsed; // by the squadron's count: somebody was there
    };

    bool isFree(int32_t pilot) const { return career.isPilot(pilot) && !placed[pilot]; }

    void place(int32_t pilot) {
        placed[pilot] = true;
        unplacedLiving -= career.pilots[pilot].alive != 0 ? 1 : 0;
    }

    void put(const Hole& hole, int32_t pilot) {
        place(pilot);
        faults += hole.named == -1; // the others are counted
        career.pilot(pilot).squadron = hole.squadron;
        career.squadron(hole.squadron).slots[hole.slot] = pilot;
    }

    void findHoles() {
        for (int32_t i = 0; i < career.squadronCount(); ++i) {
            Squadron& squadron = career.squadron(i);
            for (int32_t slot = 0; slot < SlotCount; ++slot) {
                int32_t& named = squadron.slots[slot];
                if (isFree(named) && career.pilots[named].squadron == i) {
                    place(named);
                } else if (named != -1 || slot < PilotsOfNewSquadron) {
                    faults += named != -1;
                    holes.push_back({i, slot, named, slot < squadron.pilotCount});
                    named = -1;
                }
            }
        }
    }

    /// The living pilots, or the dead ones, who are in no slot.
    std::vector<int32_t> outOfSlots(bool living) const {
        std::vector<int32_t> found;
        for (int32_t pilot = 0; pilot < career.pilotCount(); ++pilot)
            if (!placed[pilot] && (career.pilots[pilot].alive != 0) == living)
                found.push_back(pilot);
        return found;
    }

    bool isEmpty(const Hole& hole) const {
        return career.squadrons[hole.squadron].slots[hole.slot] == -1;
    }

    /// Fills the holes of each squadron with those of the pilots who name it, the last one first.
    void fillFrom(const std::vector<int32_t>& pilots) {
        std::vector<std::vector<int32_t>> bySquadron(career.squadrons.size());
        for (const int32_t pilot : pilots)
            if (career.isSquadron(career.pilots[pilot].squadron))
                bySquadron[career.pilots[pilot].squadron].push_back(pilot);
        for (const Hole& hole : holes) {
            std::vector<int32_t>& left = bySquadron[hole.squadron];
            if (left.empty() || !isEmpty(hole))
                continue;
            put(hole, left.back());
            left.pop_back();
        }
    }

    void fillWithNamed() {
        for (const Hole& hole : holes)
            if (isFree(hole.named) && isEmpty(hole) &&
                (hole.slot < PilotsOfNewSquadron || career.pilots[hole.named].alive != 0))
                put(hole, hole.named);
    }

    void closeHoles() {
        for (Squadron& squadron : career.squadrons) {
            int32_t* const end =
                std::remove(std::begin(squadron.slots), std::end(squadron.slots), -1);
            const auto kept = static_cast<uint8_t>(end - squadron.slots);
            std::fill(end, std::end(squadron.slots), -1);
            faults += kept != squadron.pilotCount;
            squadron.pilotCount = kept;
        }
    }

    Database& career;
    std::vector<bool> placed; // of each pilot: a slot of his squadron names him
    int32_t unplacedLiving;
    std::vector<Hole> holes;
    int32_t faults = 0;
};

} // namespace

int32_t repairSlots(Database& career, int32_t living) { return SlotRepair(career, living).run(); }
