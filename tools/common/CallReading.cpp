#include "tools/common/CallReading.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

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
    return isHelp ? exitStatus(0) : WrongCall;
}

int exitStatus(int status) {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return status;
    print(stderr, std::string("Standard output can't be written: ") + std::strerror(errno) + "\n");
    return status == 0 ? 1 : status;
}

} // namespace tools
