#include "app/career/PilotHistory.h"

#include <algorithm>
#include <optional>

#include "app/career/CareerEvents.h"
#include "app/career/CareerObserver.h"
#include "app/career/Database.h"
#include "app/career/Replacements.h"
#include "app/career/SquadronKeys.h"
#include "app/career/SquadronRoster.h"
#include "engine/core/Log.h"

namespace {

// Named pilots: 9 or 10, or with acelevel 1 from 10 to 12.
constexpr int32_t SkillOfNamed = 9;
constexpr int32_t SkillOfAce = 10;

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

/// The date of a posting; empty for any other line.
std::string_view postingDate(const std::vector<DataToken>& tokens) {
    if (!hasUnit(tokens))
        return {};
    for (const DataToken& token : tokens)
        if (token.is("date"))
            return token.value;
    return {};
}

/// An index after the last line of a file, or soon after it: empty places are skipped sixteen at a
/// time, and most files have few lines.
int32_t endOfLines(const PilotFile& file) {
    constexpr int32_t Together = 16;
    static_assert(LineReferenceCount % Together == 0);
    int32_t end = LineReferenceCount;
    for (; end > 0; end -= Together) {
        int32_t all = -1;
        for (int32_t i = end - Together; i < end; ++i)
            all &= file.lines[i];
        if (all >= 0)
            break;
    }
    return end;
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

/// The postings of named pilots, as their files order them.
class PilotPostings {
public:
    explicit PilotPostings(Database& career) : career(career) {}

    /// Applies the lines of a pilot file that are due.
    void applyFile(int32_t fileIndex, std::string_view today) {
        const PilotFile& file = career.pilotFile(fileIndex);
        const int32_t end = endOfLines(file);
        for (int32_t place = 0; place < end; ++place) {
            const int32_t line = file.lines[place];
            if (line < 0 || career.dataLine(line).applied != 0)
                continue;
            splitDataLine(zel::arrayText(career.dataLine(line).text), lineTokens);
            bool usedUp = false;
            for (const DataToken& token : lineTokens)
                if (token.is("date") && token.value <= today)
                    usedUp = applyEvent(zel::arrayText(file.name), lineTokens, fileIndex) || usedUp;
            if (!usedUp)
                continue;
            career.dataLine(line).applied = 1;
            useUpEarlier(file, place);
        }
    }

    /// True when the line is used up.
    bool applyEvent(std::string_view name, const std::vector<DataToken>& tokens,
                    int32_t fileIndex) {
        bool usedUp = false;
        const PilotFile& file = career.pilotFile(fileIndex);
        for (const DataToken& token : tokens) {
            if (!token.is("unit") || token.value.empty())
                continue;
            if (!keys)
                keys.emplace(career.squadrons);
            const int32_t squadron = keys->find(token.value);
            if (!career.isSquadron(squadron))
                continue;
            if (file.joined == 0)
                usedUp = join(name, squadron, tokens, fileIndex) || usedUp;
            if (file.joined != 0 && career.isPilot(file.pilotIndex))
                usedUp = move(name, squadron, file.pilotIndex).value_or(usedUp);
        }
        return usedUp;
    }

private:
    /// The pilot has moved on: earlier postings are past, or the next update would take him back to
    /// the squadron that he joined first. The player's own lines follow the delivered ones, so the
    /// date decides, and the place only among equal dates.
    void useUpEarlier(const PilotFile& file, int32_t place) {
        const auto lineAt = [&](int32_t at) -> DataLine& {
            return career.dataLine(file.lines[at]);
        };
        splitDataLine(zel::arrayText(lineAt(place).text), lineTokens);
        const std::string_view moved = postingDate(lineTokens);
        for (int32_t other = 0; other < LineReferenceCount; ++other) {
            if (file.lines[other] < 0)
                continue;
            splitDataLine(zel::arrayText(lineAt(other).text), lineTokens);
            const std::string_view date = postingDate(lineTokens);
            if (!date.empty() && (date < moved || (date == moved && other < place)))
                lineAt(other).applied = 1;
        }
    }

    /// False if the squadron has no vacancy: the pilot waits for one.
    bool join(std::string_view name, int32_t squadron, const std::vector<DataToken>& tokens,
              int32_t fileIndex) {
        int32_t* slot = findVacantSlot(career.squadron(squadron));
        if (slot == nullptr)
            return false;
        const int32_t aceLevel = tokenNumber(tokens, "acelevel", -1);
        const int32_t acePotential = tokenNumber(tokens, "acepotential", -1);
        if (aceLevel >= 3)
            zel::log(zel::String("Pilot ") + name + " has acelevel=" + aceLevel + ", taken for 2",
                     "Database", zel::LogWarning);
        Pilot joining = makeReplacement(career, squadron);
        if (!name.empty())
            zel::copyText(joining.name, name);
        joining.skill = drawHistoricSkill(aceLevel, acePotential, career.random);
        joining.historic = 1;
        joining.pilotFile = fileIndex;
        PilotFile& file = career.pilotFile(fileIndex);
        file.joined = 1;
        const int32_t leaving = *slot;
        file.pilotIndex = *slot = career.addPilot(joining);
        if (career.observer != nullptr)
            career.observer->onPosting(
                career,
                {PostingKind::Joined, PostingCause::History, file.pilotIndex, -1, leaving, {}});
        if (zel::isLogged("Database", zel::LogInfo))
            zel::log(zel::String("Pilot ") + name + " joins squadron " +
                         zel::arrayText(career.squadron(squadron).key) +
                         " with acelevel=" + aceLevel,
                     "Database", zel::LogInfo);
        return true;
    }

    /// The first used slot of a dead pilot who isn't the player; null for none.
    int32_t* findVacantSlot(Squadron& squadron) const {
        const auto end = squadron.slots + squadron.pilotCount;
        const auto slot = std::find_if(squadron.slots, end, [&](int32_t holder) {
            return career.isPilot(holder) && career.pilot(holder).alive == 0 &&
                   holder != career.playerPilot;
        });
        return slot != end ? slot : nullptr;
    }

    /// Whether the pilot moved; nothing if nobody is there to change places with.
    std::optional<bool> move(std::string_view name, int32_t squadron, int32_t moving) {
        // The line by which he joined, read again: it has no effect as long as he stays.
        if (squadron == career.pilot(moving).squadron)
            return false;
        const std::vector<int32_t> roster = squadronRoster(career, squadron);
        const auto partner = std::find_if(roster.rbegin(), roster.rend(), [&](int32_t candidate) {
            return career.pilot(candidate).pilotFile < 0 && candidate != career.playerPilot;
        });
        if (partner == roster.rend())
            return std::nullopt;
        if (!swapPilots(career, moving, *partner, PostingCause::History))
            return false;
        if (zel::isLogged("Database", zel::LogInfo))
            zel::log(zel::String("Pilot ") + name + " moves to squadron " +
                         zel::arrayText(career.squadron(squadron).key),
                     "Database", zel::LogInfo);
        return true;
    }

    Database& career;
    std::optional<SquadronKeys> keys;  // made at the first event: most updates have none
    std::vector<DataToken> lineTokens; // memory that each line reuses
};

} // namespace

void applyHistory(Database& career) {
    const zel::String today = career.calendar().dateText();
    PilotPostings postings(career);
    for (int32_t i = 0; i < career.pilotFileCount(); ++i) {
        const int32_t joined = career.pilotFile(i).pilotIndex;
        if (!career.isPilot(joined) || career.pilot(joined).alive != 0)
            postings.applyFile(i, today);
    }
    for (int32_t i = 0; i < career.squadronCount(); ++i)
        fillVacantSlots(career, i);
}

bool applyPilotEvent(Database& career, std::string_view name, const std::vector<DataToken>& tokens,
                     int32_t fileIndex) {
    return PilotPostings(career).applyEvent(name, tokens, fileIndex);
}
