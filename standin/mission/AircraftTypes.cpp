#include "standin/mission/AircraftTypes.h"

#include <cstddef>
#include <iterator>

#include "engine/core/String.h"

namespace standin {

namespace {

// The names are the simulator's. The figures are round ones: speed and climb after the types' test
// reports, circles in the order in which pilots of the time put them. They lie closer together than
// they did, since nobody here flies around his plane's weakness as those pilots learnt to.
// clang-format off
constexpr AircraftType Types[] = {
    // id               type                km/h  m/s  s/turn guns rounds
    {"dh2",            "Airco D.H.2",       140,  2.9, 13.5,  1,  470},
    {"nieuport11",     "Nieuport 11.C1",    156,  3.3, 13.2,  1,  291},
    {"nieuport17",     "Nieuport 17.C1",    165,  4.4, 13.4,  1,  500},
    {"spad7early",     "SPAD 7.C1 150hp",   187,  4.0, 15.2,  1,  500},
    {"soppup",         "Sopwith Pup",       171,  3.8, 13.2,  1,  500},
    {"soptriplane",    "Sopwith Triplane",  181,  5.3, 13.4,  1,  500},
    {"se5a",           "S.E.5a",            205,  5.3, 14.5,  2,  788},
    {"spad7",          "SPAD 7.C1 180hp",   198,  4.8, 15.0,  1,  500},
    {"sopcamel",       "Sopwith Camel",     185,  5.1, 13.0,  2, 1000},
    {"spad13",         "SPAD 13.C1",        211,  5.3, 15.0,  2,  800},
    {"nieuport28",     "Nieuport 28.C1",    195,  4.9, 13.8,  2,  750},
    {"sopdolphin",     "Sopwith Dolphin",   200,  5.0, 14.0,  2, 1000},
    {"fokkere3",       "Fokker E.III",      138,  2.1, 15.4,  1,  500},
    {"halberstadtd2",  "Halberstadt D.II",  150,  3.6, 14.0,  1,  500},
    {"albatrosd2",     "Albatros D.II",     170,  4.0, 14.4,  2, 1000},
    {"albatrosd2late", "Albatros D.II lt",  173,  4.2, 14.4,  2, 1000},
    {"albatrosd3",     "Albatros D.III",    172,  4.6, 14.2,  2, 1000},
    {"albatrosd5",     "Albatros D.Va",     180,  4.6, 14.2,  2, 1000},
    {"pfalzd3a",       "Pfalz D.IIIa",      177,  4.2, 14.6,  2, 1000},
    {"fokkerdr1",      "Fokker Dr.I",       172,  5.7, 12.6,  2, 1000},
    {"fokkerd7",       "Fokker D.VII",      184,  4.8, 13.7,  2, 1000},
    {"pfalzd12",       "Pfalz D.XII",       182,  4.5, 14.4,  2, 1000},
    {"fokkerd7f",      "Fokker D.VIIF",     195,  6.2, 13.5,  2, 1000},
    {"fokkerd8",       "Fokker D.VIII",     190,  5.6, 13.2,  2, 1000},
};
// clang-format on
static_assert(std::size(Types) == 24);

} // namespace

int32_t findAircraft(std::string_view id) {
    for (size_t index = 0; index < std::size(Types); ++index)
        if (zel::equalsNoCase(id, Types[index].id))
            return static_cast<int32_t>(index);
    return -1;
}

const AircraftType& aircraftType(int32_t index) { return Types[index]; }

} // namespace standin
