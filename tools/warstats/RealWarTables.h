#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tools/common/Finding.h"

namespace warstats {

/// An ace as he really was.
struct RealMan {
    std::string name;
    int32_t victories = 0; // in the whole war
    std::string fate;      // "killed", "died", "captured", "wounded" or "survived"
    int32_t fateDate = 0;  // yyyymmdd; 0 if there is none
};

/// A type that a squadron really had.
struct RealType {
    std::string aircraft;
    int32_t from = 0; // yyyymmdd, as is until
    int32_t until = 0;
};

/// A figure of the real war to compare a simulated one with.
struct RealTotal {
    int32_t from = 0; // yyyymmdd, as is until
    int32_t until = 0;
    std::string what;
    std::string side;   // "all", "Allies", "England" or "Germany"
    std::string figure; // of that side: "claimed", "lost" or "dead"
    double count = 0;
};

/// The tables of data/history, as far as the statistics compare wars with them.
struct RealWarTables {
    /// Whether the squadron of that key had the type in that month (yyyymm). Types that only stand
    /// in for others, so that a squadron is met at all, don't count.
    bool flew(const std::string& key, const std::string& aircraft, int32_t month) const;
    /// The aces with the most victories; among equals, the first ones in the table.
    std::set<std::string> best(size_t count) const;

    std::map<std::string, RealMan> men;                 // by name
    std::vector<std::string> names;                     // of them, in the table's order
    std::map<std::string, std::vector<RealType>> types; // by the squadron's key
    std::map<int32_t, double> victories;                // of the itemised lists, by month (yyyymm)
    std::vector<RealTotal> totals;
};

/// Reads the tables of that folder, which is the project's data/history. Returns what is wrong with
/// them: files that can't be read or begin with another header, and rows without as many fields.
tools::Findings readRealWar(const std::string& folder, RealWarTables& tables);

} // namespace warstats
