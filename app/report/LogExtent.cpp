#include "app/report/LogExtent.h"

#include <algorithm>

#include "app/career/Calendar.h"
#include "app/report/LogText.h"
#include "engine/core/System.h"

namespace {

constexpr std::string_view FirstNumber = "[0]";
constexpr std::string_view MissionKey = "MFile:";
constexpr std::string_view DateKey = "GDate:"; // 1917.4.12

zel::String pieceName(const zel::String& firstPiece, int32_t number) {
    const std::string_view name = firstPiece.view();
    const size_t open = name.find(FirstNumber);
    return zel::String(name.substr(0, open)) + "[" + number + "]" +
           name.substr(open + FirstNumber.size());
}

/// The first value of that key in the log. It may hold blanks: it goes up to the line's next key.
std::string_view valueIn(const LogText& log, std::string_view key) {
    std::string_view value;
    for (int32_t i = 0; i < log.lineCount() && value.empty(); ++i)
        if (const size_t place = log.line(i).find(key); place != value.npos)
            value = log.line(i).substr(place + key.size());
    if (const size_t colon = value.find(':'); colon != value.npos)
        value = value.substr(0, value.rfind(' ', colon));
    return zel::trimmed(value, ' ');
}

} // namespace

LogExtent measureLog(const zel::String& folder, const zel::String& firstPiece) {
    LogExtent log;
    for (;; ++log.pieces) {
        const zel::system::FileStatus status =
            zel::system::fileStatus(folder + pieceName(firstPiece, log.pieces));
        if (!status.exists)
            return log;
        log.bytes += status.size;
    }
}

zel::String loggedMission(const LogText& log) {
    std::string_view value = valueIn(log, MissionKey);
    if (const size_t separator = value.find_last_of("/\\"); separator != value.npos)
        value = value.substr(separator + 1);
    return zel::String(value.substr(0, value.rfind('.')));
}

int32_t loggedDate(const LogText& log) {
    const std::string_view value = valueIn(log, DateKey);
    const size_t month = value.find('.') + 1;
    const size_t day = value.find('.', month) + 1;
    if (month == 0 || day == 0)
        return 0;
    const auto number = [&](size_t place) {
        return std::clamp(zel::toInt(value.substr(place)), 0, 9999); // whatever was written
    };
    return Calendar(number(0), number(month), number(day)).dateNumber();
}
