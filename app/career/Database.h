#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "app/career/Calendar.h"
#include "app/career/CareerRepair.h"
#include "app/career/DataTokens.h"
#include "app/career/EntireFile.h"
#include "app/career/Nation.h"
#include "app/career/RecordAt.h"
#include "app/career/Records.h"
#include "app/career/SaveCheck.h"
#include "engine/core/Random.h"
#include "engine/core/String.h"

class CareerLock;
class CareerObserver;

/// The services that a career can be begun in.
enum Service : int32_t { ServiceFrench = 0, ServiceEnglish = 1, ServiceGerman = 2 };

/// What invitationSquadron holds while none is pending. Both are in save files.
constexpr int32_t NoInvitation = -2; // a search may run
constexpr int32_t NoSearch = -1;     // put off without a search

/// The most that careerNumber can be.
constexpr int32_t LastCareerNumber = 0x7FFF5037;

/// Where the career that can be played is in the user's folder: its own folder and its save.
constexpr const char* CurrentFolder = "Saves";
constexpr const char* SaveFileName = "Saves/savegame_v03.wty";
static_assert(std::string_view(SaveFileName).find(CurrentFolder) == 0);
constexpr const char* BackupEnding = ".bak";      // after its name: the save before it
constexpr const char* DamagedEnding = ".damaged"; // a damaged file that a save replaced

/// A whole career in memory: every squadron of the war, every pilot who ever served, the text of
/// the historical data files, the date, the player's pilot and his next invitation.
///
/// One object, made at the application's start and reached through instance(); the simulators, the
/// mission generator and the screens read and write its fields directly. Records refer to one
/// another by index, so that they can be saved as they are in memory.
///
/// Invariants: for a slot value p of squadron s, pilots[p].squadron is s; a pilot of a squadron is
/// in exactly one slot; historical squadrons come first, in the order of their files, and their
/// squadronFile is their own index.
class Database {
public:
    /// Loads the eight name lists and draws a career number. No career is held yet.
    Database();
    virtual ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    static Database* instance();

    /// The seed of a mission's draws: it depends only on the career and the day, and is never 0.
    uint32_t careerSeed() const;
    bool hasCareer() const { return !squadrons.empty() && !pilots.empty(); }
    Calendar calendar() const { return {year, month, day}; }
    int32_t pilotCount() const { return static_cast<int32_t>(pilots.size()); }
    int32_t squadronCount() const { return static_cast<int32_t>(squadrons.size()); }
    int32_t squadronFileCount() const { return static_cast<int32_t>(squadronFiles.size()); }
    int32_t pilotFileCount() const { return static_cast<int32_t>(pilotFiles.size()); }
    bool isPilot(int32_t index) const { return index >= 0 && index < pilotCount(); }
    bool isSquadron(int32_t index) const { return index >= 0 && index < squadronCount(); }
    bool isSquadronFile(int32_t index) const { return index >= 0 && index < squadronFileCount(); }
    bool isPilotFile(int32_t index) const { return index >= 0 && index < pilotFileCount(); }
    /// Adds a pilot, who is in no slot yet. Returns his index.
    int32_t addPilot(const Pilot& pilot) {
        pilots.push_back(pilot);
        return pilotCount() - 1;
    }

    // The records by their indices. On error: a log line at level 2 and a blank record; what is
    // written into it is lost (RecordAt.h). The same holds for player() and playerSquadron() while
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

    // The operations on a career. Each forwards to the function of the header named above it, which
    // describes it.

    // NewCareer.h
    void createCareer(int32_t service);
    int32_t addSquadron(int32_t nation);
    // DataTables.h
    void readDataFiles();
    bool hasAircraft(const zel::String& key, const zel::String& plane) const;
    zel::String squadronSkin(const zel::String& key, const zel::String& plane) const;
    zel::String pilotSkin(int32_t pilotFile, const zel::String& plane) const;
    // SaveFile.h; loadFile and loadBackup are readSave and readBackup there
    bool storeFile(const zel::String& name); // writeSave, but the result is always true
    [[nodiscard]] bool writeSave(const zel::String& name);
    bool isSaved(const zel::String& name) const;
    [[nodiscard]] bool loadFile(const zel::String& name);
    [[nodiscard]] bool loadBackup(const zel::String& name);
    // SquadronActivation.h
    void activateSquadrons(int32_t year, int32_t month, int32_t day);
    // PilotHistory.h
    void applyHistory();
    bool applyPilotEvent(const zel::String& name, const std::vector<DataToken>& tokens,
                         int32_t fileIndex);
    // SquadronRoster.h
    bool swapPilots(int32_t first, int32_t second);
    std::vector<int32_t> squadronRoster(int32_t squadron) const;

    /// Fights the start-up missions and moves the war on until the date is reached or passed. It is
    /// defined in app/war/WarAdvance.cpp.
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
    bool hasBrokenHistory = false;      // the disk failed while the data files were read
    CareerObserver* observer = nullptr; // of what happens; null for nobody, and not owned
    CareerLock* lock = nullptr;         // of the user's folder; null for none, and not owned
    bool isReadOnly = false; // another program had the lock when the career was loaded or begun
    CareerRepairs repairs;   // of the file that was loaded last; none if it was whole
    bool isUnsaved = false;  // begun in this run, and not saved yet
    SaveCheck saveCheck;     // of the file that was read last
    zel::String damagedSave; // path of the save file that was read last, if it was not whole
    zel::FileFault writeFault = zel::FileFault::None; // why the last save was not written
};
