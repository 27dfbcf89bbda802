#include "app/mission/TextLogSwitch.h"

#include <iterator>

#include "app/mission/SimulatorChecks.h"
#include "app/mission/SimulatorWording.h"
#include "app/mission/TextLogLines.h"
#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/SystemPlaces.h"
#include "engine/core/WholeFile.h"

namespace {

constexpr const char* SimulatorProgram = "ROF.exe";
constexpr int32_t MostBackups = 1000;

/// The name for a backup of that content. `isKept`: whether the file there has it already.
zel::String backupName(const zel::String& file, const std::string& content, bool& isKept) {
    zel::String name = file + ".wingtally-bak";
    isKept = false;
    for (int32_t number = 2; number <= MostBackups; ++number) {
        if (!zel::system::fileStatus(name).exists && !zel::system::isDirectory(name))
            return name;
        std::string earlier;
        isKept = zel::readFileWhole(name, earlier) == zel::FileFault::None && earlier == content;
        if (isKept)
            return name;
        name = file + ".wingtally-bak-" + number;
    }
    return name;
}

zel::FileFault write(const std::string& before, const std::string& after, TextLogSwitch& result) {
    zel::FileFault fault = zel::system::writeFault(result.file);
    if (fault != zel::FileFault::None)
        return fault;
    bool isKept = false;
    result.backup = backupName(result.file, before, isKept);
    return zel::writeFileWhole(result.file, after, isKept ? zel::String() : result.backup);
}

SwitchOutcome switchFile(TextLogSwitch& result) {
    if (zel::system::fileStatus(result.file).size == 0)
        return SwitchOutcome::NoFile;
    std::string before;
    result.fault = zel::readFileWhole(result.file, before);
    if (result.fault != zel::FileFault::None)
        return SwitchOutcome::NotRead;
    if (before.find('\0') != std::string::npos)
        return SwitchOutcome::NotText;
    const std::string after = withTextLogOn(before);
    if (after == before)
        return SwitchOutcome::AlreadyOn;
    result.fault = write(before, after, result);
    return result.fault == zel::FileFault::None ? SwitchOutcome::Done : SwitchOutcome::NotWritten;
}

} // namespace

static_assert(std::size(wording::SwitchOutcomes) == SwitchOutcomeCount);

TextLogSwitch switchTextLogOn(const zel::String& folder) {
    return switchTextLogOn(folder, zel::system::isProgramRunning(SimulatorProgram));
}

TextLogSwitch switchTextLogOn(const zel::String& folder, bool isSimulatorRunning) {
    TextLogSwitch result;
    result.file = zel::system::absolutePath(startupFileIn(folder));
    result.outcome = isSimulatorRunning ? SwitchOutcome::SimulatorRuns : switchFile(result);
    if (result.outcome != SwitchOutcome::Done)
        result.backup = {};
    zel::log(result.text(), "Simulator", result.isOn() ? zel::LogInfo : zel::LogWarning);
    return result;
}

zel::String TextLogSwitch::text() const {
    const Wording& wording = wording::SwitchOutcomes[static_cast<int32_t>(outcome)];
    const std::string_view kept = backup;
    const zel::String name = kept.substr(kept.find_last_of("\\/") + 1);
    const zel::String reason = fault != zel::FileFault::None ? faultSentence(fault) : zel::String();
    return textOf(wording, {name, reason});
}
