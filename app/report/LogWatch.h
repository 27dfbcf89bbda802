#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <vector>

#include "app/report/LogExtent.h"
#include "engine/core/Clock.h"
#include "engine/core/Directory.h"
#include "engine/core/FileFault.h"
#include "engine/core/String.h"

/// First pieces of the simulator's logs.
constexpr const char* FirstPiecePattern = "*[0]*.txt";

/// The state of the log that a mission waits for.
enum class LogState {
    None,         // none has come since the mission was written
    NoTextLog,    // none can come: the simulator's text log is off
    NoFolder,     // the simulator's folder is gone, or can't be read
    Unread,       // a piece is there and can't be read; the next poll tries again
    Begun,        // it has come and has no end yet
    Growing,      // it has no end yet, and grows
    Ending,       // its end is there and may still be incomplete
    Stopped,      // it has no end and no longer grows
    OtherMission, // it is the log of another mission
    OtherDay,     // WingtallyMission, but of another day
    OtherPilot,   // WingtallyMission, but with a player whom the plan doesn't know
};

/// What is known about the log that a mission waits for, for the page that waits.
struct LogNews {
    LogState state = LogState::None;
    zel::String detail; // NoFolder: the folder; Unread: the log; OtherMission, OtherPilot: its name
    zel::FileFault fault = zel::FileFault::None; // Unread: why
};

/// Knows which of the simulator's logs are new since the mission was written.
///
/// The simulator begins its log half a minute into the flight, and the player may come back before
/// he has landed: a log that poll() found counts as new again once it has grown.
class LogWatch {
public:
    /// Notes the logs in that folder as known. Logs that come later belong to a later flight. A
    /// folder that can't be listed is an error, after which nothing is known for certain: all old
    /// logs could count as new.
    [[nodiscard]] zel::FileFault begin(const zel::String& folder);
    /// The same with the logs that an earlier run of the program has found. folders: those that
    /// they are in, as folders() returns them; at least one.
    void begin(const std::vector<zel::String>& knownLogs, const zel::String& folders);
    /// A key for a folder that exists, the same by whatever path it is reached.
    static zel::String markOf(const zel::String& folder);
    /// Forgets a log: it belongs to another flight, even if it grows.
    void ignore(const zel::String& name);
    /// The first pieces of the logs that are known in any of folders(), without those that poll()
    /// found.
    std::vector<zel::String> knownLogs() const;
    /// The keys of the folders of begin(), resume() and moveTo(), separated by blanks. Those that
    /// only poll() has seen aren't among them: the mission was not written there.
    zel::String folders() const;
    /// Call it when the same mission is written again: logs since begin() stay new, but news()
    /// passes over those that are neither in progress nor unreadable. Another folder is entered as
    /// by poll(); one that can't be listed is an error.
    [[nodiscard]] zel::FileFault resume(const zel::String& folder);
    /// Whether the folder was seen since begin().
    bool hasSeen(const zel::String& folder) const { return known.count(markOf(folder)) != 0; }
    /// The folder has taken the place of one of folders(): knownLogs() are known in it. REQUIRES:
    /// it exists.
    void moveTo(const zel::String& folder);
    /// Lists the folder. In one that is new since begin() the logs that are there count as known,
    /// since they aren't of this mission. Returns the names of the first pieces that have come
    /// since the last poll, and of those found before whose logs have grown or have to be read
    /// again (Unread, Ending). A log that has gone is forgotten, and new if it comes back.
    std::vector<zel::String> poll(const zel::String& folder);
    /// Whether a log of the last poll had its end at the poll before and hasn't grown since.
    bool hasStoppedEnding(const zel::String& name) const;
    /// What reading a log of the last poll has shown: Unread, Begun, Ending, OtherMission, OtherDay
    /// or OtherPilot.
    void note(const zel::String& name, const LogNews& news);
    /// The logs with that state at present, in the order in which they were found.
    std::vector<zel::String> logsIn(LogState state) const;
    /// Marks the logs found so far as known, even if they grow.
    void markAsKnown();

    /// The news of a log in progress if there is one, otherwise of one that can't be read,
    /// otherwise of the latest log.
    LogNews news() const;
    /// Whole minutes since the mission was written or a log has come or grown.
    int32_t quietMinutes() const;

private:
    struct Log {
        zel::String name;
        LogExtent extent;
        LogNews news;
        bool hasGrown = false;  // at the last poll
        bool grows = false;     // it has grown since it came
        bool isEarlier = false; // it came before the mission was last written, and hasn't grown
        int32_t quietPolls = 0; // since it came or grew
        uint32_t newsTicks = 0; // when it came or grew, on the engine's clock

        LogState state() const;
    };

    void startNews();
    void enter(const zel::String& folder, const zel::Directory& present);

    std::map<zel::String, std::set<zel::String>> known; // by folder, of those seen since begin()
    std::set<zel::String> ordered;                      // those of them that are in folders()
    zel::String here;                                   // key of the one seen last
    std::vector<Log> logs;                              // in the order in which they were found
    zel::String missingFolder;
    uint32_t newsTicks = zel::ticks(); // when there was news, on the engine's clock
};
