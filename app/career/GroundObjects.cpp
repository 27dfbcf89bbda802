#include "app/career/GroundObjects.h"

#include <algorithm>
#include <iterator>

#include "engine/core/String.h"

namespace {

struct GroundType {
    std::string_view type; // in any case; a "*" at the front or the end matches any letters
    const Wording& name;
};

// The first row that fits counts. A flight's log has shown LMG08AAA; the other types have the names
// under which the simulator's missions place such objects.
constexpr GroundType GroundTypes[] = {
    {"LMG08*", wording::MachineGun},
    {"Hotchkiss*", wording::MachineGun},
    {"*AAA", wording::AntiAircraftFire}, // 77mmAAA, 13pdrAAA, DaimlerAAA, ThornycroftAAA
    {"*Flak", wording::AntiAircraftFire},
    {"FK96", wording::FieldGun},
    {"M13", wording::FieldGun},
    {"45QF", wording::FieldGun},
    {"75FG1897", wording::FieldGun},
    {"*Searchlight", wording::Searchlight},
    {"Benz*", wording::Lorry},
    {"Crossley*", wording::Lorry},
    {"Daimler*", wording::Lorry},
    {"Leyland*", wording::Lorry},
    {"Merc22", wording::Lorry},
    {"Quad*", wording::Lorry},
    {"A7V", wording::Tank},
    {"CA1", wording::Tank},
    {"FT17*", wording::Tank},
    {"Mk4*", wording::Tank},
    {"Mk5*", wording::Tank},
    {"Whippet", wording::Tank},
    {"AeType", wording::Balloon},
    {"Caquot", wording::Balloon},
    {"Drachen", wording::Balloon},
    {"Parseval", wording::Balloon},
};

bool fits(std::string_view pattern, std::string_view type) {
    const std::string_view letters = zel::trimmed(pattern, '*');
    if (type.size() < letters.size())
        return false;
    if (pattern.front() == '*')
        type.remove_prefix(type.size() - letters.size());
    else if (pattern.back() == '*')
        type = type.substr(0, letters.size());
    return zel::equalsNoCase(type, letters);
}

} // namespace

const Wording* groundObject(std::string_view type) {
    const auto* const row =
        std::find_if(std::begin(GroundTypes), std::end(GroundTypes),
                     [&](const GroundType& ground) { return fits(ground.type, type); });
    return row != std::end(GroundTypes) ? &row->name : nullptr;
}
