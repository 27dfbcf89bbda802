#pragma once

#include "app/career/Wording.h"
#include "engine/core/FileFault.h"
#include "engine/core/String.h"

enum class SwitchOutcome : int32_t {
    Done,
    AlreadyOn,     // nothing was written
    SimulatorRuns, // it runs, and would overwrite the file with its own settings
    NoFile,        // no data/startup.cfg, or an empty one
    NotText,       // it isn't a text of single bytes: UTF-16, or binary
    NotRead,       // fault: why
    NotWritten,    // fault: why
};
constexpr int32_t SwitchOutcomeCount = static_cast<int32_t>(SwitchOutcome::NotWritten) + 1;

/// The result of switching the text log on. All but Done leave the file as it was.
struct TextLogSwitch {
    SwitchOutcome outcome = SwitchOutcome::NoFile;
    zel::FileFault fault = zel::FileFault::None;
    zel::String file;   // startup.cfg, with its path
    zel::String backup; // Done: the file that has the former content

    bool isOn() const {
        return outcome == SwitchOutcome::Done || outcome == SwitchOutcome::AlreadyOn;
    }
    /// What it has done, or why not and what to do, as whole sentences in the language in use.
    zel::String text() const;
};

/// Switches the simulator's text log on: mission_text_log = 1 in data/startup.cfg of that folder.
///
/// The former file is kept beside it as startup.cfg.wingtally-bak. An earlier backup is never
/// overwritten: if its content differs, the new one is startup.cfg.wingtally-bak-2, and so on. The
/// new content is written beside the file and renamed.
TextLogSwitch switchTextLogOn(const zel::String& folder);
/// The same if it is known whether the simulator runs.
TextLogSwitch switchTextLogOn(const zel::String& folder, bool isSimulatorRunning);
