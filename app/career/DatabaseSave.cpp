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
constexpr int32_t FirstDay = 19151201; // of a career, as Calendar::dateNumber()
constexpr int32_t FirstYear = 1915;
constexpr int32_t LastYear = 1919;

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

template <size_t Size> void terminate(char (&text)[Size]) { text[Size - 1] = 0; }

// The texts of a record from a file end within their arrays, whatever the file says.
void endTexts(Squadron& squadron) {
    terminate(squadron.name);
    terminate(squadron.key);
    terminate(squadron.baseName);
    terminate(squadron.earliestDate);
}
void endTexts(Pilot& pilot) { terminate(pilot.name); }
void endTexts(DataLine& line) { terminate(line.text); }
void endTexts(SquadronFile& file) {
    terminate(file.fileName);
    terminate(file.key);
    terminate(file.lastDate);
}
void endTexts(PilotFile& file) { terminate(file.name); }

/// A save file while it is read. Behind its end everything reads as nothing.
class SaveReader {
public:
    explicit SaveReader(zel::File& file) : file(file), left(file.fileSize()) {}

    /// 0 when the file has ended.
    int32_t number() {
        int32_t value = 0;
        take(&value, sizeof value);
        return value;
    }

    /// As many whole records as the count says and the file holds. Each is shown to `look`.
    template <typename Record, typename Look>
    void records(std::vector<Record>& result, const Look& look) {
        const auto count = static_cast<uint32_t>(number());
        const auto held = std::min<size_t>(count, static_cast<size_t>(left) / sizeof(Record));
        result.resize(held); // those of a career before it are overwritten
        // By pieces that are looked at while they are in the cache.
        constexpr size_t PieceLength = 131072 / sizeof(Record);
        for (size_t done = 0; done < held;) {
            const size_t end = std::min(done + PieceLength, held);
            take(&result[done], static_cast<int32_t>((end - done) * sizeof(Record)));
            if (endedEarly)
                return result.resize(done);
            for (; done < end; ++done) {
                endTexts(result[done]);
                look(result[done]);
            }
        }
        if (held < count)
            end();
    }

    template <typename Record> void records(std::vector<Record>& result) {
        records(result, [](const Record&) {});
    }

    bool hasEndedEarly() const { return endedEarly; }

private:
    void take(void* place, int32_t size) {
        if (size > left || (size > 0 && !file.read(place, size)))
            end();
        else
            left -= size;
    }
    void end() {
        left = 0;
        endedEarly = true;
    }

    zel::File& file;
    int32_t left; // bytes
    bool endedEarly = false;
};

void logRepair(const zel::String& what) { zel::log(what, "Database", zel::LogWarning); }

/// Sets an index that names nothing to `none` and counts it.
template <typename Index> void checkIndex(Index& index, size_t count, Index none, int32_t& faults) {
    if (index != none && (index < 0 || static_cast<size_t>(index) >= count)) {
        index = none;
        ++faults;
    }
}

/// Whether each of a file's references names a data line or none; asked without a branch, since
/// there are hundreds of thousands of them.
bool areLines(const int32_t (&lines)[LineReferenceCount], size_t size) {
    const auto count = static_cast<uint32_t>(size);
    uint32_t wrong = 0;
    for (const int32_t line : lines)
        wrong |= uint32_t(static_cast<uint32_t>(line) + 1 > count);
    return wrong == 0;
}

/// The invariants of a career that came from a file: what breaks them is put right, with a line in
/// the log for each kind of fault.
class CareerRepair {
public:
    CareerRepair(Database& career, bool pilotsAreSound, bool linesAreSound)
        : career(career), pilotsAreSound(pilotsAreSound), linesAreSound(linesAreSound) {}

    /// False if there is nothing that a career could go on from.
    bool run() {
        if (career.squadrons.empty() || career.pilots.empty())
            return false;
        repairFiles();
        if (!pilotsAreSound)
            repairPilots();
        repairSlots();
        if (!repairPlayer())
            return false;
        repairInvitation();
        return true;
    }
    bool hasRepaired() const { return allFaults > 0; }

private:
    void repairFiles() {
        int32_t faults = 0;
        if (!linesAreSound) {
            for (SquadronFile& file : career.squadronFiles)
                repairLines(file.lines, faults);
            for (PilotFile& file : career.pilotFiles)
                repairLines(file.lines, faults);
        }
        for (PilotFile& file : career.pilotFiles) {
            checkIndex(file.pilotIndex, career.pilots.size(), -1, faults);
            const uint8_t joined = file.pilotIndex >= 0 ? 1 : 0;
            faults += file.joined != joined;
            file.joined = joined;
        }
        report(faults, " references of the data files led nowhere");
    }

    void repairLines(int32_t (&lines)[LineReferenceCount], int32_t& faults) const {
        for (int32_t& line : lines)
            checkIndex(line, career.dataLines.size(), -1, faults);
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

    /// REQUIRES: a player. Only a squadron of his nation other than his own can invite him.
    void repairInvitation() {
        int32_t faults = 0;
        int32_t& pending = career.invitationSquadron;
        if (pending != -1)
            checkIndex(pending, career.squadrons.size(), -2, faults);
        if (pending >= 0 &&
            (pending == career.player().squadron ||
             career.squadrons[static_cast<size_t>(pending)].nation != career.player().nation)) {
            pending = -2;
            ++faults;
        }
        if (career.previousInvitation != -1)
            checkIndex(career.previousInvitation, career.squadrons.size(), -2, faults);
        if (career.invitationMonth < 1 || career.invitationMonth > 12 ||
            career.invitationYear < FirstYear || career.invitationYear > LastYear + 1) {
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
        ++allFaults;
        logRepair("Save file: the player stood in no squadron; he is now " +
                  zel::String(zel::arrayText(career.player().name)));
        return true;
    }

    void report(int32_t faults, const char* what) {
        allFaults += faults;
        if (faults > 0)
            logRepair(zel::String("Save file: ") + faults + what + "; put right");
    }

    Database& career;
    bool pilotsAreSound; // their squadrons and files were looked at while they were read
    bool linesAreSound;  // likewise the lines of the data files
    int32_t allFaults = 0;
};

/// From the first day of a career to a little past the end of the war.
bool couldBeOfThisWar(const Database& career) {
    return career.year >= FirstYear && career.year <= LastYear && career.month >= 1 &&
           career.month <= 12 && career.day >= 1 &&
           career.day <= Calendar::daysInMonth(career.year, career.month) &&
           career.calendar().dateNumber() >= FirstDay;
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
    const zel::String path = zel::getUserDirectory() + name;
    if (!hasCareer()) {
        zel::log("There is no career to store in " + path, "Database", zel::LogError);
        return false;
    }
    createSaveFolders();
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

    // A damaged file doesn't push the last whole one out of its place as ".bak".
    const bool replacesDamaged = !damagedFile.empty() && damagedFile == path;
    const bool written =
        zel::replaceFileSafely(path, content, replacesDamaged ? ".damaged" : ".bak");
    if (written && replacesDamaged)
        damagedFile = "";
    if (!written)
        zel::log("The career can't be written to " + path + "; the file before it is kept",
                 "Database", zel::LogError);
    return written;
}

bool Database::loadFile(const zel::String& name) {
    createSaveFolders();
    zel::File file(zel::getUserDirectory() + name, zel::FileRead);
    SaveReader reader(file);
    const int32_t magic = reader.number();
    const int32_t version = reader.number();
    const bool isSave = !reader.hasEndedEarly() && std::memcmp(&magic, Magic, sizeof Magic) == 0;
    for (int32_t* value : {&playerPilot, &year, &month, &day, &unusedA, &unusedB, &careerNumber})
        *value = reader.number();
    const auto refuse = [&](const char* reason) {
        clearRecords(*this);
        damagedFile = zel::getUserDirectory() + name;
        if (careerNumber == 0) // or every career to come would have this one
            careerNumber = random.getInt(0, LastCareerNumber);
        zel::log("File " + name + reason, "Database", zel::LogWarning);
        return false;
    };
    if (!isSave)
        return refuse(" is no save game");
    if (version != SaveVersion)
        return refuse(" requires a newer version");
    if (!couldBeOfThisWar(*this))
        return refuse(" is no save game");

    reader.records(squadrons);
    uint32_t highestSquadron = 0; // that a pilot names, and his file
    uint32_t highestFile = 0;
    reader.records(pilots, [&](const Pilot& pilot) {
        highestSquadron = std::max(highestSquadron, static_cast<uint32_t>(pilot.squadron));
        highestFile = std::max(highestFile, static_cast<uint32_t>(pilot.pilotFile) + 1);
    });
    if (reader.hasEndedEarly()) // no war can go on without its men
        return refuse(" is no save game");
    reader.records(dataLines);
    bool linesAreSound = true;
    const auto lookAtLines = [&](const auto& record) {
        linesAreSound = linesAreSound && areLines(record.lines, dataLines.size());
    };
    reader.records(squadronFiles, lookAtLines);
    reader.records(pilotFiles, lookAtLines);
    for (int32_t* value :
         {&invitationYear, &invitationMonth, &invitationSquadron, &previousInvitation})
        *value = reader.number();
    if (reader.hasEndedEarly()) {
        logRepair("File " + name + " ends early; what it holds is used");
        invitationSquadron = previousInvitation = -2;
    }
    const bool pilotsAreSound =
        highestSquadron < squadrons.size() && highestFile <= pilotFiles.size();
    CareerRepair repair(*this, pilotsAreSound, linesAreSound);
    if (!repair.run())
        return refuse(" is no save game");
    damagedFile = reader.hasEndedEarly() || repair.hasRepaired() ? zel::getUserDirectory() + name
                                                                 : zel::String();
    return true;
}
