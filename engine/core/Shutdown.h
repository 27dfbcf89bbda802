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

/// Registers the call that ends a part, once it has something to end: the loop knows no part by
/// name. The call must be harmless when nothing is left.
void setShutdownStep(ShutdownStep step, void (*call)());
/// Makes all registered calls in order. They stay registered: the next loop of the process ends the
/// same way.
void runShutdownSteps();

/// What the parts do when the application is suspended and when it resumes; registered like the
/// above.
void setSuspendStep(ShutdownStep step, void (*suspend)(), void (*resume)());
void runSuspendSteps();
void runResumeSteps();

} // namespace zel
