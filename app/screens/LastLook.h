#pragma once

#include <utility>

#include "app/report/LogWatch.h"

/// The player goes on without a report, and the last look has found none. Where the flight may
/// still be reported, because its log can't be read at the moment or is still growing, he stays and
/// is told so. If he insists, he goes on.
class LastLook {
public:
    /// The page is entered.
    void begin() { warned = LogState::None; }
    /// Whether the player must stay after a last look with that news. Not twice for the same news.
    bool holds(LogState news) {
        const bool isOpen =
            news == LogState::Unread || news == LogState::NoFolder || news == LogState::Growing;
        return isOpen && std::exchange(warned, news) != news;
    }
    /// Whether he has been held for that news.
    bool hasHeld(LogState news) const { return news != LogState::None && news == warned; }

private:
    LogState warned = LogState::None;
};
