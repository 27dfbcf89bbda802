#pragma once

#include <cstdint>

namespace zel {

/// The parts of the engine above the loop, in the order in which the loop ends them.
enum class ShutdownStep : int32_t {
    Sounds,
    Layouts,
    Themes,
    Overlays,
    Menus, // tables of menus, handlers and extensions, global flags and strings
    Count
};

/// A part tells what ends it, once it has something to end: the loop knows none of them by name.
/// The call must be harmless when there is nothing left.
void setShutdownStep(ShutdownStep step, void (*call)());
/// Makes all calls that were set, in order. They stay set: the next loop in the same process ends
/// the same way.
void runShutdownSteps();

/// What those parts do while the application is suspended, and when it goes on; set like the above.
void setSuspendStep(ShutdownStep step, void (*suspend)(), void (*resume)());
void runSuspendSteps();
void runResumeSteps();

} // namespace zel
