#include "app/screens/MenuGameFinishMission.h"

#include "app/report/CombatReport.h"
#include "app/report/LogWatch.h"
#include "app/screens/ScreenSounds.h"
#include "engine/core/StatesMachine.h"
#include "engine/core/Window.h"

namespace {

constexpr double LookInterval = 8.0; // seconds
/// After that many the simulator, which writes a piece every half minute, has stopped.
constexpr int32_t QuietLooks = 5;

/// Never while the simulator is in front: it needs the machine for itself.
bool isPlayerHere() {
    return zel::Window::hasMouseFocus() && zel::Window::hasInputFocus() && zel::Window::isActive();
}

} // namespace

MenuGameFinishMission::MenuGameFinishMission() : CareerScreen("MenuGameFinishMission") {}

MenuGameFinishMission::~MenuGameFinishMission() = default;

void MenuGameFinishMission::onEnter() {
    showDate();
    timer.reset();
    hasGrown = false;
    showProgress();
    if (CombatReport::instance() == nullptr)
        report = std::make_unique<CombatReport>();
    CombatReport::instance()->clear();
}

void MenuGameFinishMission::update() {
    if (runningCareer() == nullptr || timer.getSeconds() <= LookInterval || !isPlayerHere())
        return;
    if (!zel::StatesMachine::getInstance().isSettled())
        return; // he is just going away: a report that is found now would never be shown
    if (findCombatReport(missionLogs())) {
        playScreenSound("telephone");
        setTransition("MenuGameCombatReport");
    } else {
        showProgress();
    }
    timer.reset();
}

void MenuGameFinishMission::showProgress() {
    const bool isQuiet = missionLogs().quietLooks() >= QuietLooks;
    hasGrown = hasGrown || missionLogs().isGrowing();
    setVisible("growing", hasGrown && !isQuiet);
    setVisible("ended", isQuiet);
}
