#include "standin/mission/MissionKeys.h"

#include <algorithm>
#include <iterator>

#include "standin/mission/MissionValues.h"

namespace standin {

namespace {

enum class Form { Whole, Number, Switch, Text, List, Time, Date };

struct KeyRule {
    const char* key;
    Form form;
    bool required;
};

// clang-format off
constexpr KeyRule OptionsKeys[] = {
    {"LCName", Form::Whole, true}, {"LCDesc", Form::Whole, true}, {"LCAuthor", Form::Whole, true},
    {"PlayerConfig", Form::Text, false}, {"Time", Form::Time, true}, {"Date", Form::Date, true},
    {"HMap", Form::Text, true}, {"Textures", Form::Text, true}, {"Forests", Form::Text, true},
    {"GuiMap", Form::Text, true}, {"SeasonPrefix", Form::Text, true},
    {"MissionType", Form::Whole, true}, {"CloudLevel", Form::Number, true},
    {"CloudHeight", Form::Number, true}, {"PrecLevel", Form::Whole, true},
    {"PrecType", Form::Whole, true}, {"CloudConfig", Form::Text, true},
    {"SeaState", Form::Whole, true}, {"Turbulence", Form::Number, true},
    {"TempPressLevel", Form::Whole, true}, {"Temperature", Form::Number, true},
    {"Pressure", Form::Number, true},
};

// The keys of every object and logic block. Name is checked separately, since some have none.
constexpr KeyRule CommonKeys[] = {
    {"Index", Form::Whole, true}, {"Name", Form::Text, false}, {"Desc", Form::Text, false},
    {"LinkTrId", Form::Whole, false}, {"Targets", Form::List, false},
    {"Objects", Form::List, false}, {"XPos", Form::Number, false}, {"YPos", Form::Number, false},
    {"ZPos", Form::Number, false}, {"XOri", Form::Number, false}, {"YOri", Form::Number, false},
    {"ZOri", Form::Number, false},
};

constexpr KeyRule PlaneKeys[] = {
    {"LinkTrId", Form::Whole, true}, {"XPos", Form::Number, true}, {"YPos", Form::Number, true},
    {"ZPos", Form::Number, true}, {"YOri", Form::Number, true}, {"Script", Form::Text, true},
    {"Model", Form::Text, true}, {"Country", Form::Whole, true}, {"Skin", Form::Text, false},
    {"AILevel", Form::Whole, true}, {"CoopStart", Form::Switch, false},
    {"NumberInFormation", Form::Whole, false}, {"Vulnerable", Form::Switch, false},
    {"Engageable", Form::Switch, false}, {"LimitAmmo", Form::Switch, false},
    {"StartInAir", Form::Switch, true}, {"Time", Form::Number, false},
    {"DamageReport", Form::Number, false}, {"DamageThreshold", Form::Number, false},
    {"PayloadId", Form::Whole, false}, {"AiRTBDecision", Form::Switch, false},
    {"DeleteAfterDeath", Form::Switch, false}, {"Fuel", Form::Number, false},
};

constexpr KeyRule EntityKeys[] = {
    {"Targets", Form::List, true}, {"Objects", Form::List, true}, {"Enabled", Form::Switch, true},
    {"MisObjID", Form::Whole, true},
};

constexpr KeyRule BeginKeys[] = {{"Targets", Form::List, true}, {"Enabled", Form::Switch, true}};

constexpr KeyRule TimerKeys[] = {
    {"Targets", Form::List, true}, {"Time", Form::Number, true}, {"Random", Form::Whole, true},
};

constexpr KeyRule AttackAreaKeys[] = {
    {"Objects", Form::List, true}, {"XPos", Form::Number, true}, {"YPos", Form::Number, true},
    {"ZPos", Form::Number, true}, {"AttackGround", Form::Switch, true},
    {"AttackAir", Form::Switch, true}, {"AttackGTargets", Form::Switch, true},
    {"AttackArea", Form::Number, true}, {"Time", Form::Number, true},
    {"GoalType", Form::Whole, false}, {"Priority", Form::Whole, true},
};

constexpr KeyRule ObjectiveKeys[] = {
    {"Enabled", Form::Switch, true}, {"LCName", Form::Whole, true}, {"LCDesc", Form::Whole, true},
    {"TaskType", Form::Whole, true}, {"Coalition", Form::Whole, true},
    {"Success", Form::Whole, true}, {"IconType", Form::Whole, false},
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

/// Describes the valid values of a form, for messages; empty if this value is valid.
std::string missing(Form form, std::string_view value) {
    int32_t whole = 0;
    double number = 0;
    int32_t parts[3] = {};
    std::string text;
    std::vector<int32_t> list;
    switch (form) {
    case Form::Whole:
        return parseWhole(value, whole) ? "" : "a whole number";
    case Form::Number:
        return parseNumber(value, number) ? "" : "a number without exponent";
    case Form::Switch:
        return value == "0" || value == "1" ? "" : "0 or 1";
    case Form::Text:
        return unquoted(value, text) ? "" : "a text in double quotes";
    case Form::List:
        return parseList(value, list) ? "" : "a list such as [1,2] or []";
    case Form::Time:
        return parseTime(value, parts) ? "" : "a time of day such as 9:30:0";
    case Form::Date:
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
        if (const std::string wanted = missing(rule->form, entry.value); !wanted.empty())
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
