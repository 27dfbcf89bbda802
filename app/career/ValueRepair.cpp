#include "app/career/ValueRepair.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

#include "app/career/Bases.h"
#include "app/career/DataFolders.h"
#include "app/career/Database.h"
#include "app/career/NewCareer.h"

namespace {

// The simulator's maps with a wide margin, in metres. No airfield is in their south-west corner.
constexpr float LeastWay = 1000.0F;
constexpr float LongestWay = 1000000.0F;
constexpr float HighestBase = 10000.0F;

bool isOnMap(const Squadron& squadron) {
    const auto isWay = [](float way) { return way >= LeastWay && way <= LongestWay; };
    return isWay(squadron.baseX) && isWay(squadron.baseZ) &&
           std::abs(squadron.baseY) <= HighestBase; // false for what isn't a number
}

class ValueRepair {
public:
    explicit ValueRepair(Database& career) : career(career) {}

    int32_t run(const std::vector<int32_t>& pilots, bool areFilesPlausible) {
        if (!areFilesPlausible)
            for (int32_t i = 0; i < career.squadronFileCount(); ++i)
                repairSquadronFile(i);
        for (int32_t i = 0; i < career.squadronCount(); ++i)
            repairSquadron(i);
        for (const Squadron& squadron : career.squadrons)
            nations.insert(squadron.nation);
        for (const int32_t pilot : pilots)
            repairPilot(career.pilots[pilot]);
        if (!areFilesPlausible)
            repairPilotFiles();
        return faults;
    }

private:
    template <typename Value> void set(Value& value, Value right) {
        if (value == right)
            return; // writing the same would send each record back to memory
        ++faults;
        value = right;
    }
    template <typename Value> void keepBits(Value& value, Value bits) {
        set(value, static_cast<Value>(value & bits));
    }

    template <size_t Size> void setText(char (&text)[Size], std::string_view right) {
        if (zel::arrayText(text) == right && isCleanText(text))
            return;
        zel::copyText(text, std::string(right)); // it may be a part of the same text
        ++faults;
    }

    template <size_t Size> void cleanText(char (&text)[Size]) {
        if (isCleanText(text))
            return;
        std::string cleaned(zel::arrayText(text));
        for (char& character : cleaned)
            if (static_cast<uint8_t>(character) < 0x20 || character == 0x7F)
                character = '?';
        setText(text, cleaned);
    }

    /// Their names, and which data lines are applied.
    void repairPilotFiles() {
        for (PilotFile& file : career.pilotFiles)
            cleanText(file.name);
        for (DataLine& line : career.dataLines)
            keepBits(line.applied, uint8_t(1));
    }

    /// The file has its name twice, and usually a third time in its squadron.
    void repairSquadronFile(int32_t index) {
        SquadronFile& file = career.squadronFiles[index];
        if (zel::arrayText(file.key) != zel::arrayText(file.fileName)) {
            const std::string_view third = career.isSquadron(index)
                                               ? zel::arrayText(career.squadrons[index].key)
                                               : std::string_view();
            const bool isKey = zel::arrayText(file.key).substr(0, LongestSquadronKey) == third;
            isKey ? setText(file.fileName, zel::arrayText(file.key))
                  : setText(file.key, zel::arrayText(file.fileName));
        }
        cleanText(file.fileName);
        cleanText(file.key);
        cleanText(file.lastDate);
    }

    void repairSquadron(int32_t index) {
        Squadron& squadron = career.squadrons[index];
        keepBits(squadron.onChannelMap, uint8_t(1));
        keepBits(squadron.active, uint8_t(1));
        cleanText(squadron.name);
        cleanText(squadron.earliestDate);
        int32_t nation = isOfTheWar(squadron.nation) ? squadron.nation : nationOfGenerated(index);
        std::string_view key;
        if (career.isSquadronFile(squadron.squadronFile)) {
            key = zel::arrayText(career.squadronFile(squadron.squadronFile).key);
            nation = nationOfKey(key);
        }
        setText(squadron.key, key.substr(0, LongestSquadronKey));
        set(squadron.nation, static_cast<uint16_t>(nation));
        if (!isOnMap(squadron) || !isCleanText(squadron.baseName)) {
            restoreBase(squadron);
            ++faults;
        }
    }

    void repairPilot(Pilot& pilot) {
        const bool hasFile = career.isPilotFile(pilot.pilotFile);
        keepBits(pilot.alive, uint8_t(1));
        set(pilot.historic, static_cast<uint8_t>(hasFile ? 1 : 0));
        keepBits(pilot.shotdowns, VictoryBits);
        keepBits(pilot.missions, MissionBits);
        if (pilot.skill > SkillBits && !(hasFile && hasPotential(pilot)))
            keepBits(pilot.skill, SkillBits);
        if (!isOfTheWar(pilot.nation) && nations.count(pilot.nation) == 0)
            set(pilot.nation, career.squadron(pilot.squadron).nation);
        if (isCleanText(pilot.name))
            return;
        if (hasFile && isCleanText(career.pilotFile(pilot.pilotFile).name))
            setText(pilot.name, zel::arrayText(career.pilotFile(pilot.pilotFile).name));
        else
            cleanText(pilot.name);
    }

    /// Whether a line of his file gives him that skill.
    bool hasPotential(const Pilot& pilot) const {
        std::vector<DataToken> tokens;
        for (const int32_t line : career.pilotFile(pilot.pilotFile).lines) {
            if (line < 0)
                continue;
            splitDataLine(zel::arrayText(career.dataLine(line).text), tokens);
            for (const DataToken& token : tokens)
                if (token.is("acepotential") &&
                    std::min(zel::toInt(token.value), 255) == int32_t{pilot.skill})
                    return true;
        }
        return false;
    }

    Database& career;
    std::set<int32_t> nations; // of the squadrons
    int32_t faults = 0;
};

} // namespace

int32_t repairValues(Database& career, const std::vector<int32_t>& pilots, bool areFilesPlausible) {
    return ValueRepair(career).run(pilots, areFilesPlausible);
}
