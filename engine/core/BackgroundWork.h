#pragma once

namespace zel {

/// Work done in steps, one a frame, so that no frame waits for all of it. The state machine takes
/// the steps; see StatesMachine::setBackgroundWork.
class BackgroundWork {
public:
    virtual ~BackgroundWork() = default;
    virtual bool hasWork() const = 0;
    /// Does one step. Without work it does nothing.
    virtual void step() = 0;
};

} // namespace zel
