#include "app/report/CombatReport.h"
#include "engine/core/Log.h"

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

/// Cuts a position clause off the front of a key: "POS(x, y, z) NAME" is the key NAME.
std::string_view withoutClause(std::string_view key) {
    if (key.find('(') == key.npos)
        return key;
    const size_t end = key.find(')');
    return end == key.npos ? std::string_view() : zel::trimmed(key.substr(end + 1), ' ');
}

/// The text between "(" and ")" of a clause, or to the end without one.
std::string_view clauseText(std::string_view key) {
    const std::string_view inner = key.substr(key.find('(') + 1);
    return zel::trimmed(inner.substr(0, inner.find(')')), ' ');
}

} // namespace

bool CombatReport::readMission(const zel::String& folder, const zel::String& name) {
    if (!lines.loadFile(folder + name))
        return false;
    // The bracket of the file's own name: the folder may have one too.
    const std::string_view text = name.view();
    const size_t open = text.find('[');
    const size_t close = open != text.npos ? text.find(']', open) : text.npos;
    const zel::String base = folder + text.substr(0, open);
    const zel::String appendix(close != text.npos ? text.substr(close + 1) : std::string_view());
    logReading("Base Filename: " + base);
    logReading("Appendix Filename: " + appendix);
    if (close != text.npos)
        for (int32_t piece = 1; lines.appendFile(base + "[" + piece + "]" + appendix); ++piece) {
        }
    logReading(zel::String("Total Lines Read: ") + lines.lineCount());
    return analyse();
}

// Splitting at blanks and gluing tokens without a colon to the one before leaves each key with all
// the text up to the next token that has a colon. That is what is found here, without a copy.
void CombatReport::parseLine(const zel::String& line) {
    const std::string_view text = line.view();
    const auto firstField = static_cast<uint32_t>(fields.size());
    const auto addField = [this](std::string_view token) {
        const size_t colon = token.find(':');
        std::string_view key = zel::trimmed(token.substr(0, colon), ' ');
        const std::string_view value = zel::trimmed(token.substr(colon + 1), ' ');
        if (key.find('(') != key.npos) {
            fields.push_back({"pos", clauseText(key)});
            key = withoutClause(key);
        }
        fields.push_back({key, value});
    };

    size_t start = text.npos; // of the token that is being gathered
    for (size_t token = 0; token < text.size();) {
        size_t end = token;
        bool hasColon = false;
        for (; end < text.size() && text[end] != ' '; ++end)
            hasColon = hasColon || text[end] == ':';
        if (hasColon) {
            if (start != text.npos)
                addField(text.substr(start, token - start));
            start = token;
        }
        token = end + 1;
    }
    if (start != text.npos)
        addField(text.substr(start));
    events.push_back({firstField, static_cast<uint32_t>(fields.size()) - firstField});
}

std::string_view CombatReport::eventValue(const LogEvent& event, std::string_view key) const {
    for (uint32_t i = event.fieldCount; i > 0; --i) { // the last of a key counts
        const LogField& field = fields[event.firstField + i - 1];
        if (zel::equalsNoCase(field.key, key))
            return field.value;
    }
    return {};
}

int32_t CombatReport::eventNumber(const LogEvent& event, std::string_view key) const {
    return zel::toInt(eventValue(event, key));
}

int32_t CombatReport::findByObject(int32_t id) const {
    if (id < 0)
        return -1;
    for (size_t i = 0; i < pilots.size(); ++i)
        if (pilots[i].planeId == id || pilots[i].bodyId == id)
            return static_cast<int32_t>(i);
    return -1;
}

bool CombatReport::isBody(int32_t id) const {
    const int32_t index = findByObject(id);
    return index >= 0 && pilots[static_cast<size_t>(index)].planeId != id;
}

bool CombatReport::analyse() {
    pilots.clear();
    events.clear();
    fields.clear();
    events.reserve(lines.lines.size());
    fields.reserve(lines.lines.size() * 6);
    for (const zel::String& line : lines.lines)
        parseLine(line);
    for (const LogEvent& event : events)
        readEvent(event);
    const bool finished = judge();
    describe();
    const int32_t matches = mapPilots();
    zel::console(zel::String("MISSION FINISHED: ") + (finished ? 1 : 0));
    zel::console(zel::String("MATCHING PILOTS: ") + matches);
    return finished && matches > 0;
}

void CombatReport::readEvent(const LogEvent& event) {
    const auto recordOf = [&](const char* key) -> PilotReport* {
        const int32_t index = findByObject(eventNumber(event, key));
        return index >= 0 ? &pilots[static_cast<size_t>(index)] : nullptr;
    };
    switch (eventNumber(event, "atype")) {
    case ObjectCreated:
        readObject(event);
        break;
    case Destroyed:
        readDestruction(eventNumber(event, "aid"), eventNumber(event, "tid"));
        break;
    case Damage:
        readHit(eventNumber(event, "aid"), eventNumber(event, "tid"),
                zel::toFloat(eventValue(event, "dmg")));
        break;
    case Hit:
        readHit(eventNumber(event, "aid"), eventNumber(event, "tid"), 0);
        break;
    case TakeOff:
        if (PilotReport* record = recordOf("pid"))
            record->flightStatus = 2;
        break;
    case Landing:
        if (PilotReport* record = recordOf("pid"))
            record->flightStatus = 1;
        break;
    case HumanPlane:
        if (PilotReport* record = recordOf("pid"))
            record->human = 1;
        break;
    case CrewEnded:
        if (PilotReport* record = recordOf("botid"))
            record->finished = 1;
        break;
    default:
        break;
    }
}

void CombatReport::readObject(const LogEvent& event) {
    const int32_t id = eventNumber(event, "id");
    const int32_t parent = eventNumber(event, "pid");
    if (parent < 0) {
        for (const PilotReport& pilot : pilots)
            if (pilot.planeId == id)
                return;
        PilotReport& pilot = pilots.emplace_back();
        pilot.name = zel::String(eventValue(event, "name"));
        pilot.type = zel::String(eventValue(event, "type"));
        pilot.country = eventNumber(event, "country");
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
    (isBody(targetId) ? victim.injury : victim.damage) += damage;
    if (attacker < 0)
        return;
    pilots[static_cast<size_t>(attacker)].hitTargets.push_back(target);
    victim.hitBy.push_back(attacker);
}
