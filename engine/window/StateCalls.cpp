#include "engine/window/StateCalls.h"

#include <algorithm>

#include "engine/core/Log.h"
#include "engine/window/State.h"
#include "engine/window/StateOverlay.h"

namespace zel {

namespace {

constexpr const char* StateCallsCategory = "StatesMachine";

/// Calls both overlays of the state, the background first.
template <typename Call> void forOverlays(const State& state, Call call) {
    for (StateOverlay* overlay : {state.getBackgroundOverlay(), state.getForegroundOverlay()})
        if (overlay != nullptr)
            call(*overlay);
}

void logCall(const State& state, const char* what) {
    log(state.getName() + ": " + what, StateCallsCategory, LogInfo);
}

void enter(State& state) {
    logCall(state, "onEnter()");
    state.onEnter();
    state.reset();
    forOverlays(state, [](StateOverlay& overlay) {
        overlay.reset();
        overlay.addUser();
        overlay.onEnter();
    });
}

void leave(State& state) {
    logCall(state, "onLeave()");
    state.onLeave();
    forOverlays(state, [](StateOverlay& overlay) {
        overlay.onLeave();
        overlay.removeUser();
    });
}

} // namespace

void StateCalls::add(StateCallType type, State* state, State* otherState) {
    // Indexed by type; the timer and the schedulers have no name of their own in the log.
    static constexpr const char* Names[] = {"ON_FIRST_ENTER", "ON_ENTER", nullptr, "ON_ENTERED",
                                            "ON_LEAVING",     "ON_LEAVE", nullptr};
    if (state != nullptr)
        calls.push_back({state, otherState, type});
    else if (Names[type] != nullptr)
        log(String("addStateCall STATECALL_") + Names[type] + " without state", StateCallsCategory,
            LogWarning);
}

StateCall StateCalls::takeFirst() {
    const StateCall call = calls.front();
    calls.pop_front();
    return call;
}

void StateCalls::forget(const State* state) {
    calls.erase(std::remove_if(calls.begin(), calls.end(),
                               [state](const StateCall& call) { return call.state == state; }),
                calls.end());
}

void StateCalls::firstEnter(State& state) {
    logCall(state, "onFirstEnter()");
    if (!state.firstEnterDone) {
        state.firstEnterDone = true;
        state.onFirstEnter();
    }
    forOverlays(state, [](StateOverlay& overlay) {
        if (overlay.takeFirstEnter())
            overlay.onFirstEnter();
    });
}

void StateCalls::deliver(const StateCall& call) {
    if (call.state == nullptr) {
        log("processStateCall() for invalid state", StateCallsCategory, LogFatal);
        return;
    }
    State& state = *call.state;
    switch (call.type) {
    case STATECALL_ON_FIRST_ENTER:
        return firstEnter(state);
    case STATECALL_ON_ENTER:
        return enter(state);
    case STATECALL_START_TIMER:
        return log("Transition timer started", StateCallsCategory, LogInfo);
    case STATECALL_ON_ENTERED:
        logCall(state, "onEntered()");
        state.onEntered();
        return forOverlays(state, [](StateOverlay& overlay) { overlay.onEntered(); });
    case STATECALL_ON_LEAVING:
        logCall(state, "onLeaving()");
        state.onLeaving();
        return forOverlays(state, [](StateOverlay& overlay) { overlay.onLeaving(); });
    case STATECALL_ON_LEAVE:
        return leave(state);
    default:
        log("updateSchedulersActive()", StateCallsCategory, LogInfo);
    }
}

} // namespace zel
