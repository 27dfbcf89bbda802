#include "app/report/LogWatch.h"

#include <algorithm>

#include "engine/core/System.h"

// A folder that can't be read just now looks empty: forgetting its logs would make all of them new
// at the next look, and an old report could be carried into the career once more.
void LogWatch::begin(const zel::String& folder) {
    zel::Directory present;
    if (present.list(folder, FirstPiecePattern))
        known = present;
    settle();
}

void LogWatch::settle() {
    lookedAt.clear();
    growing = false;
    quiet = 0;
}

std::vector<zel::String> LogWatch::look(const zel::String& folder) {
    std::vector<zel::String> names;
    growing = false;
    bool hasNews = false;
    zel::Directory present;
    if (!present.list(folder, FirstPiecePattern))
        return names;
    for (int32_t i = 0; i < present.count(); ++i) {
        const zel::String name = present.name(i);
        const auto earlier = std::find_if(lookedAt.begin(), lookedAt.end(),
                                          [&](const Extent& log) { return log.name == name; });
        if (earlier == lookedAt.end() && known.holds(name))
            continue;
        // Measured before it is read: what is written meanwhile shows as growth at the next look.
        const Extent now = measure(folder, name);
        if (earlier == lookedAt.end()) {
            lookedAt.push_back(now);
            hasNews = true;
        } else {
            const bool hasGrown = now.pieces > earlier->pieces || now.bytes > earlier->bytes;
            growing = growing || hasGrown;
            if (!hasGrown && earlier->isRead)
                continue;
            *earlier = now;
        }
        names.push_back(name);
    }
    known = present;
    quiet = lookedAt.empty() || hasNews || growing ? 0 : quiet + 1;
    return names;
}

void LogWatch::readAgain(const zel::String& name) {
    for (Extent& log : lookedAt)
        if (log.name == name)
            log.isRead = false;
}

LogWatch::Extent LogWatch::measure(const zel::String& folder, const zel::String& name) {
    Extent log{name, 0, 0};
    const size_t open = name.view().find("[0]");
    for (;; ++log.pieces) {
        const zel::String piece = zel::String(name.view().substr(0, open)) + "[" + log.pieces +
                                  "]" + name.view().substr(open + 3);
        const zel::system::FileStatus status = zel::system::fileStatus(folder + piece);
        if (!status.exists)
            return log;
        log.bytes += status.size;
    }
}
