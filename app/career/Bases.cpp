#include "app/career/Bases.h"

#include <iterator>

#include "app/career/CareerObserver.h"
#include "app/career/Database.h"
#include "engine/core/Random.h"
#include "engine/core/Registry.h"

namespace {

/// An airfield: its name and its position in the simulator's coordinates (metres north, up, east).
struct Airfield {
    const char* name;
    float x, y, z;
};

constexpr int32_t SquadronsPerChannel = 5; // one in this many goes there, if that map may be drawn

// In the order of the draw.
// clang-format off
constexpr Airfield AlliedChannel[] = {
    {"Dunkerque",  78614.35F, 1050.25F, 173931.61F},
    {"Ypres",      60611.08F, 1000.00F, 206677.56F},
    {"St. Omer",   50427.86F, 1000.00F, 172919.00F},
};
constexpr Airfield GermanChannel[] = {
    {"Zeebrugge", 106839.09F, 1000.00F, 229430.17F},
    {"Ostende",   105220.32F,   41.84F, 225402.80F},
    {"Roulers",    69558.71F,   62.60F, 234522.44F},
};
constexpr Airfield AlliedWestern[] = {
    {"Arras",     213678.73F,    0.00F,  59607.41F},
    {"Amiens",    165563.03F, 1276.63F,  29702.08F},
    {"Reims",      94987.95F,    0.00F, 152875.84F},
    {"Verdun",     85641.22F,    0.00F, 246236.73F},
    {"Toul",       33006.23F,    0.00F, 288295.91F},
};
constexpr Airfield GermanWestern[] = {
    {"Lille",     253890.89F,    0.00F,  78627.34F},
    {"Cambrai",   200518.50F,    0.00F,  92959.45F},
    {"Cappy",     170749.75F, 1062.99F,  59543.51F},
    {"Metz",       85856.48F,    0.00F, 306784.62F},
};
// clang-format on

/// The airfields of a side on a map.
struct Airfields {
    const Airfield *begin, *end;
    bool onChannelMap;
    bool allied;
};
constexpr Airfields AllAirfields[] = {
    {std::begin(AlliedChannel), std::end(AlliedChannel), true, true},
    {std::begin(GermanChannel), std::end(GermanChannel), true, false},
    {std::begin(AlliedWestern), std::end(AlliedWestern), false, true},
    {std::begin(GermanWestern), std::end(GermanWestern), false, false},
};

template <size_t Count> const Airfield& drawAirfield(const Airfield (&airfields)[Count]) {
    return airfields[zel::random(0, static_cast<int32_t>(Count) - 1)];
}

const Airfield& drawBase(bool allied, bool onChannelMap) {
    if (onChannelMap)
        return allied ? drawAirfield(AlliedChannel) : drawAirfield(GermanChannel);
    return allied ? drawAirfield(AlliedWestern) : drawAirfield(GermanWestern);
}

void putOn(Squadron& squadron, const Airfield& airfield, bool onChannelMap) {
    squadron.onChannelMap = onChannelMap ? 1 : 0;
    zel::copyText(squadron.baseName, airfield.name);
    squadron.baseX = airfield.x;
    squadron.baseY = airfield.y;
    squadron.baseZ = airfield.z;
}

/// Whether the player's squadron is on the Channel map, by his preferences; `otherwise` if they
/// allow both maps.
bool isOnChannelForPlayer(bool otherwise) {
    const bool western = zel::Registry::isOn(WesternMapKey);
    const bool channel = zel::Registry::isOn(ChannelMapKey);
    return western && channel ? otherwise : channel;
}

bool isPlayersSquadron(const Database& career, int32_t squadron) {
    return career.isPilot(career.playerPilot) && career.player().squadron == squadron;
}

} // namespace

void assignBase(Database& career, int32_t squadron, bool allied, bool mayDrawChannel) {
    if (!career.isSquadron(squadron))
        return;
    Squadron& moved = career.squadron(squadron);
    bool onChannelMap = mayDrawChannel && zel::random(0, SquadronsPerChannel - 1) == 0;
    if (isPlayersSquadron(career, squadron))
        onChannelMap = isOnChannelForPlayer(onChannelMap);
    const Airfield& airfield = drawBase(allied, onChannelMap);
    const bool isElsewhere = zel::arrayText(moved.baseName) != airfield.name;
    putOn(moved, airfield, onChannelMap);
    if (isElsewhere && career.observer != nullptr && isPlayersSquadron(career, squadron))
        career.observer->onBaseChange(career);
}

void restoreBase(Squadron& squadron) {
    const std::string_view name = zel::arrayText(squadron.baseName);
    const Airfields* likely = &AllAirfields[0]; // of its side and map
    for (const Airfields& some : AllAirfields) {
        if (some.onChannelMap == (squadron.onChannelMap != 0) &&
            some.allied == isAllied(squadron.nation))
            likely = &some;
        for (const Airfield* airfield = some.begin; airfield != some.end; ++airfield)
            if (name == airfield->name ||
                (squadron.baseX == airfield->x && squadron.baseZ == airfield->z))
                return putOn(squadron, *airfield, some.onChannelMap);
    }
    putOn(squadron, *likely->begin, likely->onChannelMap);
}

zel::String baseForPlayer(const Database& career, int32_t squadron) {
    const Squadron& asked = career.squadron(squadron);
    const bool isOnChannel = asked.onChannelMap != 0;
    const bool goesToChannel = isOnChannelForPlayer(isOnChannel);
    if (goesToChannel != isOnChannel)
        for (const Airfields& some : AllAirfields)
            if (some.onChannelMap == goesToChannel && some.allied == isAllied(asked.nation))
                return some.begin[squadron % (some.end - some.begin)].name;
    return zel::String(zel::arrayText(asked.baseName));
}

void moveToBase(Database& career, int32_t squadron, const zel::String& name) {
    Squadron& moved = career.squadron(squadron);
    const bool isElsewhere = zel::arrayText(moved.baseName) != name.view();
    zel::copyText(moved.baseName, name);
    restoreBase(moved);
    if (isElsewhere && career.observer != nullptr && isPlayersSquadron(career, squadron))
        career.observer->onBaseChange(career);
}

void keepPlayerOnAllowedMap(Database& career) {
    const Squadron& squadron = career.playerSquadron();
    const bool western = zel::Registry::isOn(WesternMapKey);
    const bool channel = zel::Registry::isOn(ChannelMapKey);
    if (squadron.onChannelMap == 0 ? !western && channel : !channel)
        assignBase(career, career.player().squadron, isAllied(squadron.nation), false);
}
