#include "app/screens/MenuGameFinishMission.h"

#include "app/career/Database.h"
#include "app/report/Flight.h"
#include "app/screens/ScreenSounds.h"
#include "engine/window/StatesMachine.h"
#include "engine/window/Window.h"

namespace {

constexpr double LookInterval = 8.0; // seconds
/// After that many the simulator, which writes a piece every half minute, has stopped.
constexpr int32_t QuietLooks = 5;

/// Never while the simulator is in front: it needs the machine for itself.
bool isPlayerHere() {
    return zel::Window::hasMouseFocus() && zel::Window::hasInputFocus() && zel::Window::isActive();
}

} // namespace

void MenuGameFinishMission::onEnter() {
    showDate();
    timer.reset();
    hasGrown = false;
    showProgress();
    flight.report().clear();
}

void MenuGameFinishMission::update() {
    Database* career = runningCareer();
    if (career == nullptr || timer.getSeconds() <= LookInterval || !isPlayerHere())
        return;
    if (!zel::StatesMachine::getInstance().isSettled())
        return; // he is just going away: a report that is found now would never be shown
    if (flight.findReport(*career)) {
        playScreenSound("telephone");
        setTransition("MenuGameCombatReport");
    } else {
        showProgress();
    }
    timer.reset();
}

void MenuGameFinishMission::showProgress() {
    const bool isQuiet = flight.logs().quietLooks() >= QuietLooks;
    hasGrown = hasGrown || flight.logs().isGrowing();
    setVisible("growing", hasGrown && !isQuiet);
    setVisible("ended", isQuiet);
}
