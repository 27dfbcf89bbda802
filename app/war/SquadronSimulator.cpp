#include "app/war/SquadronSimulator.h"

#include <algorithm>
#include <iterator>

#include "app/career/Database.h"
#include "engine/core/Random.h"
#include "engine/core/Registry.h"

namespace {

/// An airfield: name and place in the simulator's coordinates (metres north, up, east).
struct Place {
    const char* name;
    float x, y, z;
};

// In the order of the draw.
// clang-format off
constexpr Place AlliedChannel[] = {
    {"Dunkerque",  78614.35F, 1050.25F, 173931.61F},
    {"Ypres",      60611.08F, 1000.00F, 206677.56F},
    {"St. Omer",   50427.86F, 1000.00F, 172919.00F},
};
constexpr Place GermanChannel[] = {
    {"Zeebrugge", 106839.09F, 1000.00F, 229430.17F},
    {"Ostende",   105220.32F,   41.84F, 225402.80F},
    {"Roulers",    69558.71F,   62.60F, 234522.44F},
};
constexpr Place AlliedWestern[] = {
    {"Arras",     213678.73F,    0.00F,  59607.41F},
    {"Amiens",    165563.03F, 1276.63F,  29702.08F},
    {"Reims",      94987.95F,    0.00F, 152875.84F},
    {"Verdun",     85641.22F,    0.00F, 246236.73F},
    {"Toul",       33006.23F,    0.00F, 288295.91F},
};
constexpr Place GermanWestern[] = {
    {"Lille",     253890.89F,    0.00F,  78627.34F},
    {"Cambrai",   200518.50F,    0.00F,  92959.45F},
    {"Cappy",     170749.75F, 1062.99F,  59543.51F},
    {"Metz",       85856.48F,    0.00F, 306784.62F},
};

/// A range of unit numbers that share a form of name: prefix, number less base, suffix.
struct NameRange {
    int32_t first, last;
    int32_t base;
    const char* prefix;
    const char* suffix;
};
constexpr NameRange NameRanges[] = {
    {101001, 101227, 101000, "Esc ",                    ""},
    {101901, 101999, 101900, "",                        "eme Esc de Chasse"},
    {102001, 102100, 102000, "No ",                     " Squadron RFC"},
    {102101, 102200, 102100, "No ",                     " Squadron AFC"},
    {102201, 102299, 102200, "No ",                     " Squadron RNAS"},
    {501001, 501100, 501000, "Jasta ",                  ""},
    {501101, 501200, 501100, "Schlasta ",               ""},
    {501201, 501300, 501200, "FA ",                     ""},
    {501301, 501399, 501300, "Marine-Feldjagdstaffel ", ""},
    {501400, 501500, 501200, "FA ",                     ""},
    {501601, 501700, 501600, "SFL ",                    ""},
};
// clang-format on
constexpr int32_t ObservationSquadron = 101903;
constexpr int32_t FirstAmerican = 103001;
constexpr int32_t LastAmerican = 103999;

template <size_t Count> const Place& drawPlace(const Place (&places)[Count]) {
    return places[zel::random(0, static_cast<int32_t>(Count) - 1)];
}

const Place& drawBase(bool allied, bool onChannelMap) {
    if (onChannelMap)
        return allied ? drawPlace(AlliedChannel) : drawPlace(GermanChannel);
    return allied ? drawPlace(AlliedWestern) : drawPlace(GermanWestern);
}

bool isPlayersSquadron(const Database& career, int32_t squadron) {
    return career.isPilot(career.playerPilot) && career.player().squadron == squadron;
}

// From the whole number's digits, so that 103001 reads "1th": the screens always showed it so.
const char* ordinalSuffix(int32_t id) {
    const int32_t tens = id / 10 % 10;
    if (tens < 2)
        return "th";
    switch (id % 10) {
    case 1:
        return "st";
    case 2:
        return "nd";
    case 3:
        return "rd";
    default:
        return "th";
    }
}

/// What a pilot's victories and missions are worth by his skill, 0 to 10.
int32_t baseLevel(int32_t skill, int32_t shotdowns, int32_t missions) {
    struct Divisors {
        int32_t shotdowns, missions;
    };
    constexpr Divisors BySkill[] = {{3, 15}, {3, 12}, {3, 11}, {3, 10}, {3, 9}, {3, 8},
                                    {3, 7},  {2, 6},  {2, 5},  {1, 5},  {1, 4}};
    const Divisors& divisors = BySkill[skill];
    return shotdowns / divisors.shotdowns + missions / divisors.missions;
}

bool isExperienced(int32_t skill, int32_t missions) {
    return missions > 7 || (skill > 0 && missions > 5) || (skill > 1 && missions > 3) ||
           (skill > 2 && missions > 2) || (skill > 4 && missions > 1) ||
           (skill > 6 && missions > 0);
}

} // namespace

void SquadronSimulator::assignBase(int32_t squadron, bool allied, bool mayDrawChannel) {
    Database& career = *Database::instance();
    if (!career.isSquadron(squadron))
        return;
    Squadron& moved = career.squadrons[static_cast<size_t>(squadron)];
    bool onChannelMap = mayDrawChannel && zel::random(0, 4) == 0;
    if (isPlayersSquadron(career, squadron)) {
        const bool western = zel::Registry::isOn("mapWestern");
        const bool channel = zel::Registry::isOn("mapChannel");
        if (!western || !channel)
            onChannelMap = channel;
    }
    moved.onChannelMap = onChannelMap ? 1 : 0;
    const Place& place = drawBase(allied, onChannelMap);
    zel::copyText(moved.baseName, place.name);
    moved.baseX = place.x;
    moved.baseY = place.y;
    moved.baseZ = place.z;
}

void SquadronSimulator::keepPlayerOnAllowedMap() {
    Database& career = *Database::instance();
    const Squadron& squadron = career.playerSquadron();
    const bool western = zel::Registry::isOn("mapWestern");
    const bool channel = zel::Registry::isOn("mapChannel");
    if (squadron.onChannelMap == 0 ? !western && channel : !channel)
        assignBase(career.player().squadron, isAllied(squadron.nation), false);
}

zel::String SquadronSimulator::squadronDisplayName(int32_t id) {
    if (id == ObservationSquadron)
        return "3eme Esc Observation";
    if (id >= FirstAmerican && id <= LastAmerican)
        return zel::String(id - (FirstAmerican - 1)) + ordinalSuffix(id) + " Aero";
    const auto range =
        std::find_if(std::begin(NameRanges), std::end(NameRanges),
                     [id](const NameRange& r) { return id >= r.first && id <= r.last; });
    if (range == std::end(NameRanges))
        return zel::String("(") + id + ")";
    return zel::String(range->prefix) + (id - range->base) + range->suffix;
}

bool SquadronSimulator::hasDisplayName(int32_t id) {
    const zel::String name = squadronDisplayName(id);
    return name.length() > 1 && name.left(1) != "(";
}

int32_t SquadronSimulator::squadronNumber(int32_t fileIndex) {
    const Database& career = *Database::instance();
    if (fileIndex < 0 || static_cast<size_t>(fileIndex) >= career.squadronFiles.size())
        return -1;
    return zel::toInt(zel::arrayText(career.squadronFiles[static_cast<size_t>(fileIndex)].key));
}

float SquadronSimulator::squadronStrength(int32_t squadron) {
    const Database& career = *Database::instance();
    const std::vector<int32_t> roster = career.squadronRoster(squadron);
    const int32_t best = std::min<int32_t>(static_cast<int32_t>(roster.size()), 5);
    int32_t sum = 0;
    for (int32_t i = 0; i < best; ++i) {
        const int32_t pilot = roster[static_cast<size_t>(i)];
        sum += career.pilots[static_cast<size_t>(pilot)].shotdowns * (5 - i);
    }
    return static_cast<float>(sum) / 14.0F; // sic: the weights sum up to 15
}

int32_t SquadronSimulator::pilotLevel(int32_t skill, int32_t shotdowns, int32_t missions) {
    skill = std::clamp(skill, 0, 10);
    int32_t value = baseLevel(skill, shotdowns, missions);
    if (value >= 5)
        return 4;
    if (value >= 3)
        return 3;
    if (shotdowns > 0) {
        ++value;
        if (value == 3)
            return 3;
        if (value == 1)
            value = 2;
    }
    const bool experienced = isExperienced(skill, missions);
    if (shotdowns == 0 && experienced) // value is 0, 1 or 2 here
        value = 2;
    if (shotdowns >= 2 && experienced)
        value = 3;
    return std::max(value, 1);
}
