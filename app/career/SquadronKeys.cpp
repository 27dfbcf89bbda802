#include "app/career/SquadronKeys.h"

#include "engine/core/String.h"

SquadronKeys::SquadronKeys(const std::vector<Squadron>& squadrons) {
    for (size_t i = 0; i < squadrons.size(); ++i) {
        const std::string_view key = zel::arrayText(squadrons[i].key);
        if (!key.empty())
            indices.emplace(key, static_cast<int32_t>(i)); // keeps the first of a key
    }
}

int32_t SquadronKeys::find(std::string_view key) const {
    const auto found = indices.find(key);
    return found != indices.end() ? found->second : -1;
}
