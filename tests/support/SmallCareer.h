#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "app/career/Database.h"
#include "engine/core/Random.h"
#include "tests/support/TemporaryFolder.h"

/// A world of its own for one test: a folder of small data files as the current folder, the user's
/// folder in it, empty preferences, the clock at 0 and every generator pinned. All is put back at
/// its end.
///
/// Name lists: three first names and two last names for each nation. History comes on demand.
class SmallWorld {
public:
    SmallWorld();
    ~SmallWorld();
    SmallWorld(const SmallWorld&) = delete;
    SmallWorld& operator=(const SmallWorld&) = delete;

    /// Files of the delivered history and, with "Custom", of the player's own: key without ".txt".
    void addSquadron(std::string_view key, std::string_view text, const char* kind = "Historical");
    void addPilot(std::string_view name, std::string_view text, const char* kind = "Historical");
    /// Four squadrons (101003, 102024, 103094, 501002, the American one of the player's own) and
    /// two pilots (Karl Falke and Lucien Cigale).
    void addHistory();
    /// Pins the career's own generator and its number. REQUIRES: it holds no career yet.
    void pin(Database& career) const;
    /// The bytes of the save file in the user's folder.
    std::string savedBytes() const;

    TemporaryFolder folder;
    zel::Random planes; // draws the aircraft types while this lives

private:
    std::filesystem::path before;
};

/// What the script of that name in tests/reference has computed.
std::string referenceResult(const std::string& name);
