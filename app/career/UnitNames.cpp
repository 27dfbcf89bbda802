#include "app/career/UnitNames.h"

#include <algorithm>
#include <iterator>

#include "app/career/Database.h"
#include "app/career/Wording.h"

namespace {

/// A range of unit numbers that share a form of name, which takes the number less the base.
struct NameRange {
    int32_t first, last;
    int32_t base;
    bool isNaval;
    const Wording* form;
    const Wording* shortForm = nullptr; // if the other one is too long
};
// The first range that holds a number names it.
// clang-format off
constexpr NameRange NameRanges[] = {
    {101001, 101227, 101000, false, &wording::Escadrille},
    {101901, 101901, 101900, false, &wording::FirstChasse, &wording::ShortChasse},
    {101903, 101903, 101900, false, &wording::Observation},
    {101901, 101999, 101900, false, &wording::Chasse, &wording::ShortChasse},
    {102001, 102100, 102000, false, &wording::FlyingCorps},
    {102101, 102200, 102100, false, &wording::AustralianCorps},
    {102201, 102299, 102200, true,  &wording::NavalService},
    {103001, 103001, 103000, false, &wording::FirstAero},
    {103001, 103999, 103000, false, &wording::Aero[0]},
    {501001, 501100, 501000, false, &wording::Jasta},
    {501101, 501200, 501100, false, &wording::Schlasta},
    {501201, 501300, 501200, false, &wording::Fliegerabteilung},
    {501301, 501399, 501300, true,  &wording::MarineFeldjagdstaffel, &wording::ShortMarineUnit},
    {501400, 501500, 501200, false, &wording::Fliegerabteilung},
    {501601, 501700, 501600, true,  &wording::Seefrontstaffel},
};
// clang-format on

/// Null for a number outside all ranges.
const NameRange* rangeOf(int32_t number) {
    const auto* const range =
        std::find_if(std::begin(NameRanges), std::end(NameRanges), [number](const NameRange& r) {
            return number >= r.first && number <= r.last;
        });
    return range == std::end(NameRanges) ? nullptr : range;
}

/// Which English ending an American number has: th, st, nd or rd. From the whole number's digits,
/// so that 103001 reads "1th": the screens always showed it so.
int32_t aeroForm(int32_t number) {
    const int32_t tens = number / 10 % 10;
    const int32_t ones = number % 10;
    return tens >= 2 && ones <= 3 ? ones : 0;
}

} // namespace

zel::String unitName(int32_t number) {
    const NameRange* range = rangeOf(number);
    if (range == nullptr)
        return zel::String("(") + number + ")";
    const bool isAero = range->form == wording::Aero;
    return textOf(isAero ? wording::Aero[aeroForm(number)] : *range->form, {number - range->base});
}

zel::String shortUnitName(int32_t number) {
    const NameRange* range = rangeOf(number);
    return range != nullptr && range->shortForm != nullptr
               ? textOf(*range->shortForm, {number - range->base})
               : unitName(number);
}

bool isNavalUnit(int32_t number) {
    const NameRange* range = rangeOf(number);
    return range != nullptr && range->isNaval;
}

bool hasUnitName(int32_t number) { return rangeOf(number) != nullptr; }

int32_t unitNumber(const Database& career, int32_t squadronFile) {
    if (!career.isSquadronFile(squadronFile))
        return -1;
    return zel::toInt(zel::arrayText(career.squadronFile(squadronFile).key));
}
