#include "tools/common/CallReading.h"

#include <cstdio>

#include "tools/common/Print.h"

namespace tools {

namespace {

constexpr int WrongCall = 2; // exit status

} // namespace

std::vector<std::string> argumentsOf(int count, char** words) {
    return {words + (count > 0 ? 1 : 0), words + count};
}

std::optional<int> answer(const CallReading& reading) {
    if (reading.kind == CallKind::Run)
        return {};
    const bool isHelp = reading.kind == CallKind::Help;
    print(isHelp ? stdout : stderr, reading.text);
    return isHelp ? 0 : WrongCall;
}

} // namespace tools
