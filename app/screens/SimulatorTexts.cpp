#include "app/screens/SimulatorTexts.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/mission/SimulatorWording.h"
#include "app/screens/PathText.h"
#include "app/screens/ScreenWording.h"
#include "engine/core/System.h"

namespace {

constexpr int32_t PlaceLetters = 46; // of a slip, whose typewriter face has one advance

/// "in the registry, in the libraries of Steam and where it was before".
zel::String waysText(const std::vector<SimulatorPlace>& places) {
    std::vector<zel::String> ways;
    for (int32_t way = FoundByCount - 1; way >= 0; --way)
        if (std::any_of(places.begin(), places.end(), [way](const SimulatorPlace& place) {
                return place.foundBy == FoundBy(way);
            }))
            ways.insert(way < int32_t(FoundBy::Registry) ? ways.end() : ways.begin(),
                        textOf(wording::FoundWays[way]));
    return enumerated(ways);
}

zel::String timeOfLog(const zel::WallTime& time) {
    char clock[32];
    std::snprintf(clock, sizeof clock, "%02d:%02d", time.hour, time.minute);
    return textOf(wording::LastLog, {bookDate({time.year, time.month, time.day}), clock});
}

CheckLine textLogLine(const SimulatorChecks& checks, bool mustWrite) {
    switch (checks.textLog) {
    case TextLog::On:
        return {CheckMark::Yes, textOf(wording::TextLogIsOn)};
    case TextLog::Off:
        return {CheckMark::No, textOf(mustWrite ? wording::LineToWrite : wording::TextLogIsOff)};
    case TextLog::Unknown:
        break;
    }
    return {CheckMark::No, textOf(wording::TextLogUnknown)};
}

zel::String whyUnwritable(zel::FileFault fault) {
    switch (fault) {
    case zel::FileFault::NoPermission:
        return textOf(zel::system::hasRegistry() ? wording::MissionsKeptOut
                                                 : wording::MissionsUnwritable);
    case zel::FileFault::Missing:
        return textOf(wording::MissionsMissing);
    case zel::FileFault::ReadOnly:
        return textOf(wording::MissionsReadOnly);
    default:
        return faultSentence(fault);
    }
}

static_assert(std::size(wording::FoundWays) == FoundByCount);
static_assert(std::size(wording::OpenChecks) == 4); // by line

} // namespace

zel::String placeText(const SimulatorPlace& place) {
    const zel::String way = textOf(wording::FoundByNames[size_t(place.foundBy)]);
    const int32_t room = PlaceLetters - textOf(wording::PlaceRow, {way, ""}).length();
    return textOf(wording::PlaceRow, {way, shortPath(place.folder, size_t(std::max(room, 8)))});
}

zel::String foundText(const std::vector<SimulatorPlace>& places, bool isSearching, bool isGone) {
    zel::String text;
    if (!places.empty())
        text = textOf(places.size() == 1 ? wording::FoundOne : wording::FoundSeveral,
                      {waysText(places)});
    else if (isSearching)
        text = textOf(wording::StillSearching);
    else
        text =
            textOf(zel::system::hasRegistry() ? wording::FoundNowhere : wording::FoundNowhereHere);
    return isGone ? textOf(wording::GoneFromThere, {text}) : text;
}

std::vector<CheckLine> checkLines(const SimulatorChecks& checks, bool hasPlace, bool mustWrite) {
    std::vector<CheckLine> lines;
    for (const Wording& open : wording::OpenChecks)
        lines.push_back({CheckMark::Open, textOf(open)});
    if (!hasPlace)
        return lines;
    if (!checks.isThere) {
        lines[0] = {CheckMark::No, textOf(wording::FolderIsGone)};
        return lines;
    }
    lines[0] = {CheckMark::Yes, textOf(wording::FolderIsThere)};
    lines[1] = textLogLine(checks, mustWrite);
    if (checks.missionsFault == zel::FileFault::None)
        lines[2] = {CheckMark::Yes, textOf(wording::MissionsWritable)};
    else
        lines[2] = {CheckMark::No, whyUnwritable(checks.missionsFault)};
    if (checks.newestLog.empty())
        lines[3].text = textOf(wording::NoLogYet);
    else
        lines[3] = {CheckMark::Yes, timeOfLog(checks.newestLogTime)};
    return lines;
}

zel::String statusText(const std::vector<CheckLine>& lines, bool hasPlace, bool isSearching) {
    if (!hasPlace)
        return isSearching ? zel::String() : textOf(wording::LookOrStandIn);
    const auto missing = std::count_if(lines.begin(), lines.end(), [](const CheckLine& line) {
        return line.mark == CheckMark::No;
    });
    return countText(wording::ThingsMissing, int32_t(missing));
}
