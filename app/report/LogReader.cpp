#include <algorithm>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "app/report/CombatReport.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"

namespace {

/// Event types of the simulator's log that tell something about a pilot.
enum EventType : int32_t {
    Hit = 1,
    Damage = 2,
    Destroyed = 3,
    TakeOff = 5,
    Landing = 6,
    HumanPlane = 10,
    ObjectCreated = 12,
    CrewEnded = 16,
};

void logReading(const zel::String& message, int32_t level = zel::LogInfo) {
    zel::log(message, "CombatReport", level);
}

constexpr size_t LongestKey = sizeof(uint64_t) - 1;

/// A key's letters, lowered, in one number, the first in the lowest byte: keys are compared by it.
constexpr uint64_t packed(std::string_view key) {
    uint64_t number = 0;
    for (size_t i = 0; i < key.size(); ++i)
        number |= uint64_t(static_cast<uint8_t>(key[i] | 0x20)) << (8 * i);
    return number;
}

/// Up to eight bytes, the first in the lowest; zeros where there are fewer.
uint64_t bytesAt(std::string_view text, size_t start) {
    uint64_t bytes = 0;
    if (start + sizeof bytes <= text.size())
        std::memcpy(&bytes, text.data() + start, sizeof bytes);
    else
        std::memcpy(&bytes, text.data() + start, text.size() - start);
    return bytes;
}

/// LogKey::Count for a key that tells nothing.
inline LogKey keyAt(std::string_view text, size_t start, size_t length) {
    if (length == 0 || length > LongestKey)
        return LogKey::Count;
    const uint64_t lowered = bytesAt(text, start) | 0x2020202020202020U;
    switch (lowered & ((uint64_t(1) << (8 * length)) - 1)) {
    case packed("atype"):
        return LogKey::AType;
    case packed("id"):
        return LogKey::Id;
    case packed("pid"):
        return LogKey::Pid;
    case packed("name"):
        return LogKey::Name;
    case packed("type"):
        return LogKey::Type;
    case packed("country"):
        return LogKey::Country;
    case packed("tid"):
        return LogKey::Tid;
    case packed("aid"):
        return LogKey::Aid;
    case packed("dmg"):
        return LogKey::Dmg;
    case packed("botid"):
        return LogKey::BotId;
    default:
        return LogKey::Count;
    }
}

/// Places of bits. REQUIRES: bits != 0.
size_t lowestBit(uint64_t bits) { return static_cast<size_t>(__builtin_ctzll(bits)); }
size_t highestBit(uint64_t bits) { return 63 - static_cast<size_t>(__builtin_clzll(bits)); }

/// Where blanks and colons stand in the 64 bytes from `start` on: bit i for the i-th of them.
struct Marks {
    static constexpr size_t Width = 64;
    uint64_t blanks = 0;
    uint64_t colons = 0;

    Marks(std::string_view text, size_t start) {
        const size_t count = std::min(text.size() - start, Width);
        size_t i = 0;
#ifdef __SSE2__
        constexpr size_t Step = sizeof(__m128i);
        for (; i + Step <= count; i += Step)
            markStep(text.data() + start + i, i);
        if (i < count && count >= Step) // the rest, together with some of those before it
            markStep(text.data() + start + count - Step, count - Step);
        else
#endif
            for (; i < count; ++i) {
                blanks |= uint64_t(text[start + i] == ' ') << i;
                colons |= uint64_t(text[start + i] == ':') << i;
            }
    }

#ifdef __SSE2__
private:
    void markStep(const char* bytes, size_t place) {
        __m128i step;
        std::memcpy(&step, bytes, sizeof step);
        const auto equal = [step](char character) {
            const __m128i same = _mm_cmpeq_epi8(step, _mm_set1_epi8(character));
            return static_cast<uint64_t>(_mm_movemask_epi8(same));
        };
        blanks |= equal(' ') << place;
        colons |= equal(':') << place;
    }
#endif
};

/// How much of a key is a position clause glued to its front, as "POS(1,2,3)" is of "POS(1,2,3)ID".
/// The clause itself is of no use here.
size_t clauseLength(std::string_view key) {
    for (const char character : key) // most keys are a few letters: no call is cheaper
        if (character == '(')
            return key.find(')') + 1; // 0 without a ")"
    return 0;
}

} // namespace

bool CombatReport::readMission(const zel::String& folder, const zel::String& name) {
    return readPieces(folder, name) && analyse();
}

bool CombatReport::readPieces(const zel::String& folder, const zel::String& name) {
    const auto isUnread = [](const zel::String& piece) {
        if (!zel::system::fileStatus(piece).exists)
            return false; // there are no more
        logReading("Piece cannot be read: " + piece, zel::LogWarning);
        return true;
    };
    unreadPiece = false;
    if (!lines.loadFile(folder + name)) {
        unreadPiece = isUnread(folder + name);
        return false;
    }
    // The bracket of the file's own name: the folder may have one too.
    const std::string_view text = name.view();
    const size_t open = text.find('[');
    const size_t close = open != text.npos ? text.find(']', open) : text.npos;
    const zel::String base = folder + text.substr(0, open);
    const zel::String appendix(close != text.npos ? text.substr(close + 1) : std::string_view());
    logReading("Base Filename: " + base);
    logReading("Appendix Filename: " + appendix);
    if (close != text.npos) {
        int32_t piece = 1;
        const auto file = [&] { return base + "[" + piece + "]" + appendix; };
        while (lines.appendFile(file()))
            ++piece;
        unreadPiece = isUnread(file());
    }
    logReading(zel::String("Total Lines Read: ") + lines.lineCount());
    return !unreadPiece;
}

// Splitting at blanks and gluing tokens without a colon to the one before leaves each key with all
// the text up to the next token that has a colon. That is what is found here, without a copy: for
// each first colon of a token, the key before it and the end of the value before that.
void CombatReport::parseLine(const zel::String& line) {
    const std::string_view text = line.view().substr(0, LogEvent::MostBytes);
    LogEvent& event = events.emplace_back(text);
    LogKey key = LogKey::Count; // whose value is being gathered
    size_t valueStart = 0;
    size_t token = 0; // where the token of the present colon begins
    const auto endValue = [&](size_t end) {
        if (key != LogKey::Count)
            event.set(key, zel::trimmed(text.substr(valueStart, end - valueStart), ' '));
    };
    for (size_t start = 0; start < text.size(); start += Marks::Width) {
        const Marks marks(text, start);
        for (uint64_t colons = marks.colons; colons != 0; colons &= colons - 1) {
            const size_t colon = start + lowestBit(colons);
            const uint64_t below = (colons & (0 - colons)) - 1;
            if (const uint64_t blanks = marks.blanks & below; blanks != 0)
                token = start + highestBit(blanks) + 1;
            if (token < valueStart)
                continue; // a further colon of the same token
            endValue(token);
            key = keyAt(text, token, colon - token);
            if (key == LogKey::Count) {
                const size_t clause = clauseLength(text.substr(token, colon - token));
                if (clause > 0)
                    key = keyAt(text, token + clause, colon - token - clause);
            }
            valueStart = colon + 1;
        }
        if (marks.blanks != 0)
            token = start + highestBit(marks.blanks) + 1;
    }
    endValue(text.size());
}

int32_t CombatReport::findByObject(int32_t id) const {
    if (id < 0)
        return -1;
    for (const PilotReport& pilot : pilots)
        if (pilot.planeId == id || pilot.bodyId == id)
            return static_cast<int32_t>(&pilot - pilots.data());
    return -1;
}

bool CombatReport::isBody(int32_t id) const {
    const int32_t index = findByObject(id);
    return index >= 0 && pilots[static_cast<size_t>(index)].planeId != id;
}

bool CombatReport::analyse() {
    pilots.clear();
    events.clear();
    events.reserve(lines.lines.size());
    for (const zel::String& line : lines.lines) {
        parseLine(line);
        readEvent(events.back());
    }
    const bool finished = judge();
    describe();
    const int32_t matches = mapPilots();
    zel::console(zel::String("MISSION FINISHED: ") + (finished ? 1 : 0));
    zel::console(zel::String("MATCHING PILOTS: ") + matches);
    return finished && matches > 0;
}

void CombatReport::readEvent(const LogEvent& event) {
    const auto recordOf = [&](LogKey key) -> PilotReport* {
        const int32_t index = findByObject(event.number(key));
        return index >= 0 ? &pilots[static_cast<size_t>(index)] : nullptr;
    };
    switch (event.number(LogKey::AType)) {
    case ObjectCreated:
        readObject(event);
        break;
    case Destroyed:
        readDestruction(event.number(LogKey::Aid), event.number(LogKey::Tid));
        break;
    case Damage:
        readHit(event.number(LogKey::Aid), event.number(LogKey::Tid),
                zel::toFloat(event.value(LogKey::Dmg)));
        break;
    case Hit:
        readHit(event.number(LogKey::Aid), event.number(LogKey::Tid), 0);
        break;
    case TakeOff:
        if (PilotReport* record = recordOf(LogKey::Pid))
            record->flightStatus = 2;
        break;
    case Landing:
        if (PilotReport* record = recordOf(LogKey::Pid))
            record->flightStatus = 1;
        break;
    case HumanPlane:
        if (PilotReport* record = recordOf(LogKey::Pid))
            record->human = 1;
        break;
    case CrewEnded:
        if (PilotReport* record = recordOf(LogKey::BotId))
            record->finished = 1;
        break;
    default:
        break;
    }
}

void CombatReport::readObject(const LogEvent& event) {
    const int32_t id = event.number(LogKey::Id);
    const int32_t parent = event.number(LogKey::Pid);
    if (parent < 0) {
        for (const PilotReport& pilot : pilots)
            if (pilot.planeId == id)
                return;
        PilotReport& pilot = pilots.emplace_back();
        pilot.name = zel::String(event.value(LogKey::Name));
        pilot.type = zel::String(event.value(LogKey::Type));
        pilot.country = event.number(LogKey::Country);
        pilot.planeId = id;
        return;
    }
    bool found = false;
    for (PilotReport& pilot : pilots) {
        if (pilot.planeId != parent)
            continue;
        pilot.bodyId = id;
        found = true;
    }
    if (!found)
        logReading(zel::String("Plane with ID ") + parent + " was not found", zel::LogWarning);
}

void CombatReport::readDestruction(int32_t attackerId, int32_t targetId) {
    const int32_t target = findByObject(targetId);
    const int32_t attacker = findByObject(attackerId);
    if (target < 0)
        return;
    PilotReport& victim = pilots[static_cast<size_t>(target)];
    if (victim.shotdownBy < 0) {
        victim.shotDown = 1;
        if (attacker >= 0 && attacker != target) {
            PilotReport& victor = pilots[static_cast<size_t>(attacker)];
            if (victor.country == victim.country) {
                victim.shotdownByOwn = attacker;
            } else {
                victim.shotdownBy = attacker;
                victor.kills.push_back(target);
            }
        }
    }
    if (isBody(targetId))
        ++victim.killCount;
}

void CombatReport::readHit(int32_t attackerId, int32_t targetId, float damage) {
    const int32_t target = findByObject(targetId);
    const int32_t attacker = findByObject(attackerId);
    if (target < 0)
        return;
    PilotReport& victim = pilots[static_cast<size_t>(target)];
    (victim.planeId != targetId ? victim.injury : victim.damage) += damage;
    if (attacker < 0)
        return;
    pilots[static_cast<size_t>(attacker)].hitTargets.push_back(target);
    victim.hitBy.push_back(attacker);
}
