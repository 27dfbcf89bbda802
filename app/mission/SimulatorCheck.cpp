#include "app/mission/SimulatorCheck.h"

#include "app/mission/Configuration.h"
#include "app/mission/SimulatorChecks.h"
#include "app/mission/TextLogLines.h"
#include "engine/core/File.h"
#include "engine/core/Log.h"

SimulatorState checkSimulator() {
    const zel::String folder = Configuration::getRofDirectory();
    const zel::String file = folder + "data\\" + StartupName;
    std::string settings;
    const bool exists = zel::readFileWhole(file, settings) == zel::FileFault::None &&
                        settings.find_first_not_of("\r\n") != std::string::npos;
    const int32_t textLog = textLogValue(settings, true);
    zel::console("CHECKING FILE: " + file);
    zel::console(zel::String("FILE EXISTS: ") + (exists ? 1 : 0));
    zel::console(zel::String("MISSION_TEXT_LOG: ") + textLog);
    if (!exists || !holdsSimulator(folder.empty() ? "." : folder))
        return SimulatorState::NotFound;
    return textLog == 0 ? SimulatorState::NoTextLog : SimulatorState::Ready;
}
