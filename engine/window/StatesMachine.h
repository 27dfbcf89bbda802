#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <vector>

#include "engine/core/String.h"
#include "engine/window/StateCalls.h"
#include "engine/window/Timer.h"
#include "engine/window/UpdateObject.h"

namespace zel {

class BackgroundWork;
class State;
class StateOverlay;

/// Holds all states by name, one of them active, and changes between them in three timed phases:
/// the old state's content goes (0), the states cross-fade (1), the new state's content comes (2).
/// In phase 3 it is idle.
///
/// Notifications of a change go through a queue, one a frame: first the old state's onLeaving(),
/// then the new one's onFirstEnter() and onEnter() with reset(), then the timer starts and the
/// phases run; between phases 1 and 2 come the old one's onLeave() and the new one's onEntered().
/// In a frame that delivers one neither the phases nor the scheduler run, so slow loading never
/// shortens a fade.
class StatesMachine : public UpdateAndRenderObject {
public:
    enum Phase : int32_t { FadeOut = 0, CrossFade = 1, FadeIn = 2, Idle = 3 };

    static StatesMachine& getInstance();

    /// The first state of a name keeps it.
    void registerState(State* state);
    /// Removes a state that is about to end, wherever the machine refers to it.
    void unregisterState(State* state);
    /// The state of that name; a "<" before a longer name is ignored. On error: a log line and
    /// null.
    State* getState(const String& name) const;
    /// The same without a log line.
    State* findState(const String& name) const;

    /// Starts the change to the state. The active state itself and null are logged and change
    /// nothing. `backwards`: the target's name began with "<"; it has no effect.
    void setActiveState(State* state, bool backwards = false);
    /// Becomes active when no state is.
    void setDefaultState(State* state) { defaultState = state; }

    State* getActiveState() const { return activeState; }
    State* getPreviousState() const { return previousState; } // null outside transitions
    int32_t getPhase() const { return phase; }                // see Phase
    bool isNewStateOnTop() const { return newStateOnTop; }
    /// Idle with nothing left to deliver: all requests are done.
    bool isSettled() const { return phase == Idle && stateCalls.empty(); }
    /// Names of the states entered, oldest first, at most 128.
    const std::vector<String>& getHistory() const { return history; }

    /// Four values that are only stored.
    void setInputSettings(int32_t a, int32_t b, int32_t c, int32_t d);
    /// The machine does one step of the work a frame; null for none. It must outlive its use here.
    void setBackgroundWork(BackgroundWork* work) { backgroundWork = work; }

    /// Whether both states of a running transition show the same picture there, which then isn't
    /// faded.
    bool sharesBackgroundOverlay() const;
    bool sharesForegroundOverlay() const;

    /// Stops the clock of a running transition, for long work within a frame. Returns whether it
    /// ran; if so, continueTransition() must follow.
    [[nodiscard]] bool holdTransition();
    void continueTransition();

    void update() override; // one frame
    void render() override; // draws the visible states; black without any
    /// Back to the initial state: no states and no calls. The history is kept.
    void reset();

private:
    StatesMachine() = default;

    void changeState(State* target);
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
    std::array<int32_t, 4> inputSettings{1, 15, 120, 0}; // stored as given
    std::vector<String> history;
    StateCalls stateCalls;
};

} // namespace zel
