#include <algorithm>

#include "app/career/Database.h"
#include "app/career/SquadronKeys.h"
#include "engine/core/Log.h"

namespace {

// Nations aim at a number of squadrons that grows by the month.
constexpr int32_t MonthsBeforeWar = 22980; // year * 12 + month of December 1914

// Named pilots: 9 or 10, or with acelevel 1 from 10 to 12.
constexpr int32_t SkillOfNamed = 9;
constexpr int32_t SkillOfAce = 10;
// Replacements: a draw up to this, and one more for each 0 in a row of draws up to ExtraSkillDraw.
constexpr int32_t HighestSkillOfReplacement = 9;
constexpr int32_t ExtraSkillDraw = 3;

/// Places in the counts of active squadrons; -1 for a nation that isn't counted.
enum CountedNation : int32_t { CountedFrance, CountedEngland, CountedUsa, CountedGermany, Counted };

int32_t countedNation(int32_t nation) {
    switch (nation) {
    case France:
        return CountedFrance;
    case England:
        return CountedEngland;
    case Usa:
        return CountedUsa;
    case Germany:
        return CountedGermany;
    default:
        return -1;
    }
}

int32_t tokenNumber(const std::vector<DataToken>& tokens, std::string_view key, int32_t absent) {
    for (const DataToken& token : tokens)
        if (token.is(key))
            return zel::toInt(token.value);
    return absent;
}

bool hasUnit(const std::vector<DataToken>& tokens) {
    return std::any_of(tokens.begin(), tokens.end(), [](const DataToken& token) {
        return token.is("unit") && !token.value.empty();
    });
}

/// The date of a posting; empty for a line that is none.
std::string_view postingDate(const std::vector<DataToken>& tokens) {
    if (!hasUnit(tokens))
        return {};
    for (const DataToken& token : tokens)
        if (token.is("date"))
            return token.value;
    return {};
}

/// How good a named pilot is when he joins.
uint8_t drawHistoricSkill(int32_t aceLevel, int32_t acePotential, zel::Random& random) {
    int32_t skill = 0;
    if (aceLevel < 1) {
        const int32_t most = random.getInt(0, 1);
        skill = SkillOfNamed + random.getInt(0, most);
    } else if (aceLevel == 1) {
        skill = random.getInt(SkillOfAce, SkillOfAce + 1);
        const int32_t most = random.getInt(0, 1);
        skill += random.getInt(0, most);
    } else {
        skill = SkillOfNamed + random.getInt(0, 1);
    }
    if (acePotential > 0)
        skill = std::min(acePotential, 255);
    return static_cast<uint8_t>(skill);
}

bool isBetter(const Pilot& a, const Pilot& b) {
    const bool aliveA = a.alive != 0;
    const bool aliveB = b.alive != 0;
    if (aliveA != aliveB)
        return aliveA;
    if (a.shotdowns != b.shotdowns)
        return a.shotdowns > b.shotdowns;
    if (a.missions != b.missions)
        return a.missions > b.missions;
    return a.skill > b.skill;
}

/// The slot that holds the pilot; null for none.
int32_t* slotOf(Squadron& squadron, int32_t pilot) {
    const auto slot = std::find(std::begin(squadron.slots), std::end(squadron.slots), pilot);
    return slot != std::end(squadron.slots) ? slot : nullptr;
}

} // namespace

void Database::activateSquadrons(int32_t atYear, int32_t atMonth, int32_t atDay) {
    const zel::String today = Calendar(atYear, atMonth, atDay).dateText();
    int32_t counts[Counted] = {};
    for (Squadron& squadron : squadrons) {
        const std::string_view earliest = zel::arrayText(squadron.earliestDate);
        if (!earliest.empty() && earliest <= today.view())
            squadron.active = 1;
        const int32_t nation = countedNation(squadron.nation);
        if (squadron.active != 0 && nation >= 0)
            ++counts[nation];
    }

    const int32_t months = atYear * 12 + atMonth - MonthsBeforeWar;
    int32_t targets[Counted] = {};
    targets[CountedFrance] = targets[CountedEngland] = 5 * months / 3;
    targets[CountedGermany] = 10 * months / 3;
    for (Squadron& squadron : squadrons) {
        const int32_t nation = countedNation(squadron.nation);
        if (squadron.squadronFile >= 0 || nation < 0 || counts[nation] >= targets[nation])
            continue;
        // One that is active already counts again: the strength may be reached early, as is meant.
        squadron.active = 1;
        ++counts[nation];
    }
    if (zel::isLogged("Database", zel::LogInfo))
        zel::log(zel::String(" Active squadrons: English=") + counts[CountedEngland] +
                     " French=" + counts[CountedFrance] + " American=" + counts[CountedUsa] +
                     " German=" + counts[CountedGermany],
                 "Database", zel::LogInfo);
}

void Database::applyHistory() {
    const zel::String today = calendar().dateText();
    const SquadronKeys keys(squadrons);
    std::vector<DataToken> tokens;
    for (size_t i = 0; i < pilotFiles.size(); ++i) {
        const int32_t joined = pilotFiles[i].pilotIndex;
        if (!isPilot(joined) || pilot(joined).alive != 0)
            applyPilotFile(static_cast<int32_t>(i), today, keys, tokens);
    }
    for (size_t i = 0; i < squadrons.size(); ++i)
        fillVacantSlots(static_cast<int32_t>(i));
}

/// `tokens` is memory that one file leaves to the next.
void Database::applyPilotFile(int32_t fileIndex, std::string_view today, const SquadronKeys& keys,
                              std::vector<DataToken>& tokens) {
    const PilotFile& file = pilotFile(fileIndex);
    for (int32_t place = 0; place < LineReferenceCount; ++place) {
        const int32_t line = file.lines[place];
        if (line < 0 || dataLine(line).applied != 0)
            continue;
        splitDataLine(zel::arrayText(dataLine(line).text), tokens);
        bool usedUp = false;
        for (const DataToken& token : tokens)
            if (token.is("date") && token.value <= today)
                usedUp =
                    applyPilotEvent(zel::arrayText(file.name), tokens, fileIndex, keys) || usedUp;
        if (!usedUp)
            continue;
        dataLine(line).applied = 1;
        useUpPostings(file, place);
    }
}

/// He has moved on: the postings before that one are past, or the next update would take him back
/// to the squadron that he joined first. The player's own lines stand behind the delivered ones, so
/// it is the date that counts, and the place only among equal dates.
void Database::useUpPostings(const PilotFile& file, int32_t place) {
    const auto lineAt = [&](int32_t at) -> DataLine& { return dataLine(file.lines[at]); };
    std::vector<DataToken> tokens;
    splitDataLine(zel::arrayText(lineAt(place).text), tokens);
    const std::string_view moved = postingDate(tokens);
    for (int32_t other = 0; other < LineReferenceCount; ++other) {
        if (file.lines[other] < 0)
            continue;
        splitDataLine(zel::arrayText(lineAt(other).text), tokens);
        const std::string_view date = postingDate(tokens);
        if (!date.empty() && (date < moved || (date == moved && other < place)))
            lineAt(other).applied = 1;
    }
}

void Database::fillVacantSlots(int32_t squadron) {
    Squadron& filled = squadrons[squadron];
    for (int32_t slot = 0; slot < filled.pilotCount; ++slot) {
        const int32_t leaving = filled.slots[slot];
        if (!isPilot(leaving) || pilot(leaving).alive != 0)
            continue;
        Pilot made = makeReplacement(squadron);
        int32_t skill = random.getInt(0, HighestSkillOfReplacement);
        while (random.getInt(0, ExtraSkillDraw) == 0)
            ++skill;
        made.skill = static_cast<uint8_t>(std::min(skill, 255));
        const auto coming = static_cast<int32_t>(pilots.size());
        pilots.push_back(made);
        if (leaving == playerPilot)
            playerPilot = coming;
        filled.slots[slot] = coming;
    }
}

/// A new man of the squadron with a name and no skill yet.
Pilot Database::makeReplacement(int32_t squadron) {
    const int32_t nation = squadrons[squadron].nation;
    Pilot made = blank<Pilot>();
    zel::copyText(made.name, drawPilotName(nation));
    made.squadron = squadron;
    made.alive = 1;
    made.nation = static_cast<uint16_t>(nation);
    return made;
}

bool Database::applyPilotEvent(const zel::String& name, const std::vector<DataToken>& tokens,
                               int32_t fileIndex) {
    return applyPilotEvent(name, tokens, fileIndex, SquadronKeys(squadrons));
}

bool Database::applyPilotEvent(std::string_view name, const std::vector<DataToken>& tokens,
                               int32_t fileIndex, const SquadronKeys& keys) {
    bool usedUp = false;
    const PilotFile& file = pilotFile(fileIndex);
    for (const DataToken& token : tokens) {
        if (!token.is("unit") || token.value.empty())
            continue;
        const int32_t squadron = keys.find(token.value);
        if (!isSquadron(squadron))
            continue;
        if (file.joined == 0)
            usedUp = joinSquadron(name, squadron, tokens, fileIndex) || usedUp;
        if (file.joined != 0 && isPilot(file.pilotIndex))
            usedUp = moveToSquadron(name, squadron, fileIndex).value_or(usedUp);
    }
    return usedUp;
}

bool Database::joinSquadron(std::string_view name, int32_t squadronIndex,
                            const std::vector<DataToken>& tokens, int32_t fileIndex) {
    Squadron& joined = squadron(squadronIndex);
    int32_t slot = 0;
    for (; slot < joined.pilotCount; ++slot) {
        const int32_t holder = joined.slots[slot];
        if (isPilot(holder) && pilot(holder).alive == 0 && holder != playerPilot)
            break;
    }
    if (slot == joined.pilotCount)
        return false; // he waits for a vacancy

    const int32_t aceLevel = tokenNumber(tokens, "acelevel", -1);
    const int32_t acePotential = tokenNumber(tokens, "acepotential", -1);
    if (aceLevel >= 3)
        zel::log(zel::String("Pilot ") + name + " has acelevel=" + aceLevel + ", taken for 2",
                 "Database", zel::LogWarning);
    Pilot joining = makeReplacement(squadronIndex);
    if (!name.empty())
        zel::copyText(joining.name, name);
    joining.skill = drawHistoricSkill(aceLevel, acePotential, random);
    joining.historic = 1;
    joining.pilotFile = fileIndex;
    const auto pilotIndex = static_cast<int32_t>(pilots.size());
    pilots.push_back(joining);
    joined.slots[slot] = pilotIndex;
    PilotFile& file = pilotFile(fileIndex);
    file.joined = 1;
    file.pilotIndex = pilotIndex;
    if (zel::isLogged("Database", zel::LogInfo))
        zel::log(zel::String("Pilot ") + name + " joins squadron " + zel::arrayText(joined.key) +
                     " with acelevel=" + aceLevel,
                 "Database", zel::LogInfo);
    return true;
}

/// Whether he moved; nothing if nobody is there to change places with.
std::optional<bool> Database::moveToSquadron(std::string_view name, int32_t squadronIndex,
                                             int32_t fileIndex) {
    const int32_t moving = pilotFile(fileIndex).pilotIndex;
    // The line by which he joined, read again: it has no effect as long as he stays.
    if (squadronIndex == pilot(moving).squadron)
        return false;
    const std::vector<int32_t> roster = squadronRoster(squadronIndex);
    const auto partner = std::find_if(roster.rbegin(), roster.rend(), [&](int32_t candidate) {
        return pilot(candidate).pilotFile < 0 && candidate != playerPilot;
    });
    if (partner == roster.rend())
        return std::nullopt;
    if (!swapPilots(moving, *partner))
        return false;
    if (zel::isLogged("Database", zel::LogInfo))
        zel::log(zel::String("Pilot ") + name + " moves to squadron " +
                     zel::arrayText(squadron(squadronIndex).key),
                 "Database", zel::LogInfo);
    return true;
}

bool Database::swapPilots(int32_t first, int32_t second) {
    if (!isPilot(first) || !isPilot(second))
        return false;
    Pilot& a = pilot(first);
    Pilot& b = pilot(second);
    if (a.squadron == b.squadron || !isSquadron(a.squadron) || !isSquadron(b.squadron))
        return false;
    int32_t* slotA = slotOf(squadron(a.squadron), first);
    int32_t* slotB = slotOf(squadron(b.squadron), second);
    if (slotA == nullptr || slotB == nullptr)
        return false;
    std::swap(a.squadron, b.squadron);
    *slotA = second;
    *slotB = first;
    return true;
}

std::vector<int32_t> Database::squadronRoster(int32_t squadron) const {
    std::vector<int32_t> roster;
    if (!isSquadron(squadron))
        return roster;
    for (const int32_t slot : squadrons[squadron].slots)
        if (isPilot(slot))
            roster.push_back(slot);
    std::stable_sort(roster.begin(), roster.end(),
                     [&](int32_t a, int32_t b) { return isBetter(pilots[a], pilots[b]); });
    return roster;
}
