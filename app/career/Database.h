#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "app/career/Calendar.h"
#include "app/career/CareerRepair.h"
#include "app/career/DataTokens.h"
#include "app/career/EntireFile.h"
#include "app/career/Nation.h"
#include "app/career/RecordAt.h"
#include "app/career/Records.h"
#include "engine/core/Random.h"
#include "engine/core/String.h"

class SquadronKeys;

/// The services that a career can be begun in.
enum Service : int32_t { ServiceFrench = 0, ServiceEnglish = 1, ServiceGerman = 2 };

/// What invitationSquadron holds while none is pending. Both are in save files.
constexpr int32_t NoInvitation = -2; // a search may run
constexpr int32_t NoSearch = -1;     // put off without a search

/// The most that careerNumber can be.
constexpr int32_t LastCareerNumber = 0x7FFF5037;

/// Where the career lies in the user's folder.
constexpr const char* SaveFileName = "Saves/savegame_v03.wty";
constexpr const char* BackupEnding = ".bak";      // after its name: the save before it
constexpr const char* DamagedEnding = ".damaged"; // a damaged file that a save replaced

/// A whole career in memory: every squadron of the war, every pilot who ever served, the text of
/// the historical data files, the date, the player's pilot and his next invitation.
///
/// One object, made at the application's start and reached through instance(); the simulators, the
/// mission generator and the screens read and write its fields directly. Records refer to one
/// another by index, so that they can be saved as they lie.
///
/// What always holds: for a slot value p of squadron s, pilots[p].squadron is s; a pilot of a
/// squadron stands in exactly one slot; historical squadrons come first, in the order of their
/// files, and their squadronFile is their own index.
class Database {
public:
    /// Loads the eight name lists and draws a career number. No career is held yet.
    Database();
    virtual ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    static Database* instance();

    // Database.cpp: creation

    /// Makes a new career on 1 December 1915 and gives the player the first slot of a squadron of
    /// his service, a named one that flies the type of the day if luck allows. An unknown service
    /// is logged and taken for the French; a nation without any squadron is logged, and the player
    /// gets one of its side.
    void createCareer(int32_t service);
    /// Adds a squadron of twelve new pilots with a base. Returns its index.
    int32_t addSquadron(int32_t nation);
    /// What a mission's draws start from: it follows from the career and the day alone; never 0.
    uint32_t careerSeed() const;
    bool hasCareer() const { return !squadrons.empty() && !pilots.empty(); }
    Calendar calendar() const { return {year, month, day}; }
    bool isPilot(int32_t index) const {
        return index >= 0 && static_cast<size_t>(index) < pilots.size();
    }
    bool isSquadron(int32_t index) const {
        return index >= 0 && static_cast<size_t>(index) < squadrons.size();
    }

    // The records by their indices. On error: a log line at level 2 and a blank record, in which
    // whatever is written is lost (RecordAt.h). So it is with player() and playerSquadron() while
    // there is no career.

    Pilot& pilot(int32_t index) { return recordAt(pilots, index, "pilot"); }
    const Pilot& pilot(int32_t index) const { return recordAt(pilots, index, "pilot"); }
    Squadron& squadron(int32_t index) { return recordAt(squadrons, index, "squadron"); }
    const Squadron& squadron(int32_t index) const { return recordAt(squadrons, index, "squadron"); }
    const SquadronFile& squadronFile(int32_t index) const {
        return recordAt(squadronFiles, index, "squadron file");
    }
    PilotFile& pilotFile(int32_t index) { return recordAt(pilotFiles, index, "pilot file"); }
    const PilotFile& pilotFile(int32_t index) const {
        return recordAt(pilotFiles, index, "pilot file");
    }
    DataLine& dataLine(int32_t index) { return recordAt(dataLines, index, "data line"); }
    const DataLine& dataLine(int32_t index) const {
        return recordAt(dataLines, index, "data line");
    }
    Pilot& player() { return pilot(playerPilot); }
    const Pilot& player() const { return pilot(playerPilot); }
    Squadron& playerSquadron() { return squadron(player().squadron); }
    const Squadron& playerSquadron() const { return squadron(player().squadron); }

    // DatabaseFiles.cpp: the historical data files and what they say of aeroplanes

    /// Reads the squadron and pilot folders, the delivered ones before the player's own. A file of
    /// a name met before adds its lines to the same record. Bad files are logged and read as far as
    /// they make sense.
    void readDataFiles();
    /// Whether a line of that squadron's file names the type; dates play no part.
    bool hasAircraft(const zel::String& key, const zel::String& plane) const;
    /// The paint that the squadron has for the type; empty for none.
    zel::String squadronSkin(const zel::String& key, const zel::String& plane) const;
    /// The personal paint of a named pilot; empty for none, and for a negative index.
    zel::String pilotSkin(int32_t pilotFile, const zel::String& plane) const;

    // DatabaseSave.cpp: the save file

    /// Writes the career to `name` in the user's folder, the file before it kept as ".bak". The
    /// result is always true; on error a log line at level 2, and the old file stays whole.
    bool storeFile(const zel::String& name);
    /// The same, with the truth as its result. Without a career nothing is written.
    [[nodiscard]] bool writeSave(const zel::String& name);
    /// Whether the file of that name holds exactly this career, so that nothing is lost without
    /// another save. True without a career.
    bool isSaved(const zel::String& name) const;
    /// Replaces the career by the file's. What is damaged is fixed, see `repairs`. On error: a log
    /// line at level 3, no squadrons and no pilots, and no way on from here but another load or a
    /// new career.
    [[nodiscard]] bool loadFile(const zel::String& name);
    /// The same from the save before the one of that name, which the caller has found damaged: the
    /// next save keeps it as ".damaged". On error: as loadFile.
    [[nodiscard]] bool loadBackup(const zel::String& name);

    // DatabaseHistory.cpp: what a period of the war does to squadrons and pilots

    /// Switches on the squadrons whose day has come, and generated ones up to each nation's
    /// strength.
    void activateSquadrons(int32_t year, int32_t month, int32_t day);
    /// Applies the pilot files' lines that are due, then gives every dead pilot's slot to a new
    /// one. A dead player's successor becomes the player.
    void applyHistory();
    /// One due line of a pilot file: the pilot joins a squadron with a vacant slot, or moves to
    /// another. True when the line is used up.
    bool applyPilotEvent(const zel::String& name, const std::vector<DataToken>& tokens,
                         int32_t fileIndex);
    /// Exchanges two pilots of different squadrons. False, changing nothing, if that can't be.
    bool swapPilots(int32_t first, int32_t second);
    /// The squadron's pilots, best first: the living, then by shotdowns, missions and skill; ties
    /// in slot order. Empty for an index out of range.
    std::vector<int32_t> squadronRoster(int32_t squadron) const;

    // app/war/WarAdvance.cpp

    /// Fights the start-up missions and moves the war on until the date is reached or passed.
    void simulateToDate(int32_t year, int32_t month, int32_t day);

    int32_t playerPilot = 0; // index into pilots
    int32_t year = 0;
    int32_t month = 0;
    int32_t day = 0;
    int32_t unusedA = 0; // saved and loaded, used by nothing; so is unusedB
    int32_t unusedB = 0;
    int32_t careerNumber = 0; // 0 to LastCareerNumber
    std::vector<Squadron> squadrons;
    std::vector<Pilot> pilots;
    std::vector<SquadronFile> squadronFiles;
    std::vector<PilotFile> pilotFiles;
    std::vector<DataLine> dataLines;
    int32_t invitationYear = 0; // the first month in which an invitation may come
    int32_t invitationMonth = 0;
    int32_t invitationSquadron = NoInvitation; // the pending one, or NoInvitation or NoSearch
    int32_t previousInvitation = NoInvitation; // the squadron last turned down, or one of these
    EntireFile firstNames[4];                  // of France, England, Germany and the USA
    EntireFile lastNames[4];
    zel::Random random;
    CareerRepairs repairs; // of the file that was loaded last; none if it was whole

private:
    std::string saveContent() const;
    bool readSave(const zel::String& name);
    zel::String drawPilotName(int32_t nation);
    Pilot makeReplacement(int32_t squadron);
    void makeHistoricalSquadron(int32_t fileIndex);
    void choosePlayer(int32_t service);
    bool applyPilotEvent(std::string_view name, const std::vector<DataToken>& tokens,
                         int32_t fileIndex, const SquadronKeys& keys);
    bool joinSquadron(std::string_view name, int32_t squadronIndex,
                      const std::vector<DataToken>& tokens, int32_t fileIndex);
    std::optional<bool> moveToSquadron(std::string_view name, int32_t squadron, int32_t fileIndex);
    void applyPilotFile(int32_t fileIndex, std::string_view today, const SquadronKeys& keys,
                        std::vector<DataToken>& tokens);
    void useUpPostings(const PilotFile& file, int32_t place);
    void fillVacantSlots(int32_t squadron);

    zel::String damagedFile; // the save file that was read last, if it was not whole
};
