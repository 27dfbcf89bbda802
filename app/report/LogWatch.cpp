#include "app/report/LogWatch.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "app/career/Checksum.h"
#include "engine/core/SystemPlaces.h"

namespace {

/// After that many polls without growth, and that long, the simulator, which writes a piece every
/// half minute, has stopped. The page polls every eight seconds, and whenever the player asks.
constexpr int32_t QuietPolls = 5;
constexpr uint32_t QuietMilliseconds = 40000;

} // namespace

zel::FileFault LogWatch::begin(const zel::String& folder) {
    zel::Directory present;
    if (!present.list(folder, FirstPiecePattern))
        return present.fault();
    startNews();
    known.clear();
    here = {};
    enter(folder, present);
    ordered = {here};
    return zel::FileFault::None;
}

void LogWatch::begin(const std::vector<zel::String>& knownLogs, const zel::String& folders) {
    logs.clear();
    startNews();
    known.clear();
    ordered.clear();
    here = {};
    std::istringstream marks{std::string(folders.view())};
    for (std::string mark; marks >> mark; here = mark) {
        known[mark] = {knownLogs.begin(), knownLogs.end()};
        ordered.insert(mark);
    }
}

zel::String LogWatch::markOf(const zel::String& folder) {
    return checksumOf(zel::system::canonicalPath(folder));
}

zel::FileFault LogWatch::resume(const zel::String& folder) {
    zel::Directory present;
    if (!hasSeen(folder) && !present.list(folder, FirstPiecePattern))
        return present.fault();
    enter(folder, present);
    ordered.insert(here);
    for (Log& log : logs)
        log.isEarlier = true;
    startNews();
    return zel::FileFault::None;
}

void LogWatch::moveTo(const zel::String& folder) {
    const std::vector<zel::String> names = knownLogs();
    here = markOf(folder);
    known[here] = {names.begin(), names.end()};
    ordered.insert(here);
}

void LogWatch::enter(const zel::String& folder, const zel::Directory& present) {
    const zel::String mark = markOf(folder);
    if (mark == here)
        return;
    here = mark;
    logs.clear();
    if (const auto [names, isNew] = known.try_emplace(mark); isNew)
        for (int32_t i = 0; i < present.count(); ++i)
            names->second.insert(present.name(i));
}

void LogWatch::startNews() {
    missingFolder = {};
    newsTicks = zel::ticks();
}

void LogWatch::markAsKnown() {
    for (const Log& log : logs)
        known[here].insert(log.name);
    logs.clear();
}

void LogWatch::ignore(const zel::String& name) {
    known[here].insert(name);
    logs.erase(
        std::remove_if(logs.begin(), logs.end(), [&](const Log& log) { return log.name == name; }),
        logs.end());
}

std::vector<zel::String> LogWatch::knownLogs() const {
    std::set<zel::String> all;
    for (const zel::String& folder : ordered)
        all.insert(known.at(folder).begin(), known.at(folder).end());
    return {all.begin(), all.end()};
}

zel::String LogWatch::folders() const {
    zel::String marks;
    for (const zel::String& folder : ordered)
        marks += (marks.empty() ? "" : " ") + std::string(folder.view());
    return marks;
}

std::vector<zel::String> LogWatch::poll(const zel::String& folder) {
    std::vector<zel::String> names;
    zel::Directory present;
    missingFolder = present.list(folder, FirstPiecePattern) ? zel::String() : folder;
    if (!missingFolder.empty())
        return names;
    enter(folder, present);
    logs.erase(std::remove_if(logs.begin(), logs.end(),
                              [&](const Log& log) { return !present.holds(log.name); }),
               logs.end());
    for (int32_t i = 0; i < present.count(); ++i) {
        const zel::String name = present.name(i);
        const auto earlier = std::find_if(logs.begin(), logs.end(),
                                          [&](const Log& log) { return log.name == name; });
        const bool isNew = earlier == logs.end();
        if (isNew && known[here].count(name) != 0)
            continue;
        Log& log = isNew ? logs.emplace_back() : *earlier;
        // Measured before it is read: what is written meanwhile shows as growth.
        const LogExtent extent = measureLog(folder, name);
        log.name = name;
        log.hasGrown = !isNew && extent.isBeyond(log.extent);
        log.extent = extent;
        log.quietPolls = isNew || log.hasGrown ? 0 : log.quietPolls + 1;
        if (isNew || log.hasGrown)
            newsTicks = log.newsTicks = zel::ticks();
        log.isEarlier = log.isEarlier && !log.hasGrown;
        log.grows = log.grows || log.hasGrown;
        if (isNew || log.hasGrown || log.news.state == LogState::Unread ||
            log.news.state == LogState::Ending)
            names.push_back(name);
    }
    return names;
}

bool LogWatch::hasStoppedEnding(const zel::String& name) const {
    return std::any_of(logs.begin(), logs.end(), [&](const Log& log) {
        return log.name == name && log.news.state == LogState::Ending && !log.hasGrown;
    });
}

void LogWatch::note(const zel::String& name, const LogNews& news) {
    for (Log& log : logs)
        if (log.name == name)
            log.news = news;
}

std::vector<zel::String> LogWatch::logsIn(LogState state) const {
    std::vector<zel::String> names;
    for (const Log& log : logs)
        if (log.state() == state)
            names.push_back(log.name);
    return names;
}

int32_t LogWatch::quietMinutes() const {
    constexpr uint32_t Minute = 60000; // milliseconds
    return int32_t((zel::ticks() - newsTicks) / Minute);
}

LogState LogWatch::Log::state() const {
    if (news.state != LogState::Begun)
        return news.state;
    if (quietPolls >= QuietPolls && zel::ticks() - newsTicks >= QuietMilliseconds)
        return LogState::Stopped;
    return grows ? LogState::Growing : LogState::Begun;
}

LogNews LogWatch::news() const {
    if (!missingFolder.empty())
        return {LogState::NoFolder, missingFolder};
    LogNews last;
    for (const Log& log : logs) {
        LogNews latest = log.news;
        latest.state = log.state();
        const bool isUnread = latest.state == LogState::Unread;
        const bool isWritten = latest.state == LogState::Begun || latest.state == LogState::Growing;
        if (log.isEarlier && !isUnread && !isWritten)
            continue;
        if (isWritten || latest.state == LogState::Ending)
            return latest;
        if (isUnread || last.state != LogState::Unread)
            last = std::move(latest);
    }
    return last;
}
