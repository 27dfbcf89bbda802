#include "engine/window/LongWork.h"

#include "engine/window/HighLevelScheduler.h"
#include "engine/window/Platform.h"
#include "engine/window/StatesMachine.h"
#include "engine/window/Window.h"

namespace zel {

namespace {

constexpr uint32_t WorkFramePeriod = 100; // milliseconds

} // namespace

LongWork::LongWork() : holdsTransition(StatesMachine::getInstance().holdTransition()) {}

LongWork::~LongWork() {
    Platform::getInstance().pumpAndDrop();
    if (holdsTransition)
        StatesMachine::getInstance().continueTransition();
    HighLevelScheduler::getInstance().countTimeFromHere();
}

bool LongWork::isDue() const { return sinceFrame.getTicks() >= WorkFramePeriod; }

void LongWork::showFrame(const std::function<void()>& drawAbove) {
    Platform::getInstance().pumpAndDrop(); // first: the window may take another size
    StatesMachine::getInstance().render();
    if (drawAbove)
        drawAbove();
    if (Window* window = Window::current())
        window->swapBuffers();
    sinceFrame.reset();
}

} // namespace zel
