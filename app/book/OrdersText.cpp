#include "app/book/OrdersText.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>

#include "app/book/LogBookText.h"
#include "app/book/OrdersWording.h"
#include "app/book/PilotRecord.h"
#include "app/book/Standing.h"
#include "app/career/Wording.h"

namespace {

constexpr float FullTurn = 6.2831853F;

int32_t kilometres(const MapPoint& from, const MapPoint& to) {
    return static_cast<int32_t>(std::lround(std::hypot(to.x - from.x, to.z - from.z) / 1000));
}

zel::String direction(const MapPoint& from, const MapPoint& to) {
    constexpr auto Count = static_cast<int32_t>(std::size(wording::Directions));
    const float turn = std::atan2(to.z - from.z, to.x - from.x) / FullTurn; // from the north
    const auto step = static_cast<int32_t>(std::lround(turn * static_cast<float>(Count)));
    return textOf(wording::Directions[(step + Count) % Count]);
}

} // namespace

zel::String taskText(const MapPoint& field, const MapPoint& fight, bool onChannelMap) {
    const int32_t distance = kilometres(field, fight);
    if (distance == 0)
        return textOf(wording::PatrolOverField);
    const char* town = townNear(fight, onChannelMap, NearTown);
    if (town != nullptr)
        return textOf(wording::PatrolNearTown,
                      {nameInLanguage(town), distance, direction(field, fight)});
    return textOf(wording::PatrolFarOff, {distance, direction(field, fight)});
}

zel::String rosterName(const PilotRecord& player, size_t letters) {
    const RankRow* rank = player.honours.rank();
    const zel::String title = rank != nullptr ? rank->shortName + " " : zel::String();
    const zel::String brief = shortName(player.name);
    for (const zel::String& name :
         {title + player.name, title + brief, title + lastName(player.name), player.name, brief}) {
        zel::String row = textOf(wording::YouInTheRoster, {name});
        if (size_t(row.length()) <= letters)
            return row;
    }
    const auto others = size_t(textOf(wording::YouInTheRoster, {""}).length());
    return textOf(wording::YouInTheRoster, {cutTo(brief, letters - std::min(letters, others))});
}

zel::String fightText(const MapPoint& field, const MapPoint& fight) {
    const int32_t distance = kilometres(field, fight);
    if (distance == 0)
        return textOf(wording::RingOverField);
    return textOf(wording::RingOfFight, {distance, direction(field, fight)});
}
