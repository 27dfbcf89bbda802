#include "app/screens/MapSheets.h"

#include <algorithm>
#include <iterator>

namespace {

struct Sheet {
    std::string_view base;
    const char* kind;
};

// The sector over which the squadrons of a base fly. Every base of app/career/Bases.cpp has one.
constexpr Sheet Sheets[] = {
    {"Dunkerque", "sheetcoast"}, {"Zeebrugge", "sheetcoast"}, {"Ostende", "sheetcoast"},
    {"Ypres", "sheetypres"},     {"St. Omer", "sheetypres"},  {"Roulers", "sheetypres"},
    {"Arras", "sheetarras"},     {"Lille", "sheetarras"},     {"Amiens", "sheetbapaume"},
    {"Cambrai", "sheetbapaume"}, {"Cappy", "sheetbapaume"},   {"Reims", "sheetreims"},
    {"Verdun", "sheetverdun"},   {"Toul", "sheettoul"},       {"Metz", "sheettoul"},
};

} // namespace

const char* sheetOfBase(std::string_view baseName) {
    const auto* found = std::find_if(std::begin(Sheets), std::end(Sheets),
                                     [&](const Sheet& sheet) { return sheet.base == baseName; });
    return found != std::end(Sheets) ? found->kind : nullptr;
}
