#pragma once

#include <utility>

#include "app/report/LogWatch.h"

/// Holds a player who goes on without a report while his flight may still be reported: its log
/// can't be read at the moment, or has no end yet. A second press lets him go.
class LastLook {
public:
    /// The page is entered.
    void begin() { warned = LogState::None; }
    /// Whether the player must stay after a last look with that news. Not twice for the same news.
    bool holds(LogState news) {
        const LogState open = openState(news);
        return open != LogState::None && std::exchange(warned, open) != open;
    }
    /// Whether he has been held for that news.
    bool hasHeld(LogState news) const {
        return warned != LogState::None && openState(news) == warned;
    }

private:
    /// Growing also for a log that has just begun; None if there is nothing to wait for.
    static LogState openState(LogState news) {
        if (news == LogState::Begun)
            return LogState::Growing;
        const bool isOpen =
            news == LogState::Unread || news == LogState::NoFolder || news == LogState::Growing;
        return isOpen ? news : LogState::None;
    }

    LogState warned = LogState::None;
};
