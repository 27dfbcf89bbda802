#include "app/career/NameLists.h"

#include <utility>

#include "app/career/Database.h"
#include "engine/core/Log.h"

namespace {

/// Indices of the name lists.
enum NamesOf : int32_t { FrenchNames = 0, EnglishNames = 1, GermanNames = 2, AmericanNames = 3 };
constexpr const char* NameListPrefixes[] = {"France", "England", "Germany", "USA"};

int32_t nameListOf(int32_t nation) {
    switch (nation) {
    case France:
        return FrenchNames;
    case England:
        return EnglishNames;
    case Usa:
        return AmericanNames;
    case Germany:
        return GermanNames;
    default:
        zel::console(zel::String("UNKNOWN NATION: ") + nation);
        return nation <= 499 ? EnglishNames : GermanNames;
    }
}

/// One draw; an empty list gives an empty name without one.
std::string_view drawName(const EntireFile& list, zel::Random& random) {
    if (list.lineCount() == 0)
        return {};
    return list.line(random.getInt(0, list.lineCount() - 1)).view();
}

} // namespace

void loadNameLists(Database& career) {
    for (const auto& [lists, ending] :
         {std::pair{career.firstNames, "_1st.txt"}, {career.lastNames, "_2nd.txt"}}) {
        for (int32_t i = 0; i < 4; ++i) {
            const zel::String file = zel::String("Data/Names/") + NameListPrefixes[i] + ending;
            if (!lists[i].loadFile(file) || lists[i].lineCount() == 0)
                zel::log("No names in " + file, "Database", zel::LogWarning);
        }
    }
}

zel::String drawPilotName(Database& career, int32_t nation) {
    return drawPilotName(career, nation, career.random);
}

zel::String drawPilotName(const Database& career, int32_t nation, zel::Random& random) {
    const int32_t list = nameListOf(nation);
    const std::string_view last = drawName(career.lastNames[list], random);
    const std::string_view first = drawName(career.firstNames[list], random);
    if (first.empty() || last.empty())
        return zel::String(first.empty() ? last : first);
    return zel::String(first) + " " + last;
}
