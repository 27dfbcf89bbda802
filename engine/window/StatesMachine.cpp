#include "engine/window/StatesMachine.h"

#include <algorithm>

#include "engine/core/BackgroundWork.h"
#include "engine/core/Log.h"
#include "engine/graphics/Canvas.h"
#include "engine/window/HighLevelScheduler.h"
#include "engine/window/Platform.h"
#include "engine/window/State.h"
#include "engine/window/StateOverlay.h"
#include "engine/window/ZelLoop.h"

namespace zel {

namespace {

constexpr const char* StatesMachineCategory = "StatesMachine";
constexpr size_t HistoryLength = 128;

bool beginsBackwards(const String& name) { return name.length() > 1 && name.view().front() == '<'; }

/// The state's name without the sign for backwards.
String plainName(const String& name) {
    return beginsBackwards(name) ? String(name.view().substr(1)) : name;
}

/// The progress of a phase, 0 to 1, and above 1 after its end. A phase of no length that has only
/// just begun is at its end, not after it.
float progressOf(double seconds, float length) {
    if (length <= 0)
        return seconds > 0 ? 2 : 1;
    const double progress = seconds / static_cast<double>(length);
    return progress > 1 ? 2.0F : std::max(0.0F, static_cast<float>(progress));
}

bool areSame(const StateOverlay* first, const StateOverlay* second) {
    return first != nullptr && first == second;
}

} // namespace

StatesMachine& StatesMachine::getInstance() {
    static StatesMachine machine;
    return machine;
}

void StatesMachine::registerState(State* state) {
    const String name = state->getName();
    log("registerState " + name, StatesMachineCategory, LogInfo);
    states.emplace(name, state);
}

void StatesMachine::unregisterState(State* state) {
    for (auto entry = states.begin(); entry != states.end();)
        entry = entry->second == state ? states.erase(entry) : std::next(entry);
    for (const auto& [name, other] : states)
        if (other->autoTransitionState == state)
            other->setAutoTransition(nullptr, 0);
    for (State** holder : {&activeState, &previousState, &defaultState})
        if (*holder == state)
            *holder = nullptr;
    stateCalls.forget(state);
}

State* StatesMachine::findState(const String& name) const {
    const auto found = states.find(plainName(name));
    return found != states.end() ? found->second : nullptr;
}

State* StatesMachine::getState(const String& name) const {
    State* state = findState(name);
    if (state == nullptr)
        log("Requested state " + plainName(name) + " is unknown", StatesMachineCategory,
            LogWarning);
    return state;
}

void StatesMachine::setActiveState(State* state, bool /*backwards*/) {
    if (state != nullptr && state == activeState) {
        log("New active state is already current state", StatesMachineCategory, LogWarning);
        return;
    }
    changeState(state);
    if (state != nullptr)
        log("New state: " + state->getName(), StatesMachineCategory, LogInfo);
}

void StatesMachine::changeState(State* target) {
    if (target == nullptr) {
        log("New state: NULL", StatesMachineCategory, LogError);
        return;
    }
    previousState = activeState;
    activeState = target;
    newStateOnTop =
        target->isDrawnOnTop() || previousState == nullptr || !previousState->isDrawnOnTop();
    phase = FadeOut;
    phaseTime0 = 0;
    phaseTime1 = 0;
    if (previousState != nullptr) {
        previousState->setOpacity(1, 1);
        phaseTime0 = previousState->fadeOutTime / State::fadeSpeed;
        phaseTime1 = previousState->crossFadeTime / State::crossFadeSpeed;
        stateCalls.add(STATECALL_ON_LEAVING, previousState);
    }
    target->setOpacity(0, 0);
    target->setTransition({});
    stateCalls.add(STATECALL_ON_FIRST_ENTER, target);
    stateCalls.add(STATECALL_ON_ENTER, target);
    stateCalls.add(STATECALL_START_TIMER, target, previousState);
    phaseTime2 = target->fadeInTime / State::fadeSpeed;
    transitionTimer.reset();
    transitionTimer.stop();
    stateTimer.reset();
    remember(target->getName());
}

void StatesMachine::remember(const String& name) {
    history.push_back(name);
    if (history.size() > HistoryLength)
        history.erase(history.begin());
    if (!isLogged(StatesMachineCategory, LogInfo))
        return;
    for (size_t place = 0; place < history.size(); ++place)
        log("history " + String(static_cast<int32_t>(place)) + ": " + history[place],
            StatesMachineCategory, LogInfo);
}

void StatesMachine::setInputSettings(int32_t a, int32_t b, int32_t c, int32_t d) {
    inputSettings = {a, b, c, d};
}

bool StatesMachine::sharesBackgroundOverlay() const {
    return activeState != nullptr && previousState != nullptr &&
           (areSame(activeState->getBackgroundOverlay(), previousState->getBackgroundOverlay()) ||
            areSame(activeState->getThemeBackground(), previousState->getThemeBackground()));
}

bool StatesMachine::sharesForegroundOverlay() const {
    return activeState != nullptr && previousState != nullptr &&
           (areSame(activeState->getForegroundOverlay(), previousState->getForegroundOverlay()) ||
            areSame(activeState->getThemeForeground(), previousState->getThemeForeground()));
}

void StatesMachine::update() {
    if (backgroundWork != nullptr && backgroundWork->hasWork())
        backgroundWork->step();
    if (!stateCalls.empty()) {
        const StateCall call = stateCalls.takeFirst();
        StateCalls::deliver(call);
        if (call.type == STATECALL_START_TIMER)
            transitionTimer.reset();
    } else {
        if (activeState == nullptr && defaultState != nullptr) {
            setActiveState(defaultState);
        } else if (activeState == nullptr) {
            log("Unknown state and no default state set", StatesMachineCategory, LogFatal);
            ZelLoop::quit();
        }
        advanceTransition();
        Platform::getInstance().beginInputFrame();
        HighLevelScheduler::getInstance().run();
        Platform::getInstance().endInputFrame();
        followRequest();
    }
    // Input before the new screen is idle isn't meant for it.
    if (phase != Idle)
        Platform::getInstance().forgetPresses();
}

void StatesMachine::advanceTransition() {
    if (activeState == nullptr)
        return;
    switch (phase) {
    case FadeOut:
        return advanceFadeOut();
    case CrossFade:
        return advanceCrossFade();
    case FadeIn:
        return advanceFadeIn();
    default:
        return advanceIdle();
    }
}

void StatesMachine::advanceIdle() {
    State& state = *activeState;
    if (!state.hasAutoTransition ||
        !(stateTimer.getSeconds() > static_cast<double>(state.autoTransitionTime)))
        return;
    State* target = state.autoTransitionState;
    if (target == nullptr)
        target = getState(state.autoTransitionName);
    // One that leads nowhere is removed, so that it is logged only once.
    if (target == nullptr || target == activeState) {
        state.setAutoTransition(nullptr, 0);
        setActiveState(target);
    } else {
        changeState(target);
    }
}

void StatesMachine::advanceFadeOut() {
    const float progress = progressOf(transitionTimer.getSeconds(), phaseTime0);
    if (progress <= 1 && previousState != nullptr) {
        previousState->setContent(1, 1 - progress);
        return;
    }
    phase = CrossFade;
    activeState->setContent(0, 0);
    activeState->setOpacity(0, newStateOnTop || previousState == nullptr ? 0.0F : 1.0F);
    if (previousState != nullptr) {
        previousState->setContent(1, 0);
        previousState->setOpacity(1, 1);
    }
}

void StatesMachine::advanceCrossFade() {
    const double seconds = transitionTimer.getSeconds() - static_cast<double>(phaseTime0);
    const float progress = progressOf(seconds, phaseTime1);
    if (progress > 1 || previousState == nullptr)
        return endCrossFade();
    activeState->setOpacity(0, newStateOnTop ? progress : 1);
    previousState->setOpacity(1, newStateOnTop ? 1 : 1 - progress);
}

void StatesMachine::endCrossFade() {
    activeState->setOpacity(0, 1);
    phase = FadeIn;
    if (previousState != nullptr) {
        previousState->setOpacity(1, newStateOnTop ? 1.0F : 0.0F);
        stateCalls.add(STATECALL_ON_LEAVE, previousState);
    }
    stateCalls.add(STATECALL_ON_ENTERED, activeState);
    stateCalls.add(STATECALL_UPDATE_SCHEDULERS, activeState);
    previousState = nullptr;
}

void StatesMachine::advanceFadeIn() {
    const double seconds = transitionTimer.getSeconds() - static_cast<double>(phaseTime0) -
                           static_cast<double>(phaseTime1);
    const float progress = progressOf(seconds, phaseTime2);
    activeState->setContent(0, std::min(progress, 1.0F));
    if (progress > 1) {
        phase = Idle;
        transitionTimer.stop();
    }
}

// The request is removed first: one that can't be followed is logged once.
void StatesMachine::followRequest() {
    if (activeState == nullptr || phase != Idle || !activeState->transitionRequested)
        return;
    const String target = activeState->transitionTarget;
    activeState->setTransition({});
    setActiveState(getState(target), beginsBackwards(target));
}

bool StatesMachine::holdTransition() {
    const bool wasRunning = !transitionTimer.isStopped();
    transitionTimer.stop();
    return wasRunning;
}

void StatesMachine::continueTransition() { transitionTimer.start(); }

void StatesMachine::render() {
    Canvas::getInstance().clearWindow();
    State* const lower = newStateOnTop ? previousState : activeState;
    State* const upper = newStateOnTop ? activeState : previousState;
    for (State* state : {lower, upper})
        if (state != nullptr && state->getOpacity() > 0)
            state->render();
}

void StatesMachine::reset() {
    activeState = nullptr;
    previousState = nullptr;
    defaultState = nullptr;
    newStateOnTop = true;
    phase = Idle;
    transitionTimer.reset();
    stateTimer.reset();
    inputSettings = {1, 15, 120, 0};
    states.clear();
    stateCalls.clear();
    backgroundWork = nullptr;
}

} // namespace zel
