#include "app/report/LogExtent.h"

#include "app/report/LogText.h"
#include "engine/core/System.h"

namespace {

constexpr std::string_view FirstNumber = "[0]";
constexpr std::string_view MissionKey = "MFile:";

zel::String pieceName(const zel::String& firstPiece, int32_t number) {
    const std::string_view name = firstPiece.view();
    const size_t open = name.find(FirstNumber);
    return zel::String(name.substr(0, open)) + "[" + number + "]" +
           name.substr(open + FirstNumber.size());
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
    std::string_view value;
    for (int32_t i = 0; i < log.lineCount() && value.empty(); ++i)
        if (const size_t key = log.line(i).find(MissionKey); key != value.npos)
            value = log.line(i).substr(key + MissionKey.size());
    // The value may hold blanks: it goes up to the line's next key.
    if (const size_t colon = value.find(':'); colon != value.npos)
        value = value.substr(0, value.rfind(' ', colon));
    value = zel::trimmed(value, ' ');
    if (const size_t separator = value.find_last_of("/\\"); separator != value.npos)
        value = value.substr(separator + 1);
    return zel::String(value.substr(0, value.rfind('.')));
}
