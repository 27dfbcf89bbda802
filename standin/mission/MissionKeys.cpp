#include "standin/mission/MissionKeys.h"

#include <algorithm>
#include <iterator>

#include "standin/mission/MissionValues.h"

namespace standin {

namespace {

enum class Kind { Whole, Number, Switch, Text, List, Time, Date };

struct KeyRule {
    const char* key;
    Kind kind;
    bool required;
};

// clang-format off
constexpr KeyRule OptionsKeys[] = {
    {"LCName", Kind::Whole, true}, {"LCDesc", Kind::Whole, true}, {"LCAuthor", Kind::Whole, true},
    {"PlayerConfig", Kind::Text, false}, {"Time", Kind::Time, true}, {"Date", Kind::Date, true},
    {"HMap", Kind::Text, true}, {"Textures", Kind::Text, true}, {"Forests", Kind::Text, true},
    {"GuiMap", Kind::Text, true}, {"SeasonPrefix", Kind::Text, true},
    {"MissionType", Kind::Whole, true}, {"CloudLevel", Kind::Number, true},
    {"CloudHeight", Kind::Number, true}, {"PrecLevel", Kind::Whole, true},
    {"PrecType", Kind::Whole, true}, {"CloudConfig", Kind::Text, true},
    {"SeaState", Kind::Whole, true}, {"Turbulence", Kind::Number, true},
    {"TempPressLevel", Kind::Whole, true}, {"Temperature", Kind::Number, true},
    {"Pressure", Kind::Number, true},
};

// The keys of every object and logic block. Name is checked separately, since some have none.
constexpr KeyRule CommonKeys[] = {
    {"Index", Kind::Whole, true}, {"Name", Kind::Text, false}, {"Desc", Kind::Text, false},
    {"LinkTrId", Kind::Whole, false}, {"Targets", Kind::List, false},
    {"Objects", Kind::List, false}, {"XPos", Kind::Number, false}, {"YPos", Kind::Number, false},
    {"ZPos", Kind::Number, false}, {"XOri", Kind::Number, false}, {"YOri", Kind::Number, false},
    {"ZOri", Kind::Number, false},
};

constexpr KeyRule PlaneKeys[] = {
    {"LinkTrId", Kind::Whole, true}, {"XPos", Kind::Number, true}, {"YPos", Kind::Number, true},
    {"ZPos", Kind::Number, true}, {"YOri", Kind::Number, true}, {"Script", Kind::Text, true},
    {"Model", Kind::Text, true}, {"Country", Kind::Whole, true}, {"Skin", Kind::Text, false},
    {"AILevel", Kind::Whole, true}, {"CoopStart", Kind::Switch, false},
    {"NumberInFormation", Kind::Whole, false}, {"Vulnerable", Kind::Switch, false},
    {"Engageable", Kind::Switch, false}, {"LimitAmmo", Kind::Switch, false},
    {"StartInAir", Kind::Switch, true}, {"Time", Kind::Number, false},
    {"DamageReport", Kind::Number, false}, {"DamageThreshold", Kind::Number, false},
    {"PayloadId", Kind::Whole, false}, {"AiRTBDecision", Kind::Switch, false},
    {"DeleteAfterDeath", Kind::Switch, false}, {"Fuel", Kind::Number, false},
};

constexpr KeyRule EntityKeys[] = {
    {"Targets", Kind::List, true}, {"Objects", Kind::List, true}, {"Enabled", Kind::Switch, true},
    {"MisObjID", Kind::Whole, true},
};

constexpr KeyRule BeginKeys[] = {{"Targets", Kind::List, true}, {"Enabled", Kind::Switch, true}};

constexpr KeyRule TimerKeys[] = {
    {"Targets", Kind::List, true}, {"Time", Kind::Number, true}, {"Random", Kind::Whole, true},
};

constexpr KeyRule AttackAreaKeys[] = {
    {"Objects", Kind::List, true}, {"XPos", Kind::Number, true}, {"YPos", Kind::Number, true},
    {"ZPos", Kind::Number, true}, {"AttackGround", Kind::Switch, true},
    {"AttackAir", Kind::Switch, true}, {"AttackGTargets", Kind::Switch, true},
    {"AttackArea", Kind::Number, true}, {"Time", Kind::Number, true},
    {"GoalType", Kind::Whole, false}, {"Priority", Kind::Whole, true},
};

constexpr KeyRule ObjectiveKeys[] = {
    {"Enabled", Kind::Switch, true}, {"LCName", Kind::Whole, true}, {"LCDesc", Kind::Whole, true},
    {"TaskType", Kind::Whole, true}, {"Coalition", Kind::Whole, true},
    {"Success", Kind::Whole, true}, {"IconType", Kind::Whole, false},
};

/// Blocks whose keys are all known: any other key is a typo.
struct BlockRule {
    const char* name;
    const KeyRule* keys;
    size_t count;
};
constexpr BlockRule ExactBlocks[] = {
    {"Options", OptionsKeys, std::size(OptionsKeys)},
    {"Plane", PlaneKeys, std::size(PlaneKeys)},
    {"MCU_TR_Entity", EntityKeys, std::size(EntityKeys)},
    {"MCU_TR_MissionBegin", BeginKeys, std::size(BeginKeys)},
    {"MCU_Timer", TimerKeys, std::size(TimerKeys)},
    {"MCU_CMD_AttackArea", AttackAreaKeys, std::size(AttackAreaKeys)},
    {"MCU_TR_MissionObjective", ObjectiveKeys, std::size(ObjectiveKeys)},
};

// Other objects of the simulator, of which only the links are checked.
constexpr std::string_view OtherObjects[] = {
    "Airfield", "Block", "Bridge", "Effect", "Flag", "Ground", "Group", "Ship", "Train", "Vehicle",
};
constexpr std::string_view Nameless[] = {"MCU_Icon", "MCU_TR_MissionObjective"};
constexpr std::string_view OptionsBlocks[] = {"WindLayers", "Countries"};
constexpr std::string_view EventBlocks[] = {"OnEvents", "OnReports", "OnMessages"};
// clang-format on

template <size_t Size> bool holds(const std::string_view (&list)[Size], std::string_view name) {
    return std::find(std::begin(list), std::end(list), name) != std::end(list);
}

/// Describes a valid value of the kind, for messages; empty if this value is valid.
std::string missing(Kind kind, std::string_view value) {
    int32_t whole = 0;
    double number = 0;
    int32_t parts[3] = {};
    std::string text;
    std::vector<int32_t> list;
    switch (kind) {
    case Kind::Whole:
        return parseWhole(value, whole) ? "" : "a whole number";
    case Kind::Number:
        return parseNumber(value, number) ? "" : "a number without exponent";
    case Kind::Switch:
        return value == "0" || value == "1" ? "" : "0 or 1";
    case Kind::Text:
        return unquoted(value, text) ? "" : "a text in double quotes";
    case Kind::List:
        return parseList(value, list) ? "" : "a list such as [1,2] or []";
    case Kind::Time:
        return parseTime(value, parts) ? "" : "a time of day such as 9:30:0";
    case Kind::Date:
        return parseDate(value, parts) ? "" : "a date such as 21.3.1918";
    }
    return {};
}

/// The rule for a key, from the block's own or the common ones; null for an unknown key.
const KeyRule* findRule(const BlockRule* own, bool common, std::string_view key) {
    const auto named = [&](const KeyRule& rule) { return key == rule.key; };
    if (own != nullptr)
        if (const KeyRule* rule = std::find_if(own->keys, own->keys + own->count, named);
            rule != own->keys + own->count)
            return rule;
    const KeyRule* rule = std::find_if(std::begin(CommonKeys), std::end(CommonKeys), named);
    return common && rule != std::end(CommonKeys) ? rule : nullptr;
}

bool checkEntries(const MissionBlock& block, const BlockRule* own, bool common,
                  tools::Finding& finding) {
    for (const MissionEntry& entry : block.entries) {
        const KeyRule* rule = findRule(own, common, entry.key);
        if (rule == nullptr && own != nullptr)
            return refuse(finding, entry.line, block.name + " has no key " + entry.key);
        if (rule == nullptr)
            continue;
        if (block.find(entry.key) != &entry)
            return refuse(finding, entry.line, entry.key + " is twice in " + block.name);
        if (const std::string wanted = missing(rule->kind, entry.value); !wanted.empty())
            return refuse(finding, entry.line,
                          entry.key + " is " + entry.value + " and not " + wanted);
    }
    return true;
}

/// The first required key that is missing; empty if there is none.
std::string absentKey(const MissionBlock& block, const BlockRule* own, bool common) {
    const auto isAbsent = [&](const KeyRule& rule) {
        return rule.required && block.find(rule.key) == nullptr;
    };
    if (own != nullptr)
        if (const KeyRule* rule = std::find_if(own->keys, own->keys + own->count, isAbsent);
            rule != own->keys + own->count)
            return rule->key;
    if (!common)
        return {};
    const KeyRule* rule = std::find_if(std::begin(CommonKeys), std::end(CommonKeys), isAbsent);
    if (rule != std::end(CommonKeys))
        return rule->key;
    return block.find("Name") == nullptr && !holds(Nameless, block.name) ? "Name" : "";
}

/// The border of an area, a row for each point.
bool checkBoundary(const MissionBlock& block, tools::Finding& finding) {
    if (!checkRowsOnly(block, finding))
        return false;
    for (const MissionRow& row : block.rows) {
        double number = 0;
        const bool isPoint = row.separator == ',' && row.values.size() == 2 &&
                             parseNumber(row.values[0], number) &&
                             parseNumber(row.values[1], number);
        if (!isPoint)
            return refuse(finding, row.line, "a row of " + block.name + " is 'x, y;'");
    }
    return true;
}

bool mayHold(const std::string& block, const std::string& child) {
    return (block == "MCU_TR_Entity" && holds(EventBlocks, child)) ||
           (block == "Options" && holds(OptionsBlocks, child));
}

} // namespace

bool checkBlock(const MissionBlock& block, tools::Finding& finding) {
    const auto found =
        std::find_if(std::begin(ExactBlocks), std::end(ExactBlocks),
                     [&](const BlockRule& exact) { return block.name == exact.name; });
    const BlockRule* own = found == std::end(ExactBlocks) ? nullptr : found;
    const bool common = block.name != "Options";
    if (own == nullptr && block.name.rfind("MCU_", 0) != 0 && !holds(OtherObjects, block.name))
        return refuse(finding, block.line, "the simulator has no block " + block.name);
    if (!checkEntries(block, own, common, finding))
        return false;
    if (const std::string absent = absentKey(block, own, common); !absent.empty())
        return refuse(finding, block.line, block.name + " without " + absent);
    if (own == nullptr)
        return std::all_of(block.children.begin(), block.children.end(),
                           [&](const MissionBlock& child) {
                               return child.name != "Boundary" || checkBoundary(child, finding);
                           });
    for (const MissionBlock& child : block.children)
        if (!mayHold(block.name, child.name))
            return refuse(finding, child.line, block.name + " has no block " + child.name);
    return block.rows.empty() ||
           refuse(finding, block.rows.front().line, block.name + " has no rows");
}

bool checkRowsOnly(const MissionBlock& block, tools::Finding& finding) {
    if (!block.entries.empty())
        return refuse(finding, block.entries.front().line, block.name + " holds rows, not keys");
    return block.children.empty() ||
           refuse(finding, block.children.front().line, block.name + " holds rows, not blocks");
}

} // namespace standin
