#pragma once

#include <cstdint>
#include <deque>

namespace zel {

class State;

/// What a state is notified of; one frame delivers one call.
enum StateCallType : int32_t {
    STATECALL_ON_FIRST_ENTER = 0,
    STATECALL_ON_ENTER = 1,
    STATECALL_START_TIMER = 2,
    STATECALL_ON_ENTERED = 3,
    STATECALL_ON_LEAVING = 4,
    STATECALL_ON_LEAVE = 5,
    STATECALL_UPDATE_SCHEDULERS = 6,
};

/// One notification that waits for its frame.
struct StateCall {
    State* state;
    State* otherState; // the previous state, of STATECALL_START_TIMER
    int32_t type;      // see StateCallType
};

/// The queue of notifications, first in first out. The machine delivers them, one a frame.
class StateCalls {
public:
    /// A null state queues nothing; the types with a notification of their own log it.
    void add(StateCallType type, State* state, State* otherState = nullptr);
    bool empty() const { return calls.empty(); }
    /// REQUIRES: not empty().
    StateCall takeFirst();
    /// Drops the calls of a state that is about to end.
    void forget(const State* state);
    void clear() { calls.clear(); }

    /// Logs the call and notifies the state, then its overlays, the background first. What
    /// STATECALL_START_TIMER starts is the caller's. A call without a state is logged and dropped.
    static void deliver(const StateCall& call);

private:
    static void firstEnter(State& state);

    std::deque<StateCall> calls;
};

} // namespace zel
