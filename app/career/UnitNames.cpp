#include "app/career/UnitNames.h"

#include <algorithm>
#include <iterator>

#include "app/career/Database.h"

namespace {

/// A range of unit numbers that share a form of name: prefix, number less base, suffix.
struct NameRange {
    int32_t first, last;
    int32_t base;
    const char* prefix;
    const char* suffix;
};
// clang-format off
constexpr NameRange NameRanges[] = {
    {101001, 101227, 101000, "Esc ",                    ""},
    {101901, 101999, 101900, "",                        "eme Esc de Chasse"},
    {102001, 102100, 102000, "No ",                     " Squadron RFC"},
    {102101, 102200, 102100, "No ",                     " Squadron AFC"},
    {102201, 102299, 102200, "No ",                     " Squadron RNAS"},
    {501001, 501100, 501000, "Jasta ",                  ""},
    {501101, 501200, 501100, "Schlasta ",               ""},
    {501201, 501300, 501200, "FA ",                     ""},
    {501301, 501399, 501300, "Marine-Feldjagdstaffel ", ""},
    {501400, 501500, 501200, "FA ",                     ""},
    {501601, 501700, 501600, "SFL ",                    ""},
};
// clang-format on
constexpr int32_t ObservationSquadron = 101903;
constexpr int32_t FirstAmerican = 103001;
constexpr int32_t LastAmerican = 103999;

// From the whole number's digits, so that 103001 reads "1th": the screens always showed it so.
const char* ordinalSuffix(int32_t number) {
    const int32_t tens = number / 10 % 10;
    if (tens < 2)
        return "th";
    switch (number % 10) {
    case 1:
        return "st";
    case 2:
        return "nd";
    case 3:
        return "rd";
    default:
        return "th";
    }
}

} // namespace

zel::String unitName(int32_t number) {
    if (number == ObservationSquadron)
        return "3eme Esc Observation";
    if (number >= FirstAmerican && number <= LastAmerican)
        return zel::String(number - (FirstAmerican - 1)) + ordinalSuffix(number) + " Aero";
    const auto range =
        std::find_if(std::begin(NameRanges), std::end(NameRanges), [number](const NameRange& r) {
            return number >= r.first && number <= r.last;
        });
    if (range == std::end(NameRanges))
        return zel::String("(") + number + ")";
    return zel::String(range->prefix) + (number - range->base) + range->suffix;
}

bool hasUnitName(int32_t number) {
    const zel::String name = unitName(number);
    return name.length() > 1 && name.left(1) != "(";
}

int32_t unitNumber(const Database& career, int32_t squadronFile) {
    if (squadronFile < 0 || static_cast<size_t>(squadronFile) >= career.squadronFiles.size())
        return -1;
    return zel::toInt(zel::arrayText(career.squadronFile(squadronFile).key));
}
