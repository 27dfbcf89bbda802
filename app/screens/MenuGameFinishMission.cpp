#include "app/screens/MenuGameFinishMission.h"

#include <cstdio>

#include "app/career/Database.h"
#include "app/report/Flight.h"
#include "app/report/ReportText.h"
#include "app/screens/OwnStandIn.h"
#include "app/screens/ScreenSounds.h"
#include "app/screens/ScreenWording.h"
#include "engine/core/Clock.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/StatesMachine.h"
#include "engine/window/Window.h"

namespace {

constexpr double LookInterval = 8.0; // seconds; one turn of the watch's hand
constexpr int32_t HandPlaces = 8;

/// Never while the simulator is in front: it needs the machine for itself.
bool isPlayerHere() {
    return zel::Window::hasMouseFocus() && zel::Window::hasInputFocus() && zel::Window::isActive();
}

zel::String timeOfDay() {
    const zel::WallTime now = zel::wallTime();
    char text[12];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", now.hour, now.minute, now.second);
    return text;
}

} // namespace

void MenuGameFinishMission::onEnter() {
    secondPress.begin();
    lastLook.begin();
    showDate();
    timer.reset();
    lookedAt = {};
    hand = -1;
    flight.report().clear();
    showNews();
    showWatch();
}

void MenuGameFinishMission::update() {
    if (runningCareer() == nullptr)
        return;
    const bool isSettled = zel::StatesMachine::getInstance().isSettled();
    if (!isSettled)
        secondPress.begin(); // a press counts from the moment that the plate can take one
    // A report that is found while the player leaves the page would never be shown.
    if ((timer.getSeconds() > LookInterval || flight.isToBeSought()) && isPlayerHere() &&
        isSettled && look(false))
        setTransition("MenuGameCombatReport");
    showWatch();
}

void MenuGameFinishMission::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    if (runningCareer() == nullptr || menu->isTransitionRequested())
        return;
    if (widget->getName() == "menuButton4") {
        goOnWithout(*widget);
    } else if (widget->getName() == "lookNow") {
        widget->reset();
        if (look(false))
            setTransition("MenuGameCombatReport");
    }
}

// Leads to the report, found or not, but not past one that may still come.
void MenuGameFinishMission::goOnWithout(zel::Widget& plate) {
    bool stays = secondPress.isDue();
    if (!stays && !look(true) && lastLook.holds(flight.news().state)) {
        stays = true;
        secondPress.begin();
        showNews();
    }
    plate.setTransition(stays ? "" : "MenuGameCombatReport");
    if (stays)
        plate.reset();
}

bool MenuGameFinishMission::look(bool isLastLook) {
    const bool isFound = flight.findReport(*runningCareer(), isLastLook);
    if (isFound)
        playScreenSound("telephone");
    lookedAt = timeOfDay();
    timer.reset();
    showNews();
    showWatch();
    return isFound;
}

/// What the page says about the logs.
zel::String MenuGameFinishMission::logText() const {
    const LogNews news = flight.news();
    const int32_t quietMinutes = flight.logs().quietMinutes();
    if (news.state != LogState::None || quietMinutes == 0)
        return newsText(news);
    return textOf(OwnStandIn::isChosen() ? wording::QuietStandIn : wording::QuietLog,
                  {quietMinutes});
}

void MenuGameFinishMission::showNews() {
    const zel::String trouble = standIn.trouble();
    setText("line2", textOf(!OwnStandIn::isChosen() ? wording::FinishFlight
                            : trouble.empty()       ? wording::StandInFlying
                                                    : wording::StandInIdle));
    setText("log", trouble.empty() ? logText() : textOf(wording::StandInRefuses, {trouble}));
    setText("text1", textOf(lastLook.hasHeld(flight.news().state) ? wording::GoOnNotYet
                                                                  : wording::MayGoOnWithout));
}

void MenuGameFinishMission::showWatch() {
    zel::String text =
        textOf(lookedAt.empty() ? wording::LooksForLog : wording::LookedForLog, {lookedAt});
    if (!zel::Window::hasMouseFocus())
        text = textOf(wording::PointerElsewhere);
    else if (!isPlayerHere())
        text = textOf(wording::KeyboardElsewhere);
    setText("watch", text);
    const int32_t second = int32_t(timer.getSeconds()) % HandPlaces;
    zel::Widget* picture = getWidget("hand");
    if (picture == nullptr || second == hand || !isPlayerHere())
        return;
    hand = second;
    for (int32_t look = 0; look < zel::LookCount; ++look)
        picture->setImage(zel::WidgetLook(look),
                          zel::ImageHandler::getInstance().getImage(zel::String("hand_") + hand));
}
