#include "engine/core/Shutdown.h"

#include <array>
#include <cstddef>

namespace zel {

namespace {

struct Steps {
    void (*end)() = nullptr;
    void (*suspend)() = nullptr;
    void (*resume)() = nullptr;
};
std::array<Steps, static_cast<size_t>(ShutdownStep::Count)> steps;

Steps& stepsOf(ShutdownStep step) { return steps[static_cast<size_t>(step)]; }

void callAll(void (*Steps::*which)()) {
    for (const Steps& part : steps)
        if (part.*which != nullptr)
            (part.*which)();
}

} // namespace

void setShutdownStep(ShutdownStep step, void (*call)()) { stepsOf(step).end = call; }
void runShutdownSteps() { callAll(&Steps::end); }

void setSuspendStep(ShutdownStep step, void (*suspend)(), void (*resume)()) {
    stepsOf(step).suspend = suspend;
    stepsOf(step).resume = resume;
}
void runSuspendSteps() { callAll(&Steps::suspend); }
void runResumeSteps() { callAll(&Steps::resume); }

} // namespace zel
