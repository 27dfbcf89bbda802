#include <algorithm>
#include <cstring>
#include <string>

#include "app/career/Database.h"
#include "engine/core/Directory.h"
#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/UserDirectory.h"

namespace {

constexpr char Magic[] = {'W', 'T', 'S', 'V'};
constexpr int32_t SaveVersion = 2;

void createSaveFolders() {
    zel::Directory::create(zel::getUserDirectory());
    zel::Directory::create(zel::getUserDirectory() + "Saves");
}

template <typename Value> void append(std::string& content, const Value& value) {
    content.append(reinterpret_cast<const char*>(&value), sizeof value);
}

template <typename Record>
void appendRecords(std::string& content, const std::vector<Record>& records) {
    append(content, static_cast<uint32_t>(records.size()));
    content.append(reinterpret_cast<const char*>(records.data()), records.size() * sizeof(Record));
}

/// What is left of a save file while it is read. Behind its end everything reads as nothing.
class SaveReader {
public:
    explicit SaveReader(std::string_view content) : rest(content) {}

    /// 0 when the file has ended.
    int32_t number() {
        int32_t value = 0;
        if (rest.size() < sizeof value) {
            rest = {};
            endedEarly = true;
            return 0;
        }
        std::memcpy(&value, rest.data(), sizeof value);
        rest.remove_prefix(sizeof value);
        return value;
    }

    /// As many whole records as the count says and the file holds.
    template <typename Record> void records(std::vector<Record>& result) {
        const uint32_t count = static_cast<uint32_t>(number());
        const size_t held = std::min<size_t>(count, rest.size() / sizeof(Record));
        endedEarly = endedEarly || held < count;
        result.resize(held);
        if (held > 0)
            std::memcpy(static_cast<void*>(result.data()), rest.data(), held * sizeof(Record));
        rest = endedEarly ? std::string_view() : rest.substr(held * sizeof(Record));
    }

    bool hasEndedEarly() const { return endedEarly; }

private:
    std::string_view rest;
    bool endedEarly = false;
};

void logRepair(const zel::String& what) { zel::log(what, "Database", zel::LogWarning); }

template <size_t Size> void terminate(char (&text)[Size]) { text[Size - 1] = 0; }

/// Sets an index that names nothing to `none` and counts it.
template <typename Index> void checkIndex(Index& index, size_t count, Index none, int32_t& faults) {
    if (index != none && (index < 0 || static_cast<size_t>(index) >= count)) {
        index = none;
        ++faults;
    }
}

/// The invariants of a career that came from a file: what breaks them is put right, with a line in
/// the log for each kind of fault.
class CareerRepair {
public:
    explicit CareerRepair(Database& career) : career(career) {}

    /// False if there is nothing that a career could go on from.
    bool run() {
        if (career.squadrons.empty() || career.pilots.empty())
            return false;
        repairTexts();
        repairFiles();
        repairPilots();
        repairSlots();
        repairInvitation();
        return repairPlayer();
    }

private:
    void repairTexts() {
        for (Squadron& squadron : career.squadrons) {
            terminate(squadron.name);
            terminate(squadron.key);
            terminate(squadron.baseName);
            terminate(squadron.earliestDate);
        }
        for (Pilot& pilot : career.pilots)
            terminate(pilot.name);
        for (DataLine& line : career.dataLines)
            terminate(line.text);
        for (SquadronFile& file : career.squadronFiles) {
            terminate(file.fileName);
            terminate(file.key);
            terminate(file.lastDate);
        }
        for (PilotFile& file : career.pilotFiles)
            terminate(file.name);
    }

    void repairFiles() {
        int32_t faults = 0;
        for (SquadronFile& file : career.squadronFiles)
            for (int32_t& line : file.lines)
                checkIndex(line, career.dataLines.size(), -1, faults);
        for (PilotFile& file : career.pilotFiles) {
            for (int32_t& line : file.lines)
                checkIndex(line, career.dataLines.size(), -1, faults);
            checkIndex(file.pilotIndex, career.pilots.size(), -1, faults);
            if (file.pilotIndex < 0)
                file.joined = 0;
        }
        report(faults, " references of the data files led nowhere");
    }

    void repairPilots() {
        int32_t faults = 0;
        for (Pilot& pilot : career.pilots) {
            checkIndex(pilot.pilotFile, career.pilotFiles.size(), -1, faults);
            if (!career.isSquadron(pilot.squadron)) {
                pilot.squadron = 0; // repairSlots gives him the squadron that lists him
                ++faults;
            }
        }
        report(faults, " pilots had no such file or squadron");
    }

    void repairSlots() {
        int32_t faults = 0;
        std::vector<bool> placed(career.pilots.size());
        for (size_t i = 0; i < career.squadrons.size(); ++i) {
            Squadron& squadron = career.squadrons[i];
            checkIndex(squadron.squadronFile, career.squadronFiles.size(), int16_t(-1), faults);
            const int32_t listed = std::min<int32_t>(squadron.pilotCount, SlotCount);
            int32_t kept = 0;
            for (int32_t slot = 0; slot < listed; ++slot) {
                const int32_t pilot = squadron.slots[slot];
                if (!career.isPilot(pilot) || placed[static_cast<size_t>(pilot)])
                    continue;
                placed[static_cast<size_t>(pilot)] = true;
                Pilot& holder = career.pilots[static_cast<size_t>(pilot)];
                faults += holder.squadron != static_cast<int32_t>(i);
                holder.squadron = static_cast<int32_t>(i);
                squadron.slots[kept++] = pilot;
            }
            faults += kept != squadron.pilotCount;
            squadron.pilotCount = static_cast<uint8_t>(kept);
            std::fill(squadron.slots + kept, squadron.slots + SlotCount, -1);
        }
        report(faults, " places in squadrons were wrong");
    }

    void repairInvitation() {
        int32_t faults = 0;
        if (career.invitationSquadron != -1)
            checkIndex(career.invitationSquadron, career.squadrons.size(), -2, faults);
        if (career.previousInvitation != -1)
            checkIndex(career.previousInvitation, career.squadrons.size(), -2, faults);
        if (career.invitationMonth < 1 || career.invitationMonth > 12) {
            career.invitationYear = career.year;
            career.invitationMonth = career.month;
            ++faults;
        }
        report(faults, " values of the invitation were out of range");
    }

    bool repairPlayer() {
        if (career.isPilot(career.playerPilot)) {
            const Squadron& squadron = career.playerSquadron();
            const auto end = squadron.slots + squadron.pilotCount;
            if (std::find(squadron.slots, end, career.playerPilot) != end)
                return true;
        }
        const int32_t nation = career.isPilot(career.playerPilot) ? career.player().nation : 0;
        const Squadron* place = nullptr;
        for (const Squadron& squadron : career.squadrons)
            if (squadron.pilotCount > 0 &&
                (place == nullptr || (squadron.nation == nation && place->nation != nation)))
                place = &squadron;
        if (place == nullptr)
            return false;
        career.playerPilot = place->slots[0];
        logRepair("Save file: the player stood in no squadron; he is now " +
                  zel::String(zel::arrayText(career.player().name)));
        return true;
    }

    static void report(int32_t faults, const char* what) {
        if (faults > 0)
            logRepair(zel::String("Save file: ") + faults + what + "; put right");
    }

    Database& career;
};

/// From the first day of a career to a little past the end of the war.
bool couldBeOfThisWar(const Database& career) {
    return career.year >= 1915 && career.year <= 1919 && career.month >= 1 && career.month <= 12 &&
           career.day >= 1 && career.day <= Calendar::daysInMonth(career.year, career.month);
}

void clearRecords(Database& career) {
    career.squadrons.clear();
    career.pilots.clear();
    career.dataLines.clear();
    career.squadronFiles.clear();
    career.pilotFiles.clear();
}

} // namespace

bool Database::storeFile(const zel::String& name) {
    static_cast<void>(writeSave(name));
    return true;
}

bool Database::writeSave(const zel::String& name) {
    createSaveFolders();
    const zel::String path = zel::getUserDirectory() + name;
    zel::log("storeFile" + path, "Database", zel::LogInfo);

    std::string content;
    content.reserve(squadrons.size() * sizeof(Squadron) + pilots.size() * sizeof(Pilot) +
                    dataLines.size() * sizeof(DataLine) +
                    squadronFiles.size() * sizeof(SquadronFile) +
                    pilotFiles.size() * sizeof(PilotFile) + 128);
    append(content, Magic);
    for (const int32_t value :
         {SaveVersion, playerPilot, year, month, day, unusedA, unusedB, careerNumber})
        append(content, value);
    appendRecords(content, squadrons);
    appendRecords(content, pilots);
    appendRecords(content, dataLines);
    appendRecords(content, squadronFiles);
    appendRecords(content, pilotFiles);
    for (const int32_t value :
         {invitationYear, invitationMonth, invitationSquadron, previousInvitation})
        append(content, value);

    const bool written = zel::replaceFileSafely(path, content);
    if (!written)
        zel::log("The career can't be written to " + path + "; the file before it is kept",
                 "Database", zel::LogError);
    return written;
}

bool Database::loadFile(const zel::String& name) {
    clearRecords(*this);
    createSaveFolders();
    std::string content;
    zel::File file(zel::getUserDirectory() + name, zel::FileRead);
    if (!file.readWhole(content))
        content.clear();
    file.close();

    SaveReader reader(content);
    const bool isSave = content.compare(0, sizeof Magic, Magic, sizeof Magic) == 0;
    static_cast<void>(reader.number());
    const int32_t version = reader.number();
    for (int32_t* value : {&playerPilot, &year, &month, &day, &unusedA, &unusedB})
        *value = reader.number();
    // A career number of 0 would be drawn anew by the next career only: the old one serves till
    // then.
    const int32_t storedNumber = reader.number();
    careerNumber = storedNumber != 0 ? storedNumber : careerNumber;
    const auto refuse = [&](const char* reason) {
        clearRecords(*this);
        zel::log("File " + name + reason, "Database", zel::LogWarning);
        return false;
    };
    if (!isSave || content.size() < sizeof Magic + sizeof version)
        return refuse(" is no save game");
    if (version != SaveVersion)
        return refuse(" requires a newer version");
    if (!couldBeOfThisWar(*this))
        return refuse(" is no save game");

    reader.records(squadrons);
    reader.records(pilots);
    reader.records(dataLines);
    reader.records(squadronFiles);
    reader.records(pilotFiles);
    for (int32_t* value :
         {&invitationYear, &invitationMonth, &invitationSquadron, &previousInvitation})
        *value = reader.number();
    if (reader.hasEndedEarly())
        logRepair("File " + name + " ends early; what it holds is used");
    return CareerRepair(*this).run() ? true : refuse(" is no save game");
}
