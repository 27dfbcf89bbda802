#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <vector>

#include "engine/core/String.h"
#include "engine/window/Timer.h"
#include "engine/window/UpdateObject.h"

namespace zel {

class BackgroundWork;
class State;
class StateOverlay;

/// Holds all states by name, one of them active, and carries the program from one to the next in
/// three timed phases: the old state's content goes (0), the states change over (1), the new
/// state's content comes (2). In phase 3 it is idle.
///
/// What states are told of a change goes through a queue, one call a frame: first the old state's
/// onLeaving(), then the new one's onFirstEnter() and onEnter() with reset(), then the timer starts
/// and the phases run; between phases 1 and 2 come the old one's onLeave() and the new one's
/// onEntered(). In a frame that delivers a call neither the phases nor the scheduler run, so a
/// slow load never eats a fade.
class StatesMachine : public UpdateAndRenderObject {
public:
    enum Phase : int32_t { FadeOut = 0, CrossFade = 1, FadeIn = 2, Idle = 3 };

    static StatesMachine& getInstance();

    /// A name already present keeps its first state.
    void registerState(State* state);
    /// Forgets a state that is about to end, wherever the machine holds it.
    void unregisterState(State* state);
    /// The state of that name; a "<" in front of a longer name is passed over. On error: a log line
    /// and null.
    State* getState(const String& name) const;
    /// The same without a log line, for those who only ask.
    State* findState(const String& name) const;

    /// Starts the change to the state. The active state itself and null are logged and change
    /// nothing. `backwards` tells that the target's name began with "<"; nothing differs by it.
    void setActiveState(State* state, bool backwards = false);
    /// Taken when there is no active state.
    void setDefaultState(State* state) { defaultState = state; }

    State* getActiveState() const { return activeState; }
    State* getPreviousState() const { return previousState; } // null outside transitions
    int32_t getPhase() const { return phase; }                // see Phase
    bool isNewStateOnTop() const { return newStateOnTop; }
    /// Idle with nothing left to deliver: what was asked for is done.
    bool isSettled() const { return phase == Idle && stateCalls.empty(); }
    /// Names of the states entered, oldest first, at most 128.
    const std::vector<String>& getHistory() const { return history; }

    void setInputSettings(int32_t a, int32_t b, int32_t c, int32_t d);
    /// One step of it is done a frame; null for none. It must outlive the machine's use of it.
    void setBackgroundWork(BackgroundWork* work) { backgroundWork = work; }

    /// During a transition, whether both states show the same picture there: it isn't faded then.
    bool sharesBackgroundOverlay() const;
    bool sharesForegroundOverlay() const;

    /// Stops the time of a running transition, as for long work in the midst of it. Returns whether
    /// it ran; then, and only then, continueTransition() is due.
    [[nodiscard]] bool holdTransition();
    void continueTransition();

    void update() override; // one frame
    void render() override; // draws the visible states, or nothing but black if there is none
    /// As at the start: no states and no calls. The history stays.
    void reset();

private:
    enum CallType : int32_t {
        STATECALL_ON_FIRST_ENTER = 0,
        STATECALL_ON_ENTER = 1,
        STATECALL_START_TIMER = 2,
        STATECALL_ON_ENTERED = 3,
        STATECALL_ON_LEAVING = 4,
        STATECALL_ON_LEAVE = 5,
        STATECALL_UPDATE_SCHEDULERS = 6,
    };
    struct StateCall {
        State* state;
        State* otherState;
        int32_t type;
    };

    StatesMachine() = default;

    void changeState(State* target);
    void addStateCall(int32_t type, State* state, State* otherState = nullptr);
    void processStateCall(const StateCall& call);
    static void firstEnter(State& state);
    void advanceTransition();
    void advanceIdle();
    void advanceFadeOut();
    void advanceCrossFade();
    void advanceFadeIn();
    void endCrossFade();
    void followRequest();
    void remember(const String& name);

    BackgroundWork* backgroundWork = nullptr;
    std::map<String, State*> states;
    State* activeState = nullptr;
    State* previousState = nullptr;
    State* defaultState = nullptr;
    bool newStateOnTop = true;
    int32_t phase = Idle;
    float phaseTime0 = 0; // seconds, as the two below
    float phaseTime1 = 0;
    float phaseTime2 = 0;
    Timer transitionTimer;
    Timer stateTimer;                                    // since the last change of state
    std::array<int32_t, 4> inputSettings{1, 15, 120, 0}; // kept as given
    std::vector<String> history;
    std::deque<StateCall> stateCalls;
};

} // namespace zel
