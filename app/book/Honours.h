#pragma once

#include <cstdint>
#include <vector>

#include "app/book/BookTables.h"
#include "engine/core/String.h"

/// The input for a pilot's ranks and decorations. Dates are yyyymmdd.
struct PilotService {
    /// From that day on he serves there.
    struct BranchChange {
        int32_t date = 0;
        Branch branch = Branch::Army;
    };

    int32_t nation = 0;                 // code
    int32_t since = 0;                  // the first day of his service
    int32_t until = 0;                  // today, or the day of his death
    std::vector<BranchChange> branches; // ascending; empty for the army
    std::vector<int32_t> victories;     // days of the victories, ascending
    std::vector<int32_t> flights;       // days of the flights, ascending
    bool hasFlights = true;             // false: they aren't known, and none are asked for

    /// From that day on he serves in that branch. REQUIRES: the days ascend.
    void addBranch(int32_t since, Branch branch) {
        if (branches.empty() || branches.back().branch != branch)
            branches.push_back({since, branch});
    }
};

struct RankGiven {
    int32_t date = 0;              // yyyymmdd
    const RankRow* rank = nullptr; // of the tables
    bool isEarned = false;         // not the one that he came with or that another branch gave him
};

struct AwardGiven {
    int32_t date = 0;                // yyyymmdd
    const AwardRow* award = nullptr; // of the tables
};

/// Ranks and decorations with their days, in the order in which they came. A pilot has at least
/// the rank that he came with, unless the tables lack his nation.
struct Honours {
    std::vector<RankGiven> ranks;
    std::vector<AwardGiven> awards;
    int32_t palms = 0; // on the Croix de guerre

    const RankRow* rank() const { return ranks.empty() ? nullptr : ranks.back().rank; }
    /// Whether he has the decoration of that key.
    bool has(std::string_view key) const;
    /// The ranks that he earned: neither his first rank nor one that came with another branch, even
    /// if the tables rank it higher.
    std::vector<RankGiven> promotions() const;
    /// Those that are worn with a ribbon of their own, the highest first.
    std::vector<AwardGiven> ribbons() const;
    /// The bar on the ribbon of that one; null for none.
    const AwardRow* barOf(const AwardRow& award) const;
};

/// What he holds on that day: a rank from its day on, a decoration from the day after.
Honours honoursOn(const Honours& all, int32_t date);

/// The branch of a unit by its six-digit number.
Branch branchOfUnit(int32_t number);

/// Follows a service day by day: what is earned on one day is given on the next, one rank and one
/// decoration that is worn a day. So whatever a period of the war brings follows from its own days
/// alone. A rank takes its months of service, half of them with twice its victories, double with
/// fewer victories.
Honours honoursOf(const PilotService& service, const BookTables& tables);

/// "Captain Edward Harcourt DSO MC", and with the short rank "Capt Edward Harcourt DSO MC"; the
/// name alone without a rank.
zel::String titleOf(const Honours& honours, const zel::String& name);
zel::String shortTitleOf(const Honours& honours, const zel::String& name);
