#include "app/mission/MissionPlanning.h"

#include <algorithm>

#include "app/career/Aircraft.h"
#include "app/mission/MissionGenerator.h"
#include "engine/core/Log.h"
#include "engine/core/Registry.h"

namespace {

constexpr int32_t TriesForType = 100;
constexpr int32_t MostVacantDraws = 10;
constexpr int32_t MostAttempts = 10000; // after this many tries planning fails

// Planes per side, and the odds of unusual numbers: one in so many draws.
constexpr int32_t LeastPlanes = 2;
constexpr int32_t MostPlanes = 4;
constexpr int32_t LeastUpTo1916 = 1;
constexpr int32_t MostUpTo1916 = 2;
constexpr int32_t MoreUpTo1916 = 3;
constexpr int32_t DrawsForMoreUpTo1916 = 3;
constexpr int32_t DrawsForDuelIn1917 = 12;
constexpr int32_t LargerLeastIn1918 = 3;
constexpr int32_t DrawsForLargerIn1918 = 2;

bool isOfSide(int32_t nation, bool allied) {
    return isAllied(nation) == allied && !belongsToNobody(nation);
}

bool isPlanningLogged() { return zel::isLogged("Mission Generator", zel::LogDebug); }

void logPlanning(const zel::String& message) {
    zel::log(message, "Mission Generator", zel::LogDebug);
}

void logHopeless(const char* what) { zel::log(what, "Mission Generator", zel::LogFatal); }

/// The newest type that the player owns, up to the drawn one. He keeps the drawn one if that type
/// belongs to the other side.
zel::String ownedType(const zel::String& drawn, bool allied) {
    for (int32_t i = planeIndex(drawn); i >= 0; --i) {
        const zel::String& type = planeIdentifiers()[i];
        if (zel::Registry::isOn(type))
            return isAlliedPlane(i) == allied ? type : drawn;
    }
    return drawn;
}

/// Fetches the records of a squadron's pilots together. Late in a war they are scattered over
/// a few megabytes, and planning would wait for them one by one.
void prefetchPilots(const Database& career, const Squadron& squadron) {
    for (const int32_t pilot : squadron.slots) {
        if (!career.isPilot(pilot))
            continue;
        const Pilot& record = career.pilots[pilot];
        __builtin_prefetch(record.name);
        __builtin_prefetch(&record.alive);
    }
}

PlannedPlane planeOf(const Database& career, int32_t pilotIndex, int32_t squadron,
                     const zel::String& type) {
    const Pilot& pilot = career.pilot(pilotIndex);
    PlannedPlane plane;
    plane.pilot = pilotIndex;
    plane.name = zel::String(zel::arrayText(pilot.name));
    plane.nation = pilot.nation;
    plane.skill = pilot.skill;
    plane.shotdowns = pilot.shotdowns;
    plane.missions = pilot.missions;
    plane.squadron = squadron;
    plane.pilotFile = pilot.pilotFile;
    plane.type = type;
    return plane;
}

/// A side's part in a mission.
struct PlannedSide {
    int32_t squadron = -1;
    zel::String type;
};

/// Numbers of planes.
struct GroupSizes {
    int32_t german, allied;
};

/// One attempt at a plan.
class PlanDraw {
public:
    PlanDraw(MissionGenerator& generator, Database& career)
        : career(career), random(generator.random), plan(generator.plan) {}

    void run(bool withPlayer);

private:
    bool chooseSide(bool allied, bool withPlayer, PlannedSide& side);
    int32_t drawSquadron(bool allied, bool isPlayers, zel::String* alliedType);
    GroupSizes drawGroupSizes();
    bool fillGroup(bool allied, const PlannedSide& side, int32_t count);

    Database& career;
    zel::Random& random;
    std::vector<PlannedPlane>& plan;
    int32_t vacantDraws = 0;
};

void PlanDraw::run(bool withPlayer) {
    plan.clear();
    PlannedSide german;
    PlannedSide allied;
    if (!chooseSide(false, withPlayer, german) || !chooseSide(true, withPlayer, allied))
        return;
    const GroupSizes sizes = drawGroupSizes();
    if (!fillGroup(false, german, sizes.german) || !fillGroup(true, allied, sizes.allied))
        plan.clear();
}

/// Draws squadron and type of one side. For the player's mission it tries up to a hundred times to
/// find a historical pair, then takes the last one. False if the side has no squadron.
bool PlanDraw::chooseSide(bool allied, bool withPlayer, PlannedSide& side) {
    const bool isPlayers = withPlayer && isOfSide(career.playerSquadron().nation, allied);
    for (int32_t i = 0; i < TriesForType; ++i) {
        if (!allied)
            side.type = planeForSide(false, career.year, career.month, random);
        side.squadron = drawSquadron(allied, isPlayers, allied ? &side.type : nullptr);
        if (side.squadron < 0)
            return false;
        if (!withPlayer)
            return true;
        const Squadron& squadron = career.squadron(side.squadron);
        if (squadron.squadronFile < 0) {
            if (isPlayers)
                return true;
            continue;
        }
        if (isPlanningLogged())
            logPlanning(zel::String("Checking squadron ") + side.squadron);
        const SquadronFile& file = career.squadronFile(squadron.squadronFile);
        if (career.hasAircraft(zel::String(zel::arrayText(file.key)), side.type)) {
            if (isPlanningLogged())
                logPlanning("Skin found");
            return true;
        }
    }
    return true;
}

/// The player's squadron, or one of the side by repeated draws; an Allied candidate's type is drawn
/// with it, whether it is accepted or not. -1, with a log line, if no draw finds one.
int32_t PlanDraw::drawSquadron(bool allied, bool isPlayers, zel::String* alliedType) {
    const int32_t last = career.squadronCount() - 1;
    for (int32_t attempt = 0; attempt < MostAttempts && last >= 0; ++attempt) {
        const int32_t candidate = isPlayers ? career.player().squadron : random.getInt(0, last);
        const int32_t nation = career.squadron(candidate).nation;
        if (alliedType != nullptr)
            *alliedType = chooseNationPlane(nation, career.year, career.month, random);
        if (isOfSide(nation, allied) && career.squadron(candidate).pilotCount > 0)
            return candidate;
    }
    logHopeless(allied ? "No Allied squadron for a mission" : "No German squadron for a mission");
    return -1;
}

GroupSizes PlanDraw::drawGroupSizes() {
    for (int32_t attempt = 0; attempt < MostAttempts; ++attempt) {
        int32_t least = LeastPlanes;
        int32_t most = MostPlanes;
        if (career.year <= 1916) {
            const int32_t last = DrawsForMoreUpTo1916 - 1;
            least = LeastUpTo1916;
            most = random.getInt(0, last) == last ? MoreUpTo1916 : MostUpTo1916;
        } else if (career.year == 1917) {
            if (random.getInt(0, DrawsForDuelIn1917 - 1) == 0)
                return {1, 1};
        } else if (career.year == 1918) {
            if (random.getInt(0, DrawsForLargerIn1918 - 1) != 0)
                least = LargerLeastIn1918;
        }
        const int32_t german = random.getInt(least, most);
        const int32_t allied = random.getInt(least, most);
        const bool alone = german == 1 || allied == 1;
        if (alone ? german == allied : std::abs(german - allied) <= 1)
            return {german, allied};
    }
    logHopeless("No numbers of planes for a mission");
    return {0, 0};
}

/// Draws that many different pilots of the squadron. A German group may include lost pilots who are
/// not replaced yet, an Allied one draws again; in both, too many such draws trigger replacements.
/// False if there are never enough pilots.
bool PlanDraw::fillGroup(bool allied, const PlannedSide& side, int32_t count) {
    const Squadron& squadron = career.squadron(side.squadron);
    const size_t groupStart = plan.size();
    const int32_t lastSlot = squadron.pilotCount - 1;
    count = std::min(count, lastSlot + 1);
    prefetchPilots(career, squadron);
    for (int32_t attempt = 0; count > 0 && attempt < MostAttempts; ++attempt) {
        const int32_t pilot = squadron.slots[random.getInt(0, lastSlot)];
        const bool drawnAlready =
            std::any_of(plan.begin() + static_cast<std::ptrdiff_t>(groupStart), plan.end(),
                        [pilot](const PlannedPlane& plane) { return plane.pilot == pilot; });
        if (drawnAlready)
            continue;
        if (career.pilot(pilot).alive == 0) {
            if (vacantDraws > MostVacantDraws) {
                career.applyHistory();
                vacantDraws = 0;
            }
            ++vacantDraws;
            if (allied)
                continue;
        }
        plan.push_back(planeOf(career, pilot, side.squadron, side.type));
        if (pilot == career.playerPilot)
            plan.back().type = ownedType(side.type, allied);
        --count;
    }
    if (count > 0)
        logHopeless("No group of planes for a mission");
    return count == 0 && plan.size() > groupStart;
}

/// The pilot's place in the plan; -1 if he isn't in it.
int32_t findPlace(const std::vector<PlannedPlane>& plan, int32_t pilot) {
    for (auto i = static_cast<int32_t>(plan.size()) - 1; i >= 0; --i)
        if (plan[i].pilot == pilot)
            return i;
    return -1;
}

/// Sorts the plan: the player's plane first if there is one, then the first plane's side, then the
/// other; within a side in the order of drawing.
void groupBySide(std::vector<PlannedPlane>& plan, int32_t playerPlace) {
    auto rest = plan.begin();
    if (playerPlace >= 0) {
        std::rotate(plan.begin(), plan.begin() + playerPlace, plan.begin() + playerPlace + 1);
        ++rest;
    }
    const int32_t nation = plan.front().nation;
    const auto isOfFirstSide = [nation](const PlannedPlane& plane) {
        return isSameSide(plane.nation, nation);
    };
    if (!std::is_partitioned(rest, plan.end(), isOfFirstSide))
        std::stable_partition(rest, plan.end(), isOfFirstSide);
}

} // namespace

void planMission(MissionGenerator& generator, Database& career, bool withPlayer) {
    std::vector<PlannedPlane>& plan = generator.plan;
    if (withPlayer && career.player().alive == 0)
        career.applyHistory(); // his successor flies
    int32_t player = -1;
    for (int32_t attempt = 0;; ++attempt) {
        selectPlanes(generator, career, withPlayer);
        player = findPlace(plan, career.playerPilot);
        if (plan.empty() || withPlayer == (player >= 0))
            break;
        if (attempt == MostAttempts) {
            logHopeless(withPlayer ? "No plan has a place for the player"
                                   : "No plan leaves the player out");
            if (withPlayer)
                plan.clear();
            else
                plan.erase(std::remove_if(plan.begin(), plan.end(),
                                          [&](const PlannedPlane& plane) {
                                              return plane.pilot == career.playerPilot;
                                          }),
                           plan.end());
            player = -1;
            break;
        }
    }
    if (!plan.empty())
        groupBySide(plan, player);
    generator.seasonPrefix = drawSeason(generator.random, career.month, career.day);
}

void selectPlanes(MissionGenerator& generator, Database& career, bool withPlayer) {
    PlanDraw(generator, career).run(withPlayer);
}

zel::String drawSeason(zel::Random& random, int32_t month, int32_t day) {
    const bool firstHalf = day <= 15;
    switch (month) {
    case 1:
    case 2:
        return "wi";
    case 3:
        return firstHalf && random.getInt(0, 1) == 0 ? "wi" : "su";
    case 9:
        return firstHalf ? "su" : "au";
    case 10:
    case 11:
        return "au";
    case 12:
        return !firstHalf && random.getInt(0, 2) == 0 ? "wi" : "au";
    default:
        return "su";
    }
}
