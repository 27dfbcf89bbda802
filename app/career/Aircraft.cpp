#include "app/career/Aircraft.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>

#include "app/career/Calendar.h"
#include "app/career/Nation.h"
#include "app/career/NewCareer.h"
#include "engine/core/Random.h"

namespace {

/// Index of a type in AircraftRows, found at compile time. An unknown type doesn't compile.
constexpr int32_t placeOf(std::string_view identifier) {
    int32_t place = 0;
    while (identifier != AircraftRows[place].identifier)
        ++place;
    return place;
}

/// A type and its share of a draw, out of the row's sum.
struct TypeShare {
    int32_t plane; // index in the table
    int32_t weight;

    constexpr TypeShare(std::string_view identifier, int32_t weight)
        : plane(placeOf(identifier)), weight(weight) {}
};

/// What a side flies after the row above, up to and including the month `until`. The draw of a row
/// is below its sum; its planes take their shares in the order of the row.
struct Period {
    static constexpr int32_t LargestSum = 10;

    constexpr Period(int32_t until, std::initializer_list<TypeShare> shares) : until(until) {
        for (const TypeShare& share : shares)
            for (int32_t i = 0; i < share.weight; ++i)
                planes[sum++] = static_cast<int8_t>(share.plane);
    }

    int32_t until; // yyyymm; the last row is taken whatever its value
    int32_t sum = 0;
    int8_t planes[LargestSum] = {}; // by the number drawn
};

// Our own judgement of who had what at the front, and when; the sources are in docs/history.md.
// clang-format off
constexpr Period AlliedPeriods[] = {
    {191602, {{"dh2", 1}, {"nieuport11", 1}}},
    {191605, {{"dh2", 1}, {"nieuport11", 1}, {"nieuport17", 1}}},
    {191607, {{"dh2", 1}, {"nieuport17", 1}}},
    {191609, {{"nieuport17", 1}, {"spad7early", 1}}},
    {191611, {{"soppup", 1}, {"spad7early", 1}}},
    {191702, {{"soppup", 1}, {"soptriplane", 1}}},
    {191703, {{"se5a", 2}, {"soppup", 1}, {"soptriplane", 1}}},
    {191705, {{"se5a", 2}, {"soppup", 1}, {"soptriplane", 1}, {"spad7", 1}}},
    {191707, {{"se5a", 3}, {"sopcamel", 2}, {"spad13", 2}, {"soppup", 1}, {"soptriplane", 1}, {"spad7", 1}}},
    {191801, {{"nieuport28", 1}, {"se5a", 1}, {"sopcamel", 1}, {"spad13", 1}}},
    {999912, {{"sopcamel", 2}, {"nieuport28", 1}, {"se5a", 1}, {"sopdolphin", 1}, {"spad13", 1}}},
};
constexpr Period CentralPeriods[] = {
    {191604, {{"fokkere3", 1}}},
    {191606, {{"fokkere3", 2}, {"halberstadtd2", 1}}},
    {191609, {{"halberstadtd2", 2}, {"fokkere3", 1}}},
    {191610, {{"albatrosd2", 1}, {"halberstadtd2", 1}}},
    {191612, {{"albatrosd2", 1}}},
    {191701, {{"albatrosd2", 1}, {"albatrosd2late", 1}}},
    {191702, {{"albatrosd2late", 1}}},
    {191703, {{"albatrosd2late", 1}, {"albatrosd3", 1}}},
    {191706, {{"albatrosd3", 1}}},
    {191707, {{"albatrosd5", 1}}},
    {191708, {{"albatrosd5", 1}, {"pfalzd3a", 1}}},
    {191709, {{"albatrosd5", 1}, {"fokkerdr1", 1}, {"pfalzd3a", 1}}},
    {191712, {{"fokkerdr1", 7}, {"pfalzd3a", 2}, {"albatrosd5", 1}}},
    {191804, {{"fokkerdr1", 1}}},
    {191806, {{"fokkerd7", 1}}},
    {191808, {{"fokkerd7", 1}, {"fokkerd7f", 1}, {"pfalzd12", 1}}},
    {191812, {{"fokkerd7f", 1}, {"fokkerd8", 1}, {"pfalzd12", 1}}},
    {999912, {{"fokkerd8", 1}}},
};
// clang-format on

template <size_t Count> constexpr bool ascend(const Period (&periods)[Count]) {
    for (size_t i = 1; i < Count; ++i)
        if (periods[i - 1].until >= periods[i].until)
            return false;
    return true;
}
static_assert(ascend(AlliedPeriods) && ascend(CentralPeriods));

/// The first month in which a type is drawn: the career's first for those of the first row.
template <size_t Count>
constexpr int32_t firstMonthIn(const Period (&periods)[Count], int32_t plane) {
    for (size_t i = 0; i < Count; ++i)
        for (int32_t drawn = 0; drawn < periods[i].sum; ++drawn)
            if (periods[i].planes[drawn] == plane)
                return i == 0 ? FirstMonthOfCareer : nextMonth(periods[i - 1].until);
    return 0;
}
constexpr bool haveTheirFirstMonths() {
    for (size_t i = 0; i < std::size(AircraftRows); ++i) {
        const auto plane = static_cast<int32_t>(i);
        const int32_t month = AircraftRows[i].isAllied() ? firstMonthIn(AlliedPeriods, plane)
                                                         : firstMonthIn(CentralPeriods, plane);
        if (month != AircraftRows[i].firstMonth)
            return false;
    }
    return true;
}
static_assert(haveTheirFirstMonths(), "a type's first month differs from its row");

constexpr bool alliedComeFirst() {
    for (size_t i = 1; i < std::size(AircraftRows); ++i)
        if (AircraftRows[i].isAllied() && !AircraftRows[i - 1].isAllied())
            return false;
    return true;
}
static_assert(alliedComeFirst(), "the player's fallback goes back along the list of his side");

// The tries of chooseNationPlane: in the month itself, then in each month before it, and at last in
// the month itself again, where the last draw is taken whatever it is.
constexpr int32_t TriesByMonthsBack[] = {200, 25, 25, 25, 25, 10, 10, 10, 10, 10, 45};
constexpr int32_t LastTries = 5;

const Period& periodAt(bool allied, int32_t year, int32_t month) {
    const auto reaches = [until = year * 100 + month](const Period& period) {
        return until <= period.until;
    };
    if (allied) {
        const auto last = std::end(AlliedPeriods) - 1;
        return *std::find_if(std::begin(AlliedPeriods), last, reaches);
    }
    const auto last = std::end(CentralPeriods) - 1;
    return *std::find_if(std::begin(CentralPeriods), last, reaches);
}

/// Index of the type drawn: one draw, even for a row with one type.
int32_t drawPlane(const Period& period, zel::Random& random) {
    return period.planes[random.getInt(0, period.sum - 1)];
}

bool accepts(int32_t nation, int32_t plane) {
    const uint8_t nations = AircraftRows[plane].nations;
    if (nation == France)
        return (nations & French) != 0;
    return nation != Usa || (nations & American) != 0;
}

/// Whether the nation accepts anything of that row.
bool offers(const Period& period, int32_t nation) {
    return std::any_of(period.planes, period.planes + period.sum,
                       [nation](int32_t plane) { return accepts(nation, plane); });
}

/// The first type drawn that the nation accepts; -1 if `tries` draws give none.
int32_t drawAccepted(const Period& period, int32_t nation, int32_t tries, zel::Random& random) {
    for (int32_t i = 0; i < tries; ++i) {
        const int32_t plane = drawPlane(period, random);
        if (accepts(nation, plane))
            return plane;
    }
    return -1;
}

zel::Random* currentRandom = nullptr;

zel::Random& planeRandom() {
    if (currentRandom != nullptr)
        return *currentRandom;
    static zel::Random fallback;
    return fallback;
}

struct PlaneLists {
    std::vector<zel::String> identifiers;
    std::vector<zel::String> displayNames;
};

PlaneLists& planeLists() {
    static PlaneLists lists;
    return lists;
}

} // namespace

void initPlaneNames() {
    PlaneLists& lists = planeLists();
    lists = PlaneLists();
    for (const Aircraft& aircraft : AircraftTable::rows()) {
        lists.identifiers.emplace_back(aircraft.identifier);
        lists.displayNames.emplace_back(aircraft.displayName);
    }
}

const std::vector<zel::String>& planeIdentifiers() {
    if (planeLists().identifiers.empty())
        initPlaneNames();
    return planeLists().identifiers;
}

const std::vector<zel::String>& planeDisplayNames() {
    if (planeLists().displayNames.empty())
        initPlaneNames();
    return planeLists().displayNames;
}

int32_t planeIndex(std::string_view identifier) {
    const std::vector<Aircraft>& rows = AircraftTable::rows();
    for (auto i = static_cast<int32_t>(rows.size()) - 1; i >= 0; --i)
        if (identifier == rows[i].identifier)
            return i;
    return -1;
}

std::optional<Shape> planeShape(std::string_view machine) {
    for (const Aircraft& row : AircraftTable::rows())
        if (zel::equalsNoCase(machine, row.identifier) ||
            zel::equalsNoCase(machine, row.standIn.logType))
            return row.shape;
    return std::nullopt;
}

bool isAlliedPlane(int32_t index) { return AircraftTable::rows()[index].isAllied(); }

zel::String planeDisplayName(const zel::String& identifier) {
    const int32_t index = planeIndex(identifier);
    if (index < 0)
        return identifier;
    return AircraftTable::rows()[index].displayName;
}

zel::String planeForSide(bool allied, int32_t year, int32_t month, zel::Random& random) {
    return AircraftRows[drawPlane(periodAt(allied, year, month), random)].identifier;
}

zel::String chooseNationPlane(int32_t nation, int32_t year, int32_t month, zel::Random& random) {
    const bool allied = isAllied(nation);
    int32_t workingYear = year;
    int32_t workingMonth = month;
    for (const int32_t tries : TriesByMonthsBack) {
        const Period& period = periodAt(allied, workingYear, workingMonth);
        if (!offers(period, nation))
            random.discard(static_cast<uint32_t>(tries)); // none of them would be accepted
        else if (const int32_t plane = drawAccepted(period, nation, tries, random); plane >= 0)
            return AircraftRows[plane].identifier;
        if (--workingMonth < 1) {
            workingMonth = 12;
            --workingYear;
        }
    }
    const Period& period = periodAt(allied, year, month);
    const int32_t plane = drawAccepted(period, nation, LastTries - 1, random);
    return AircraftRows[plane >= 0 ? plane : drawPlane(period, random)].identifier;
}

std::vector<const char*> planesDrawable(int32_t nation, int32_t year, int32_t month) {
    const Period& period = periodAt(isAllied(nation), year, month);
    std::vector<const char*> planes;
    for (int32_t i = 0; i < period.sum; ++i) {
        const bool isRepeated = i > 0 && period.planes[i] == period.planes[i - 1];
        if (!isRepeated && accepts(nation, period.planes[i]))
            planes.push_back(AircraftRows[period.planes[i]].identifier);
    }
    return planes;
}

zel::String payloadId(const zel::String& plane) {
    const int32_t index = planeIndex(plane);
    return index >= 0 ? AircraftTable::rows()[index].payload : "0";
}

zel::String planeForSide(bool allied, int32_t year, int32_t month, int32_t /*day*/) {
    return planeForSide(allied, year, month, planeRandom());
}

zel::String chooseNationPlane(int32_t nation, int32_t year, int32_t month, int32_t /*day*/) {
    return chooseNationPlane(nation, year, month, planeRandom());
}

void setPlaneRandom(zel::Random* random) { currentRandom = random; }
