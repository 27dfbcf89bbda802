#include "app/career/DataTokens.h"

#include "engine/core/String.h"

bool DataToken::is(std::string_view name) const { return zel::equalsNoCase(key, name); }

void splitDataLine(std::string_view line, std::vector<DataToken>& tokens) {
    tokens.clear();
    while (!line.empty()) {
        const std::string_view token = line.substr(0, line.find(' '));
        line.remove_prefix(token.size() < line.size() ? token.size() + 1 : token.size());
        const size_t equals = token.find('=');
        if (equals == token.npos)
            continue;
        const std::string_view value = token.substr(equals + 1);
        tokens.push_back({token.substr(0, equals), value.substr(0, value.find('='))});
    }
}
